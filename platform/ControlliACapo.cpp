#include "platform/ControlliACapo.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {
// The indicator at the left, centred on the height, then the caption wrapped
// in the room beside it; the focus frame goes round the caption.
void dipingiIndicatore(QAbstractButton *b, QStyle::PrimitiveElement indicatore, QStyleOptionButton o)
{
    QStylePainter p(b);
    const QString testo = o.text;
    const int lato = b->style()->pixelMetric(QStyle::PM_IndicatorWidth, &o, b);
    o.rect = QRect(0, (b->height() - lato) / 2, lato, lato);
    o.text.clear();
    p.drawPrimitive(indicatore, o);
    const QRect r = b->rect().adjusted(lato + 6, 0, 0, 0);
    p.setPen(b->palette().color(b->isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    p.drawText(r, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, testo);
    if (b->hasFocus()) {
        QStyleOptionFocusRect f;
        f.initFrom(b);
        f.rect = r;
        p.drawPrimitive(QStyle::PE_FrameFocusRect, f);
    }
}
} // namespace

void PulsanteACapo::paintEvent(QPaintEvent *)
{
    QStylePainter p(this);
    QStyleOptionButton o;
    initStyleOption(&o);
    const QString testo = o.text;
    o.text.clear();
    p.drawControl(QStyle::CE_PushButton, o);
    const QRect r = style()->subElementRect(QStyle::SE_PushButtonContents, &o, this).adjusted(2, 1, -2, -1);
    p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    p.drawText(r, Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, testo);
}

void CasellaACapo::paintEvent(QPaintEvent *)
{
    QStyleOptionButton o;
    initStyleOption(&o);
    dipingiIndicatore(this, QStyle::PE_IndicatorCheckBox, o);
}

void OpzioneACapo::paintEvent(QPaintEvent *)
{
    QStyleOptionButton o;
    initStyleOption(&o);
    dipingiIndicatore(this, QStyle::PE_IndicatorRadioButton, o);
}
