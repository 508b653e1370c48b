// Buttons in films: the up state drawn where nobody points, over and down
// under the pointer, actions on the transitions they are written for, the
// button's colour transform, and its sounds through the film's mixer.

#include "costruttore.h"
#include "swf/filmato.h"
#include "swf/suono.h"

#include <QImage>
#include <QTest>

#include <cmath>

using namespace swftest;

namespace {

constexpr uint32_t kRosso = 0xff0000ff, kVerde = 0x00ff00ff, kBlu = 0x0000ffff;
const QRectF kArea(0, 0, 100, 100);

// A button in the middle of a 100 x 100 film: red up, green over, blue down,
// hit on its square (25..75 px). Frame 1 stops; an action may go elsewhere.
QByteArray filmBottone(const QByteArray &bottone, const QByteArray &altri = {}, int fotogrammi = 3)
{
    QByteArray t = rettangolo(1, 500, 500, 1500, 1500, kRosso) + rettangolo(2, 500, 500, 1500, 1500, kVerde) +
                   rettangolo(3, 500, 500, 1500, 1500, kBlu) + rettangolo(4, 500, 500, 1500, 1500, 0x808080ff) + altri +
                   bottone + piazza(1, 10) + azione(as::ferma()) + mostra();
    for (int k = 1; k < fotogrammi; ++k)
        t += mostra();
    return film(t, fotogrammi);
}

const std::vector<ParteProva> kParti = {{1, 1, 1}, {2, 2, 1}, {4, 3, 1}, {8, 4, 2}};

QRgb centro(const swf::Filmato &f) { return f.immagine(QSize(100, 100), false).pixel(50, 50) & 0xffffff; }

double livello(swf::Filmato &f, int n = 2048)
{
    std::vector<float> b(static_cast<size_t>(2 * n), 0.f);
    f.uscitaSuono()->mescola(b.data(), n, 44100);
    double s = 0;
    for (float v : b)
        s += static_cast<double>(v) * v;
    return std::sqrt(s / static_cast<double>(b.size()));
}

std::vector<int16_t> tono(int n)
{
    std::vector<int16_t> c(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        c[static_cast<size_t>(i)] = static_cast<int16_t>(12000 * std::sin(2 * M_PI * 440 * i / 44100.0));
    return c;
}

} // namespace

class TestBottoni : public QObject
{
    Q_OBJECT

private slots:
    void theUpStateIsDrawnWhereNobodyPoints()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}))));
        QCOMPARE(centro(f), QRgb(0xff0000));
        // the hit state is never drawn
        QCOMPARE(f.immagine(QSize(100, 100), false).pixel(10, 10) & 0xffffff, QRgb(0xffffff));
        QVERIFY(!f.puntatoreSuPulsante());
    }

    void overAndDownFollowThePointer()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}))));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QVERIFY(f.puntatoreSuPulsante());
        QCOMPARE(centro(f), QRgb(0x00ff00));
        f.premiPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x0000ff));
        f.rilasciaPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x00ff00));
        f.muoviPuntatore(kArea, QPointF(5, 5));
        QVERIFY(!f.puntatoreSuPulsante());
        QCOMPARE(centro(f), QRgb(0xff0000));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        f.puntatoreUscito();
        QCOMPARE(centro(f), QRgb(0xff0000));
    }

    void thePointerMapsThroughTheShowAllScaling()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}))));
        // drawn 200 x 100: the stage is 100 x 100 in the middle, from x 50
        const QRectF largo(0, 0, 200, 100);
        f.muoviPuntatore(largo, QPointF(40, 50));
        QVERIFY(!f.puntatoreSuPulsante());
        f.muoviPuntatore(largo, QPointF(110, 50));
        QVERIFY(f.puntatoreSuPulsante());
    }

    void onlyTheHitStateTakesThePointer()
    {
        // the up picture is wide, the hit area only its left half
        const QByteArray altri = rettangolo(5, 0, 0, 2000, 2000, kRosso) + rettangolo(6, 0, 0, 1000, 2000, 0x808080ff);
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, {{1, 5, 1}, {2, 2, 1}, {8, 6, 2}}, {}), altri)));
        f.muoviPuntatore(kArea, QPointF(75, 50));
        QVERIFY(!f.puntatoreSuPulsante());
        f.muoviPuntatore(kArea, QPointF(25, 50));
        QVERIFY(f.puntatoreSuPulsante());
    }

    void aReleaseOverTheButtonRunsItsAction()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {{0x008, as::vaiA(2)}}))));
        QCOMPARE(f.fotogrammaCorrente(), 1);
        f.muoviPuntatore(kArea, QPointF(50, 50));
        f.premiPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 1);
        f.rilasciaPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 3);
    }

    void aPressRunsTheActionsWrittenForThePress()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {{0x004, as::vaiA(1)}, {0x008, as::vaiA(2)}}))));
        f.premiPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 2);
        f.rilasciaPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 3);
    }

    void rollOverAndOutRunTheirOwnActions()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {{0x001, as::vaiA(1)}, {0x002, as::vaiA(2)}}))));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 2);
        f.muoviPuntatore(kArea, QPointF(1, 1));
        QCOMPARE(f.fotogrammaCorrente(), 3);
    }

    void draggedOffAndLetGoRunsNoReleaseAction()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {{0x008, as::vaiA(2)}}))));
        f.premiPuntatore(kArea, QPointF(50, 50));
        f.muoviPuntatore(kArea, QPointF(2, 2));
        QCOMPARE(centro(f), QRgb(0x00ff00));  // held and dragged off: over
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x0000ff));  // back on it: down again
        f.muoviPuntatore(kArea, QPointF(2, 2));
        f.rilasciaPuntatore(kArea, QPointF(2, 2));
        QCOMPARE(f.fotogrammaCorrente(), 1);
        QCOMPARE(centro(f), QRgb(0xff0000));
    }

    void aFirstVersionButtonActsOnRelease()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone1(10, kParti, as::vaiA(1)))));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x00ff00));
        f.premiPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x0000ff));
        QCOMPARE(f.fotogrammaCorrente(), 1);
        f.rilasciaPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.fotogrammaCorrente(), 2);
    }

    void theButtonsColourTransformTintsEveryState()
    {
        swf::Filmato f;
        // red becomes red with blue added; green gets the same blue
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}) + coloreBottone(10, 1, 1, 1, 0, 0, 255))));
        QCOMPARE(centro(f), QRgb(0xff00ff));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(centro(f), QRgb(0x00ffff));
    }

    void aPartsOwnAlphaFadesIt()
    {
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, {{1, 1, 1, 0, 0, 0.5}, {8, 4, 2}}, {}))));
        const QRgb c = centro(f);
        QVERIFY2(qRed(c) == 255 && qGreen(c) > 100 && qGreen(c) < 155, qPrintable(QString::number(c, 16)));
    }

    void aButtonInsideAClipAnswersAndActsOnThatClip()
    {
        // the clip holds the button; its frame 2 lays a yellow square over it
        const QByteArray clip = sprite(20, 2, piazza(1, 10) + azione(as::ferma()) + mostra() + piazza(5, 7) + mostra());
        QByteArray t = rettangolo(1, 500, 500, 1500, 1500, kRosso) + rettangolo(2, 500, 500, 1500, 1500, kVerde) +
                       rettangolo(3, 500, 500, 1500, 1500, kBlu) + rettangolo(4, 500, 500, 1500, 1500, 0x808080ff) +
                       rettangolo(7, 500, 500, 1500, 1500, 0xffff00ff) + bottone2(10, kParti, {{0x008, as::vaiA(1)}}) +
                       clip + piazza(1, 20, 200, 0) + mostra() + mostra();
        swf::Filmato f;
        QVERIFY(f.caricaDati(film(t, 2)));
        f.ferma();
        // the clip stands 10 px to the right: its button covers 35..85
        f.muoviPuntatore(kArea, QPointF(30, 50));
        QVERIFY(!f.puntatoreSuPulsante());
        f.muoviPuntatore(kArea, QPointF(80, 50));
        QVERIFY(f.puntatoreSuPulsante());
        f.premiPuntatore(kArea, QPointF(80, 50));
        f.rilasciaPuntatore(kArea, QPointF(80, 50));
        // the clip went to its frame 2, the main timeline stayed
        QCOMPARE(f.fotogrammaCorrente(), 1);
        QCOMPARE(f.immagine(QSize(100, 100), false).pixel(80, 50) & 0xffffff, QRgb(0xffff00));
    }

    void theButtonsSoundsPlayThroughTheFilmsMixer()
    {
        const std::vector<int16_t> c = tono(22050);
        const QByteArray suono = defineSound(30, 3, 44100, true, false, static_cast<uint32_t>(c.size()), pcm16(c));
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}) + suoniBottone(10, {0, 0, 30, 0}), suono)));
        f.impostaSuono(true);
        f.riprendi();
        QCOMPARE(livello(f), 0.0);
        f.muoviPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.uscitaSuono()->vociAttive(), 0);  // idle to over has no sound
        f.premiPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.uscitaSuono()->vociAttive(), 1);
        const double l = livello(f);
        QVERIFY2(l > 0.1, qPrintable(QString::number(l)));
    }

    void aSilentFilmsButtonMakesNoSound()
    {
        const std::vector<int16_t> c = tono(4410);
        const QByteArray suono = defineSound(30, 3, 44100, true, false, static_cast<uint32_t>(c.size()), pcm16(c));
        swf::Filmato f;
        QVERIFY(f.caricaDati(filmBottone(bottone2(10, kParti, {}) + suoniBottone(10, {30, 30, 30, 30}), suono)));
        f.muoviPuntatore(kArea, QPointF(50, 50));
        f.premiPuntatore(kArea, QPointF(50, 50));
        f.rilasciaPuntatore(kArea, QPointF(50, 50));
        QCOMPARE(f.uscitaSuono()->vociAttive(), 0);
        QCOMPARE(livello(f), 0.0);
    }

    void brokenButtonsNeverCrash()
    {
        const QByteArray buono = bottone2(10, kParti, {{0x008, as::vaiA(2)}});
        for (int taglio = 0; taglio < buono.size(); ++taglio) {
            QByteArray rotto = buono;
            // the tag's length stays, its body is cut and filled with noise
            for (int k = taglio; k < rotto.size(); ++k)
                rotto[k] = static_cast<char>((k * 37 + taglio) & 0xff);
            swf::Filmato f;
            if (!f.caricaDati(filmBottone(rotto)))
                continue;
            f.muoviPuntatore(kArea, QPointF(50, 50));
            f.premiPuntatore(kArea, QPointF(50, 50));
            f.rilasciaPuntatore(kArea, QPointF(50, 50));
            f.avanza();
            (void)f.immagine(QSize(40, 40), true);
        }
    }
};

QTEST_MAIN(TestBottoni)
#include "test_bottoni.moc"
