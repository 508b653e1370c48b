#include "platform/Attendi.h"

#include <QCoreApplication>
#include <QTimer>
#include <QtTest>

// The wait is driven by a clock of the test's own, moved on by a timer of the
// test in fixed steps: every check is on that clock and on the steps taken,
// never on the machine's time, so a busy machine only makes a test slower.
class OrologioAPassi
{
public:
    OrologioAPassi(double inizio, double unPasso, double laMezzanotte = 0)
        : ora(inizio), passo(unPasso), mezzanotte(laMezzanotte)
    {
        ImpostaOrologioPerProve([this] { return ora; });
        lancetta.setTimerType(Qt::PreciseTimer);
        lancetta.setInterval(1);
        QObject::connect(&lancetta, &QTimer::timeout, [this] {
            ora += this->passo;
            if (this->mezzanotte > 0 && ora >= this->mezzanotte)
                ora -= this->mezzanotte;
            ++passi;
            if (dopoOgniPasso)
                dopoOgniPasso();
        });
        lancetta.start();
    }
    ~OrologioAPassi() { ImpostaOrologioPerProve({}); }

    double ora;
    double passo;
    double mezzanotte;
    int passi = 0;
    std::function<void()> dopoOgniPasso;

private:
    QTimer lancetta;
};

class TestAttendi : public QObject
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        ImpostaOrologioPerProve({});
        ImpostaScalaAttesa(1.0);
    }

    void waitsUntilItsClockHasRunItsTime()
    {
        OrologioAPassi orologio(1000.0, 0.01);
        Attendi(0.2);
        QVERIFY2(orologio.ora >= 1000.2 - 1e-9, qPrintable(QString::number(orologio.ora, 'f', 3)));
        QVERIFY(orologio.passi >= 20);
    }

    void aWaitWhoseClockStandsStillDoesNotEnd()
    {
        // The clock moves by nothing: after many steps the wait is still on.
        OrologioAPassi orologio(500.0, 0.0);
        bool ancoraInAttesa = false;
        orologio.dopoOgniPasso = [&] {
            if (orologio.passi == 50) {
                ancoraInAttesa = AtteseInCorso() == 1;
                InterrompiAttesePerProve();
            }
        };
        Attendi(0.05);
        QVERIFY(ancoraInAttesa);
        QCOMPARE(AtteseInCorso(), 0);
    }

    void eventsGoOnBeingHandledDuringTheWait()
    {
        // The only thing that moves the clock is an event handled inside the
        // wait: the wait can end only if events are handled.
        double ora = 200.0;
        ImpostaOrologioPerProve([&] { return ora; });
        bool arrivatoDurante = false;
        QTimer::singleShot(0, [&] {
            arrivatoDurante = AtteseInCorso() == 1;
            ora = 200.15;
        });
        Attendi(0.15);
        QVERIFY(arrivatoDurante);
        QCOMPARE(AtteseInCorso(), 0);
    }

    void theScaleShortensTheWaitForTests()
    {
        // Ten seconds at a scale of 0.01 end after a tenth of a second on the
        // clock: ten steps of 0.01 at least, and far fewer than the thousand
        // that ten whole seconds would take.
        ImpostaScalaAttesa(0.01);
        OrologioAPassi orologio(300.0, 0.01);
        Attendi(10);
        QVERIFY2(orologio.ora >= 300.1 - 1e-9, qPrintable(QString::number(orologio.ora, 'f', 3)));
        QVERIFY2(orologio.passi >= 10, qPrintable(QString::number(orologio.passi)));
        QVERIFY2(orologio.passi < 1000, qPrintable(QString::number(orologio.passi)));
    }

    void aWaitEndingPastMidnightNeverEnds()
    {
        // The clock starts at 23:59:59.9, runs on past midnight and starts
        // again from 0; the end of the wait, 86400.2, is never reached.
        OrologioAPassi orologio(86399.9, 0.05, 86400.0);
        bool ancoraInAttesa = false;
        bool passataMezzanotte = false;
        orologio.dopoOgniPasso = [&] {
            if (orologio.ora < 1.0)
                passataMezzanotte = true;
            if (orologio.passi == 40) {  // two seconds on the clock, the wait long over if it could end
                ancoraInAttesa = AtteseInCorso() == 1;
                InterrompiAttesePerProve();
            }
        };
        Attendi(0.3);
        QVERIFY(passataMezzanotte);
        QVERIFY2(ancoraInAttesa, "a wait across midnight ended by itself");
    }

    void aWaitBeforeMidnightEndsNormally()
    {
        OrologioAPassi orologio(86000.0, 0.01, 86400.0);
        Attendi(0.1);
        QCOMPARE(AtteseInCorso(), 0);
        QVERIFY(orologio.ora >= 86000.1 - 1e-9);
    }
};

QTEST_GUILESS_MAIN(TestAttendi)
#include "test_attendi.moc"
