// The thumbnail browser on real folders: what it lists and in what order,
// the image list's keys, the bar, and bad folders that must neither freeze it
// nor fill the memory: a folder of thousands of files, a picture of 200
// megapixels, a text file under a picture's name. Work is counted, never timed.

#include "ProvaEditori.h"
#include "AttendiLavoro.h"

#include "sets/DecodificaImmagine.h"

#include <QSignalSpy>

#include <zlib.h>

namespace {
// A grey PNG of the given size, deflated a row at a time, so that no buffer
// of the whole picture is ever made.
QByteArray pngGrande(int larghezza, int altezza)
{
    auto pezzo = [](const QByteArray &tipo, const QByteArray &dati) {
        QByteArray b;
        const quint32 n = quint32(dati.size());
        b += char(n >> 24); b += char(n >> 16); b += char(n >> 8); b += char(n);
        b += tipo + dati;
        quint32 crc = quint32(crc32(0, reinterpret_cast<const Bytef *>(tipo.constData()), uInt(tipo.size())));
        crc = quint32(crc32(crc, reinterpret_cast<const Bytef *>(dati.constData()), uInt(dati.size())));
        b += char(crc >> 24); b += char(crc >> 16); b += char(crc >> 8); b += char(crc);
        return b;
    };
    QByteArray ihdr;
    for (int v : {larghezza, altezza}) {
        ihdr += char(v >> 24); ihdr += char(v >> 16); ihdr += char(v >> 8); ihdr += char(v);
    }
    ihdr += char(8); ihdr += char(0); ihdr += char(0); ihdr += char(0); ihdr += char(0); // 8-bit grey
    z_stream z{};
    deflateInit(&z, 9);
    QByteArray riga(larghezza + 1, char(0x80));
    riga[0] = 0;
    QByteArray compresso;
    QByteArray uscita(1 << 16, Qt::Uninitialized);
    for (int y = 0; y < altezza; ++y) {
        z.next_in = reinterpret_cast<Bytef *>(riga.data());
        z.avail_in = uInt(riga.size());
        const int flush = y + 1 == altezza ? Z_FINISH : Z_NO_FLUSH;
        do {
            z.next_out = reinterpret_cast<Bytef *>(uscita.data());
            z.avail_out = uInt(uscita.size());
            deflate(&z, flush);
            compresso.append(uscita.constData(), uscita.size() - qsizetype(z.avail_out));
        } while (z.avail_out == 0);
    }
    deflateEnd(&z);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pezzo("IHDR", ihdr) + pezzo("IDAT", compresso) + pezzo("IEND", {});
}
} // namespace

class TestSfogliatore : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteEditori> amb;

    static void attendi(Sfogliatore &s) { AttendiFinche([&s] { return !s.InCorso(); }); }

private slots:
    void init() { amb = std::make_unique<AmbienteEditori>(); }
    void cleanup() { amb.reset(); }

    void thirtyPicturesListAsThePatternAndTheFilesSayInTheListingOrder()
    {
        const QString cartella = amb->Media(QStringLiteral("trenta"));
        QDir().mkpath(cartella);
        // Thirty files under the pattern, letter case mixed, holding GIF, PNG
        // and JPEG pictures; one is broken. Beside them, files the pattern leaves out.
        QStringList nomi;
        for (int i = 0; i < 30; ++i) {
            const QString nome = QStringLiteral("%1%2.%3")
                                     .arg(i % 3 == 0 ? QStringLiteral("Foto") : QStringLiteral("foto"))
                                     .arg(i, 2, 10, QChar(u'0'))
                                     .arg(i % 4 == 0 ? QStringLiteral("GIF") : QStringLiteral("gif"));
            nomi << nome;
            const QString p = cartella + u'/' + nome;
            const QColor colore = QColor::fromHsv(i * 12, 200, 220);
            if (i == 17) {
                AmbienteProva::Scrivi(p, AmbienteEditori::Gif(colore, QSize(40, 30)).left(12));
            } else if (i % 3 == 1) {
                QImage img(60, 20, QImage::Format_RGB32);
                img.fill(colore);
                img.save(p, "PNG");
            } else if (i % 3 == 2) {
                QImage img(30, 90, QImage::Format_RGB32);
                img.fill(colore);
                img.save(p, "JPEG");
            } else {
                AmbienteProva::Scrivi(p, AmbienteEditori::Gif(colore, QSize(40, 30)));
            }
        }
        amb->Immagine(QStringLiteral("trenta/altro.png"));
        amb->Immagine(QStringLiteral("trenta/altro.jpg"));
        AmbienteProva::Scrivi(cartella + QStringLiteral("/note.txt"), "x");
        QDir().mkpath(cartella + QStringLiteral("/sotto.gif"));

        Sfogliatore s;
        int primo = 0;
        s.AllInizioRiempimento = [&] { ++primo; };
        QList<int> valori;
        connect(&s, &Sfogliatore::Cambiato, this, [&] {
            if (s.barr1.Visible && (valori.isEmpty() || valori.back() != s.barr1.Value))
                valori << s.barr1.Value;
        });
        s.ImpostaDir1(cartella);
        QCOMPARE(primo, 1);
        QCOMPARE(s.File1, nomi); // already in name order, letter case ignored
        QVERIFY(s.barr1.Visible);
        QVERIFY(s.PuntatoreAttesa);
        QCOMPARE(s.barr1.Min, 0);
        QCOMPARE(s.barr1.Max, 29);
        attendi(s);

        QStringList attesi;
        for (int i = 0; i < 30; ++i)
            if (i != 17)
                attesi << QDir::toNativeSeparators(cartella + u'/' + nomi[i]);
        QCOMPARE(s.ListView1.size(), 29);
        QCOMPARE(s.ListView1, attesi);
        QCOMPARE(s.ImageList1.size(), 29);
        for (const QString &k : attesi) {
            QVERIFY2(s.ImageList1.contains(k), qPrintable(k));
            QCOMPARE(s.ImageList1.value(k).size(), QSize(100, 100));
        }
        // The colour of the picture came through the reduced decoding.
        const QColor c = s.ImageList1.value(attesi[0]).pixelColor(50, 50);
        QVERIFY(qAbs(c.hue() - 0) <= 3 || c.hue() >= 357);
        QVERIFY(!valori.isEmpty());
        QVERIFY(std::is_sorted(valori.begin(), valori.end()));
        QCOMPARE(valori.back(), 29);
        QVERIFY(!s.barr1.Visible);
        QCOMPARE(s.barr1.Value, 0);
        QVERIFY(!s.PuntatoreAttesa);
    }

    void aFolderOfFiveThousandFilesMostlyNotPicturesIsTakenInAFewAtATime()
    {
        const QString cartella = amb->Media(QStringLiteral("tanti"));
        QDir().mkpath(cartella);
        qint64 byteDeiGif = 0;
        for (int i = 0; i < 5000; ++i) {
            const QString base = cartella + QStringLiteral("/f%1").arg(i, 4, 10, QChar(u'0'));
            if (i % 50 == 0) {
                const QByteArray g = AmbienteEditori::Gif(Qt::darkGreen, QSize(20, 20));
                AmbienteProva::Scrivi(base + QStringLiteral(".gif"), g);
                byteDeiGif += g.size();
            } else if (i % 50 == 25) {
                const QByteArray t(3000, 'a');
                AmbienteProva::Scrivi(base + QStringLiteral(".gif"), t);
                byteDeiGif += t.size();
            } else {
                AmbienteProva::Scrivi(base + QStringLiteral(".txt"), QByteArray(3000, 'b'));
            }
        }
        Sfogliatore s;
        s.ImpostaDir1(cartella);
        QCOMPARE(s.File1.size(), 200);
        attendi(s);
        QCOMPARE(s.ListView1.size(), 100);
        QCOMPARE(s.Lavoro.Decodifiche, 200);
        // Nothing but the listed files is read, and of those no more than they hold.
        QVERIFY2(s.Lavoro.ByteLetti <= byteDeiGif, qPrintable(QString::number(s.Lavoro.ByteLetti)));
        // The window gets its turn between small batches.
        QVERIFY(s.Lavoro.VociPerGiroMassime <= Sfogliatore::VociPerGiro);
        QVERIFY(s.Lavoro.Giri >= 200 / Sfogliatore::VociPerGiro);
    }

    void aTwoHundredMegapixelPictureIsRefusedFromItsHeaderAndTheRestIsListed()
    {
        const QString cartella = amb->Media(QStringLiteral("grande"));
        QDir().mkpath(cartella);
        const QByteArray png = pngGrande(20000, 10000);
        AmbienteProva::Scrivi(cartella + QStringLiteral("/enorme.gif"), png);
        amb->Immagine(QStringLiteral("grande/piccola.gif"));

        const Decodifica d = DecodificaRidotta(cartella + QStringLiteral("/enorme.gif"), QSize(100, 100));
        QVERIFY(!d.Riuscita);
        QCOMPARE(d.ByteDecodifica, qint64(20000) * 10000 * 4);
        QVERIFY2(d.ByteLetti < 64 * 1024, qPrintable(QString::number(d.ByteLetti)));

        Sfogliatore s;
        s.ImpostaDir1(cartella);
        attendi(s);
        QCOMPARE(s.ListView1, QStringList{QDir::toNativeSeparators(cartella + QStringLiteral("/piccola.gif"))});
        QVERIFY(s.Lavoro.ByteDecodificaMassimi <= BudgetDecodifica || s.Lavoro.ByteDecodificaMassimi == d.ByteDecodifica);
    }

    void aLargeJpegIsDecodedAtAnEighthOfItsSize()
    {
        QImage img(4000, 3000, QImage::Format_RGB32);
        img.fill(Qt::magenta);
        const QString p = amb->Media(QStringLiteral("foto.gif"));
        QVERIFY(img.save(p, "JPEG"));
        const Decodifica d = DecodificaRidotta(p, QSize(100, 100));
        QVERIFY(d.Riuscita);
        QCOMPARE(d.Immagine.size(), QSize(100, 100));
        QCOMPARE(d.ByteDecodifica, qint64(500) * 375 * 4);
    }

    void aRenamedTextFileDropsOutHavingReadLittleOfIt()
    {
        const QString p = amb->Media(QStringLiteral("lettera.gif"));
        QByteArray testo;
        while (testo.size() < 5 * 1024 * 1024)
            testo += "Cara nonna, ti scrivo questa lettera per dirti che sto bene.\n";
        AmbienteProva::Scrivi(p, testo);
        const Decodifica d = DecodificaRidotta(p, QSize(100, 100));
        QVERIFY(!d.Riuscita);
        QVERIFY2(d.ByteLetti < 64 * 1024, qPrintable(QString::number(d.ByteLetti)));
    }

    void aNewFolderWhileFillingStopsTheOldFillingAndKeepsWhatItTookIn()
    {
        const QString uno = amb->Media(QStringLiteral("uno")), due = amb->Media(QStringLiteral("due"));
        QDir().mkpath(uno);
        QDir().mkpath(due);
        for (int i = 0; i < 40; ++i)
            AmbienteProva::Scrivi(uno + QStringLiteral("/u%1.gif").arg(i, 2, 10, QChar(u'0')), AmbienteEditori::Gif(Qt::red, QSize(30, 30)));
        AmbienteProva::Scrivi(due + QStringLiteral("/d.gif"), AmbienteEditori::Gif(Qt::blue, QSize(30, 30)));
        Sfogliatore s;
        s.ImpostaDir1(uno);
        s.ImpostaDir1(due);
        attendi(s);
        QCOMPARE(s.ListView1, QStringList{QDir::toNativeSeparators(due + QStringLiteral("/d.gif"))});
        QVERIFY(!s.PuntatoreAttesa);
        QVERIFY(!s.barr1.Visible);
    }

    void theDriveListStartsWithTheHomeFolderAndADriveOpensItsRoot()
    {
        Sfogliatore s;
#ifndef Q_OS_WIN
        QCOMPARE(s.Unita.value(0), QDir::homePath());
        QVERIFY(s.Unita.contains(QStringLiteral("/")));
#endif
        QVERIFY(!s.Unita.isEmpty());
        // The folder list starts in the data tree's pictures.
        QCOMPARE(s.Dir1Path, QDir::toNativeSeparators(amb->Dati(QStringLiteral("gif"))));
        const auto voci = s.CartelleDir1();
        QVERIFY(!voci.empty());
        QCOMPARE(voci.back().Percorso, s.Dir1Path);
        QVERIFY(voci.back().Aperta);
        s.Drive1_Change(amb->ambiente->Casa());
        QCOMPARE(s.Dir1Path, QDir::toNativeSeparators(amb->ambiente->Casa()));
        bool sottocartella = false;
        for (const VoceCartella &v : s.CartelleDir1())
            sottocartella |= !v.Aperta && v.Nome == QLatin1String("media");
        QVERIFY(sottocartella);
    }
};

QTEST_MAIN(TestSfogliatore)
#include "test_sfogliatore.moc"
