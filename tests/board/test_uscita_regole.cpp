#include "board/FinestraUscita.h"

#include <QtTest>

using namespace FinestraUscita;

// The exit question's rules: colours under the pointer, the font fit, where the pointer goes.
class TestUscitaRegole : public QObject
{
    Q_OBJECT
private slots:
    void pointingAtNoMakesItRedAndYesGrey()
    {
        Colori c;
        c.MouseMoveNo();
        QCOMPARE(c.CommandNo, ColoreIndicato);
        QCOMPARE(c.PictureNo, ColoreIndicato);
        QCOMPARE(c.CommandSi, ColoreRiposo);
        QCOMPARE(c.PictureSi, ColoreRiposo);
    }

    void goingFromNoStraightToYesNeverPassesTheRestState()
    {
        Colori c;
        c.MouseMoveNo();
        c.MouseMoveSi();
        QCOMPARE(c.CommandSi, ColoreIndicato);
        QCOMPARE(c.PictureSi, ColoreIndicato);
        QCOMPARE(c.CommandNo, ColoreRiposo);
        QCOMPARE(c.PictureNo, ColoreRiposo);
    }

    void theFrameBringsBothBackToRest()
    {
        Colori c;
        c.MouseMoveSi();
        c.MouseMoveCornice();
        QCOMPARE(c.CommandSi, ColoreRiposo);
        QCOMPARE(c.PictureSi, ColoreRiposo);
    }

    void aMoveOnTheButtonAlreadyRedChangesNothing()
    {
        Colori c;
        c.MouseMoveNo();
        c.PictureSi = 123; // a face out of step stays so: the handler returns at once
        c.MouseMoveNo();
        QCOMPARE(c.PictureSi, 123.0);
    }

    void theLongerCaptionByLettersIsMeasuredAndNoWinsATie()
    {
        QCOMPARE(CaptionPiuLunga(QStringLiteral("SÌ"), QStringLiteral("NO")), QStringLiteral("NO"));
        QCOMPARE(CaptionPiuLunga(QStringLiteral("YES"), QStringLiteral("NO")), QStringLiteral("YES"));
    }

    void theFitStopsAtTheFirstSizeThatReachesTheWidth_data()
    {
        QTest::addColumn<double>("partenza");
        QTest::addColumn<double>("larghezza");
        QTest::addColumn<double>("atteso");
        // Ten twips for each point: 1000 twips are reached at 100 points exactly.
        QTest::newRow("from 12") << 12.0 << 1000.0 << 100.0;
        QTest::newRow("already wide enough") << 150.0 << 1000.0 << 150.0;
        QTest::newRow("between sizes") << 12.0 << 1005.0 << 101.0;
    }
    void theFitStopsAtTheFirstSizeThatReachesTheWidth()
    {
        QFETCH(double, partenza);
        QFETCH(double, larghezza);
        const double p = AdattaCarattere(QStringLiteral("S"), partenza, larghezza,
                                         [](const QString &t, double punti) { return QSizeF(t.size() * punti * 10, 0); });
        QTEST(p, "atteso");
    }

    void theFitTakesNoStepThatMakesTheTextTallerThanTheLabel_data()
    {
        QTest::addColumn<double>("altezza");
        QTest::addColumn<double>("atteso");
        // Ten twips wide and twelve high for each point: the width is reached at 100 points.
        QTest::newRow("height to spare") << 2000.0 << 100.0;
        QTest::newRow("height reached exactly") << 1200.0 << 100.0;
        QTest::newRow("height bounds first") << 900.0 << 75.0;
        QTest::newRow("already too tall") << 100.0 << 12.0;
    }
    void theFitTakesNoStepThatMakesTheTextTallerThanTheLabel()
    {
        QFETCH(double, altezza);
        const double p = AdattaCarattere(
            QStringLiteral("S"), 12, 1000,
            [](const QString &t, double punti) { return QSizeF(t.size() * punti * 10, punti * 12); }, altezza);
        QTEST(p, "atteso");
    }

    void thePointerGoesToTopAndLeftWithHalvesTakenAwayAndVerticalIntoX()
    {
        QCOMPARE(PosizionePortaMouse(3000, 2000, 8055, 4455), QPoint(3000 - 2227, 2000 - 4027));
        QCOMPARE(PosizionePortaMouse(0, 0, 3, 5), QPoint(-2, -1));
    }
};

QTEST_APPLESS_MAIN(TestUscitaRegole)
#include "test_uscita_regole.moc"
