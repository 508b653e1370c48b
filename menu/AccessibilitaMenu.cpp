#include "menu/AccessibilitaMenu.h"

#include "lang/TestiAccessibili.h"
#include "menu/ControlliMenu.h"
#include "menu/FormMenu.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {
class InterfacciaOpzione final : public QAccessibleWidget
{
public:
    explicit InterfacciaOpzione(OpzioneGrafica *o) : QAccessibleWidget(o, QAccessible::RadioButton) {}
    OpzioneGrafica *opzione() const { return static_cast<OpzioneGrafica *>(widget()); }

    QString text(QAccessible::Text t) const override
    {
        const QString testo = QAccessibleWidget::text(t);
        if (t == QAccessible::Name && testo.isEmpty())
            return QString(opzione()->text()).remove(u'&');
        return testo;
    }
    QAccessible::State state() const override
    {
        QAccessible::State s = QAccessibleWidget::state();
        s.checkable = true;
        s.checked = opzione()->Valore();
        return s;
    }
    QStringList actionNames() const override
    {
        return opzione()->isEnabled() ? QStringList{QAccessibleActionInterface::pressAction()} : QStringList();
    }
    void doAction(const QString &azione) override
    {
        if (azione == QAccessibleActionInterface::pressAction() && opzione()->isEnabled())
            opzione()->click();
    }
};

QAccessibleInterface *fabbrica(const QString &, QObject *o)
{
    if (auto *opzione = qobject_cast<OpzioneGrafica *>(o))
        return new InterfacciaOpzione(opzione);
    auto *w = qobject_cast<QWidget *>(o);
    if (w && w->objectName() == QLatin1String("FrameUscita") && qobject_cast<FormMenu *>(w->window()))
        return new InterfacciaConTesti(w, QAccessible::AlertMessage, QStringLiteral("DomandaUscita"));
    return nullptr;
}
} // namespace

void InstallaAccessibilitaMenu() { QAccessible::installFactory(fabbrica); }
