// The films that ship with the game: the reward films beside the program and
// the film sets of the ready-made memories, with their sounds. They must be
// what the writer makes today, load and play in the game's renderer, and the
// sets must be whole records of four lines in the old format. The reward
// films carry a tune made with sox (tools/crea-suoni.sh), which the tests
// cannot make again: their pictures must be the writer's, and the tune heard.

#include "animazioni.h"
#include "swf/filmato.h"
#include "swf/suono.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSet>
#include <QTest>

#include <zlib.h>

#include <cmath>

namespace {

const QString Programma = QStringLiteral(COPPIE_SORGENTI "/app/programma");
const QString Pronti = Programma + QStringLiteral("/memorypronti");
const QString Dati = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\");

QByteArray leggi(const QString &p)
{
    QFile f(p);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

quint32 le32(const QByteArray &b, qsizetype i)
{
    return quint32(quint8(b[i])) | quint32(quint8(b[i + 1])) << 8 | quint32(quint8(b[i + 2])) << 16 | quint32(quint8(b[i + 3])) << 24;
}
quint16 le16(const QByteArray &b, qsizetype i) { return quint16(quint8(b[i]) | quint8(b[i + 1]) << 8); }

// The tags of a compressed film, one QByteArray each, but those of its
// soundtrack (SoundStreamHead2, SoundStreamBlock).
QList<QByteArray> tagSenzaSuono(const QByteArray &cws)
{
    if (cws.size() < 8 || !cws.startsWith("CWS"))
        return {};
    QByteArray corpo(static_cast<qsizetype>(le32(cws, 4)) - 8, '\0');
    uLongf n = static_cast<uLongf>(corpo.size());
    if (uncompress(reinterpret_cast<Bytef *>(corpo.data()), &n, reinterpret_cast<const Bytef *>(cws.constData() + 8),
                   static_cast<uLong>(cws.size() - 8)) != Z_OK)
        return {};
    // past the stage rectangle, the frame rate and the frame count
    const int bit = quint8(corpo[0]) >> 3;
    qsizetype p = (5 + 4 * bit + 7) / 8 + 4;
    QList<QByteArray> tag;
    while (p + 2 <= corpo.size()) {
        const quint16 testa = le16(corpo, p);
        qsizetype lun = testa & 0x3f, inizio = p + 2;
        if (lun == 0x3f) {
            lun = le32(corpo, p + 2);
            inizio = p + 6;
        }
        const int codice = testa >> 6;
        if (codice != 45 && codice != 19)
            tag << corpo.mid(p, inizio + lun - p);
        p = inizio + lun;
    }
    return tag;
}

int coloriDiversi(const QImage &img)
{
    QSet<QRgb> c;
    for (int y = 0; y < img.height(); y += 2)
        for (int x = 0; x < img.width(); x += 2)
            c.insert(img.pixel(x, y));
    return static_cast<int>(c.size());
}

// the local file a set's path names, in the ready-made folder
QString locale(const QString &campo)
{
    if (!campo.startsWith(Dati))
        return {};
    const QStringList parti = campo.mid(Dati.size()).split(u'\\');
    return parti.size() == 2 ? Pronti + u'/' + parti[0] + u'/' + parti[1] : QString();
}

QStringList insiemi()
{
    QStringList r;
    for (const QString &n : QDir(Pronti + "/ii").entryList({"film_*.ass"}, QDir::Files, QDir::Name))
        r << Pronti + "/ii/" + n;
    for (const QString &n : QDir(Pronti + "/pi").entryList({"film_*.aps"}, QDir::Files, QDir::Name))
        r << Pronti + "/pi/" + n;
    return r;
}

void controllaFilm(const QString &percorso, int minimoLato)
{
    swf::Filmato f;
    QVERIFY2(f.caricaFile(percorso), qPrintable(percorso));
    QVERIFY(f.fotogrammiAlSecondo() >= 8 && f.fotogrammiAlSecondo() <= 12);
    const double secondi = f.numeroFotogrammi() / f.fotogrammiAlSecondo();
    QVERIFY2(secondi >= 1 && secondi <= 3, qPrintable(QString::number(secondi)));
    QVERIFY(f.dimensioneScena().width() >= minimoLato && f.dimensioneScena().height() >= minimoLato * 3 / 4);
    const QImage primo = f.immagine(QSize(100, 100), true);
    // edges smoothed in four coverage steps: a picture of a few flat colours
    // shows a few shades more than its colours, a blank frame one or two
    QVERIFY2(coloriDiversi(primo) > 8, qPrintable(QString("frame 1 shows a picture: %1 colours").arg(coloriDiversi(primo))));
    // it moves, and after one loop it is back where it began
    f.avanza();
    QVERIFY(f.immagine(QSize(100, 100), true) != primo);
    for (int i = 1; i < f.numeroFotogrammi(); ++i)
        f.avanza();
    QCOMPARE(f.fotogrammaCorrente(), 1);
    QCOMPARE(f.immagine(QSize(100, 100), true), primo);
}

} // namespace

class TestFilmPronti : public QObject
{
    Q_OBJECT
private slots:
    void ifilmPremioSonoQuelliDelloScrittore_data()
    {
        QTest::addColumn<QString>("nome");
        for (const QString &n : swfanim::scenePremio())
            QTest::newRow(qPrintable(n)) << n;
    }
    void ifilmPremioSonoQuelliDelloScrittore()
    {
        QFETCH(QString, nome);
        const QString p = Programma + "/swf/" + nome + ".swf";
        const QList<QByteArray> film = tagSenzaSuono(leggi(p));
        QVERIFY(film.size() > 10);
        QCOMPARE(film, tagSenzaSuono(swfanim::creaFilm(nome)));
        controllaFilm(p, 300);
    }

    void ifilmPremioSiSentono_data() { ifilmPremioSonoQuelliDelloScrittore_data(); }
    void ifilmPremioSiSentono()
    {
        // a cheerful tune from the first frame, well heard and never clipped
        QFETCH(QString, nome);
        swf::Filmato f;
        QVERIFY(f.caricaFile(Programma + "/swf/" + nome + ".swf"));
        f.impostaSuono(true);
        f.riprendi();
        std::vector<float> b;
        const int perFotogramma = static_cast<int>(44100 / f.fotogrammiAlSecondo());
        for (int k = 0; k < f.numeroFotogrammi(); ++k) {
            std::vector<float> q(static_cast<size_t>(2 * perFotogramma), 0.0f);
            f.uscitaSuono()->mescola(q.data(), perFotogramma, 44100);
            b.insert(b.end(), q.begin(), q.end());
            f.avanza();
        }
        double picco = 0, energia = 0;
        for (float v : b) {
            picco = std::max(picco, static_cast<double>(std::abs(v)));
            energia += static_cast<double>(v) * v;
        }
        const double rms = std::sqrt(energia / static_cast<double>(b.size()));
        QVERIFY2(picco > 0.25 && picco < 0.8, qPrintable(QString::number(picco)));
        QVERIFY2(rms > 0.02, qPrintable(QString::number(rms)));
        // the tune starts with the film
        double inizio = 0;
        for (size_t i = 0; i < static_cast<size_t>(2 * perFotogramma); ++i)
            inizio = std::max(inizio, static_cast<double>(std::abs(b[i])));
        QVERIFY(inizio > 0.01);
    }

    void tantiFilmPremioENessunAltro()
    {
        const QStringList film = QDir(Programma + "/swf").entryList({"*.swf"}, QDir::Files);
        QVERIFY(film.size() >= 12 && film.size() <= 20);
        QCOMPARE(film.size(), swfanim::scenePremio().size());
    }

    void ifilmDegliInsiemiSonoQuelliDelloScrittore_data()
    {
        QTest::addColumn<QString>("soggetto");
        for (const QString &n : swfanim::soggetti())
            QTest::newRow(qPrintable(n)) << n;
    }
    void ifilmDegliInsiemiSonoQuelliDelloScrittore()
    {
        QFETCH(QString, soggetto);
        const QString p = Pronti + "/swf/film_" + soggetto + ".swf";
        QCOMPARE(leggi(p), swfanim::creaFilm(soggetto));
        controllaFilm(p, 200);
    }

    void unInsiemeEFattoDiRecordDiQuattroRighe_data()
    {
        QTest::addColumn<QString>("insieme");
        const QStringList l = insiemi();
        QVERIFY(l.size() >= 4);
        for (const QString &i : l)
            QTest::newRow(qPrintable(QFileInfo(i).fileName())) << i;
    }
    void unInsiemeEFattoDiRecordDiQuattroRighe()
    {
        QFETCH(QString, insieme);
        const bool parole = insieme.endsWith(".aps");
        const QByteArray b = leggi(insieme);
        QVERIFY(b.endsWith("\r\n"));
        QCOMPARE(b.count("\r\n"), b.count("\n"));
        QCOMPARE(b.count("\r\n"), b.count("\r"));
        for (char c : b)
            QVERIFY2(static_cast<unsigned char>(c) < 0x80, "plain ASCII, the same in Windows-1252");
        QList<QByteArray> righe = b.split('\n');
        righe.removeLast();
        QCOMPARE(righe.size() % 4, 0);
        QVERIFY(righe.size() / 4 >= 12);
        QSet<QString> visti;
        for (qsizetype r = 0; r < righe.size(); r += 4) {
            QStringList campo;
            for (int k = 0; k < 4; ++k) {
                campo << QString::fromLatin1(righe[r + k].chopped(1));
                // no comma or quote: the old reader would split the line
                QVERIFY(!campo[k].contains(u',') && !campo[k].contains(u'"') && !campo[k].isEmpty());
            }
            QVERIFY2(!visti.contains(campo[1]), "no pair repeats");
            visti.insert(campo[1]);
            for (int k = parole ? 1 : 0; k < 4; ++k) {
                const QString cartella = k < 2 ? "swf\\" : "suoni\\";
                QVERIFY2(campo[k].startsWith(Dati + cartella + "film_"), qPrintable(campo[k]));
                const QString f = locale(campo[k]);
                QVERIFY2(QFileInfo(f).isFile(), qPrintable(f));
                // the exact name, lower case, as the board will ask for it
                QCOMPARE(QFileInfo(f).fileName(), QFileInfo(f).fileName().toLower());
            }
            if (parole) {
                QVERIFY(!campo[0].contains(u'\\'));
                QVERIFY(campo[1].endsWith("film_" + campo[0] + ".swf"));
            } else {
                QCOMPARE(campo[0], campo[1]);
            }
            QVERIFY(campo[2] != campo[3]);
        }
    }

    void unSuonoEUnaParolaBreveMonoA22050_data()
    {
        QTest::addColumn<QString>("suono");
        for (const QString &n : QDir(Pronti + "/suoni").entryList({"film_*.wav"}, QDir::Files, QDir::Name))
            QTest::newRow(qPrintable(n)) << Pronti + "/suoni/" + n;
    }
    void unSuonoEUnaParolaBreveMonoA22050()
    {
        QFETCH(QString, suono);
        const QByteArray b = leggi(suono);
        QVERIFY(b.startsWith("RIFF") && b.mid(8, 4) == "WAVE");
        quint16 formato = 0, canali = 0, bit = 0;
        quint32 frequenza = 0, dati = 0;
        for (qsizetype i = 12; i + 8 <= b.size();) {
            const QByteArray id = b.mid(i, 4);
            const quint32 n = le32(b, i + 4);
            if (id == "fmt ") {
                formato = le16(b, i + 8);
                canali = le16(b, i + 10);
                frequenza = le32(b, i + 12);
                bit = le16(b, i + 22);
            } else if (id == "data") {
                dati = n;
            }
            i += 8 + n + (n & 1);
        }
        QCOMPARE(formato, quint16(1));
        QCOMPARE(canali, quint16(1));
        QCOMPARE(frequenza, quint32(22050));
        QCOMPARE(bit, quint16(16));
        const double secondi = dati / 2.0 / 22050;
        QVERIFY2(secondi > 0.2 && secondi < 3.0, qPrintable(QString::number(secondi)));
    }

    void ogniMediaFilmENominatoDaUnInsieme()
    {
        QSet<QString> nominati;
        for (const QString &i : insiemi())
            for (const QByteArray &r : leggi(i).split('\n'))
                if (r.startsWith("C:"))
                    nominati.insert(locale(QString::fromLatin1(r.trimmed())));
        for (const char *sotto : {"swf", "suoni"})
            for (const QString &n : QDir(Pronti + u'/' + QLatin1String(sotto)).entryList({"film_*"}, QDir::Files))
                QVERIFY2(nominati.contains(Pronti + u'/' + QLatin1String(sotto) + u'/' + n), qPrintable(n));
    }
};

QTEST_MAIN(TestFilmPronti)
#include "test_film_pronti.moc"
