// The settings dialog's rules without its widgets: the speed in words, the
// list of players, what each input mode shows, the growth of the samples.

#include "AmbienteProva.h"

#include "profiles/Profilo.h"
#include "settings/RegoleConfigura.h"

#include <QFont>
#include <QGuiApplication>

class TestRegoleConfigura : public QObject
{
    Q_OBJECT
private slots:
    void theSpeedIsShownInSecondsWithTwoDecimals_data()
    {
        QTest::addColumn<int>("velocita");
        QTest::addColumn<QString>("testo");
        QTest::newRow("4") << 4 << "Velocità scansione: 1.00 secondi";
        QTest::newRow("5") << 5 << "Velocità scansione: 1.25 secondi";
        QTest::newRow("8") << 8 << "Velocità scansione: 2.00 secondi";
        QTest::newRow("31") << 31 << "Velocità scansione: 7.75 secondi";
        QTest::newRow("60") << 60 << "Velocità scansione: 15.00 secondi";
        QTest::newRow("999") << 999 << "Velocità scansione: 249.75 secondi";
        QTest::newRow("0") << 0 << "Velocità scansione: 0.00 secondi";
        QTest::newRow("-5") << -5 << "Velocità scansione: -1.25 secondi";
    }
    void theSpeedIsShownInSecondsWithTwoDecimals()
    {
        QFETCH(int, velocita);
        QFETCH(QString, testo);
        QCOMPARE(TestoVelocita(qint16(velocita)), testo);
    }

    void thePlayersListHoldsTheOtherPlayersInCapitals()
    {
        AmbienteProva a;
        const QString utenti = a.Radice() + QStringLiteral("/tesselo/utenti/");
        for (const char *f : {"zeta.ini", "Anna.INI", "_predefinito.ini", "_PREDEFINITO.INI.bak", ".ini", "voti.txt",
                              "Élodie.ini", "x.ini.old"})
            AmbienteProva::Scrivi(utenti + QString::fromUtf8(f), "x");
        QDir().mkpath(utenti + QStringLiteral("cartella.ini"));
        QCOMPARE(ElencoGiocatori(CartellaUtenti),
                 (QStringList{QString(), QStringLiteral("ANNA"), QString::fromUtf8("ÉLODIE"), QStringLiteral("ZETA")}));
    }

    void theDefaultPlayerIsLeftOutInAnyLetterCase()
    {
        AmbienteProva a;
        const QString utenti = a.Radice() + QStringLiteral("/tesselo/utenti/");
        AmbienteProva::Scrivi(utenti + QStringLiteral("_Predefinito.INI"), "x");
        QCOMPARE(ElencoGiocatori(CartellaUtenti), QStringList());
    }

    void aMissingFolderGivesAnEmptyList()
    {
        AmbienteProva a;
        QCOMPARE(ElencoGiocatori(CartellaUtenti), QStringList());
    }

    void eachInputModeShowsItsControls_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("riquadro");
        QTest::addColumn<QList<bool>>("attesi"); // Riparti, Riquadro, line, thickness, speed, text, system mouse
        QTest::newRow("mouse") << 0 << true << QList<bool>{false, false, false, false, false, false, true};
        QTest::newRow("manual, no frame") << 1 << false << QList<bool>{true, true, false, false, false, false, false};
        QTest::newRow("manual, frame") << 1 << true << QList<bool>{true, true, true, true, false, false, false};
        QTest::newRow("automatic, no frame") << 2 << false << QList<bool>{true, true, false, false, true, true, false};
        QTest::newRow("automatic, frame") << 2 << true << QList<bool>{true, true, true, true, true, true, false};
        QTest::newRow("keyboard, no frame") << 3 << false << QList<bool>{false, true, false, false, false, false, false};
        QTest::newRow("keyboard, frame") << 3 << true << QList<bool>{false, true, true, true, false, false, false};
        QTest::newRow("damaged mode") << 7 << true << QList<bool>{false, false, false, false, false, false, false};
    }
    void eachInputModeShowsItsControls()
    {
        QFETCH(int, modo);
        QFETCH(bool, riquadro);
        QFETCH(QList<bool>, attesi);
        const ControlliModo c = ControlliPerModo(qint16(modo), riquadro);
        QCOMPARE((QList<bool>{c.CheckRiparti, c.CheckRiquadro, c.lineaShapeRiquadro, c.HScrollRiquadro, c.HScroll3,
                              c.Label7, c.CheckDisabilitaMousePersonalizzato}),
                 attesi);
    }

    void theSampleMeasureOnlyGrows()
    {
        QFont f(QStringLiteral("DejaVu Sans"));
        const QString testo = QStringLiteral("  Seconda parola  ");
        const double dodici = CresciCampione(f, testo, 12, 3000);
        QVERIFY(dodici > 12);
        // From a size already past the width, nothing changes.
        QCOMPARE(CresciCampione(f, testo, 40, 3000), 40.0);
        // A wider picture needs more points; a size that starts higher never drops.
        QVERIFY(CresciCampione(f, testo, 12, 6000) > dodici);
        QCOMPARE(CresciCampione(f, testo, 14.25, 0), 14.25);
        // Steps of one point from the start.
        const double d = CresciCampione(f, testo, 14.25, 4000);
        QCOMPARE(d - std::floor(d), 0.25);
    }

    void aNarrowerFontNeedsMorePointsForTheSameWidth()
    {
        const QString testo = QStringLiteral("  Seconda parola  ");
        const double largo = CresciCampione(QFont(QStringLiteral("DejaVu Sans")), testo, 8, 4000);
        const double stretto = CresciCampione(QFont(QStringLiteral("Liberation Sans Narrow")), testo, 8, 4000);
        QVERIFY2(stretto > largo, qPrintable(QStringLiteral("%1 %2").arg(largo).arg(stretto)));
    }
};

QTEST_MAIN(TestRegoleConfigura)
#include "test_regole_configura.moc"
