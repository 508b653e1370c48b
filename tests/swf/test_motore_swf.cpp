// The film face with an SWF film written by the game's own writer: the SWF
// backend takes it, reads it off the interface thread, rests on frame 1,
// plays on Play, holds on Stop, goes back on StopPlay and stops drawing while
// hidden.

#include "AttendiLavoro.h"
#include "animazioni.h"
#include "costruttore.h"
#include "platform/media/Filmato.h"
#include "swf/filmato.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

QImage foto(Filmato &f) { return f.grab().toImage().convertToFormat(QImage::Format_RGB32); }

int coloriDiversi(const QImage &img)
{
    QSet<QRgb> c;
    for (int y = 0; y < img.height(); y += 3)
        for (int x = 0; x < img.width(); x += 3)
            c.insert(img.pixel(x, y));
    return static_cast<int>(c.size());
}

} // namespace

class TestMotoreSwf : public QObject
{
    Q_OBJECT
    QTemporaryDir cartella;

    QString scrivi(const QString &nome, const QByteArray &dati)
    {
        const QString p = cartella.filePath(nome);
        QFile f(p);
        if (!f.open(QIODevice::WriteOnly) || f.write(dati) != dati.size())
            return {};
        return p;
    }

    // a face as the boards make it: shown, then given its file and stopped;
    // the file is read in the background
    void prepara(Filmato &f, const QString &percorso)
    {
        f.resize(160, 120);
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        f.setMovie(percorso);
        f.StopPlay();
        AttendiFinche([&f] { return !f.InCaricamento(); });
    }

private slots:
    void sceglieIlMotoreSwf_data()
    {
        QTest::addColumn<int>("compressione");
        QTest::newRow("FWS") << static_cast<int>(swfanim::Compressione::Nessuna);
        QTest::newRow("CWS") << static_cast<int>(swfanim::Compressione::Zlib);
        QTest::newRow("ZWS") << static_cast<int>(swfanim::Compressione::Lzma);
    }
    void sceglieIlMotoreSwf()
    {
        QFETCH(int, compressione);
        swfanim::Opzioni o;
        o.compressione = static_cast<swfanim::Compressione>(compressione);
        const QString p = scrivi(QStringLiteral("sole%1.swf").arg(compressione), swfanim::creaFilm("sole", o));
        QVERIFY(!p.isEmpty());
        Filmato f;
        prepara(f, p);
        QCOMPARE(f.NomeMotore(), QStringLiteral("swf"));
        // frame 1 is drawn: sky, rays, face, not an empty face
        QVERIFY2(coloriDiversi(foto(f)) > 8, "the face is blank");
    }

    void restaSulPrimoFotogramma()
    {
        Filmato f;
        prepara(f, scrivi("palla.swf", swfanim::creaFilm("palla")));
        const QImage prima = foto(f);
        QTest::qWait(400);
        QCOMPARE(foto(f), prima);
        QVERIFY(!f.InRiproduzione());
    }

    void avanzaQuandoSuonaESiFermaConStop()
    {
        Filmato f;
        prepara(f, scrivi("pesce.swf", swfanim::creaFilm("pesce")));
        const QImage prima = foto(f);
        f.Play();
        AttendiFinche([&] { return foto(f) != prima; });
        f.Stop();
        const QImage ferma = foto(f);
        QVERIFY(ferma != prima);
        QTest::qWait(400);
        QCOMPARE(foto(f), ferma);
        // StopPlay: back to the first picture, still
        f.Play();
        QTest::qWait(200);
        f.StopPlay();
        QCOMPARE(foto(f), prima);
        QTest::qWait(300);
        QCOMPARE(foto(f), prima);
    }

    void riprendeDaDoveStava()
    {
        Filmato f;
        prepara(f, scrivi("girandola.swf", swfanim::creaFilm("girandola")));
        f.Play();
        QTest::qWait(250);
        f.Stop();
        const QImage ferma = foto(f);
        f.Play();
        AttendiFinche([&] { return foto(f) != ferma; });
    }

    void nonDisegnaDaNascosto()
    {
        Filmato f;
        prepara(f, scrivi("stella.swf", swfanim::creaFilm("stella")));
        auto *orologio = f.findChild<QTimer *>();
        QVERIFY(orologio);
        QVERIFY(!orologio->isActive());
        f.Play();
        QVERIFY(orologio->isActive());
        QCOMPARE(orologio->interval(), 83);  // 12 frames a second
        f.hide();
        QVERIFY(!orologio->isActive());
        f.show();
        QVERIFY(orologio->isActive());
        f.Stop();
        QVERIFY(!orologio->isActive());
        // hidden while stopped, shown again: still stopped
        f.hide();
        f.show();
        QVERIFY(!orologio->isActive());
    }

    void fileNonSwfONonLeggibile_data()
    {
        QTest::addColumn<QByteArray>("dati");
        QTest::addColumn<QString>("motore");
        QTest::newRow("testo") << QByteArray("non un film\r\n") << QString();
        QTest::newRow("SWF troncato") << swfanim::creaFilm("sole").left(12) << QString();
        QTest::newRow("firma senza corpo") << QByteArray("FWS\x08\x10\x00\x00\x00", 8) << QString();
    }
    void fileNonSwfONonLeggibile()
    {
        QFETCH(QByteArray, dati);
        QFETCH(QString, motore);
        Filmato f;
        prepara(f, scrivi(QStringLiteral("rotto%1.swf").arg(QTest::currentDataTag()).remove(' '), dati));
        // an unreadable film is found out by the load in the background
        AttendiFinche([&] { return f.NomeMotore() == motore; });
        f.Play();  // no crash, no message: an empty face
        QVERIFY(f.InRiproduzione());
    }

    // A compressed film that unpacks to 1 GiB: the interface thread hands it
    // to a worker and goes on; it reads none of its bytes and draws nothing
    // for it, the face shows nothing meanwhile, and the face ends up empty.
    void unFilmOstileNonTieneLInterfaccia()
    {
        const QByteArray ostile = swftest::cwsGonfiato(qint64(1) << 30);
        QVERIFY(ostile.size() < 4 * 1024 * 1024);
        const QString p = scrivi("ostile.swf", ostile);
        QWidget sfondo;
        sfondo.setAutoFillBackground(true);
        QPalette pal = sfondo.palette();
        pal.setColor(QPalette::Window, QColor(10, 200, 30));
        sfondo.setPalette(pal);
        sfondo.resize(160, 120);
        auto *f = new Filmato(&sfondo);
        f->resize(160, 120);
        sfondo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&sfondo));
        const swf::LavoroThread prima = swf::lavoroDelThread();
        f->setMovie(p);
        f->Play();
        QCOMPARE(f->NomeMotore(), QStringLiteral("swf"));
        QVERIFY(f->InCaricamento());
        // while it loads the face is see-through: the colour behind it shows
        QCOMPARE(sfondo.grab().toImage().pixel(80, 60), qRgb(10, 200, 30));
        AttendiFinche([f] { return f->NomeMotore().isEmpty(); });
        const swf::LavoroThread dopo = swf::lavoroDelThread();
        QCOMPARE(dopo.byteLetti, prima.byteLetti);
        QCOMPARE(dopo.lavoroDisegno, prima.lavoroDisegno);
        QCOMPARE(sfondo.grab().toImage().pixel(80, 60), qRgb(10, 200, 30));
    }

    // A good film is read and first drawn off the interface thread too; the
    // face then shows its first picture and plays.
    void unFilmBuonoSiLeggeFuoriDallInterfaccia()
    {
        const QString p = scrivi("sole-fuori.swf", swfanim::creaFilm("sole"));
        Filmato f;
        f.resize(160, 120);
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        const swf::LavoroThread prima = swf::lavoroDelThread();
        f.setMovie(p);
        f.StopPlay();
        AttendiFinche([&f] { return !f.InCaricamento(); });
        QCOMPARE(swf::lavoroDelThread().byteLetti, prima.byteLetti);
        QCOMPARE(f.NomeMotore(), QStringLiteral("swf"));
        // the first picture was drawn by the worker: shown from its cache
        const QImage primo = foto(f);
        QCOMPARE(swf::lavoroDelThread().lavoroDisegno, prima.lavoroDisegno);
        QVERIFY2(coloriDiversi(primo) > 8, "the face is blank");
        f.Play();
        AttendiFinche([&] { return foto(f) != primo; });
    }

    void ilFilmVuotoSvuotaLaFaccia()
    {
        Filmato f;
        prepara(f, scrivi("casa.swf", swfanim::creaFilm("casa")));
        QCOMPARE(f.NomeMotore(), QStringLiteral("swf"));
        f.setMovie(QString());
        QVERIFY(f.NomeMotore().isEmpty());
        QVERIFY(!f.findChild<QTimer *>());
    }
};

QTEST_MAIN(TestMotoreSwf)
#include "test_motore_swf.moc"
