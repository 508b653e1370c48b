#include "AmbienteProva.h"

#include "platform/Casuale.h"
#include "platform/ScritturaIntera.h"
#include "platform/TestoFile.h"
#include "platform/Twips.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

class TestPercorsiTesto : public QObject
{
    Q_OBJECT
private slots:
    void dataRootLiteralMapsToHomeInAnyCase()
    {
        AmbienteProva a;
        QCOMPARE(MappaPercorso(QStringLiteral("c:\\impostazioniprogrammilorea\\tesselo\\utenti\\x.ini")),
                 a.Radice() + QStringLiteral("/tesselo/utenti/x.ini"));
        QCOMPARE(MappaPercorso(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\")), a.Radice() + u'/');
    }

    void doubledSeparatorsCollapse()
    {
        QCOMPARE(MappaPercorso(QStringLiteral("/tmp\\\\fonts\\penna1.ttf")), QStringLiteral("/tmp/fonts/penna1.ttf"));
    }

    void mixedCaseSetPathReachesTheFileInTheTree()
    {
        AmbienteProva a;
        const QString vero = a.Radice() + QStringLiteral("/tesselo/dati/ii/animali.AGG");
        AmbienteProva::Scrivi(vero, "x");
        const QString locale = PercorsoLocale(QStringLiteral("c:\\impostazioniprogrammilorea\\TESSELO\\dati\\ii\\Animali.agg"));
        QCOMPARE(locale, vero);
        QVERIFY(QFileInfo(locale).isFile());
    }

    void missingComponentsKeepTheirSpellingSoTheFileCanBeCreated()
    {
        AmbienteProva a;
        QDir().mkpath(a.Radice() + QStringLiteral("/Tesselo/utenti"));
        QCOMPARE(PercorsoLocale(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\UTENTI\\Nuovo.ini")),
                 a.Radice() + QStringLiteral("/Tesselo/utenti/Nuovo.ini"));
    }

    void writingToANameDifferingOnlyInCaseWritesThatFile()
    {
        AmbienteProva a;
        const QString vero = a.Radice() + QStringLiteral("/tesselo/utenti/MARCO.ini");
        AmbienteProva::Scrivi(vero, "vecchio");
        QVERIFY(ScriviFileTesto(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\marco.ini"), {"nuovo"}));
        QCOMPARE(AmbienteProva::Leggi(vero), QByteArray("nuovo\r\n"));
        QCOMPARE(QDir(a.Radice() + QStringLiteral("/tesselo/utenti")).entryList(QDir::Files).size(), 1);
    }

    void aFileIsReplacedWholeAndNothingIsLeftBeside()
    {
        AmbienteProva a;
        const QString file = a.Radice() + QStringLiteral("/tesselo/dati/ii/animali.agg");
        AmbienteProva::Scrivi(file, "vecchio");
        QVERIFY(SostituisciFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\animali.agg"),
                                "nuovo e piu lungo"));
        QCOMPARE(AmbienteProva::Leggi(file), QByteArray("nuovo e piu lungo"));
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("animali.agg")});
    }

    void aWriteThatFailsAtAnyStageLeavesTheOldFileAndNothingBeside_data()
    {
        QTest::addColumn<int>("fase");
        QTest::newRow("opening") << int(FaseScrittura::Apertura);
        QTest::newRow("writing") << int(FaseScrittura::Scrittura);
        QTest::newRow("closing") << int(FaseScrittura::Chiusura);
    }
    void aWriteThatFailsAtAnyStageLeavesTheOldFileAndNothingBeside()
    {
        QFETCH(int, fase);
        AmbienteProva a;
        const QString file = a.Radice() + QStringLiteral("/leggimi.txt");
        AmbienteProva::Scrivi(file, "vecchio");
        QString visto;
        ImpostaGuastoScritturaPerProve([&](FaseScrittura f, const QString &percorso) {
            visto = percorso;
            return int(f) == fase;
        });
        QString errore;
        const bool scritto = SostituisciFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\leggimi.txt"), "nuovo", &errore);
        const bool scrittoTesto = ScriviFileTesto(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\leggimi.txt"), {"nuovo"});
        ImpostaGuastoScritturaPerProve({});
        QVERIFY(!scritto);
        QVERIFY(!scrittoTesto);
        QCOMPARE(visto, file);
        QCOMPARE(AmbienteProva::Leggi(file), QByteArray("vecchio"));
        QCOMPARE(QDir(a.Radice()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("leggimi.txt")});
    }

    void aWriteCutShortByTheDiskLeavesTheOldFile()
    {
#ifndef Q_OS_UNIX
        QSKIP("the size limit of a process's files is a POSIX resource limit");
#else
        // The system refuses every byte past the 64th, as a full disk does,
        // and only when the buffer goes out at the end of the write.
        AmbienteProva a;
        const QString file = a.Radice() + QStringLiteral("/leggimi.txt");
        AmbienteProva::Scrivi(file, "vecchio");
        rlimit prima{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &prima), 0);
        rlimit piccolo = prima;
        piccolo.rlim_cur = 64;
        auto vecchioSegnale = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &piccolo), 0);
        QString errore;
        const bool scritto = SostituisciFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\leggimi.txt"),
                                             QByteArray(300, 'x'), &errore);
        setrlimit(RLIMIT_FSIZE, &prima);
        std::signal(SIGXFSZ, vecchioSegnale);
        QVERIFY(!scritto);
        QVERIFY(!errore.isEmpty());
        QCOMPARE(AmbienteProva::Leggi(file), QByteArray("vecchio"));
        QCOMPARE(QDir(a.Radice()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("leggimi.txt")});
#endif
    }

    void aNewFileThatFailsLeavesNoFileAtAll()
    {
        AmbienteProva a;
        QDir().mkpath(a.Radice());
        ImpostaGuastoScritturaPerProve([](FaseScrittura f, const QString &) { return f == FaseScrittura::Chiusura; });
        QVERIFY(!SostituisciFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\nuovo.txt"), "x"));
        ImpostaGuastoScritturaPerProve({});
        QCOMPARE(QDir(a.Radice()).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    void aFolderThatIsMissingRefusesTheWrite()
    {
        AmbienteProva a;
        QString errore;
        QVERIFY(!SostituisciFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\manca\\x.txt"), "x", &errore));
        QVERIFY(!errore.isEmpty());
        QVERIFY(!QFileInfo::exists(a.Radice() + QStringLiteral("/manca")));
    }

    void aNulEndsThePath()
    {
        QCOMPARE(MappaPercorso(QStringLiteral("/tmp/a.gif") + QString(3, QChar(0))), QStringLiteral("/tmp/a.gif"));
    }

    void windows1252IsReadWhenTheBytesAreNotUtf8()
    {
        QCOMPARE(DecodificaTesto(QByteArray("Citt\xe0 \x80")), QString::fromUtf8("Città €"));
    }

    void utf8IsReadWhenValidAndNotAscii()
    {
        QCOMPARE(DecodificaTesto(QByteArray("Citt\xc3\xa0")), QString::fromUtf8("Città"));
    }

    void textIsWrittenIn1252WhenItFitsElseUtf8()
    {
        QCOMPARE(CodificaTesto(QString::fromUtf8("Città €")), QByteArray("Citt\xe0 \x80"));
        QCOMPARE(CodificaTesto(QString::fromUtf8("Łódź")), QString::fromUtf8("Łódź").toUtf8());
    }

    void linesSplitAtCrLfLfAndCr()
    {
        QCOMPARE(DividiRighe(QStringLiteral("a\r\nb\nc\rd")), QStringList({"a", "b", "c", "d"}));
        QCOMPARE(DividiRighe(QStringLiteral("a\r\n\r\n")), QStringList({"a", ""}));
    }

    void twipsAreFifteenToAPixel()
    {
        QCOMPARE(TwipsDaPixel(1024), 15360);
        QCOMPARE(PixelDaTwips(8640), 576);
    }

    void aSeededGeneratorRepeatsItsDraws()
    {
        SeminaCasuale(42);
        const double a = Casuale();
        const int b = IndiceCasuale(18);
        SeminaCasuale(42);
        QCOMPARE(Casuale(), a);
        QCOMPARE(IndiceCasuale(18), b);
        for (int i = 0; i < 10000; ++i) {
            const double r = Casuale();
            QVERIFY(r >= 0.0 && r < 1.0);
        }
    }
};

QTEST_APPLESS_MAIN(TestPercorsiTesto)
#include "test_percorsi_testo.moc"
