#include "AmbienteProva.h"

#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"

namespace {
const QByteArray Predefiniti = "Arial\r\nArial\r\n 2 \r\n 12 \r\n-2147483640 \r\n 16777215 \r\n-2147483640 \r\n"
                               " 16777215 \r\n 65535 \r\n 255 \r\n 16777152 \r\nTrue\r\nFalse\r\n 0 \r\n 4 \r\n"
                               "False\r\nFalse\r\n 9 \r\nFalse\r\nFalse\r\nFalse\r\n";

QString fileProva(const AmbienteProva &a)
{
    QDir().mkpath(a.Radice() + QStringLiteral("/tesselo/utenti"));
    return a.Radice() + QStringLiteral("/tesselo/utenti/prova.ini");
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
        QCOMPARE(QDir(a.Radice() + QStringLiteral("/tesselo/utenti")).entryList(QDir::Files).size(), 1);
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
};

QTEST_APPLESS_MAIN(TestProfilo)
#include "test_profilo.moc"
