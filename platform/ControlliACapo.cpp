#include "platform/ControlliACapo.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStyledItemDelegate>
#include <QStylePainter>

#include <algorithm>

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

class DelegatoRigheIntere final : public QStyledItemDelegate
{
public:
    explicit DelegatoRigheIntere(ElencoRigheIntere *e) : QStyledItemDelegate(e), elenco(e) {}
    QSize sizeHint(const QStyleOptionViewItem &o, const QModelIndex &i) const override
    {
        QSize s = QStyledItemDelegate::sizeHint(o, i);
        s.setHeight(elenco->AltezzaRiga());
        return s;
    }

private:
    ElencoRigheIntere *elenco;
};
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

ElencoRigheIntere::ElencoRigheIntere(QWidget *parent) : QListWidget(parent)
{
    setItemDelegate(new DelegatoRigheIntere(this));
    setUniformItemSizes(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

int ElencoRigheIntere::AltezzaRiga() const { return riga; }

void ElencoRigheIntere::misuraRighe()
{
    const int spazio = std::max(1, contentsRect().height());
    const int righe = std::max(1, spazio / (fontMetrics().height() + 2));
    riga = spazio / righe;
    // What is left over under the last row stays outside the rows' area, where
    // no row can show in part.
    setViewportMargins(0, 0, 0, spazio - righe * riga);
    scheduleDelayedItemsLayout();
}

void ElencoRigheIntere::resizeEvent(QResizeEvent *e)
{
    QListWidget::resizeEvent(e);
    misuraRighe();
}

void ElencoRigheIntere::changeEvent(QEvent *e)
{
    QListWidget::changeEvent(e);
    if (e->type() == QEvent::FontChange)
        misuraRighe();
}
