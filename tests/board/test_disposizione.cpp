#include "board/Disposizione.h"

#include <QtTest>

// The tile layouts, from the form's size in twips.
class TestDisposizione : public QObject
{
    Q_OBJECT
private slots:
    void layoutsOnA1024By768Screen_data()
    {
        QTest::addColumn<int>("tessere");
        QTest::addColumn<int>("lato");
        QTest::addColumn<int>("alto");
        QTest::addColumn<int>("spazio");
        QTest::addColumn<int>("sinistro");
        QTest::addColumn<int>("colonne");
        QTest::newRow("4") << 4 << 3840 << 960 << 960 << 3360 << 2;
        QTest::newRow("6") << 6 << 3840 << 960 << 960 << 960 << 3;
        QTest::newRow("8") << 8 << 3072 << 1024 << 512 << 768 << 4;
        QTest::newRow("12") << 12 << 2880 << 480 << 480 << 1200 << 4;
        QTest::newRow("16") << 16 << 2304 << 230 << 230 << 2727 << 4;
        QTest::newRow("18") << 18 << 2194 << 548 << 137 << 756 << 6;
        QTest::newRow("24") << 24 << 2194 << 548 << 137 << 756 << 6;
    }
    void layoutsOnA1024By768Screen()
    {
        QFETCH(int, tessere);
        Disposizione d;
        QVERIFY(CalcolaDisposizione(tessere, 15360, 11520, &d));
        QTEST(int(d.LatoTessera), "lato");
        QTEST(int(d.MargineAlto), "alto");
        QTEST(int(d.SpazioTessere), "spazio");
        QTEST(int(d.MargineSinistro), "sinistro");
        QTEST(int(d.NumeroColonne), "colonne");
    }

    void layoutsOnA1920By1080Screen_data()
    {
        QTest::addColumn<int>("tessere");
        QTest::addColumn<int>("lato");
        QTest::addColumn<int>("alto");
        QTest::addColumn<int>("spazio");
        QTest::addColumn<int>("sinistro");
        QTest::newRow("4") << 4 << 5400 << 1350 << 1350 << 8325;
        QTest::newRow("6") << 6 << 5400 << 1350 << 1350 << 4950;
        QTest::newRow("8") << 8 << 5400 << 1800 << 900 << 2250;
        QTest::newRow("12") << 12 << 4050 << 675 << 675 << 5288;
        QTest::newRow("16") << 16 << 3240 << 324 << 324 << 7434;
        QTest::newRow("18") << 18 << 4050 << 1012 << 253 << 1618;
        QTest::newRow("24, from H / 5: the width bound does not bite") << 24 << 3240 << 810 << 202 << 4175;
    }
    void layoutsOnA1920By1080Screen()
    {
        QFETCH(int, tessere);
        Disposizione d;
        QVERIFY(CalcolaDisposizione(tessere, 28800, 16200, &d));
        QTEST(int(d.LatoTessera), "lato");
        QTEST(int(d.MargineAlto), "alto");
        QTEST(int(d.SpazioTessere), "spazio");
        QTEST(int(d.MargineSinistro), "sinistro");
        // On this wide screen no count is bounded by the width.
        const int a[] = {0, 0, 0, 0, 3, 0, 3, 0, 3, 0, 0, 0, 4, 0, 0, 0, 5, 0, 4, 0, 0, 0, 0, 0, 5};
        QCOMPARE(d.LatoTessera, Arrotonda16(16200.0 / a[tessere]));
    }

    void at4By3TheWidthBoundDecidesFor8_18_24Only_data()
    {
        QTest::addColumn<int>("tessere");
        QTest::addColumn<bool>("larghezzaDecide");
        for (int n : {4, 6, 8, 12, 16, 18, 24})
            QTest::newRow(qPrintable(QString::number(n))) << n << (n == 8 || n == 18 || n == 24);
    }
    void at4By3TheWidthBoundDecidesFor8_18_24Only()
    {
        QFETCH(int, tessere);
        QFETCH(bool, larghezzaDecide);
        const int a[] = {0, 0, 0, 0, 3, 0, 3, 0, 3, 0, 0, 0, 4, 0, 0, 0, 5, 0, 4, 0, 0, 0, 0, 0, 5};
        Disposizione d;
        QVERIFY(CalcolaDisposizione(tessere, 15360, 11520, &d));
        QCOMPARE(d.LatoTessera != Arrotonda16(11520.0 / a[tessere]), larghezzaDecide);
    }

    void eighteenTilesGetTheSizeOfTwentyFourOnA4By3Screen()
    {
        Disposizione a, b;
        QVERIFY(CalcolaDisposizione(18, 15360, 11520, &a));
        QVERIFY(CalcolaDisposizione(24, 15360, 11520, &b));
        QCOMPARE(a.LatoTessera, b.LatoTessera);
    }

    void roundingGoesToTheEvenNeighbourOnTies()
    {
        QCOMPARE(Arrotonda16(548.5), qint16(548));
        QCOMPARE(Arrotonda16(755.5), qint16(756));
        QCOMPARE(Arrotonda16(1.5), qint16(2));
        QCOMPARE(Arrotonda16(230.4), qint16(230));
    }

    void placesRunRowByRow()
    {
        Disposizione d;
        QVERIFY(CalcolaDisposizione(12, 15360, 11520, &d));
        QCOMPARE(d.Left(0), qint16(1200));
        QCOMPARE(d.Left(5), qint16(1200 + 2880 + 480));
        QCOMPARE(d.Top(5), qint16(480 + 2880 + 480));
        QCOMPARE(d.Top(11), qint16(480 + 2 * (2880 + 480)));
    }

    void aCountOffTheLadderHasNoLayout()
    {
        Disposizione d;
        QVERIFY(!CalcolaDisposizione(10, 15360, 11520, &d));
        QCOMPARE(ColonnePer(10), qint16(0));
    }

    void theLadderStepsDownToFitTheSet_data()
    {
        QTest::addColumn<int>("tessere");
        QTest::addColumn<int>("coppie");
        QTest::addColumn<int>("risultato");
        QTest::newRow("2 records, 24 tiles: 4") << 24 << 2 << 4;
        QTest::newRow("3 records, 24 tiles: 6, three pairs fill six") << 24 << 3 << 6;
        QTest::newRow("5 records, 12 tiles: 8") << 12 << 5 << 8;
        QTest::newRow("12 records keep 24") << 24 << 12 << 24;
        QTest::newRow("11 records, 24 tiles: 18") << 24 << 11 << 18;
        QTest::newRow("many records never raise") << 8 << 500 << 8;
    }
    void theLadderStepsDownToFitTheSet()
    {
        QFETCH(int, tessere);
        QFETCH(int, coppie);
        QTEST(int(ScendiScala(qint16(tessere), coppie)), "risultato");
    }
};

QTEST_APPLESS_MAIN(TestDisposizione)
#include "test_disposizione.moc"
