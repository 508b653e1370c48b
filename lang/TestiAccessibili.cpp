#include "lang/TestiAccessibili.h"

#include "lang/modLanguageSupport.h"
#include "platform/Controlli.h"
#include "platform/Percorsi.h"
#include "platform/clsResize.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QWidget>

namespace {
// A reader asks for names at every step of the highlight: the file is read
// again only when the language or the file itself changes.
struct Memoria {
    QString file;
    QDateTime modificato;
    qint64 dimensione = -1;
    QHash<QString, QString> voci;
};

Memoria &memoria()
{
    static Memoria m;
    return m;
}

const QString Sezione = QStringLiteral("Accessibilita");

std::function<void(QAccessibleEvent *)> &osservatore()
{
    static std::function<void(QAccessibleEvent *)> o;
    return o;
}
} // namespace

QString TestoAccessibile(const QString &chiave)
{
    if (LinguaCorrente.isEmpty())
        LinguaCorrente = LinguaImpostata();
    const QString file = PercorsoFileLingua(LinguaCorrente);
    const QFileInfo info(PercorsoLocale(file));
    Memoria &m = memoria();
    if (m.file != file || m.modificato != info.lastModified() || m.dimensione != info.size()) {
        m.file = file;
        m.modificato = info.lastModified();
        m.dimensione = info.size();
        m.voci.clear();
    }
    auto it = m.voci.constFind(chiave);
    if (it == m.voci.constEnd())
        it = m.voci.insert(chiave, LeggiVoce(file, Sezione, chiave));
    return *it;
}

void NominaForm(QWidget *form)
{
    if (!form)
        return;
    const QString nomeForm = form->objectName();
    const QString nome = TestoAccessibile(nomeForm);
    form->setAccessibleName(nome.isEmpty() ? QString(form->windowTitle()).remove(u'&') : nome);
    form->setAccessibleDescription(TestoAccessibile(nomeForm + QStringLiteral(".Descrizione")));
    for (QWidget *w : ControlliDelForm(form)) {
        if (w->objectName().isEmpty())
            continue;
        const QString chiave = nomeForm + u'.' + NomeControllo(w);
        const QString n = TestoAccessibile(chiave);
        if (!n.isEmpty())
            w->setAccessibleName(n);
        const QString d = TestoAccessibile(chiave + QStringLiteral(".Descrizione"));
        if (!d.isEmpty())
            w->setAccessibleDescription(d);
    }
}

InterfacciaConTesti::InterfacciaConTesti(QWidget *w, QAccessible::Role ruolo, QString chiaveNome)
    : QAccessibleWidget(w, ruolo), chiave(std::move(chiaveNome))
{
}

QString InterfacciaConTesti::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name) {
        const QString nome = TestoAccessibile(chiave);
        return nome.isEmpty() ? QAccessibleWidget::text(t) : nome;
    }
    if (t == QAccessible::Description) {
        const QString descrizione = TestoAccessibile(chiave + QStringLiteral(".Descrizione"));
        return descrizione.isEmpty() ? QAccessibleWidget::text(t) : descrizione;
    }
    return QAccessibleWidget::text(t);
}

void Annuncia(QWidget *w)
{
    QAccessibleEvent e(w, QAccessible::Alert);
    SegnalaAccessibile(&e);
}

void SegnalaAccessibile(QAccessibleEvent *e)
{
    if (osservatore())
        osservatore()(e);
    QAccessible::updateAccessibility(e);
}

bool AccessibilitaAttiva() { return QAccessible::isActive() || osservatore(); }

void ImpostaOsservatoreAccessibile(std::function<void(QAccessibleEvent *)> o) { osservatore() = std::move(o); }
