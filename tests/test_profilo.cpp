#include "AmbienteProva.h"

#include "platform/ScritturaIntera.h"
#include "platform/TestoFile.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <cstdio>
#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

namespace {
const QByteArray Predefiniti = "Arial\r\nArial\r\n 2 \r\n 12 \r\n-2147483640 \r\n 16777215 \r\n-2147483640 \r\n"
                               " 16777215 \r\n 65535 \r\n 255 \r\n 16777152 \r\nTrue\r\nFalse\r\n 0 \r\n 4 \r\n"
                               "False\r\nFalse\r\n 9 \r\nFalse\r\nFalse\r\nFalse\r\n";

QString fileProva(const AmbienteProva &a)
{
    QDir().mkpath(a.Radice() + QStringLiteral("/tesselo/utenti"));
    return a.Radice() + QStringLiteral("/tesselo/utenti/prova.ini");
}

// Two profiles of different lengths: a cut file is neither.
void profiloA()
{
    ValoriPredefiniti();
}
void profiloB()
{
    ValoriPredefiniti();
    Profilo.FontParola1 = QStringLiteral("Comic Sans MS, un nome di carattere molto lungo per la prova");
    Profilo.NumeroTessere = 24;
    Profilo.ModoInput = 2;
    Profilo.ProntiImportati = true;
}
QByteArray byteDi(void (*profilo)())
{
    profilo();
    return CodificaTesto(TestoProfilo(Profilo));
}

// The child of the kill test: saves the two profiles in turn, for ever, and
// says when the first save is on the disk.
int salvaSenzaFine()
{
    FileUtente = CartellaUtenti + QStringLiteral("prova.ini");
    for (quint64 i = 0;; ++i) {
        (i % 2 ? profiloB : profiloA)();
        SalvaProfilo();
        if (i == 0) {
            std::puts("pronto");
            std::fflush(stdout);
        }
    }
}

QList<QByteArray> righe(const QByteArray &b)
{
    QList<QByteArray> r = b.split('\n');
    for (QByteArray &x : r)
        if (x.endsWith('\r'))
            x.chop(1);
    return r;
}
} // namespace

class TestProfilo : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        FileUtente = CartellaUtenti + QStringLiteral("prova.ini");
        NomeUtente = QStringLiteral("prova");
    }

    void theDefaultsAreWrittenByteForByte()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        ValoriPredefiniti();
        SalvaProfilo();
        QCOMPARE(AmbienteProva::Leggi(file), Predefiniti);
    }

    void aSavedProfileReadsBackField()
    {
        AmbienteProva a;
        fileProva(a);
        ValoriPredefiniti();
        Profilo.FontParola1 = QStringLiteral("Comic Sans MS");
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 24;
        Profilo.ColoreSfondo = 12345;
        Profilo.ModoInput = 2;
        Profilo.VelocitaScansione = 60;
        Profilo.Riquadro = true;
        Profilo.Maiuscolo2 = true;
        Profilo.ProntiImportati = true;
        const ProfiloGiocatore atteso = Profilo;
        SalvaProfilo();
        ValoriPredefiniti();
        LeggiProfilo();
        QCOMPARE(TestoProfilo(Profilo), TestoProfilo(atteso));
    }

    void colourFont1WithTheDefaultComesBackExactly()
    {
        AmbienteProva a;
        fileProva(a);
        ValoriPredefiniti();
        SalvaProfilo();
        Profilo.ColoreFont1 = 0;
        LeggiProfilo();
        QCOMPARE(Profilo.ColoreFont1, -2147483640.0);
    }

    void aFileOfExactly20LinesYieldsAllDefaults()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray venti = "Comic Sans MS\r\nArial\r\n 0 \r\n 24 \r\n 1 \r\n 2 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n"
                           "False\r\nTrue\r\n 3 \r\n 8 \r\nTrue\r\nTrue\r\n 20 \r\nTrue\r\nTrue\r\n";
        QCOMPARE(righe(venti).size() - 1, 20);
        AmbienteProva::Scrivi(file, venti);
        LeggiProfilo();
        const QString letto = TestoProfilo(Profilo);
        ValoriPredefiniti();
        QCOMPARE(letto, TestoProfilo(Profilo));
    }

    void moreThan21LinesAreReadAndTheExtraDroppedAtTheNextSave()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray testo = Predefiniti;
        testo.replace("Arial\r\nArial", "Verdana\r\nArial");
        AmbienteProva::Scrivi(file, testo + "riga in piu\r\naltra\r\n");
        LeggiProfilo();
        QCOMPARE(Profilo.FontParola1, QStringLiteral("Verdana"));
        SalvaProfilo();
        QCOMPARE(AmbienteProva::Leggi(file), testo);
    }

    void aBooleanInSmallLettersIsFalse()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray testo = Predefiniti;
        testo.replace("True\r\nFalse\r\n 0 ", "true\r\nFalse\r\n 0 ");
        AmbienteProva::Scrivi(file, testo);
        LeggiProfilo();
        QCOMPARE(Profilo.Suoni, false);
    }

    void anyTextBeginningWithCapitalTIsTrue()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray testo = Predefiniti;
        testo.replace("False\r\nFalse\r\nFalse\r\n", "False\r\nT\r\nTopolino\r\n");
        AmbienteProva::Scrivi(file, testo);
        LeggiProfilo();
        QCOMPARE(Profilo.Maiuscolo1, false);
        QCOMPARE(Profilo.Maiuscolo2, true);
        QCOMPARE(Profilo.ProntiImportati, true);
    }

    void aTileCountTooLargeForTheSetIsLeftForTheMenu()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray testo = Predefiniti;
        testo.replace(" 12 \r\n", " 24 \r\n");
        AmbienteProva::Scrivi(file, testo);
        LeggiProfilo();
        QCOMPARE(Profilo.NumeroTessere, qint16(24));
    }

    void aProfileWrittenOnWindowsReadsBackExactly()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        // Windows-1252 with CR LF: an accented font name and Comic Sans MS.
        const QByteArray windows = "Comic Sans MS\r\nScuola Elementare Citt\xe0\r\n 1 \r\n 16 \r\n 255 \r\n 65280 \r\n"
                                   " 16711680 \r\n 0 \r\n 65535 \r\n 255 \r\n 16777152 \r\nTrue\r\nTrue\r\n 2 \r\n"
                                   " 12 \r\nTrue\r\nFalse\r\n 15 \r\nTrue\r\nFalse\r\nTrue\r\n";
        AmbienteProva::Scrivi(file, windows);
        LeggiProfilo();
        QCOMPARE(Profilo.FontParola1, QStringLiteral("Comic Sans MS"));
        QCOMPARE(Profilo.FontParola2, QString::fromUtf8("Scuola Elementare Città"));
        QCOMPARE(Profilo.TipoMemory, qint16(1));
        QCOMPARE(Profilo.NumeroTessere, qint16(16));
        QCOMPARE(Profilo.ColoreFont2, 16711680.0);
        QCOMPARE(Profilo.ModoInput, qint16(2));
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(15));
        QCOMPARE(Profilo.ProntiImportati, true);
        SalvaProfilo();
        QCOMPARE(AmbienteProva::Leggi(file), windows);
    }

    void aProfileWithLfEndingsReadsToo()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        QByteArray lf = Predefiniti;
        lf.replace("\r\n", "\n");
        lf.replace("Arial\nArial", "Comic Sans MS\nArial");
        AmbienteProva::Scrivi(file, lf);
        LeggiProfilo();
        QCOMPARE(Profilo.FontParola1, QStringLiteral("Comic Sans MS"));
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(9));
    }

    void aDamagedOrShortProfileGivesAllDefaultsSilently()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        const QList<QByteArray> guasti = {
            QByteArray(),
            "Arial\r\n",
            QByteArray(Predefiniti).replace(" 12 ", " dodici "),
            QByteArray(Predefiniti).replace(" 4 \r\n", " 99999 \r\n"),
        };
        for (const QByteArray &g : guasti) {
            AmbienteProva::Scrivi(file, g);
            Profilo.FontParola1 = QStringLiteral("sporco");
            Profilo.ProntiImportati = true;
            LeggiProfilo();
            QCOMPARE(Profilo.FontParola1, QStringLiteral("Arial"));
            QCOMPARE(Profilo.ProntiImportati, false);
            QCOMPARE(AmbienteProva::Leggi(file), g);
        }
        QVERIFY(a.scatole.empty());
    }

    void aMissingFileGivesDefaultsAndCreatesNothing()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        Profilo.NumeroTessere = 4;
        LeggiProfilo();
        QCOMPARE(Profilo.NumeroTessere, qint16(12));
        QVERIFY(!QFileInfo::exists(file));
    }

    void theStartLiteralInCapitalsNamesTheSameFile()
    {
        AmbienteProva a;
        fileProva(a);
        FileUtente = CartellaUtenti + QStringLiteral("_predefinito.ini");
        ValoriPredefiniti();
        Profilo.TipoMemory = 1;
        SalvaProfilo();
        FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
        ValoriPredefiniti();
        LeggiProfilo();
        QCOMPARE(Profilo.TipoMemory, qint16(1));
        SalvaProfilo();
        // one profile, and beside it the one file of its switch settings
        const QDir utenti(a.Radice() + QStringLiteral("/tesselo/utenti"));
        QCOMPARE(utenti.entryList({QStringLiteral("*.ini")}, QDir::Files).size(), 1);
        QCOMPARE(utenti.entryList({QStringLiteral("*.accesso")}, QDir::Files).size(), 1);
    }

    void aProfileThatCannotBeWrittenEndsTheProgramNamingThePath()
    {
        AmbienteProva a;
        FileUtente = CartellaUtenti + QStringLiteral("prova.ini"); // the folder of players does not exist
        try {
            SalvaProfilo();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &t) {
            QCOMPARE(t.fine.stato, 1);
            QVERIFY(t.fine.messaggio.contains(QStringLiteral("utenti/prova.ini")));
        }
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(a.scatole[0].stile & 0x70, int(Msg::vbCritical));
        QCOMPARE(a.scatole[0].titolo, QStringLiteral("Coppie vivaci"));
    }

    // --- nothing lost on the way to disk ---------------------------------

    void aSaveThatFailsAtAnyStageLeavesTheOldBytesAndEndsWithTheMessage_data()
    {
        QTest::addColumn<int>("fase");
        QTest::newRow("opening") << int(FaseScrittura::Apertura);
        QTest::newRow("writing") << int(FaseScrittura::Scrittura);
        QTest::newRow("closing: the disk full at the last buffer") << int(FaseScrittura::Chiusura);
    }
    void aSaveThatFailsAtAnyStageLeavesTheOldBytesAndEndsWithTheMessage()
    {
        QFETCH(int, fase);
        AmbienteProva a;
        const QString file = fileProva(a);
        const QByteArray vecchi = byteDi(profiloA);
        SalvaProfilo();
        QCOMPARE(AmbienteProva::Leggi(file), vecchi);
        profiloB();
        ImpostaGuastoScritturaPerProve([&](FaseScrittura f, const QString &) { return int(f) == fase; });
        bool finito = false;
        try {
            SalvaProfilo();
        } catch (const ProcessoTerminato &t) {
            finito = true;
            QCOMPARE(t.fine.stato, 1);
            QVERIFY2(t.fine.messaggio.contains(QDir::toNativeSeparators(file)), qPrintable(t.fine.messaggio));
        }
        ImpostaGuastoScritturaPerProve({});
        QVERIFY(finito);
        QCOMPARE(AmbienteProva::Leggi(file), vecchi);
        // nothing beside the profile but the file of its switch settings
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{QStringLiteral("prova.accesso"), QStringLiteral("prova.ini")}));
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(a.scatole[0].stile & 0x70, int(Msg::vbCritical));
    }

    void aSaveOnAFullDiskLeavesTheOldBytesAndEndsWithTheMessage()
    {
#ifndef Q_OS_UNIX
        QSKIP("the size limit of a process's files is a POSIX resource limit");
#else
        // A real failure of the system: writing past the size that the
        // process may give a file fails as a full disk does, and only when
        // the buffered bytes go out at the end of the write.
        AmbienteProva a;
        const QString file = fileProva(a);
        const QByteArray vecchi = byteDi(profiloA);
        SalvaProfilo();
        profiloB();
        rlimit prima{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &prima), 0);
        rlimit piccolo = prima;
        piccolo.rlim_cur = 64;
        auto vecchioSegnale = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &piccolo), 0);
        bool finito = false;
        try {
            SalvaProfilo();
        } catch (const ProcessoTerminato &t) {
            finito = true;
            QVERIFY(t.fine.messaggio.contains(QDir::toNativeSeparators(file)));
        }
        setrlimit(RLIMIT_FSIZE, &prima);
        std::signal(SIGXFSZ, vecchioSegnale);
        QVERIFY(finito);
        QCOMPARE(AmbienteProva::Leggi(file), vecchi);
        // nothing beside the profile but the file of its switch settings
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{QStringLiteral("prova.accesso"), QStringLiteral("prova.ini")}));
#endif
    }

    void twoHundredSavesKilledAtRandomMomentsLeaveOldOrNewBytesNeverACutFile()
    {
        AmbienteProva a;
        const QString file = fileProva(a);
        const QByteArray byteA = byteDi(profiloA);
        const QByteArray byteB = byteDi(profiloB);
        QVERIFY(byteA.size() != byteB.size());
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HOME"), a.Casa());
        QRandomGenerator caso(18);
        int visteA = 0, visteB = 0;
        for (int giro = 0; giro < 200; ++giro) {
            QProcess figlio;
            figlio.setProcessEnvironment(env);
            figlio.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--salva-senza-fine")});
            QVERIFY(figlio.waitForStarted(60000));
            QVERIFY(figlio.waitForReadyRead(60000));
            // somewhere in the next few saves
            QThread::usleep(caso.bounded(4000));
            figlio.kill();
            QVERIFY(figlio.waitForFinished(60000));
            const QByteArray letti = AmbienteProva::Leggi(file);
            QVERIFY2(letti == byteA || letti == byteB,
                     qPrintable(QStringLiteral("run %1: %2 bytes").arg(giro).arg(letti.size())));
            (letti == byteA ? visteA : visteB)++;
        }
        qInfo("profile found whole after 200 kills: %d times the first, %d times the second", visteA, visteB);
        // Whatever a kill left beside it is never taken for a profile.
        const QStringList profili = QDir(QFileInfo(file).path()).entryList({QStringLiteral("*.ini")}, QDir::Files);
        QCOMPARE(profili, QStringList{QStringLiteral("prova.ini")});
    }

    // --- a name is never a way out of the players' folder ---------------------

    void aProfileNameWithSeparatorsOrDotsStaysInThePlayersFolder_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("file");
        QTest::newRow("backslashes and dots") << QStringLiteral("a\\..\\..\\fuori") << QStringLiteral("a_.._.._fuori.ini");
        QTest::newRow("slashes") << QStringLiteral("../../fuori") << QStringLiteral(".._.._fuori.ini");
        QTest::newRow("dots alone") << QStringLiteral("..") << QStringLiteral("...ini");
        QTest::newRow("a drive") << QStringLiteral("C:fuori") << QStringLiteral("C_fuori.ini");
        QTest::newRow("an ordinary name") << QStringLiteral("Luca") << QStringLiteral("Luca.ini");
    }
    void aProfileNameWithSeparatorsOrDotsStaysInThePlayersFolder()
    {
        QFETCH(QString, nome);
        QFETCH(QString, file);
        AmbienteProva a;
        fileProva(a);
        FileUtente = FileDelProfilo(nome);
        QCOMPARE(FileUtente, CartellaUtenti + file);
        ValoriPredefiniti();
        SalvaProfilo();
        QVERIFY(QFileInfo::exists(a.Radice() + QStringLiteral("/tesselo/utenti/") + file));
        QCOMPARE(QDir(a.Radice() + QStringLiteral("/tesselo")).entryList(QDir::Files), QStringList());
        QCOMPARE(QDir(a.Radice()).entryList(QDir::Files), QStringList());
    }

    void aProfilePathOutsideThePlayersFolderIsNeverWritten()
    {
        AmbienteProva a;
        fileProva(a);
        FileUtente = CartellaUtenti + QStringLiteral("..\\..\\fuori.ini");
        ValoriPredefiniti();
        bool finito = false;
        try {
            SalvaProfilo();
        } catch (const ProcessoTerminato &) {
            finito = true;
        }
        QVERIFY(finito);
        QVERIFY(!QFileInfo::exists(a.Radice() + QStringLiteral("/fuori.ini")));
        QVERIFY(!QFileInfo::exists(a.Radice() + QStringLiteral("/tesselo/fuori.ini")));
    }
};

int main(int argc, char **argv)
{
    if (argc == 2 && qstrcmp(argv[1], "--salva-senza-fine") == 0)
        return salvaSenzaFine();
    QCoreApplication app(argc, argv);
    TestProfilo t;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&t, argc, argv);
}
#include "test_profilo.moc"
