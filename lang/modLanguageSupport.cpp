#include "lang/modLanguageSupport.h"

#include "lang/FileProfilo.h"
#include "lang/TestiAccessibili.h"
#include "platform/Controlli.h"
#include "platform/Percorsi.h"
#include "platform/Schermi.h"
#include "platform/TestoFile.h"
#include "platform/clsResize.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QWidget>

namespace {
QString leggiPerRighe(const QString &testo, const QString &chiave)
{
    for (const QString &riga : DividiRighe(testo)) {
        if (!riga.startsWith(chiave))
            continue;
        // The rest after the key and its separator, less its first and last
        // character: the quotes that a long file's values must have.
        const QString resto = riga.mid(chiave.size() + 1);
        if (resto.size() < 2)
            return QString();
        return resto.mid(1, resto.size() - 2);
    }
    return QString();
}

QList<QObject *> traducibili(QWidget *form)
{
    QList<QObject *> r;
    for (QWidget *w : ControlliDelForm(form))
        r << w;
    for (QMenu *m : form->findChildren<QMenu *>())
        if (!m->objectName().isEmpty() && !r.contains(m))
            r << m;
    for (QAction *a : form->findChildren<QAction *>())
        if (!a->objectName().isEmpty())
            r << a;
    return r;
}
} // namespace

QString LeggiVoce(const QString &file, const QString &sezione, const QString &chiave)
{
    const QString locale = PercorsoLocale(file);
    if (!QFileInfo(locale).isFile())
        return QString();
    QFile f(locale);
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    return LeggiVoceDaByte(f.readAll(), sezione, chiave);
}

QString LeggiVoceDaByte(const QByteArray &byte, const QString &sezione, const QString &chiave)
{
    const QString testo = DecodificaTesto(byte);
    if (byte.size() > LimiteProfiloPrivato)
        return leggiPerRighe(testo, chiave);
    return LeggiVoceProfiloPrivato(testo, sezione, chiave);
}

bool ScriviVoce(const QString &file, const QString &sezione, const QString &chiave, const QString &valore)
{
    QString testo;
    LeggiFileTesto(file, &testo);
    const QString nuovo = ScriviVoceProfiloPrivato(testo, sezione, chiave, valore);
    return ScriviFileTesto(file, DividiRighe(nuovo));
}

QString PercorsoImpostazioneLingua() { return CartellaProgramma() + QStringLiteral("\\LangSetting.ini"); }

QString PercorsoImpostazioneLinguaUtente()
{
    return CartellaUtenteProgramma() + QDir::separator() + QStringLiteral("LangSetting.ini");
}

QString PercorsoFileLingua(const QString &lingua)
{
    QString cartella = CartellaProgramma();
    if (!cartella.endsWith(u'\\') && !cartella.endsWith(u'/'))
        cartella += u'\\';
    return cartella + lingua + QStringLiteral(".lng");
}

QString LinguaImpostata()
{
    const QString utente = PercorsoImpostazioneLinguaUtente();
    const QString file = QFileInfo(utente).isFile() ? utente : PercorsoImpostazioneLingua();
    return LeggiVoce(file, QStringLiteral("Language"), QStringLiteral("CurrentLanguage"));
}

QString TestoLingua(const QString &chiave)
{
    if (LinguaCorrente.isEmpty())
        LinguaCorrente = LinguaImpostata();
    return LeggiVoce(PercorsoFileLingua(LinguaCorrente), QStringLiteral("Strings"), chiave);
}

void TraduciForm(QWidget *form)
{
    if (!form)
        return;
    const QString file = PercorsoFileLingua(LinguaCorrente);
    const QString sezione = form->objectName();
    const QString nome = form->objectName();

    if (!form->windowTitle().isEmpty())
        form->setWindowTitle(LeggiVoce(file, sezione, nome + QStringLiteral(".Caption")));
    // A form has no tool tip of its own; its tag is taken even when empty.
    ImpostaTag(form, LeggiVoce(file, sezione, nome + QStringLiteral(".Tag")));

    for (QObject *o : traducibili(form)) {
        const QString chiave = NomeControllo(o);
        const QString caption = LeggiVoce(file, sezione, chiave + QStringLiteral(".Caption"));
        if (!caption.isEmpty())
            ScriviCaption(o, caption);
        const QString suggerimento = LeggiVoce(file, sezione, chiave + QStringLiteral(".ToolTipText"));
        if (!suggerimento.isEmpty()) {
            if (auto *w = qobject_cast<QWidget *>(o))
                w->setToolTip(suggerimento);
            else if (auto *a = qobject_cast<QAction *>(o))
                a->setToolTip(suggerimento);
        }
        const QString tag = LeggiVoce(file, sezione, chiave + QStringLiteral(".Tag"));
        if (!tag.isEmpty())
            ImpostaTag(o, tag);

        QTabBar *schede = qobject_cast<QTabBar *>(o);
        if (auto *tw = qobject_cast<QTabWidget *>(o))
            schede = tw->tabBar();
        if (schede) {
            const int quante = schede->count();
            for (int n = 0; n < quante; ++n)
                schede->setTabText(n, LeggiVoce(file, sezione,
                                                o->objectName() + QStringLiteral(".TabCaption(")
                                                    + QString::number(n) + u')'));
        }
        QCoreApplication::processEvents();
    }
    NominaForm(form);
}

QStringList ElencoLingue()
{
    const QDir cartella(MappaPercorso(CartellaProgramma()));
    QStringList voci;
    const QStringList file = cartella.entryList({QStringLiteral("*.lng")},
                                                QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QString &f : file) {
        if (!f.endsWith(QLatin1String(".lng"), Qt::CaseInsensitive) || voci.contains(f.left(f.size() - 4)))
            continue;
        voci << f.left(f.size() - 4);
    }
    return voci;
}

int IndiceLinguaSpuntata(const QStringList &voci, const QString &lingua)
{
    for (qsizetype i = 0; i < voci.size(); ++i)
        if (voci[i] == lingua)
            return int(i);
    return -1;
}

void ScegliLingua(const QString &lingua)
{
    LinguaCorrente = lingua;
    for (Form *f : Schermi::Aperti())
        TraduciForm(f);
    const QString sezione = QStringLiteral("Language"), chiave = QStringLiteral("CurrentLanguage");
    const QString utente = PercorsoImpostazioneLinguaUtente();
    if (!QFileInfo(utente).isFile() && ScriviVoce(PercorsoImpostazioneLingua(), sezione, chiave, lingua))
        return;
    // An installed game: the program's folder is not the user's to write.
    QDir().mkpath(CartellaUtenteProgramma());
    ScriviVoce(utente, sezione, chiave, lingua);
}

QString TestoErrore(const QString &chiave, const QString &italiano)
{
    const QString t = TestoLingua(chiave);
    return t.isEmpty() ? italiano : t;
}
