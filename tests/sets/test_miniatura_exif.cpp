// Thumbnails from the small copy a camera embeds in a JPEG's Exif block:
// found in either byte order, refused when broken, turned or too small, the
// dark bands cut off, and the photograph's own data never read when it is
// used. Work is counted in bytes read, never timed.

#include "AttendiLavoro.h"
#include "ProvaEditori.h"
#include "ScriviExif.h"

#include "sets/DecodificaImmagine.h"
#include "sets/MiniaturaExif.h"

#include <QBuffer>

namespace {
QImage tinta(QSize d, QColor c)
{
    QImage img(d, QImage::Format_RGB32);
    img.fill(c);
    return img;
}

// Where the photograph's own data starts: nothing from there on is needed
// when the thumbnail is used.
qint64 inizioDati(const QByteArray &jpeg)
{
    for (qint64 i = 2; i + 4 <= jpeg.size();) {
        if (quint8(jpeg[i]) != 0xFF)
            return -1;
        const quint8 codice = quint8(jpeg[i + 1]);
        if (codice == 0xDA)
            return i;
        i += 2 + ((quint8(jpeg[i + 2]) << 8) | quint8(jpeg[i + 3]));
    }
    return -1;
}

bool vicino(QColor a, QColor b)
{
    return qAbs(a.red() - b.red()) <= 24 && qAbs(a.green() - b.green()) <= 24 && qAbs(a.blue() - b.blue()) <= 24;
}

const QColor Rosso(220, 30, 30), Blu(30, 40, 220);
} // namespace

class TestMiniaturaExif : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteEditori> amb;

    // A red photograph of 3000 by 2000 whose embedded copy is blue, so the
    // colour tells which of the two made the thumbnail.
    static QByteArray fotoRossa(QSize dimensione = QSize(3000, 2000))
    {
        return ScriviExif::Jpeg(tinta(dimensione, Rosso), 90);
    }
    static QByteArray miniaturaBlu(QSize dimensione = QSize(160, 107))
    {
        return ScriviExif::Jpeg(tinta(dimensione, Blu));
    }
    QString scrivi(const QString &nome, const QByteArray &dati)
    {
        const QString p = amb->Media(nome);
        AmbienteProva::Scrivi(p, dati);
        return p;
    }

private slots:
    void init() { amb = std::make_unique<AmbienteEditori>(); }
    void cleanup() { amb.reset(); }

    void theEmbeddedJpegIsFoundInEitherByteOrder_data()
    {
        QTest::addColumn<bool>("grande");
        QTest::newRow("Intel order (II)") << false;
        QTest::newRow("Motorola order (MM)") << true;
    }
    void theEmbeddedJpegIsFoundInEitherByteOrder()
    {
        QFETCH(bool, grande);
        const QByteArray m = miniaturaBlu();
        QCOMPARE(MiniaturaDaExif(ScriviExif::Tiff(m, grande)), m);
    }

    void aBrokenExifBlockGivesNoThumbnail_data()
    {
        QTest::addColumn<QByteArray>("tiff");
        const QByteArray buona = ScriviExif::Tiff(miniaturaBlu());
        auto con = [&buona](int pos, QByteArray byte) { QByteArray b = buona; b.replace(pos, byte.size(), byte); return b; };
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("neither II nor MM") << con(0, "XX");
        QTest::newRow("not 42") << con(2, QByteArray("\x2B\x00", 2));
        QTest::newRow("first directory past the end") << con(4, QByteArray("\xFF\xFF\x00\x00", 4));
        QTest::newRow("no second directory") << con(22, QByteArray(4, '\0'));
        QTest::newRow("second directory past the end") << con(22, QByteArray("\x00\xF0\x00\x00", 4));
        QTest::newRow("second directory claims 5000 entries") << con(26, QByteArray("\x88\x13", 2));
        QTest::newRow("uncompressed thumbnail") << con(26 + 2 + 8, QByteArray("\x01\x00", 2));
        QTest::newRow("offset past the end") << con(ScriviExif::PosizioneInizioMiniatura, QByteArray("\x00\x00\x01\x00", 4));
        QTest::newRow("offset of zero") << con(ScriviExif::PosizioneInizioMiniatura, QByteArray(4, '\0'));
        QTest::newRow("length past the end") << con(ScriviExif::PosizioneInizioMiniatura + 12, QByteArray("\x00\x00\x01\x00", 4));
        QTest::newRow("no JPEG start at the offset") << con(ScriviExif::PosizioneMiniatura, QByteArray(2, '\0'));
        QTest::newRow("cut short inside the thumbnail") << buona.left(buona.size() - 10);
        QTest::newRow("cut short inside the second directory") << buona.left(40);
    }
    void aBrokenExifBlockGivesNoThumbnail()
    {
        QFETCH(QByteArray, tiff);
        QVERIFY(MiniaturaDaExif(tiff).isEmpty());
    }

    void everyCutOfAnExifBlockGivesTheWholeThumbnailOrNone()
    {
        const QByteArray m = miniaturaBlu();
        for (bool grande : {false, true}) {
            const QByteArray tiff = ScriviExif::Tiff(m, grande);
            int trovate = 0;
            for (qsizetype n = 0; n <= tiff.size(); ++n) {
                const QByteArray r = MiniaturaDaExif(tiff.left(n));
                QVERIFY(r.isEmpty() || r == m);
                trovate += r.isEmpty() ? 0 : 1;
            }
            QCOMPARE(trovate, 1); // only the whole block
        }
    }

    void theHeadGivesThePhotographsSizeAndItsThumbnail()
    {
        const QByteArray m = miniaturaBlu();
        QByteArray jpeg = ScriviExif::ConExif(fotoRossa(), ScriviExif::Tiff(m));
        QBuffer b(&jpeg);
        b.open(QIODevice::ReadOnly);
        const IntestazioneJpeg t = LeggiIntestazioneJpeg(b);
        QVERIFY(t.Jpeg);
        QCOMPARE(t.Intera, QSize(3000, 2000));
        QCOMPARE(t.Miniatura, m);
        QVERIFY(b.pos() < inizioDati(jpeg));
    }

    void anXmpBlockBeforeTheExifBlockIsPassedOver()
    {
        const QByteArray m = miniaturaBlu();
        const QByteArray conExif = ScriviExif::ConExif(fotoRossa(), ScriviExif::Tiff(m));
        const QByteArray xmp = QByteArray("http://ns.adobe.com/xap/1.0/", 29) + QByteArray(3000, ' ');
        QByteArray app1("\xFF\xE1", 2);
        app1 += char((xmp.size() + 2) >> 8);
        app1 += char((xmp.size() + 2) & 0xFF);
        QByteArray jpeg = conExif.left(2) + app1 + xmp + conExif.mid(2);
        QBuffer b(&jpeg);
        b.open(QIODevice::ReadOnly);
        const IntestazioneJpeg t = LeggiIntestazioneJpeg(b);
        QCOMPARE(t.Miniatura, m);
        QCOMPARE(t.Intera, QSize(3000, 2000));
    }

    void aFileThatIsNotAJpegIsLeftAfterTwoBytes()
    {
        QByteArray gif = AmbienteEditori::Gif(Qt::red, QSize(20, 20));
        QBuffer b(&gif);
        b.open(QIODevice::ReadOnly);
        const IntestazioneJpeg t = LeggiIntestazioneJpeg(b);
        QVERIFY(!t.Jpeg);
        QVERIFY(t.Miniatura.isEmpty());
        QVERIFY(b.pos() <= 2);
    }

    void aCamerasPhotographIsThumbnailedFromItsEmbeddedCopyWithoutReadingItsData()
    {
        const QByteArray jpeg = ScriviExif::ConExif(fotoRossa(), ScriviExif::Tiff(miniaturaBlu()));
        const QString p = scrivi(QStringLiteral("camera.gif"), jpeg);
        const Decodifica d = DecodificaRidotta(p, QSize(100, 100));
        QVERIFY(d.Riuscita);
        QVERIFY(d.DaMiniaturaExif);
        QCOMPARE(d.Immagine.size(), QSize(100, 100));
        QVERIFY(vicino(d.Immagine.pixelColor(50, 50), Blu));
        QVERIFY2(d.ByteLetti <= inizioDati(jpeg), qPrintable(QString::number(d.ByteLetti)));
        QCOMPARE(d.ByteDecodifica, qint64(160) * 107 * 4);
    }

    void theDarkBandsOfA4by3CopyOfA3by2PhotographAreCutOff()
    {
        const QImage foto = tinta(QSize(3000, 2000), Blu);
        const QByteArray jpeg = ScriviExif::ConExif(ScriviExif::Jpeg(foto), ScriviExif::Tiff(ScriviExif::MiniaturaDaCamera(foto)));
        const Decodifica d = DecodificaRidotta(scrivi(QStringLiteral("bande.gif"), jpeg), QSize(100, 100));
        QVERIFY(d.DaMiniaturaExif);
        for (int y : {0, 1, 50, 98, 99})
            QVERIFY2(vicino(d.Immagine.pixelColor(50, y), Blu), qPrintable(QString::number(y)));
    }

    void aBrokenOrUnfitThumbnailFallsBackToThePhotographItself_data()
    {
        QTest::addColumn<QByteArray>("tiff");
        QByteArray guasta = miniaturaBlu();
        for (qsizetype i = 20; i < guasta.size(); ++i)
            guasta[i] = char(0x5A);
        QByteArray fuori = ScriviExif::Tiff(miniaturaBlu());
        fuori.replace(ScriviExif::PosizioneInizioMiniatura, 4, QByteArray("\x00\x00\x01\x00", 4));
        QTest::newRow("bytes spoilt after its start") << ScriviExif::Tiff(guasta);
        QTest::newRow("offset outside the block") << fuori;
        QTest::newRow("turned the other way") << ScriviExif::Tiff(miniaturaBlu(QSize(107, 160)));
        QTest::newRow("smaller than the thumbnail") << ScriviExif::Tiff(miniaturaBlu(QSize(80, 60)));
        QTest::newRow("too small once the bands are off") << ScriviExif::Tiff(miniaturaBlu(QSize(240, 90)));
    }
    void aBrokenOrUnfitThumbnailFallsBackToThePhotographItself()
    {
        QFETCH(QByteArray, tiff);
        const QByteArray jpeg = ScriviExif::ConExif(fotoRossa(), tiff);
        const Decodifica d = DecodificaRidotta(scrivi(QStringLiteral("guasta.gif"), jpeg), QSize(100, 100));
        QVERIFY(d.Riuscita);
        QVERIFY(!d.DaMiniaturaExif);
        QCOMPARE(d.Immagine.size(), QSize(100, 100));
        QVERIFY(vicino(d.Immagine.pixelColor(50, 50), Rosso));
        QVERIFY(d.ByteLetti > inizioDati(jpeg)); // the photograph's data was read
        QCOMPARE(d.ByteDecodifica, qint64(375) * 250 * 4); // at an eighth
    }

    void aPhotographWithoutExifIsDecodedAtAnEighth()
    {
        const QByteArray jpeg = fotoRossa();
        const Decodifica d = DecodificaRidotta(scrivi(QStringLiteral("senza.gif"), jpeg), QSize(100, 100));
        QVERIFY(d.Riuscita);
        QVERIFY(!d.DaMiniaturaExif);
        QVERIFY(vicino(d.Immagine.pixelColor(50, 50), Rosso));
        QCOMPARE(d.ByteDecodifica, qint64(375) * 250 * 4);
    }

    void anImageBoxBiggerThanTheEmbeddedCopyDecodesThePhotograph()
    {
        const QByteArray jpeg = ScriviExif::ConExif(fotoRossa(), ScriviExif::Tiff(miniaturaBlu()));
        const Decodifica d = DecodificaRidotta(scrivi(QStringLiteral("riquadro.gif"), jpeg), QSize(640, 640), true);
        QVERIFY(d.Riuscita);
        QVERIFY(!d.DaMiniaturaExif);
        QCOMPARE(d.Immagine.size(), QSize(3000, 2000).scaled(640, 640, Qt::KeepAspectRatio));
        QVERIFY(vicino(d.Immagine.pixelColor(320, 200), Rosso));
    }

    void aPhotographTooBigToDecodeIsRefusedEvenWithAnEmbeddedCopy()
    {
        // A small JPEG whose frame header claims 60000 by 60000: an eighth of it is past the budget.
        QByteArray piccola = fotoRossa(QSize(64, 64));
        const qsizetype sof = piccola.indexOf(QByteArray("\xFF\xC0", 2));
        QVERIFY(sof > 0);
        piccola.replace(sof + 5, 4, QByteArray("\xEA\x60\xEA\x60", 4));
        const QByteArray jpeg = ScriviExif::ConExif(piccola, ScriviExif::Tiff(miniaturaBlu(QSize(160, 160))));
        const Decodifica d = DecodificaRidotta(scrivi(QStringLiteral("enorme.gif"), jpeg), QSize(100, 100));
        QVERIFY(!d.Riuscita);
        QVERIFY(d.ByteLetti <= inizioDati(jpeg));
    }

    void theBrowserTakesCameraPhotographsFromTheirCopiesInTheListingOrder()
    {
        const QString cartella = amb->Media(QStringLiteral("misto"));
        QDir().mkpath(cartella);
        const QByteArray conExif = ScriviExif::ConExif(fotoRossa(), ScriviExif::Tiff(miniaturaBlu()));
        const QByteArray senza = fotoRossa();
        QStringList attesi;
        qint64 letturaMassima = 0;
        for (int i = 0; i < 12; ++i) {
            const QString p = cartella + QStringLiteral("/f%1.gif").arg(i, 2, 10, QChar(u'0'));
            const QByteArray &b = i % 3 == 2 ? senza : conExif;
            AmbienteProva::Scrivi(p, b);
            attesi << QDir::toNativeSeparators(p);
            letturaMassima += i % 3 == 2 ? b.size() : inizioDati(b);
        }
        Sfogliatore s;
        s.ImpostaDir1(cartella);
        AttendiFinche([&s] { return !s.InCorso(); });
        QCOMPARE(s.ListView1, attesi);
        QCOMPARE(s.Lavoro.Decodifiche, 12);
        QCOMPARE(s.Lavoro.DaMiniatureExif, 8);
        QVERIFY2(s.Lavoro.ByteLetti <= letturaMassima, qPrintable(QString::number(s.Lavoro.ByteLetti)));
        for (int i = 0; i < 12; ++i)
            QVERIFY(vicino(s.ImageList1.value(attesi[i]).pixelColor(50, 50), i % 3 == 2 ? Rosso : Blu));
    }
};

QTEST_MAIN(TestMiniaturaExif)
#include "test_miniatura_exif.moc"
