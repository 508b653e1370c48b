// Every language file beside the program holds every key the game asks for:
// the message keys used in the code, and the keys of every translatable
// control of every screen.

#include "AmbienteProva.h"

#include "app/Avvio.h"
#include "lang/FileProfilo.h"
#include "lang/modLanguageSupport.h"
#include "platform/Controlli.h"
#include "platform/Schermi.h"
#include "platform/TestoFile.h"
#include "platform/clsResize.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QAction>
#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>

namespace {
QStringList fileLingua()
{
    QStringList r;
    for (const QString &f : QDir(QStringLiteral(COPPIE_SORGENTI "/lang/lng")).entryList({QStringLiteral("*.lng")}, QDir::Files))
        r << QStringLiteral(COPPIE_SORGENTI "/lang/lng/") + f;
    return r;
}

QString testoDi(const QString &file)
{
    QString t;
    LeggiFileTesto(file, &t);
    return t;
}

bool haChiave(const QString &testo, const QString &sezione, const QString &chiave)
{
    // A key present with an empty value counts as present: the translators' lines may be empty.
    bool dentro = false;
    for (const QString &riga : DividiRighe(testo)) {
        const QString t = riga.trimmed();
        if (t.startsWith(u'[')) {
            dentro = t.mid(1, t.indexOf(u']') - 1).compare(sezione, Qt::CaseInsensitive) == 0;
            continue;
        }
        if (dentro && t.section(u'=', 0, 0).trimmed().compare(chiave, Qt::CaseInsensitive) == 0 && t.contains(u'='))
            return true;
    }
    return false;
}

// The four-digit message keys the game's code names.
QSet<QString> chiaviDelCodice()
{
    QSet<QString> r;
    const QRegularExpression chiave(QStringLiteral("\"(0\\d{3}|999\\d)\""));
    for (const char *cartella : {"app", "board", "lang", "menu", "platform", "profiles", "sets", "settings"}) {
        QDirIterator it(QStringLiteral(COPPIE_SORGENTI "/") + QLatin1String(cartella), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                        QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString f = it.next();
            if (f.contains(QLatin1String("/swf/")))
                continue;
            QString testo;
            LeggiFileTesto(f, &testo);
            for (auto m = chiave.globalMatch(testo); m.hasNext();)
                r.insert(m.next().captured(1));
        }
    }
    return r;
}

QString valoreDi(const QString &testo, const QString &chiave)
{
    bool dentro = false;
    for (const QString &riga : DividiRighe(testo)) {
        const QString t = riga.trimmed();
        if (t.startsWith(u'[')) {
            dentro = t.mid(1, t.indexOf(u']') - 1).compare(QLatin1String("Strings"), Qt::CaseInsensitive) == 0;
            continue;
        }
        if (dentro && t.contains(u'=') && t.section(u'=', 0, 0).trimmed() == chiave)
            return t.section(u'=', 1).trimmed();
    }
    return {};
}

bool daTradurre(const QString &caption)
{
    for (QChar c : caption)
        if (c.isLetter())
            return true;
    return false;
}
} // namespace

class TestLingueComplete : public QObject
{
    Q_OBJECT
private slots:
    void thereAreLanguageFiles() { QVERIFY(fileLingua().size() >= 2); }

    void everyMessageKeyOfTheCodeIsInEveryLanguage()
    {
        const QSet<QString> chiavi = chiaviDelCodice();
        QVERIFY(chiavi.contains(QStringLiteral("0001")));
        QStringList mancanti;
        for (const QString &file : fileLingua()) {
            const QString testo = testoDi(file);
            for (const QString &k : chiavi)
                if (!haChiave(testo, QStringLiteral("Strings"), k))
                    mancanti << QFileInfo(file).fileName() + QStringLiteral(" [Strings] ") + k;
        }
        mancanti.sort();
        QVERIFY2(mancanti.isEmpty(), qPrintable(mancanti.join(u'\n')));
    }

    // The words-and-films and words-and-pictures boards label the status bar
    // with one key whatever the number of players: alone it counts moves, with
    // several players the pairs each one found. Its text must say both, in the
    // words the other boards use for each.
    void theOneStatusLabelOfTheWordBoardsNamesBothMovesAndPairs()
    {
        struct Uso {
            const char *chiave, *mosse, *coppie;
        };
        const Uso usi[] = {{"0031", "0025", "0026"}, {"0082", "0079", "0080"}};
        QStringList errati;
        for (const QString &file : fileLingua()) {
            const QString testo = testoDi(file);
            for (const Uso &u : usi) {
                const QString etichetta = valoreDi(testo, QLatin1String(u.chiave));
                const QString mosse = valoreDi(testo, QLatin1String(u.mosse));
                const QString coppie = valoreDi(testo, QLatin1String(u.coppie));
                if (mosse.isEmpty() || coppie.isEmpty() || !etichetta.contains(mosse, Qt::CaseInsensitive)
                    || !etichetta.contains(coppie, Qt::CaseInsensitive))
                    errati << QFileInfo(file).fileName() + u' ' + QLatin1String(u.chiave) + QStringLiteral(" = \"")
                                  + etichetta + QStringLiteral("\" (moves: \"") + mosse + QStringLiteral("\", pairs: \"")
                                  + coppie + u'"' + u')';
            }
        }
        QVERIFY2(errati.isEmpty(), qPrintable(errati.join(u'\n')));
    }

    void everyTranslatableControlOfEveryScreenIsInEveryLanguage()
    {
        AmbienteProva a;
        ValoriPredefiniti();
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\_predefinito.INI");
        for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                              "tesselo/dati/gif", "tesselo/dati/swf"})
            QDir().mkpath(a.Radice() + u'/' + QLatin1String(c));
        RegistraSchermi();
        const QStringList schermi = Schermi::Nomi();
        QVERIFY(schermi.contains(QStringLiteral("FormAvvio")));

        // The design captions, read before any translation.
        LinguaCorrente = QStringLiteral("nessuna");
        struct Voce {
            QString sezione, chiave;
        };
        QList<Voce> voci;
        for (const QString &nome : schermi) {
            QWidget *f = nullptr;
            try {
                f = Schermi::Carica(nome);
            } catch (const ProcessoTerminato &) {
                QFAIL(qPrintable(QStringLiteral("loading %1 ended the program").arg(nome)));
            }
            QList<QObject *> controlli;
            for (QWidget *w : ControlliDelForm(f))
                controlli << w;
            for (QMenu *m : f->findChildren<QMenu *>())
                if (!m->objectName().isEmpty())
                    controlli << m;
            for (QAction *act : f->findChildren<QAction *>())
                if (!act->objectName().isEmpty())
                    controlli << act;
            for (QObject *o : controlli) {
                // Texts the program writes itself (language names, measuring labels, texts of message keys).
                if (o->property("TestoDalProgramma").toBool())
                    continue;
                QString caption;
                if (LeggiCaption(o, &caption) && daTradurre(caption))
                    voci.append({nome, NomeControllo(o) + QStringLiteral(".Caption")});
                QString suggerimento;
                if (auto *w = qobject_cast<QWidget *>(o))
                    suggerimento = w->toolTip();
                else if (auto *act = qobject_cast<QAction *>(o))
                    suggerimento = act->toolTip() == act->text().remove(u'&') ? QString() : act->toolTip();
                if (daTradurre(suggerimento))
                    voci.append({nome, NomeControllo(o) + QStringLiteral(".ToolTipText")});
            }
            Schermi::ScaricaTuttiPerProve();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QVERIFY(!voci.isEmpty());

        QStringList mancanti;
        for (const QString &file : fileLingua()) {
            const QString testo = testoDi(file);
            for (const Voce &v : voci)
                if (!haChiave(testo, v.sezione, v.chiave))
                    mancanti << QFileInfo(file).fileName() + QStringLiteral(" [") + v.sezione + QStringLiteral("] ") + v.chiave;
        }
        mancanti.removeDuplicates();
        mancanti.sort();
        QVERIFY2(mancanti.isEmpty(), qPrintable(mancanti.join(u'\n')));
    }
};

QTEST_MAIN(TestLingueComplete)
#include "test_lingue_complete.moc"
