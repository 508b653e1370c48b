#include "AmbienteProva.h"

#include "platform/TestoFile.h"

#include "lang/modLanguageSupport.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"

namespace {
// Follows folders, copies and message boxes in one list, in their order.
struct Diario {
    QStringList eventi;
    explicit Diario(AmbienteProva &a)
    {
        ImpostaDiarioPerProve([this](const QString &e) { eventi << e; });
        ImpostaRispostaMsgBox([this, &a](const RichiestaMsgBox &r) {
            eventi << QStringLiteral("box ") + r.testo.section(u'\n', 0, 0);
            a.scatole.push_back(r);
            return a.risposte.isEmpty() ? int(Msg::vbYes) : a.risposte.takeFirst();
        });
    }
    ~Diario() { ImpostaDiarioPerProve({}); }
};

void mettiFont(const AmbienteProva &a) { AmbienteProva::Scrivi(a.Programma() + QStringLiteral("/penna1.ttf"), "font"); }

// A small set of ready-made sets beside the program.
void mettiPronti(const AmbienteProva &a)
{
    const QString p = a.Programma() + QStringLiteral("/memorypronti/");
    AmbienteProva::Scrivi(p + QStringLiteral("gif/cane.gif"), "GIF89a cane");
    AmbienteProva::Scrivi(p + QStringLiteral("gif/gatto.GIF"), "GIF89a gatto");
    AmbienteProva::Scrivi(p + QStringLiteral("swf/sole.swf"), "FWS sole");
    AmbienteProva::Scrivi(p + QStringLiteral("suoni/cane.wav"), "RIFF cane");
    AmbienteProva::Scrivi(p + QStringLiteral("ii/animali.agg"), "set gg");
    AmbienteProva::Scrivi(p + QStringLiteral("ii/film.ass"), "set ss");
    AmbienteProva::Scrivi(p + QStringLiteral("pi/parole.apg"), "set pg");
    AmbienteProva::Scrivi(p + QStringLiteral("pi/parolefilm.aps"), "set ps");
    AmbienteProva::Scrivi(p + QStringLiteral("pi/leggimi.txt"), "not a set");
}

QString dati(const AmbienteProva &a, const QString &resto) { return a.Radice() + QStringLiteral("/tesselo/dati/") + resto; }
} // namespace

class TestCartelleDati : public QObject
{
    Q_OBJECT
private slots:
    void init() { LinguaCorrente.clear(); }

    void aFirstRunMakesTheTreeInItsOrderWithTheFontFirst()
    {
        AmbienteProva a;
        mettiFont(a);
        Diario d(a);
        CreaCartelleDati();
        const QString D = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\");
        QCOMPARE(d.eventi, QStringList({
                               QStringLiteral("cartella C:\\ImpostazioniProgrammiLorea\\"),
                               QStringLiteral("box Ho installato il font per il corsivo 'penna1.ttf'"),
                               QStringLiteral("cartella C:\\ImpostazioniProgrammiLorea\\tesselo\\"),
                               QStringLiteral("cartella C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\"),
                               QStringLiteral("cartella ") + D,
                               QStringLiteral("cartella ") + D + QStringLiteral("ii\\"),
                               QStringLiteral("cartella ") + D + QStringLiteral("pi\\"),
                               QStringLiteral("cartella ") + D + QStringLiteral("suoni\\"),
                               QStringLiteral("cartella ") + D + QStringLiteral("gif\\"),
                               QStringLiteral("cartella ") + D + QStringLiteral("swf\\"),
                           }));
        for (const char *c : {"ii", "pi", "suoni", "gif", "swf"})
            QVERIFY(QFileInfo(dati(a, QLatin1String(c))).isDir());
        QVERIFY(QFileInfo(a.Radice() + QStringLiteral("/tesselo/utenti")).isDir());
    }

    void theNoticeHasFiveLinesInTheCurrentLanguage()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        const QByteArray atteso = CodificaTesto(TestoLingua(QStringLiteral("0020")) + QStringLiteral("\r\n \r\n")
                                                + TestoLingua(QStringLiteral("0021")) + QStringLiteral("\r\n \r\n")
                                                + TestoLingua(QStringLiteral("0022")) + QStringLiteral("\r\n"));
        QVERIFY(!TestoLingua(QStringLiteral("0020")).isEmpty());
        QCOMPARE(AmbienteProva::Leggi(a.Radice() + QStringLiteral("/leggimi.txt")), atteso);
    }

    void theFontIsCopiedAndItsMessageNamesItsAuthor()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        QCOMPARE(AmbienteProva::Leggi(a.Casa() + QStringLiteral("/.local/share/fonts/penna1.ttf")), QByteArray("font"));
        QCOMPARE(a.scatole.size(), size_t(1));
        const RichiestaMsgBox &box = a.scatole[0];
        QCOMPARE(box.stile, int(Msg::vbOKOnly));
        QCOMPARE(box.titolo, QStringLiteral("Coppie vivaci"));
        const QStringList righe = box.testo.split(u'\n');
        QCOMPARE(righe[0], QStringLiteral("Ho installato il font per il corsivo 'penna1.ttf'"));
        QCOMPARE(righe[1], QStringLiteral(" ----------------------- "));
        QVERIFY(righe[2].contains(QStringLiteral("Jean-Marie Douteau")));
    }

    void aSecondStartCreatesNothingAndAsksNothing()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        const QStringList prima = AmbienteProva::Elenco(a.Casa());
        Diario d(a);
        a.scatole.clear();
        CreaCartelleDati();
        QVERIFY(d.eventi.isEmpty());
        QCOMPARE(AmbienteProva::Elenco(a.Casa()), prima);
    }

    void theNoticeIsRewrittenOnlyWhenAFolderWasMissing()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        const QString leggimi = a.Radice() + QStringLiteral("/leggimi.txt");
        QFile::remove(leggimi);
        CreaCartelleDati();
        QVERIFY(!QFileInfo::exists(leggimi));
        QDir(dati(a, QStringLiteral("swf"))).removeRecursively();
        CreaCartelleDati();
        QVERIFY(QFileInfo(dati(a, QStringLiteral("swf"))).isDir());
        QVERIFY(QFileInfo::exists(leggimi));
    }

    void withTheGamesFolderInPlaceButNoPlayersFolderTheFontStepIsSkipped()
    {
        AmbienteProva a;
        mettiFont(a);
        QDir().mkpath(a.Radice() + QStringLiteral("/tesselo"));
        CreaCartelleDati();
        QVERIFY(a.scatole.empty());
        QVERIFY(!QFileInfo::exists(a.Casa() + QStringLiteral("/.local/share/fonts/penna1.ttf")));
        QVERIFY(QFileInfo(a.Radice() + QStringLiteral("/tesselo/utenti")).isDir());
    }

    void aFontAlreadyInTheFontsFolderIsNeitherCopiedNorReported()
    {
        AmbienteProva a;
        mettiFont(a);
        AmbienteProva::Scrivi(a.Casa() + QStringLiteral("/.local/share/fonts/penna1.ttf"), "vecchio");
        CreaCartelleDati();
        QVERIFY(a.scatole.empty());
        QCOMPARE(AmbienteProva::Leggi(a.Casa() + QStringLiteral("/.local/share/fonts/penna1.ttf")), QByteArray("vecchio"));
    }

    void aFontMissingOnAFirstRunEndsTheProgramNamingThePath()
    {
        AmbienteProva a;
        try {
            CreaCartelleDati();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &t) {
            QCOMPARE(t.fine.stato, 1);
            QVERIFY2(t.fine.messaggio.contains(a.Programma() + QStringLiteral("/penna1.ttf")), qPrintable(t.fine.messaggio));
        }
        QVERIFY(!QFileInfo::exists(a.Radice() + QStringLiteral("/tesselo")));
    }

    void aFolderThatCannotBeMadeEndsTheProgramNamingThePath()
    {
        AmbienteProva a;
        mettiFont(a);
        // A plain file where the data root should be: nothing can be made under it.
        AmbienteProva::Scrivi(a.Radice(), "un file");
        try {
            CreaCartelleDati();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &t) {
            QCOMPARE(t.fine.stato, 1);
            QVERIFY2(t.fine.messaggio.contains(a.Radice()), qPrintable(t.fine.messaggio));
        }
    }

    void cartellaEsisteIsFalseForAnEmptyPathAndTrueForAnyEntry()
    {
        AmbienteProva a;
        QVERIFY(!CartellaEsiste(QString()));
        AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/.nascosto"), "x");
        QVERIFY(CartellaEsiste(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\.nascosto")));
        QVERIFY(CartellaEsiste(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\")));
        QVERIFY(!CartellaEsiste(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\nulla")));
        QVERIFY(!FileEsiste(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\")));
        QVERIFY(FileEsiste(QStringLiteral("c:\\impostazioniprogrammilorea\\.NASCOSTO")));
    }

    void theImportAsksFirstThenCopiesMediaBeforeSets()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        mettiPronti(a);
        a.scatole.clear();
        Diario d(a);
        a.risposte = {Msg::vbNo};
        Profilo.ProntiImportati = false;
        ImportaMemoryPronti();
        QCOMPARE(Profilo.ProntiImportati, true);
        QCOMPARE(d.eventi, QStringList({
                               QStringLiteral("box Vuoi cancellare i files dei memory pronti dalla posizione di origine?"),
                               QStringLiteral("copia gif\\cane.gif"),
                               QStringLiteral("copia gif\\gatto.GIF"),
                               QStringLiteral("copia swf\\sole.swf"),
                               QStringLiteral("copia suoni\\cane.wav"),
                               QStringLiteral("copia ii\\film.ass"),
                               QStringLiteral("copia pi\\parolefilm.aps"),
                               QStringLiteral("copia ii\\animali.agg"),
                               QStringLiteral("copia pi\\parole.apg"),
                           }));
        QCOMPARE(a.scatole[0].stile, int(Msg::vbYesNo | Msg::vbCritical));
        QCOMPARE(a.scatole[0].titolo, QStringLiteral("Coppie vivaci"));
        QCOMPARE(AmbienteProva::Leggi(dati(a, QStringLiteral("ii/animali.agg"))), QByteArray("set gg"));
        QVERIFY(!QFileInfo::exists(dati(a, QStringLiteral("pi/leggimi.txt"))));
    }

    void answeringNoKeepsTheSourcesAndALaterImportOverwritesEditedCopies()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        mettiPronti(a);
        a.risposte = {Msg::vbNo};
        ImportaMemoryPronti();
        QVERIFY(QFileInfo::exists(a.Programma() + QStringLiteral("/memorypronti/ii/animali.agg")));
        AmbienteProva::Scrivi(dati(a, QStringLiteral("ii/animali.agg")), "modificato dalla maestra");
        a.risposte = {Msg::vbNo};
        ImportaMemoryPronti();
        QCOMPARE(AmbienteProva::Leggi(dati(a, QStringLiteral("ii/animali.agg"))), QByteArray("set gg"));
    }

    void aSetInBothPlacesIsOverwrittenWithoutAQuestion()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        mettiPronti(a);
        AmbienteProva::Scrivi(dati(a, QStringLiteral("pi/parole.apg")), "vecchio");
        a.scatole.clear();
        a.risposte = {Msg::vbNo};
        ImportaMemoryPronti();
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(AmbienteProva::Leggi(dati(a, QStringLiteral("pi/parole.apg"))), QByteArray("set pg"));
    }

    void answeringYesDeletesTheSourcesEvenWhereACopyFailed()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        mettiPronti(a);
        // A folder in the way makes the copy of cane.gif fail.
        QDir().mkpath(dati(a, QStringLiteral("gif/cane.gif")));
        a.risposte = {Msg::vbYes};
        ImportaMemoryPronti();
        QVERIFY(QFileInfo(dati(a, QStringLiteral("gif/cane.gif"))).isDir());
        QVERIFY(!QFileInfo::exists(a.Programma() + QStringLiteral("/memorypronti/gif/cane.gif")));
        QVERIFY(!QFileInfo::exists(a.Programma() + QStringLiteral("/memorypronti/ii/animali.agg")));
        QCOMPARE(AmbienteProva::Leggi(dati(a, QStringLiteral("gif/gatto.GIF"))), QByteArray("GIF89a gatto"));
        QVERIFY(QFileInfo::exists(a.Programma() + QStringLiteral("/memorypronti/pi/leggimi.txt")));
    }

    void withNoReadyMadeSetsTheQuestionIsAskedAndNothingElseHappens()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        const QStringList prima = AmbienteProva::Elenco(a.Casa());
        a.scatole.clear();
        ImportaMemoryPronti();
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(AmbienteProva::Elenco(a.Casa()), prima);
    }

    void aMissingSubfolderOfTheReadyMadeSetsIsPassedOver()
    {
        AmbienteProva a;
        mettiFont(a);
        CreaCartelleDati();
        AmbienteProva::Scrivi(a.Programma() + QStringLiteral("/memorypronti/pi/parole.apg"), "set pg");
        ImportaMemoryPronti();
        QCOMPARE(AmbienteProva::Leggi(dati(a, QStringLiteral("pi/parole.apg"))), QByteArray("set pg"));
    }
};

QTEST_APPLESS_MAIN(TestCartelleDati)
#include "test_cartelle_dati.moc"
