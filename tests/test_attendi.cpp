#include "platform/Attendi.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

class TestAttendi : public QObject
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        ImpostaOrologioPerProve({});
        ImpostaScalaAttesa(1.0);
    }

    void waitsAtLeastItsTime()
    {
        QElapsedTimer t;
        t.start();
        Attendi(0.2);
        QVERIFY(t.elapsed() >= 190);
    }

    void eventsGoOnBeingHandledDuringTheWait()
    {
        bool arrivato = false;
        QTimer::singleShot(20, [&] { arrivato = true; });
        Attendi(0.15);
        QVERIFY(arrivato);
    }

    void theScaleShortensTheWaitForTests()
    {
        ImpostaScalaAttesa(0.01);
        QElapsedTimer t;
        t.start();
        Attendi(10);
        QVERIFY(t.elapsed() < 2000);
        QVERIFY(t.elapsed() >= 90);
    }

    void aWaitEndingPastMidnightNeverEnds()
    {
        // The clock starts at 23:59:59.9 and runs on; after midnight it starts again from 0.
        QElapsedTimer reale;
        reale.start();
        ImpostaOrologioPerProve([&] {
            const double s = 86399.9 + reale.elapsed() / 1000.0;
            return s >= 86400.0 ? s - 86400.0 : s;
        });
        bool finita = false;
        bool ancoraInAttesa = false;
        QTimer::singleShot(700, [&] {
            ancoraInAttesa = AtteseInCorso() == 1;
            InterrompiAttesePerProve();
        });
        Attendi(0.3);
        finita = true;
        QVERIFY2(ancoraInAttesa, "a wait across midnight ended by itself");
        QVERIFY(finita);
    }

    void aWaitBeforeMidnightEndsNormally()
    {
        QElapsedTimer reale;
        reale.start();
        ImpostaOrologioPerProve([&] { return 86000.0 + reale.elapsed() / 1000.0; });
        Attendi(0.1);
        QCOMPARE(AtteseInCorso(), 0);
        QVERIFY(reale.elapsed() >= 95);
    }
};

QTEST_GUILESS_MAIN(TestAttendi)
#include "test_attendi.moc"
