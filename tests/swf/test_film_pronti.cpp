// The films that ship with the game: the reward films beside the program and
// the film sets of the ready-made memories, with their sounds. They must be
// what the writer makes today, load and play in the game's renderer, and the
// sets must be whole records of four lines in the old format.

#include "animazioni.h"
#include "swf/filmato.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSet>
#include <QTest>

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
    QVERIFY2(coloriDiversi(primo) > 12, "frame 1 shows a picture");
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
        swfanim::Opzioni o;
        QCOMPARE(leggi(p), swfanim::creaFilm(nome, o));
        controllaFilm(p, 300);
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
