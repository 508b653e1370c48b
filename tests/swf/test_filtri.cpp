// Filters on a red square: inner shadow and inner glow against pictures the
// project made with its own renderer and checked by eye (tests/swf/riferimenti),
// knockout and hidden object, gradient glow and gradient bevel, and blurs
// whose passes follow the filter's quality.
//
// COPPIE_RIFERIMENTI_NUOVI=1 swf_filtri writes the reference pictures anew
// instead of comparing (to be looked at before they are committed).

#include "costruttore.h"

#include "swf/filmato.h"

#include <QDir>
#include <QImage>
#include <QTest>

#include <cmath>

using namespace swftest;

namespace {

constexpr uint32_t kRosso = 0xdd2222ff;

// A white stage of 100 x 100 px with a red square of 40 px at (30, 30).
QImage quadrato(const std::vector<QByteArray> &filtri, QSize dimensione = QSize(100, 100))
{
    const QByteArray t = sfondo(255, 255, 255) + rettangolo(1, 0, 0, 800, 800, kRosso) + piazzaFiltrata(1, 1, 600, 600, filtri) + mostra();
    swf::Filmato f;
    if (!f.caricaDati(film(t, 1)))
        return {};
    return f.immagine(dimensione, true).convertToFormat(QImage::Format_RGB32);
}

bool bianco(QRgb c) { return qRed(c) > 250 && qGreen(c) > 250 && qBlue(c) > 250; }
int luce(QRgb c) { return qRed(c) + qGreen(c) + qBlue(c); }

// pixels of a row that are not white
int larghezzaRiga(const QImage &img, int y)
{
    int n = 0;
    for (int x = 0; x < img.width(); ++x)
        n += bianco(img.pixel(x, y)) ? 0 : 1;
    return n;
}

QString riferimento(const QString &nome) { return QDir(QStringLiteral(COPPIE_SWF_RIFERIMENTI)).filePath(nome + QStringLiteral(".png")); }

} // namespace

class TestFiltri : public QObject
{
    Q_OBJECT
private slots:
    // The two filters with a reference picture: drawn now, they must match
    // it within 2 in every channel.
    void innerFiltersMatchTheirReferencePictures_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QByteArray>("filtro");
        QTest::newRow("inner shadow") << QStringLiteral("ombra-interna")
                                      << filtroOmbra(0x000000cc, 6, 6, M_PI / 4, 5, 1, true, false, true, 2);
        QTest::newRow("inner glow") << QStringLiteral("alone-interno") << filtroAlone(0xffee00ff, 10, 10, 2, true, false, true, 2);
    }
    void innerFiltersMatchTheirReferencePictures()
    {
        QFETCH(QString, nome);
        QFETCH(QByteArray, filtro);
        const QImage img = quadrato({filtro});
        QVERIFY(!img.isNull());
        if (qEnvironmentVariableIsSet("COPPIE_RIFERIMENTI_NUOVI")) {
            QVERIFY(img.save(riferimento(nome)));
            QSKIP("reference picture written");
        }
        const QImage atteso = QImage(riferimento(nome)).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(atteso.size(), img.size());
        int diversi = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) {
                const QRgb a = img.pixel(x, y), b = atteso.pixel(x, y);
                if (std::abs(qRed(a) - qRed(b)) > 2 || std::abs(qGreen(a) - qGreen(b)) > 2 || std::abs(qBlue(a) - qBlue(b)) > 2)
                    ++diversi;
            }
        QCOMPARE(diversi, 0);
    }

    // What the reference pictures show, said in words: outside the square
    // nothing changes; the shadow lies inside along the top and left edges
    // (the light comes from the top left); the glow lines every inner edge
    // and leaves the middle red.
    void innerShadowDarkensTheTopLeftInsideEdgesOnly()
    {
        const QImage img = quadrato({filtroOmbra(0x000000cc, 6, 6, M_PI / 4, 5, 1, true, false, true, 2)});
        QVERIFY(bianco(img.pixel(28, 50)) && bianco(img.pixel(72, 50)) && bianco(img.pixel(50, 28)));
        const QImage nudo = quadrato({});
        QVERIFY(luce(img.pixel(32, 50)) < luce(nudo.pixel(32, 50)) - 60);  // left inner edge
        QVERIFY(luce(img.pixel(50, 32)) < luce(nudo.pixel(50, 32)) - 60);  // top inner edge
        QCOMPARE(img.pixel(67, 67), nudo.pixel(67, 67));                   // bottom right: no shadow
        QCOMPARE(img.pixel(50, 50), nudo.pixel(50, 50));
    }
    void innerGlowLinesEveryInsideEdge()
    {
        const QImage img = quadrato({filtroAlone(0xffee00ff, 10, 10, 2, true, false, true, 2)});
        QVERIFY(bianco(img.pixel(28, 50)) && bianco(img.pixel(71, 50)));
        for (const QPoint p : {QPoint(31, 50), QPoint(68, 50), QPoint(50, 31), QPoint(50, 68)})
            QVERIFY2(qGreen(img.pixel(p)) > 150, qPrintable(QString::number(img.pixel(p), 16)));  // yellow
        QVERIFY(qGreen(img.pixel(50, 50)) < 60);  // red in the middle
    }

    // Knockout: the glow stays, the object itself is cut out of it.
    void knockoutLeavesOnlyTheGlow()
    {
        const QImage img = quadrato({filtroAlone(0x0000ffff, 10, 10, 3, false, true, true, 1)});
        QVERIFY(bianco(img.pixel(50, 50)));
        QVERIFY(qBlue(img.pixel(28, 50)) > 200 && qRed(img.pixel(28, 50)) < 200);
        // an inner glow knocked out: only the ring inside the edges
        const QImage dentro = quadrato({filtroAlone(0x0000ffff, 10, 10, 3, true, true, true, 1)});
        QVERIFY(bianco(dentro.pixel(50, 50)));
        QVERIFY(bianco(dentro.pixel(28, 50)));
        QVERIFY(qBlue(dentro.pixel(31, 50)) > 150 && qRed(dentro.pixel(31, 50)) < 150);
    }

    // A hidden object: only its shadow, moved 10 px to the right, is drawn.
    void hiddenObjectShowsItsShadowAlone()
    {
        const QImage img = quadrato({filtroOmbra(0x000000ff, 0, 0, 0, 10, 1, false, false, false, 1)});
        QVERIFY(bianco(img.pixel(35, 50)));              // where the square was, left of its shadow
        QCOMPARE(img.pixel(75, 50), qRgb(0, 0, 0));      // the shadow, past the square's right edge
        QCOMPARE(img.pixel(50, 50), qRgb(0, 0, 0));
        for (int x = 0; x < 100; ++x)
            QVERIFY(qRed(img.pixel(x, 50)) == qGreen(img.pixel(x, 50)));  // nothing red
    }

    // Gradient glow: the blurred edge reads its colour from the gradient,
    // the strongest end (ratio 255) nearest the object, the weakest far out.
    void gradientGlowColoursTheEdgeAlongItsGradient()
    {
        const QImage img = quadrato({filtroGradiente(4, {{0, 0x0000ff00}, {128, 0x0000ffff}, {255, 0x00ff00ff}}, 12, 12, 0, 0, 2, false, false, false, 2)});
        const QRgb vicino = img.pixel(29, 50), lontano = img.pixel(22, 50);
        QVERIFY2(qGreen(vicino) > qBlue(vicino), qPrintable(QString::number(vicino, 16)));       // green by the edge
        QVERIFY2(qBlue(lontano) > qGreen(lontano) + 20, qPrintable(QString::number(lontano, 16)));  // then blue
        QVERIFY(bianco(img.pixel(5, 50)));
        QCOMPARE(img.pixel(50, 50), quadrato({}).pixel(50, 50));
    }

    // Gradient bevel: the two ends of the gradient fall on opposite sides,
    // the middle of it (transparent here) where nothing slopes.
    void gradientBevelLightsOneSideAndShadesTheOther()
    {
        const QImage img = quadrato({filtroGradiente(7, {{0, 0xffffffff}, {128, 0xffffff00}, {255, 0x000000ff}}, 6, 6, M_PI / 4, 4, 1, true, false, false, 2)});
        const QImage nudo = quadrato({});
        const int altoSinistra = luce(img.pixel(32, 32)) - luce(nudo.pixel(32, 32));
        const int bassoDestra = luce(img.pixel(67, 67)) - luce(nudo.pixel(67, 67));
        QVERIFY2(altoSinistra * bassoDestra < 0, qPrintable(QStringLiteral("%1 %2").arg(altoSinistra).arg(bassoDestra)));
        QVERIFY(std::abs(altoSinistra) > 60 && std::abs(bassoDestra) > 60);
        QCOMPARE(img.pixel(50, 50), nudo.pixel(50, 50));
        QVERIFY(bianco(img.pixel(20, 20)));  // an inner bevel stays inside
    }

    // A blur spreads further with each pass the quality asks for; quality 0
    // leaves the square sharp.
    void blurPassesFollowTheQuality()
    {
        const int senza = larghezzaRiga(quadrato({filtroSfocatura(8, 8, 0)}), 50);
        const int uno = larghezzaRiga(quadrato({filtroSfocatura(8, 8, 1)}), 50);
        const int tre = larghezzaRiga(quadrato({filtroSfocatura(8, 8, 3)}), 50);
        const int nove = larghezzaRiga(quadrato({filtroSfocatura(8, 8, 9)}), 50);
        QCOMPARE(senza, 40);
        QVERIFY2(uno > senza && tre > uno && nove > tre, qPrintable(QStringLiteral("%1 %2 %3 %4").arg(senza).arg(uno).arg(tre).arg(nove)));
    }

    // Filters are paid from the picture's work budget by their passes, so a
    // film that stacks heavy blurs stops being filtered when it runs out.
    void blurPassesArePaidFromTheWorkBudget()
    {
        auto costo = [](int passi) {
            const swf::LavoroThread prima = swf::lavoroDelThread();
            quadrato({filtroSfocatura(8, 8, passi)}, QSize(200, 200));
            return swf::lavoroDelThread().lavoroDisegno - prima.lavoroDisegno;
        };
        const qint64 uno = costo(1), quindici = costo(15);
        // four channels a pass, a sixteenth of a unit a pixel
        QVERIFY2(quindici - uno >= 14 * 4 * 200 * 200 / 16, qPrintable(QStringLiteral("%1 %2").arg(uno).arg(quindici)));
    }
};

QTEST_MAIN(TestFiltri)
#include "test_filtri.moc"
