#include "AmbienteProva.h"

#include "platform/ScritturaIntera.h"
#include "platform/TestoFile.h"
#include "profiles/Profilo.h"
#include "profiles/ProfiloAccesso.h"

// A player's switch settings: their own file beside the profile, read with
// it and written with it, and the profile file as it always was.
class TestProfiloAccesso : public QObject
{
    Q_OBJECT
private:
    static QString cartella(const AmbienteProva &a)
    {
        const QString c = a.Radice() + QStringLiteral("/tesselo/utenti");
        QDir().mkpath(c);
        return c;
    }
    static ImpostazioniAccesso diProva()
    {
        ImpostazioniAccesso x;
        x.AccettazioneMs = 300;
        x.IgnoraMs = 1200;
        x.Interruttori = SceltaInterruttori::TastiScelti;
        x.Tasto1 = Qt::Key_A;
        x.Tasto2 = Qt::Key_L;
        x.PausaDopoGiri = 3;
        x.SuonoPasso = true;
        x.SuonoTessera = true;
        return x;
    }

private slots:
    void init()
    {
        FileUtente = CartellaUtenti + QStringLiteral("anna.ini");
        NomeUtente = QStringLiteral("anna");
        Accesso = ImpostazioniAccesso{};
    }

    void theFileLiesBesideTheProfileUnderItsName_data()
    {
        QTest::addColumn<QString>("profilo");
        QTest::addColumn<QString>("accesso");
        QTest::newRow("ini") << "C:\\x\\utenti\\anna.ini" << "C:\\x\\utenti\\anna.accesso";
        QTest::newRow("INI of the start literal") << "C:\\x\\utenti\\_predefinito.INI"
                                                  << "C:\\x\\utenti\\_predefinito.accesso";
        QTest::newRow("listed name in capitals") << "C:\\x\\utenti\\ANNA.ini" << "C:\\x\\utenti\\ANNA.accesso";
        QTest::newRow("the empty name") << "C:\\x\\utenti\\.ini" << "C:\\x\\utenti\\.accesso";
    }
    void theFileLiesBesideTheProfileUnderItsName()
    {
        QFETCH(QString, profilo);
        QFETCH(QString, accesso);
        QCOMPARE(FileAccesso(profilo), accesso);
    }

    void theDefaultsAreWrittenAsTheyStand()
    {
        QCOMPARE(TestoAccesso(ImpostazioniAccesso{}),
                 QStringLiteral("[Accesso]\r\nAccettazione=0\r\nIgnora=0\r\nInterruttori=Tasti\r\nTasto1=0\r\n"
                                "Tasto2=0\r\nPausaDopoGiri=0\r\nSuonoPasso=False\r\nSuonoTessera=False\r\n"));
    }

    void everySettingComesBackFromItsText()
    {
        const ImpostazioniAccesso x = diProva();
        QCOMPARE(AccessoDaTesto(TestoAccesso(x)), x);
        for (auto s : {SceltaInterruttori::Tasti, SceltaInterruttori::Mouse, SceltaInterruttori::Joystick}) {
            ImpostazioniAccesso y;
            y.Interruttori = s;
            QCOMPARE(AccessoDaTesto(TestoAccesso(y)), y);
        }
    }

    void aLineMissingUnknownOrOutOfRangeKeepsItsDefault_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<int>("accettazione");
        QTest::addColumn<int>("ignora");
        QTest::addColumn<int>("pausa");
        QTest::addColumn<int>("interruttori");
        QTest::newRow("empty") << "" << 0 << 0 << 0 << 0;
        QTest::newRow("some lines") << "Ignora=250\nPausaDopoGiri=10" << 0 << 250 << 10 << 0;
        QTest::newRow("too long") << "Accettazione=2001\r\nIgnora=3001\r\nPausaDopoGiri=11" << 0 << 0 << 0 << 0;
        QTest::newRow("negative") << "Accettazione=-1\r\nIgnora=-5\r\nPausaDopoGiri=-1" << 0 << 0 << 0 << 0;
        QTest::newRow("the limits") << "Accettazione=2000\rIgnora=3000\rPausaDopoGiri=1" << 2000 << 3000 << 1 << 0;
        QTest::newRow("not numbers") << "Accettazione=tanto\nIgnora=\nInterruttori=piede" << 0 << 0 << 0 << 0;
        QTest::newRow("mouse, any case, blanks") << " interruttori = mouse \n accettazione = 300" << 300 << 0 << 0 << 1;
        QTest::newRow("chosen keys with no keys are the design's keys") << "Interruttori=TastiScelti" << 0 << 0 << 0 << 0;
        QTest::newRow("chosen keys twice the same are no choice")
            << "Interruttori=TastiScelti\nTasto1=65\nTasto2=65" << 0 << 0 << 0 << 0;
        QTest::newRow("chosen keys") << "Interruttori=TastiScelti\nTasto1=65\nTasto2=76" << 0 << 0 << 0 << 3;
    }
    void aLineMissingUnknownOrOutOfRangeKeepsItsDefault()
    {
        QFETCH(QString, testo);
        QFETCH(int, accettazione);
        QFETCH(int, ignora);
        QFETCH(int, pausa);
        QFETCH(int, interruttori);
        const ImpostazioniAccesso a = AccessoDaTesto(testo);
        QCOMPARE(a.AccettazioneMs, accettazione);
        QCOMPARE(a.IgnoraMs, ignora);
        QCOMPARE(a.PausaDopoGiri, pausa);
        QCOMPARE(int(a.Interruttori), interruttori);
        QVERIFY(!a.SuonoPasso);
        QVERIFY(!a.SuonoTessera);
    }

    void aSaveWritesTheProfileAsAlwaysAndTheSettingsBesideIt()
    {
        AmbienteProva a;
        const QString c = cartella(a);
        ValoriPredefiniti();
        SalvaProfilo();
        const QByteArray profiloSolo = AmbienteProva::Leggi(c + QStringLiteral("/anna.ini"));
        Accesso = diProva();
        SalvaProfilo();
        // The profile's bytes do not move by one for the switch settings.
        QCOMPARE(AmbienteProva::Leggi(c + QStringLiteral("/anna.ini")), profiloSolo);
        QCOMPARE(AmbienteProva::Leggi(c + QStringLiteral("/anna.ini")), CodificaTesto(TestoProfilo(Profilo)));
        QCOMPARE(AmbienteProva::Leggi(c + QStringLiteral("/anna.accesso")), CodificaTesto(TestoAccesso(diProva())));
    }

    void aReadTakesTheSettingsOfTheProfileRead()
    {
        AmbienteProva a;
        cartella(a);
        ValoriPredefiniti();
        Accesso = diProva();
        SalvaProfilo();
        FileUtente = CartellaUtenti + QStringLiteral("bruno.ini");
        Accesso = ImpostazioniAccesso{};
        SalvaProfilo();
        LeggiProfilo();
        QCOMPARE(Accesso, ImpostazioniAccesso{});
        FileUtente = CartellaUtenti + QStringLiteral("ANNA.ini");
        LeggiProfilo();
        QCOMPARE(Accesso, diProva());
    }

    void aProfileWithNoSettingsFileReadsTheDefaultsAndCreatesNothing()
    {
        AmbienteProva a;
        const QString c = cartella(a);
        AmbienteProva::Scrivi(c + QStringLiteral("/anna.ini"), CodificaTesto(TestoProfilo(Profilo)));
        Accesso = diProva();
        LeggiProfilo();
        QCOMPARE(Accesso, ImpostazioniAccesso{});
        QVERIFY(!QFileInfo::exists(c + QStringLiteral("/anna.accesso")));
    }

    void aDamagedProfileStillReadsItsSettings()
    {
        AmbienteProva a;
        const QString c = cartella(a);
        AmbienteProva::Scrivi(c + QStringLiteral("/anna.ini"), "Arial\r\n");
        AmbienteProva::Scrivi(c + QStringLiteral("/anna.accesso"), CodificaTesto(TestoAccesso(diProva())));
        LeggiProfilo();
        QCOMPARE(Profilo.NumeroTessere, qint16(12));
        QCOMPARE(Accesso, diProva());
    }

    void aSettingsFileThatCannotBeWrittenEndsTheProgramAndLeavesTheOldOne()
    {
        AmbienteProva a;
        const QString c = cartella(a);
        ValoriPredefiniti();
        SalvaProfilo();
        const QByteArray prima = AmbienteProva::Leggi(c + QStringLiteral("/anna.accesso"));
        ImpostaGuastoScritturaPerProve([](FaseScrittura f, const QString &p) {
            return f == FaseScrittura::Scrittura && p.endsWith(QLatin1String(".accesso"));
        });
        Accesso = diProva();
        bool finito = false;
        try {
            SalvaProfilo();
        } catch (const ProcessoTerminato &t) {
            finito = true;
            QCOMPARE(t.fine.stato, 1);
            QVERIFY(t.fine.messaggio.contains(QStringLiteral("utenti/anna.accesso")));
        }
        ImpostaGuastoScritturaPerProve({});
        QVERIFY(finito);
        QCOMPARE(AmbienteProva::Leggi(c + QStringLiteral("/anna.accesso")), prima);
    }
};

QTEST_MAIN(TestProfiloAccesso)
#include "test_profilo_accesso.moc"
