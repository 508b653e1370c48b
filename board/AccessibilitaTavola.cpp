#include "board/AccessibilitaTavola.h"

#include "board/DescrizioneTessere.h"
#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "lang/TestiAccessibili.h"
#include "platform/Controlli.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMenuBar>

namespace {
FormTavola *tavolaDi(QObject *o) { return o ? qobject_cast<FormTavola *>(o->parent()) : nullptr; }

// The place that has the reader's focus: the highlighted one, unless the
// exit question stands in front of the board.
int postoConFuoco(FormTavola *f)
{
    if (!f || (f->FrameUscita && f->FrameUscita->isVisible()))
        return -1;
    return PostoEvidenziatoMostrato(f->Partita());
}

class InterfacciaTessera final : public QAccessibleWidget
{
public:
    InterfacciaTessera(QWidget *w, FormTavola *f, int k)
        : QAccessibleWidget(w, QAccessible::Button), form(f), posto(k)
    {
    }

    bool inGioco() const { return posto < Tavola::NumeroTessere(); }
    bool sceglibile() const
    {
        const Copertura &c = form->Partita().FramePosto[posto];
        return c.Visible && c.Enabled;
    }

    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Name)
            return NomeTessera(form->Partita(), posto);
        if (t == QAccessible::Description)
            return TestoAccessibile(QStringLiteral("Tessera.Descrizione"));
        return QAccessibleWidget::text(t);
    }

    QAccessible::State state() const override
    {
        QAccessible::State s = QAccessibleWidget::state();
        // An open or found tile stays a place on the board for the reader.
        s.invisible = !inGioco();
        s.offscreen = !inGioco();
        s.focusable = inGioco();
        s.focused = postoConFuoco(form) == posto;
        s.disabled = !sceglibile();
        return s;
    }

    QRect rect() const override
    {
        QWidget *w = widget();
        if (!inGioco() || !w->parentWidget())
            return QRect();
        return QRect(w->parentWidget()->mapToGlobal(w->geometry().topLeft()), w->size());
    }

    QStringList actionNames() const override
    {
        return sceglibile() ? QStringList{QAccessibleActionInterface::pressAction()} : QStringList();
    }
    void doAction(const QString &azione) override
    {
        if (azione == QAccessibleActionInterface::pressAction() && sceglibile())
            emit static_cast<Etichetta *>(widget())->Click();
    }

private:
    FormTavola *form;
    int posto;
};

// A board's screen is named before it is a board (the screen's own
// constructor names it), and Qt keeps the interface it made then: so the
// interface finds its board when asked, and is a plain window until then.
class InterfacciaTavola final : public QAccessibleWidget
{
public:
    explicit InterfacciaTavola(QWidget *w) : QAccessibleWidget(w, QAccessible::Window) {}
    FormTavola *form() const { return qobject_cast<FormTavola *>(widget()); }

    // What the reader meets on a board, in the order it meets them.
    QList<QWidget *> figli() const
    {
        QList<QWidget *> r;
        FormTavola *f = form();
        if (!f || !f->FramePosto[23])
            return r;
        if (f->BarraMenu)
            r << f->BarraMenu;
        const int n = qMin(24, int(Tavola::NumeroTessere()));
        for (int k = 0; k < n; ++k)
            r << f->FramePosto[k];
        if (f->PictureScansione)
            r << f->PictureScansione;
        if (f->StatusBar1)
            r << f->StatusBar1;
        if (f->FrameUscita && f->FrameUscita->isVisible())
            r << f->FrameUscita;
        return r;
    }

    int childCount() const override { return form() ? int(figli().size()) : QAccessibleWidget::childCount(); }
    QAccessibleInterface *child(int i) const override
    {
        if (!form())
            return QAccessibleWidget::child(i);
        const QList<QWidget *> l = figli();
        return i >= 0 && i < l.size() ? QAccessible::queryAccessibleInterface(l[i]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *c) const override
    {
        if (!form())
            return QAccessibleWidget::indexOfChild(c);
        return c ? int(figli().indexOf(qobject_cast<QWidget *>(c->object()))) : -1;
    }
    QAccessibleInterface *focusChild() const override
    {
        FormTavola *f = form();
        const int p = f && f->FramePosto[23] ? postoConFuoco(f) : -1;
        if (p >= 0)
            return QAccessible::queryAccessibleInterface(f->FramePosto[p]);
        return QAccessibleWidget::focusChild();
    }
};

QAccessibleInterface *fabbrica(const QString &, QObject *o)
{
    auto *w = qobject_cast<QWidget *>(o);
    if (w && w->isWindow() && TavolaDiNome(o->objectName()))
        return new InterfacciaTavola(w);
    if (qobject_cast<FrameUscitaTavola *>(o))
        return new InterfacciaConTesti(static_cast<QWidget *>(o), QAccessible::AlertMessage,
                                       QStringLiteral("DomandaUscita"));
    if (auto *p = dynamic_cast<PictureScansioneWidget *>(o))
        return new InterfacciaConTesti(p, QAccessible::Grouping, QStringLiteral("Tabellone"));
    FormTavola *f = tavolaDi(o);
    if (f && o == f->StatusBar1)
        return new InterfacciaConTesti(f->StatusBar1, QAccessible::StatusBar, QStringLiteral("Punteggio"));
    if (f && o->objectName() == QLatin1String("FramePosto")) {
        const int k = IndiceDi(o);
        if (k >= 0 && k < 24)
            return new InterfacciaTessera(w, f, k);
    }
    return nullptr;
}
} // namespace

void InstallaAccessibilitaTavola() { QAccessible::installFactory(fabbrica); }

void SegnalatoreTavola::Aggiorna()
{
    // Not before the board has all its tiles.
    if (!AccessibilitaAttiva() || !form->FramePosto[23])
        return;
    const Tavola &t = form->Partita();
    for (int k = 0; k < 24; ++k) {
        const QString n = k < Tavola::NumeroTessere() ? NomeTessera(t, k) : QString();
        if (n == nomi[k])
            continue;
        nomi[k] = n;
        QAccessibleEvent e(form->FramePosto[k], QAccessible::NameChanged);
        SegnalaAccessibile(&e);
    }
    const int p = postoConFuoco(form);
    if (p == fuoco || !form->isVisible())
        return;
    if (fuoco >= 0) {
        QAccessible::State cambiato;
        cambiato.focused = true;
        QAccessibleStateChangeEvent via(form->FramePosto[fuoco], cambiato);
        SegnalaAccessibile(&via);
    }
    fuoco = p;
    if (p >= 0) {
        QAccessibleEvent e(form->FramePosto[p], QAccessible::Focus);
        SegnalaAccessibile(&e);
    }
}
