// The scripts of simple films: variables, the properties of clips, the
// constant pool, conditions and jumps, onClipEvent handlers and DoInitAction.
// Each script leaves its answer where it can be seen: the frame it goes to,
// or the place and look of a clip on the picture.

#include "costruttore.h"
#include "swf/filmato.h"

#include <QImage>
#include <QTest>

using namespace swftest;

namespace {

constexpr uint32_t kRosso = 0xff0000ff;

// A film of `fotogrammi` frames whose first frame runs `codice` then stops.
QByteArray filmCon(const QByteArray &codice, int fotogrammi = 6, int versione = 6, const QByteArray &prima = {})
{
    QByteArray t = prima + azione(as::ferma() + codice) + mostra();
    for (int k = 1; k < fotogrammi; ++k)
        t += mostra();
    return film(t, fotogrammi, 100, 100, versione);
}

// A red 10 x 10 px square in a clip named "palla", placed at (x, y) px.
QByteArray conPalla(int x = 0, int y = 0)
{
    return rettangolo(1, 0, 0, 200, 200, kRosso) + sprite(2, 1, piazza(1, 1) + mostra()) +
           piazza(1, 2, x * 20, y * 20, 0, "palla");
}

int fotogrammaDopo(const QByteArray &swf)
{
    swf::Filmato f;
    if (!f.caricaDati(swf))
        return -1;
    return f.fotogrammaCorrente();
}

QImage quadro(const QByteArray &swf, int passi = 0)
{
    swf::Filmato f;
    if (!f.caricaDati(swf))
        return {};
    for (int i = 0; i < passi; ++i)
        f.avanza();
    return f.immagine(QSize(100, 100), false);
}

bool rosso(const QImage &img, int x, int y) { return (img.pixel(x, y) & 0xffffff) == 0xff0000; }

// setProperty(target, property, value)
QByteArray imposta(const QByteArray &bersaglio, int proprieta, const QByteArray &valore)
{
    return as::stringa(bersaglio) + as::intero(proprieta) + valore + as::op(0x23);
}
QByteArray leggiProprieta(const QByteArray &bersaglio, int proprieta)
{
    return as::stringa(bersaglio) + as::intero(proprieta) + as::op(0x22);
}

} // namespace

class TestAvm1 : public QObject
{
    Q_OBJECT

private slots:
    void aVariableSetIsReadBack()
    {
        QCOMPARE(fotogrammaDopo(filmCon(as::imposta("x", as::intero(3)) + as::leggi("x") + as::vaiAPila())), 3);
    }

    void oldFilmsKnowNoCaseInNamesNewOnesDo()
    {
        const QByteArray codice = as::imposta("Conta", as::intero(4)) + as::leggi("conta") + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice, 6, 6)), 4);
        // SWF 7: "conta" is another name, undefined, and the goto goes nowhere
        QCOMPARE(fotogrammaDopo(filmCon(codice, 6, 7)), 1);
    }

    void anUndefinedVariableCountsAsZeroInOldFilms()
    {
        // n = n + 2 with n never set
        const QByteArray codice = as::stringa("n") + as::leggi("n") + as::intero(2) + as::op(0x47) + as::op(0x1D) +
                                  as::leggi("n") + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 2);
    }

    void defineLocalMakesAVariableOfTheClip()
    {
        const QByteArray codice = as::stringa("y") + as::intero(5) + as::op(0x3C) + as::leggi("y") + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 5);
    }

    void theConstantPoolNamesWhatIsPushed()
    {
        const QByteArray codice = as::costanti({"a", "b"}) + as::costante(1) + as::intero(2) + as::op(0x1D) +
                                  as::costante(1) + as::op(0x1C) + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 2);
    }

    void aLoopCountsUpWithConditionsAndJumps()
    {
        // i = 0; while (i < 5) i++; gotoAndStop(i)
        const QByteArray corpo = as::stringa("i") + as::leggi("i") + as::op(0x50) + as::op(0x1D);
        const QByteArray prova = as::leggi("i") + as::intero(5) + as::op(0x48) + as::op(0x12);
        const QByteArray salto = as::salta(0);  // for its length
        const QByteArray uscita = as::seVero(static_cast<int>(corpo.size() + salto.size()));
        const QByteArray indietro = as::salta(-static_cast<int>(prova.size() + uscita.size() + corpo.size() + salto.size()));
        const QByteArray codice = as::imposta("i", as::intero(0)) + prova + uscita + corpo + indietro + as::leggi("i") + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 5);
    }

    void anIfTakesTheBranchItsConditionSays_data()
    {
        QTest::addColumn<int>("a");
        QTest::addColumn<int>("b");
        QTest::addColumn<int>("fotogramma");
        QTest::newRow("3 > 2") << 3 << 2 << 2;
        QTest::newRow("1 > 2") << 1 << 2 << 3;
    }
    void anIfTakesTheBranchItsConditionSays()
    {
        QFETCH(int, a);
        QFETCH(int, b);
        QFETCH(int, fotogramma);
        // if (a > b) gotoAndStop(2) else gotoAndStop(3)
        const QByteArray allora = as::vaiA(1);
        const QByteArray altrimenti = as::vaiA(2) + as::salta(static_cast<int>(allora.size()));
        const QByteArray codice = as::intero(a) + as::intero(b) + as::op(0x67) +
                                  as::seVero(static_cast<int>(altrimenti.size())) + altrimenti + allora;
        QCOMPARE(fotogrammaDopo(filmCon(codice)), fotogramma);
    }

    void stringsJoinCompareAndMeasure()
    {
        // if (("ab" add "c") eq "abc") gotoAndStop(length("abcd"))
        const QByteArray vai = as::stringa("abcd") + as::op(0x14) + as::vaiAPila();
        const QByteArray codice = as::stringa("ab") + as::stringa("c") + as::op(0x21) + as::stringa("abc") + as::op(0x13) +
                                  as::op(0x12) + as::seVero(static_cast<int>(vai.size())) + vai;
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 4);
    }

    void setPropertyMovesAClip()
    {
        const QImage img = quadro(filmCon(imposta("palla", 0, as::intero(50)) + imposta("palla", 1, as::intero(20)), 1, 6, conPalla()));
        QVERIFY(!rosso(img, 5, 5));
        QVERIFY(rosso(img, 55, 25));
    }

    void getPropertyReadsWhatWasSet()
    {
        const QByteArray codice = imposta("palla", 0, as::intero(4)) + leggiProprieta("palla", 0) + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice, 6, 6, conPalla())), 4);
    }

    void propertiesReachedByDottedPathsAndMembers()
    {
        // _root.palla._y = 40 (members), then palla._x = 30 (a dotted variable name)
        const QByteArray codice = as::leggi("_root") + as::stringa("palla") + as::op(0x4E) + as::stringa("_y") +
                                  as::intero(40) + as::op(0x4F) + as::imposta("palla._x", as::intero(30));
        const QImage img = quadro(filmCon(codice, 1, 6, conPalla()));
        QVERIFY(rosso(img, 35, 45));
        QVERIFY(!rosso(img, 5, 5));
    }

    void visibleAndAlphaHideAndFade()
    {
        QVERIFY(!rosso(quadro(filmCon(as::imposta("/palla:_visible", as::booleano(false)), 1, 6, conPalla())), 5, 5));
        const QImage img = quadro(filmCon(imposta("palla", 6, as::intero(50)), 1, 6, conPalla()));
        const QRgb c = img.pixel(5, 5);
        QVERIFY2(qRed(c) == 255 && qGreen(c) > 110 && qGreen(c) < 145, qPrintable(QString::number(c, 16)));
    }

    void scaleAndRotationReshapeAClip()
    {
        QImage img = quadro(filmCon(imposta("palla", 2, as::intero(200)) + imposta("palla", 3, as::intero(300)), 1, 6, conPalla()));
        QVERIFY(rosso(img, 15, 25));
        QVERIFY(!rosso(img, 25, 25));
        QVERIFY(!rosso(img, 15, 35));
        // turned a quarter about its origin at (50, 50): it now lies left of it
        img = quadro(filmCon(imposta("palla", 10, as::intero(90)), 1, 6, conPalla(50, 50)));
        QVERIFY(rosso(img, 45, 55));
        QVERIFY(!rosso(img, 55, 55));
        // and _rotation reads back what was set
        const QByteArray codice = imposta("palla", 10, as::intero(90)) + leggiProprieta("palla", 10) + as::intero(88) +
                                  as::op(0x0B) + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice, 6, 6, conPalla())), 2);
    }

    void widthAndHeightMeasureTheClip()
    {
        // the square is 10 px: _width / 5 = 2
        const QByteArray codice = leggiProprieta("palla", 8) + as::intero(5) + as::op(0x0D) + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice, 6, 6, conPalla())), 2);
    }

    void currentAndTotalFramesAreKnown()
    {
        QCOMPARE(fotogrammaDopo(filmCon(as::leggi("_totalframes") + as::vaiAPila(), 5)), 5);
        // on frame 1: gotoAndStop(_currentframe + 2)
        QCOMPARE(fotogrammaDopo(filmCon(as::leggi("_currentframe") + as::intero(2) + as::op(0x47) + as::vaiAPila(), 5)), 3);
    }

    void aClipScriptedStaysWhereTheScriptPutIt()
    {
        // frame 2 of the main timeline moves the clip back to 0; the script put it at 50 first
        QByteArray t = conPalla() + azione(imposta("palla", 0, as::intero(50))) + mostra();
        Bit b;
        b.u8(0x01 | 0x04);
        b.u16(1);
        matrice(b, 0, 0);
        t += tag(26, b.fine()) + azione(as::ferma()) + mostra();
        const QImage img = quadro(film(t, 2), 1);
        QVERIFY(rosso(img, 55, 5));
        QVERIFY(!rosso(img, 5, 5));
    }

    void onClipEventLoadRunsWhenTheClipComes()
    {
        // onClipEvent(load) { _root.gotoAndStop(3) }: SetTarget("_root") then GotoFrame 2
        const QByteArray gestore = as::stringa("_root") + as::op(0x20) + as::vaiA(2);
        const QByteArray prima = rettangolo(1, 0, 0, 200, 200, kRosso) + sprite(2, 1, piazza(1, 1) + mostra()) +
                                 piazzaConEventi(1, 2, 0, 0, "palla", {{0x01, gestore}});
        QCOMPARE(fotogrammaDopo(filmCon({}, 4, 6, prima)), 3);
    }

    void onClipEventEnterFrameRunsEveryFrame()
    {
        // onClipEvent(enterFrame) { _x += 10 }
        const QByteArray gestore = as::stringa("_x") + as::leggi("_x") + as::intero(10) + as::op(0x47) + as::op(0x1D);
        const QByteArray prima = rettangolo(1, 0, 0, 200, 200, kRosso) + sprite(2, 1, piazza(1, 1) + mostra()) +
                                 piazzaConEventi(1, 2, 0, 0, "palla", {{0x02, gestore}});
        const QImage img = quadro(filmCon({}, 1, 6, prima), 3);
        QVERIFY(rosso(img, 35, 5));
        QVERIFY(!rosso(img, 25, 5));
    }

    void anEndlessEnterFrameHandlerCostsOnlyItsBudget()
    {
        const QByteArray giro = as::stringa("k") + as::leggi("k") + as::op(0x50) + as::op(0x1D);
        const QByteArray gestore = giro + as::salta(-static_cast<int>(giro.size() + 5));
        const QByteArray prima = rettangolo(1, 0, 0, 200, 200, kRosso) + sprite(2, 1, piazza(1, 1) + mostra()) +
                                 piazzaConEventi(1, 2, 0, 0, "palla", {{0x02, gestore}});
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmCon({}, 1, 6, prima)));
        for (int i = 0; i < 20; ++i)
            f.avanza();
        QVERIFY(rosso(f.immagine(QSize(100, 100), false), 5, 5));
    }

    void doInitActionRunsOnceBeforeTheFramesScripts()
    {
        // the init action counts its runs; frame 1's own script goes to that count + 1
        const QByteArray conta = as::stringa("volte") + as::leggi("volte") + as::intero(1) + as::op(0x47) + as::op(0x1D);
        const QByteArray prima = rettangolo(1, 0, 0, 200, 200, kRosso) + sprite(2, 1, piazza(1, 1) + mostra()) +
                                 azioneIniziale(2, conta);
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmCon(as::leggi("volte") + as::intero(1) + as::op(0x47) + as::vaiAPila(), 4, 6, prima)));
        QCOMPARE(f.fotogrammaCorrente(), 2);
        // back on frame 1 its script runs again, the init action does not
        f.vaiAlFotogramma(1);
        QCOMPARE(f.fotogrammaCorrente(), 2);
    }

    void randomStaysBelowItsBound()
    {
        // gotoAndStop(random(3) + 1) lands on 1, 2 or 3
        const int f = fotogrammaDopo(filmCon(as::intero(3) + as::op(0x30) + as::intero(1) + as::op(0x47) + as::vaiAPila()));
        QVERIFY(f >= 1 && f <= 3);
    }

    void bitsAndModuloFollowTheirOperators()
    {
        // ((12 & 10) | 1) % 5 = 4
        const QByteArray codice = as::intero(12) + as::intero(10) + as::op(0x60) + as::intero(1) + as::op(0x61) +
                                  as::intero(5) + as::op(0x3F) + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 4);
    }

    void theStackStaysSoundPastWhatIsNotPlayed()
    {
        // new Object(1, 2) leaves one value; then x = 2; gotoAndStop(x)
        const QByteArray codice = as::intero(1) + as::intero(2) + as::intero(2) + as::stringa("Object") + as::op(0x40) +
                                  as::op(0x17) + as::imposta("x", as::intero(2)) + as::leggi("x") + as::vaiAPila();
        QCOMPARE(fotogrammaDopo(filmCon(codice)), 2);
    }
};

QTEST_MAIN(TestAvm1)
#include "test_avm1.moc"
