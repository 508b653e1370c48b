#include "settings/ControlliConfigura.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {
// The indicator as the style draws it, then the caption wrapped in the room
// beside it, centred on the height like a one-line caption.
void dipingi(QAbstractButton *b, QStyleOptionButton opt, QStyle::ControlElement elemento,
             QStyle::SubElement contenuto)
{
    QStylePainter p(b);
    const QString testo = opt.text;
    opt.text.clear();
    p.drawControl(elemento, opt);
    QRect r = b->style()->subElementRect(contenuto, &opt, b);
    r.setRight(b->rect().right());
    r.setTop(0);
    r.setBottom(b->rect().bottom());
    p.drawItemText(r, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, opt.palette,
                   b->isEnabled(), testo, QPalette::WindowText);
}
} // namespace

OpzioneACapo::OpzioneACapo(const QString &caption, QWidget *parent) : QRadioButton(caption, parent) {}

void OpzioneACapo::paintEvent(QPaintEvent *)
{
    QStyleOptionButton opt;
    initStyleOption(&opt);
    dipingi(this, opt, QStyle::CE_RadioButton, QStyle::SE_RadioButtonContents);
}

bool OpzioneACapo::hitButton(const QPoint &pos) const { return rect().contains(pos); }

CasellaACapo::CasellaACapo(const QString &caption, QWidget *parent) : QCheckBox(caption, parent) {}

void CasellaACapo::paintEvent(QPaintEvent *)
{
    QStyleOptionButton opt;
    initStyleOption(&opt);
    dipingi(this, opt, QStyle::CE_CheckBox, QStyle::SE_CheckBoxContents);
}

bool CasellaACapo::hitButton(const QPoint &pos) const { return rect().contains(pos); }

PulsanteACapo::PulsanteACapo(const QString &caption, QWidget *parent) : QPushButton(caption, parent) {}

void PulsanteACapo::paintEvent(QPaintEvent *)
{
    QStylePainter p(this);
    QStyleOptionButton opt;
    initStyleOption(&opt);
    const QString testo = opt.text;
    opt.text.clear();
    p.drawControl(QStyle::CE_PushButton, opt);
    const QRect r = style()->subElementRect(QStyle::SE_PushButtonContents, &opt, this).adjusted(2, 0, -2, 0);
    p.drawItemText(r, Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, opt.palette, isEnabled(), testo,
                   QPalette::ButtonText);
}
