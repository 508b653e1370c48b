#include "AmbienteProva.h"

#include "platform/LettoreCampi.h"
#include "platform/TestoFile.h"

#include "lang/modLanguageSupport.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"

#include <QImage>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>

// The sets that ship with the game, as they lie in the repository and as the
// first run puts them in the data tree.

namespace {
const QString Pronti = QStringLiteral(COPPIE_SORGENTI "/app/programma/memorypronti");
const QString DatiGioco = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\");

// Every set file beside the program, as "ii/animali.agg".
QStringList fileInsiemi(const QStringList &maschere)
{
    QStringList r;
    for (const char *sotto : {"ii", "pi"}) {
        const QDir d(Pronti + u'/' + QLatin1String(sotto));
        for (const QString &n : d.entryList(maschere, QDir::Files, QDir::Name))
            r << QLatin1String(sotto) + u'/' + n;
    }
    return r;
}

QStringList tuttiGliInsiemi()
{
    return fileInsiemi({QStringLiteral("*.agg"), QStringLiteral("*.apg"), QStringLiteral("*.ass"),
                        QStringLiteral("*.aps")});
}

QByteArray leggi(const QString &percorso)
{
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The fields of a set, as the game's reader gives them, up to the end of the file.
QStringList campi(const QString &testo)
{
    QStringList r;
    LettoreCampi lettore(testo);
    QString c;
    while (!lettore.Fine() && lettore.LeggiCampo(&c))
        r << c;
    return r;
}

QStringList campiDelFile(const QString &percorso) { return campi(DecodificaTesto(leggi(percorso))); }

bool eUnPercorso(const QString &campo) { return campo.contains(u'\\'); }

// A path of a set, in the folder that the import copies from: the data root
// becomes memorypronti, and the rest must be one folder and a name.
QString percorsoNeiPronti(const QString &campo)
{
    if (!campo.startsWith(DatiGioco))
        return QString();
    const QStringList parti = campo.mid(DatiGioco.size()).split(u'\\');
    if (parti.size() != 2)
        return QString();
    return Pronti + u'/' + parti[0] + u'/' + parti[1];
}

// The format of a PCM wave file, read from its RIFF chunks.
struct Onda {
    bool valida = false;
    quint16 formato = 0, canali = 0, bit = 0, blocco = 0;
    quint32 frequenza = 0, byteDati = 0;
    double Secondi() const { return frequenza && blocco ? double(byteDati) / (double(frequenza) * blocco) : 0; }
};

quint32 le32(const QByteArray &b, qsizetype i)
{
    return quint32(quint8(b[i])) | quint32(quint8(b[i + 1])) << 8 | quint32(quint8(b[i + 2])) << 16 |
           quint32(quint8(b[i + 3])) << 24;
}
quint16 le16(const QByteArray &b, qsizetype i) { return quint16(quint8(b[i]) | quint8(b[i + 1]) << 8); }

Onda leggiOnda(const QByteArray &b)
{
    Onda o;
    if (b.size() < 12 || !b.startsWith("RIFF") || b.mid(8, 4) != "WAVE" || le32(b, 4) + 8 > quint32(b.size()))
        return o;
    bool fmt = false, dati = false;
    qsizetype i = 12;
    while (i + 8 <= b.size()) {
        const QByteArray id = b.mid(i, 4);
        const quint32 lunghezza = le32(b, i + 4);
        if (i + 8 + qsizetype(lunghezza) > b.size())
            return o;
        if (id == "fmt " && lunghezza >= 16) {
            o.formato = le16(b, i + 8);
            o.canali = le16(b, i + 10);
            o.frequenza = le32(b, i + 12);
            o.blocco = le16(b, i + 20);
            o.bit = le16(b, i + 22);
            fmt = true;
        } else if (id == "data") {
            o.byteDati = lunghezza;
            dati = true;
        }
        i += 8 + lunghezza + (lunghezza & 1);
    }
    o.valida = fmt && dati;
    return o;
}

// Media named by the sets, each once: pictures, sounds and all of them.
void mediaDegliInsiemi(QStringList *gif, QStringList *wav, QSet<QString> *tutti = nullptr)
{
    QSet<QString> visti;
    for (const QString &ins : tuttiGliInsiemi()) {
        for (const QString &c : campiDelFile(Pronti + u'/' + ins)) {
            const QString p = percorsoNeiPronti(c);
            if (p.isEmpty() || visti.contains(p))
                continue;
            visti.insert(p);
            if (p.endsWith(QLatin1String(".gif")))
                gif->append(p);
            else if (p.endsWith(QLatin1String(".wav")))
                wav->append(p);
        }
    }
    if (tutti)
        *tutti = visti;
}

void copiaAlbero(const QString &da, const QString &a)
{
    QDirIterator it(da, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString f = it.next();
        const QString destinazione = a + u'/' + QDir(da).relativeFilePath(f);
        QDir().mkpath(QFileInfo(destinazione).absolutePath());
        QVERIFY(QFile::copy(f, destinazione));
    }
}
} // namespace

class TestMemoryPronti : public QObject
{
    Q_OBJECT
private slots:
    void init() { LinguaCorrente.clear(); }

    void atLeastFourSetsOfImagesAndFourOfWordsShip()
    {
        QVERIFY2(fileInsiemi({QStringLiteral("*.agg")}).size() >= 4, "image-with-image sets in ii/");
        QVERIFY2(fileInsiemi({QStringLiteral("*.apg")}).size() >= 4, "word-with-image sets in pi/");
    }

    void aSetReadsIntoWholeRecordsOfFourLines_data()
    {
        QTest::addColumn<QString>("insieme");
        for (const QString &i : fileInsiemi({QStringLiteral("*.agg"), QStringLiteral("*.apg")}))
            QTest::newRow(qPrintable(i)) << i;
    }
    void aSetReadsIntoWholeRecordsOfFourLines()
    {
        QFETCH(QString, insieme);
        const QByteArray byte = leggi(Pronti + u'/' + insieme);
        QVERIFY(!byte.isEmpty());
        // CR LF after every line, the last one included, and nothing outside the code page.
        QVERIFY(byte.endsWith("\r\n"));
        QCOMPARE(byte.count("\r"), byte.count("\n"));
        QCOMPARE(byte.count("\r\n"), byte.count("\n"));
        QVERIFY(!byte.contains('\0'));
        const QString testo = DecodificaTesto(byte);
        QVERIFY(CabeInWindows1252(testo));
        QCOMPARE(CodificaTesto(testo), byte);

        const QStringList c = campi(testo);
        // One field a line: no comma or quote has split a line into two fields.
        QCOMPARE(c.size(), DividiRighe(testo).size());
        QCOMPARE(c.size() % 4, 0);
        QVERIFY2(c.size() / 4 >= 12, qPrintable(QStringLiteral("%1 pairs").arg(c.size() / 4)));
        for (const QString &f : c)
            QVERIFY2(!f.trimmed().isEmpty(), "every side has its face and its sound");
    }

    void everyPathOfASetNamesAFileThatTheImportCopies_data() { aSetReadsIntoWholeRecordsOfFourLines_data(); }
    void everyPathOfASetNamesAFileThatTheImportCopies()
    {
        QFETCH(QString, insieme);
        const bool parole = insieme.endsWith(QLatin1String(".apg"));
        const QStringList c = campiDelFile(Pronti + u'/' + insieme);
        QVERIFY(!c.isEmpty());
        for (qsizetype r = 0; r + 3 < c.size(); r += 4) {
            for (int k = 0; k < 4; ++k) {
                const QString &campo = c[r + k];
                if (k == 0 && parole) {
                    QVERIFY2(!eUnPercorso(campo) && !campo.contains(u'.'), qPrintable(campo));
                    continue;
                }
                const QString cartella = k < 2 ? QStringLiteral("gif\\") : QStringLiteral("suoni\\");
                const QString estensione = k < 2 ? QStringLiteral(".gif") : QStringLiteral(".wav");
                QVERIFY2(campo.startsWith(DatiGioco + cartella) && campo.endsWith(estensione), qPrintable(campo));
                const QString locale = percorsoNeiPronti(campo);
                QVERIFY2(!locale.isEmpty(), qPrintable(campo + QStringLiteral(": not directly in its folder")));
                // The exact name, not one that only a case-blind lookup finds.
                const QFileInfo fi(locale);
                QVERIFY2(QDir(fi.absolutePath()).entryList(QDir::Files).contains(fi.fileName()), qPrintable(locale));
                // Where the game will look for it once the import has run.
                QCOMPARE(MappaPercorso(campo),
                         RadiceDatiLocale() + QStringLiteral("tesselo/dati/") + fi.dir().dirName() + u'/' + fi.fileName());
            }
        }
    }

    void theSidesOfAPairDifferAndNoPairRepeats_data() { aSetReadsIntoWholeRecordsOfFourLines_data(); }
    void theSidesOfAPairDifferAndNoPairRepeats()
    {
        QFETCH(QString, insieme);
        const QStringList c = campiDelFile(Pronti + u'/' + insieme);
        QSet<QString> primi, secondi, suoni;
        for (qsizetype r = 0; r + 3 < c.size(); r += 4) {
            QVERIFY2(c[r] != c[r + 1], qPrintable(c[r]));
            QVERIFY2(c[r + 2] != c[r + 3], qPrintable(c[r + 2] + QStringLiteral(": each side has a sound of its own")));
            QVERIFY2(!primi.contains(c[r].toLower()), qPrintable(c[r]));
            QVERIFY2(!secondi.contains(c[r + 1].toLower()), qPrintable(c[r + 1]));
            QVERIFY2(!suoni.contains(c[r + 2]) && !suoni.contains(c[r + 3]), qPrintable(c[r + 2]));
            primi.insert(c[r].toLower());
            secondi.insert(c[r + 1].toLower());
            suoni.insert(c[r + 2]);
            suoni.insert(c[r + 3]);
        }
    }

    void aPictureIsAStillFaceOnAPlainGroundThatMovesOnceFound_data()
    {
        QTest::addColumn<QString>("immagine");
        QStringList gif, wav;
        mediaDegliInsiemi(&gif, &wav);
        for (const QString &g : gif)
            QTest::newRow(qPrintable(QFileInfo(g).fileName())) << g;
    }
    void aPictureIsAStillFaceOnAPlainGroundThatMovesOnceFound()
    {
        QFETCH(QString, immagine);
        QImageReader lettore(immagine);
        QVERIFY2(lettore.canRead(), qPrintable(lettore.errorString()));
        QCOMPARE(lettore.format(), QByteArray("gif"));
        QVERIFY2(lettore.imageCount() > 1, "an animated GIF");
        QVERIFY(lettore.supportsAnimation());
        const QImage primo = lettore.read();
        QVERIFY2(!primo.isNull(), qPrintable(lettore.errorString()));
        QVERIFY(primo.width() >= 200 && primo.width() <= 320);
        QCOMPARE(primo.height(), primo.width());
        const QRgb angolo = primo.pixel(0, 0);
        QCOMPARE(qAlpha(angolo), 255);
        QCOMPARE(primo.pixel(primo.width() - 1, 0), angolo);
        QCOMPARE(primo.pixel(0, primo.height() - 1), angolo);
        QCOMPARE(primo.pixel(primo.width() - 1, primo.height() - 1), angolo);
        // The picture itself, not the ground, fills a good part of the tile.
        qsizetype disegno = 0;
        for (int y = 0; y < primo.height(); ++y)
            for (int x = 0; x < primo.width(); ++x)
                disegno += primo.pixel(x, y) != angolo;
        QVERIFY2(disegno > primo.width() * primo.height() / 10, qPrintable(QString::number(disegno)));
        int letti = 1;
        while (lettore.canRead()) {
            const QImage f = lettore.read();
            if (f.isNull())
                break;
            ++letti;
        }
        QCOMPARE(letti, lettore.imageCount());
    }

    void aSoundIsAShortMonoWave_data()
    {
        QTest::addColumn<QString>("suono");
        QStringList gif, wav;
        mediaDegliInsiemi(&gif, &wav);
        for (const QString &w : wav)
            QTest::newRow(qPrintable(QFileInfo(w).fileName())) << w;
    }
    void aSoundIsAShortMonoWave()
    {
        QFETCH(QString, suono);
        const Onda o = leggiOnda(leggi(suono));
        QVERIFY2(o.valida, "a RIFF WAVE file with its fmt and data chunks");
        QCOMPARE(o.formato, quint16(1));
        QCOMPARE(o.canali, quint16(1));
        QCOMPARE(o.frequenza, quint32(22050));
        QVERIFY(o.bit == 8 || o.bit == 16);
        QCOMPARE(o.blocco, quint16(o.bit / 8));
        QVERIFY2(o.Secondi() > 0.2 && o.Secondi() < 3.0, qPrintable(QString::number(o.Secondi())));
    }

    void noMediaLieInTheReadyMadeFoldersThatNoSetNames()
    {
        QStringList gif, wav;
        QSet<QString> nominati;
        mediaDegliInsiemi(&gif, &wav, &nominati);
        for (const char *sotto : {"gif", "suoni"}) {
            const QString cartella = Pronti + u'/' + QLatin1String(sotto);
            for (const QString &n : QDir(cartella).entryList(QDir::Files))
                QVERIFY2(nominati.contains(cartella + u'/' + n), qPrintable(n));
            QVERIFY2(QDir(cartella).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty(),
                     "the import doesn't go into sub-folders");
        }
    }

    void theCreditsAndTheirLicencesShipBesideTheSets()
    {
        const QByteArray crediti = leggi(Pronti + QStringLiteral("/CREDITI.txt"));
        QVERIFY(!crediti.isEmpty());
        QCOMPARE(leggi(QStringLiteral(COPPIE_SORGENTI "/contenuti/CREDITI.txt")), crediti);
        const QString testo = QString::fromUtf8(crediti);
        for (const char *nome : {"Noto Emoji", "Fluent Emoji", "Apache License 2.0", "MIT", "eSpeak NG"})
            QVERIFY2(testo.contains(QLatin1String(nome)), nome);
        const QRegularExpression licenza(QStringLiteral("LICENZA-[A-Za-z0-9.-]+\\.txt"));
        int trovate = 0;
        for (auto m = licenza.globalMatch(testo); m.hasNext(); ++trovate) {
            const QString nome = m.next().captured();
            QVERIFY2(QFileInfo(Pronti + u'/' + nome).size() > 500, qPrintable(nome));
            QCOMPARE(leggi(Pronti + u'/' + nome), leggi(QStringLiteral(COPPIE_SORGENTI "/contenuti/licenze/") + nome));
        }
        QVERIFY(trovate >= 2);
    }

    void theBuildPutsTheReadyMadeSetsBesideTheProgram()
    {
        QDirIterator it(Pronti, QDir::Files, QDirIterator::Subdirectories);
        int file = 0;
        while (it.hasNext()) {
            const QString f = it.next();
            const QString copia = QStringLiteral(COPPIE_PROGRAMMA "/memorypronti/") + QDir(Pronti).relativeFilePath(f);
            QVERIFY2(QFileInfo(copia).isFile(), qPrintable(copia));
            QCOMPARE(QFileInfo(copia).size(), QFileInfo(f).size());
            ++file;
        }
        QVERIFY(file > 0);
    }

    void aFirstRunAnsweredNoPutsEverySetAndItsMediaInTheDataTree()
    {
        AmbienteProva a;
        AmbienteProva::Scrivi(a.Programma() + QStringLiteral("/penna1.ttf"), "font");
        copiaAlbero(Pronti, a.Programma() + QStringLiteral("/memorypronti"));
        CreaCartelleDati();
        a.scatole.clear();
        a.risposte = {Msg::vbNo};
        Profilo.ProntiImportati = false;
        ImportaMemoryPronti();
        QCOMPARE(Profilo.ProntiImportati, true);
        QCOMPARE(a.scatole.size(), size_t(1));

        const QStringList insiemi = tuttiGliInsiemi();
        QVERIFY(insiemi.size() >= 8);
        for (const QString &ins : insiemi) {
            const QString giocoInsieme = DatiGioco + QString(ins).replace(u'/', u'\\');
            QVERIFY2(FileEsiste(giocoInsieme), qPrintable(ins));
            QString testo;
            QVERIFY(LeggiFileTesto(giocoInsieme, &testo));
            QCOMPARE(CodificaTesto(testo), leggi(Pronti + u'/' + ins));
            int percorsi = 0;
            for (const QString &c : campi(testo)) {
                if (!eUnPercorso(c))
                    continue;
                ++percorsi;
                QVERIFY2(FileEsiste(c), qPrintable(c));
                QCOMPARE(leggi(PercorsoLocale(c)), leggi(percorsoNeiPronti(c)));
            }
            // Every pair names at least three files: a word side has none of its own.
            QVERIFY(percorsi >= campi(testo).size() / 4 * 3);
            // Answering no leaves the sources where they were.
            QVERIFY(QFileInfo::exists(a.Programma() + QStringLiteral("/memorypronti/") + ins));
        }
    }
};

QTEST_MAIN(TestMemoryPronti)
#include "test_memory_pronti.moc"
