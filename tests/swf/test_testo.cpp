// Text in films: static text in device fonts drawn with a system font, edit
// fields with their embedded glyphs or system fonts, and the simple HTML of
// the authoring tools (bold, italic, colour, size, face, alignment).

#include "costruttore.h"
#include "modello.h"
#include "swf/filmato.h"

#include <QImage>
#include <QTest>

using namespace swftest;

namespace {

constexpr uint32_t kRosso = 0xff0000ff;

QImage quadro(const QByteArray &tags, int larghezza = 200, int altezza = 100)
{
    swf::Filmato f;
    if (!f.caricaDati(film(tags + mostra(), 1, larghezza, altezza)))
        return {};
    return f.immagine(QSize(larghezza, altezza), true);
}

// Pixels of a hue in a box: strongly red, green or blue, the others low.
int contaColore(const QImage &img, QRect box, char colore)
{
    box &= img.rect();
    int n = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x) {
            const QRgb c = img.pixel(x, y);
            const int r = qRed(c), g = qGreen(c), b = qBlue(c);
            const bool si = colore == 'r' ? r > 180 && g < 90 && b < 90
                            : colore == 'g' ? g > 180 && r < 90 && b < 90
                            : colore == 'b' ? b > 180 && r < 90 && g < 90
                                            : r < 100 && g < 100 && b < 100;
            n += si;
        }
    return n;
}

} // namespace

class TestTesto : public QObject
{
    Q_OBJECT

private slots:
    void staticTextInADeviceFontIsDrawnWithASystemFont_data()
    {
        QTest::addColumn<QByteArray>("nome");
        QTest::newRow("installed") << QByteArray("DejaVu Sans");
        QTest::newRow("missing: a sans font") << QByteArray("Nessun Carattere Cosi");
    }
    void staticTextInADeviceFontIsDrawnWithASystemFont()
    {
        QFETCH(QByteArray, nome);
        // "HH" 40 px high, baseline at 60 px, from x 20 px
        const QImage img = quadro(fontDispositivo(1, nome, QStringLiteral("H")) +
                                  testoStatico(2, 1, 800, kRosso, 400, 1200, {0, 0}, 600) + piazza(1, 2));
        const int dentro = contaColore(img, QRect(18, 28, 64, 34), 'r');
        QVERIFY2(dentro > 150, qPrintable(QString::number(dentro)));
        QCOMPARE(contaColore(img, QRect(0, 65, 200, 35), 'r'), 0);
        QCOMPARE(contaColore(img, QRect(90, 0, 110, 100), 'r'), 0);
        QCOMPARE(contaColore(img, QRect(0, 0, 200, 20), 'r'), 0);
    }

    void anEditFieldDrawsItsEmbeddedGlyphs()
    {
        // "AA" 20 px: squares of 11.7 px, one every 15.6 px, after a 2 px gutter
        const QImage img = quadro(fontQuadrati(1, "Quadri", QStringLiteral("A")) +
                                  campoTesto(2, 4000, 800, 1, 400, kRosso, "AA", {false, true}) + piazza(1, 2));
        QCOMPARE(img.pixel(10, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(25, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(17, 12) & 0xffffff, QRgb(0xffffff));
        QCOMPARE(img.pixel(40, 12) & 0xffffff, QRgb(0xffffff));
        QCOMPARE(img.pixel(10, 30) & 0xffffff, QRgb(0xffffff));
    }

    void htmlFontColoursReachTheGlyphs()
    {
        const QByteArray html = "<p><font color=\"#FF0000\">AA</font><font color=\"#0000FF\">AA</font></p>";
        const QImage img = quadro(fontQuadrati(1, "Quadri", QStringLiteral("A")) +
                                  campoTesto(2, 4000, 800, 1, 400, 0x000000ff, html, {true, true}) + piazza(1, 2));
        QCOMPARE(img.pixel(10, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(25, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(41, 12) & 0xffffff, QRgb(0x0000ff));
        QCOMPARE(img.pixel(57, 12) & 0xffffff, QRgb(0x0000ff));
    }

    void htmlColoursReachASystemFont()
    {
        const QByteArray html = "<p><font color=\"#00FF00\">MMMM</font> <font color=\"#0000FF\">MMMM</font></p>";
        const QImage img = quadro(fontDispositivo(1, "DejaVu Sans", QStringLiteral("M")) +
                                  campoTesto(2, 4000, 800, 1, 400, 0x000000ff, html, {true, false}) + piazza(1, 2));
        const int verdi = contaColore(img, QRect(0, 0, 200, 40), 'g'), blu = contaColore(img, QRect(0, 0, 200, 40), 'b');
        QVERIFY2(verdi > 40 && blu > 40, qPrintable(QStringLiteral("%1 %2").arg(verdi).arg(blu)));
        // green first, then blue
        QCOMPARE(contaColore(img, QRect(0, 0, 35, 40), 'b'), 0);
        QVERIFY(contaColore(img, QRect(0, 0, 35, 40), 'g') > 20);
    }

    void paragraphAlignmentPlacesTheLine_data()
    {
        QTest::addColumn<QByteArray>("allinea");
        QTest::addColumn<int>("x");
        QTest::newRow("left") << QByteArray("left") << 10;
        QTest::newRow("centre") << QByteArray("center") << 100;
        QTest::newRow("right") << QByteArray("right") << 189;
    }
    void paragraphAlignmentPlacesTheLine()
    {
        QFETCH(QByteArray, allinea);
        QFETCH(int, x);
        const QByteArray html = "<p align=\"" + allinea + "\">A</p>";
        const QImage img = quadro(fontQuadrati(1, "Quadri", QStringLiteral("A")) +
                                  campoTesto(2, 4000, 800, 1, 400, kRosso, html, {true, true}) + piazza(1, 2));
        QVERIFY2(contaColore(img, QRect(x - 3, 8, 6, 8), 'r') > 30, qPrintable(QString::number(x)));
        QCOMPARE(contaColore(img, QRect(0, 0, 200, 40), 'r'), contaColore(img, QRect(x - 12, 0, 24, 40), 'r'));
    }

    void htmlSizeMakesTheGlyphsLarger()
    {
        const QByteArray html = "<p><font size=\"40\">A</font></p>";
        const QImage img = quadro(fontQuadrati(1, "Quadri", QStringLiteral("A")) +
                                  campoTesto(2, 4000, 2000, 1, 400, kRosso, html, {true, true}) + piazza(1, 2));
        // 40 px: a square of 23 px
        QCOMPARE(img.pixel(8, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(24, 30) & 0xffffff, QRgb(0xff0000));
    }

    void aLongLineWrapsAtItsSpaces()
    {
        const QImage img = quadro(fontQuadrati(1, "Quadri", QStringLiteral("A")) +
                                  campoTesto(2, 1000, 2000, 1, 400, kRosso, "AA AA AA", {false, true, true}) + piazza(1, 2));
        // three lines of two squares in a field 50 px wide
        QCOMPARE(img.pixel(10, 12) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(10, 32) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(img.pixel(10, 52) & 0xffffff, QRgb(0xff0000));
        QCOMPARE(contaColore(img, QRect(52, 0, 148, 100), 'r'), 0);
    }

    void boldAndItalicChangeASystemFontsLetters()
    {
        auto nero = [](const QByteArray &html) {
            const QImage img = quadro(fontDispositivo(1, "DejaVu Sans", QStringLiteral("M")) +
                                      campoTesto(2, 4000, 800, 1, 400, 0x000000ff, html, {true, false}) + piazza(1, 2));
            return std::pair{contaColore(img, QRect(0, 0, 200, 40), 'k'), img};
        };
        const auto [normale, imgNormale] = nero("<p>MMMM</p>");
        const auto [grassetto, imgGrassetto] = nero("<p><b>MMMM</b></p>");
        const auto [corsivo, imgCorsivo] = nero("<p><i>MMMM</i></p>");
        QVERIFY2(normale > 40, qPrintable(QString::number(normale)));
        QVERIFY2(grassetto > normale * 6 / 5, qPrintable(QStringLiteral("%1 %2").arg(normale).arg(grassetto)));
        QVERIFY(imgCorsivo != imgNormale);
        QVERIFY(corsivo > 0);
    }

    void theHtmlOfAuthoringToolsIsReadIntoRuns()
    {
        swf::PezzoTesto base;
        base.altezza = 240;
        base.colore = swf::Rgba{0, 0, 0, 255};
        const auto p = swf::paragrafiDaHtml(
            QStringLiteral("<TEXTFORMAT LEADING=\"2\"><P ALIGN=\"CENTER\"><FONT FACE=\"Comic Sans MS\" SIZE=\"24\" "
                           "COLOR=\"#336699\">Ciao <B>bel</B> <I>mondo</I></FONT></P></TEXTFORMAT><P ALIGN=\"RIGHT\">"
                           "a &amp; b&lt;c<BR>d</P>"),
            base, 0);
        QCOMPARE(p.size(), size_t(3));
        QCOMPARE(p[0].allinea, 2);
        QCOMPARE(p[0].pezzi.size(), size_t(4));
        QCOMPARE(p[0].pezzi[0].testo, QStringLiteral("Ciao "));
        QCOMPARE(p[0].pezzi[0].faccia, QByteArray("Comic Sans MS"));
        QCOMPARE(p[0].pezzi[0].altezza, 480.0);
        QVERIFY((p[0].pezzi[0].colore == swf::Rgba{0x33, 0x66, 0x99, 255}));
        QVERIFY(p[0].pezzi[1].grassetto && !p[0].pezzi[1].corsivo);
        QCOMPARE(p[0].pezzi[1].testo, QStringLiteral("bel"));
        QVERIFY(p[0].pezzi[3].corsivo && !p[0].pezzi[3].grassetto);
        QCOMPARE(p[1].allinea, 1);
        QCOMPARE(p[1].pezzi[0].testo, QStringLiteral("a & b<c"));
        QCOMPARE(p[2].allinea, 1);
        QCOMPARE(p[2].pezzi[0].testo, QStringLiteral("d"));
        QVERIFY((p[2].pezzi[0].colore == swf::Rgba{0, 0, 0, 255}));
    }

    void brokenHtmlAndFontsNeverCrash()
    {
        for (const QByteArray &html : {QByteArray("<p align=\"right\"><font size=\"+999\" color=\"#zz\">a"),
                                      QByteArray("</font></b></i></p><<<>>>&#99999999;&"),
                                      QByteArray(200, '<') + QByteArray(200, 'b') + QByteArray(200, '>')}) {
            const QImage img = quadro(fontQuadrati(1, "Q", QStringLiteral("a")) +
                                      campoTesto(2, 4000, 800, 1, 400, kRosso, html, {true, true, true}) + piazza(1, 2) +
                                      campoTesto(3, 4000, 800, 1, 400, kRosso, html, {true, false, true}) + piazza(2, 3));
            QVERIFY(!img.isNull());
        }
        const QByteArray font = fontQuadrati(1, "Q", QStringLiteral("ab"));
        for (int taglio = 6; taglio < font.size(); taglio += 3) {
            QByteArray rotto = font;
            for (int k = taglio; k < rotto.size(); ++k)
                rotto[k] = static_cast<char>(k * 13);
            (void)quadro(rotto + campoTesto(2, 4000, 800, 1, 400, kRosso, "abab", {false, true}) + piazza(1, 2) +
                         testoStatico(3, 1, 400, kRosso, 0, 600, {0, 1, 0}, 300) + piazza(2, 3));
        }
    }
};

QTEST_MAIN(TestTesto)
#include "test_testo.moc"
