// A fuzz entry in an ordinary build, for ctest: every seed file once, then as
// many inputs as asked, each a seed changed in one to four places by a
// generator with a fixed start, so that a run is the same on every machine.
// The count of inputs is the budget; nothing here reads a clock.
// usage: NAME FOLDER... [--ingressi N]

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {
void prova(const QByteArray &dati)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(dati.constData()), size_t(dati.size()));
}

// Pieces that the game's text formats give meaning to.
const char *const pezzi[] = {"\r\n", "\n", "\r", "\"", ",", "[", "]", "=", " ", "\t", "\xc3\xa8", "\xe8",
                             "\xef\xbb\xbf", "-1", "32768", "1E+308", "NaN", "#TRUE#", "C:\\", "..\\", "0031"};

QByteArray cambia(QByteArray dati, std::mt19937 &g)
{
    const int volte = 1 + int(g() % 4);
    for (int i = 0; i < volte; ++i) {
        const qsizetype pos = dati.isEmpty() ? 0 : qsizetype(g() % size_t(dati.size() + 1));
        switch (g() % 5) {
        case 0: // a byte changed
            if (pos < dati.size())
                dati[pos] = char(g());
            break;
        case 1: // a piece put in
            dati.insert(pos, pezzi[g() % (sizeof pezzi / sizeof pezzi[0])]);
            break;
        case 2: { // a stretch taken out
            const qsizetype n = qsizetype(g() % 16);
            dati.remove(pos, n);
            break;
        }
        case 3: { // a stretch repeated
            const qsizetype n = qMin<qsizetype>(qsizetype(g() % 64), dati.size() - pos);
            if (n > 0)
                dati.insert(pos, dati.mid(pos, n));
            break;
        }
        default: // cut short
            dati.truncate(pos);
            break;
        }
    }
    return dati;
}
} // namespace

int main(int argc, char **argv)
{
    long ingressi = 0;
    std::vector<QByteArray> semi;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--ingressi") == 0 && i + 1 < argc) {
            ingressi = std::atol(argv[++i]);
            continue;
        }
        const QFileInfo info(QString::fromLocal8Bit(argv[i]));
        QStringList file;
        if (info.isDir()) {
            for (const QFileInfo &f : QDir(info.filePath()).entryInfoList(QDir::Files, QDir::Name))
                file << f.filePath();
        } else {
            file << info.filePath();
        }
        for (const QString &percorso : file) {
            QFile f(percorso);
            if (!f.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(percorso));
                return 2;
            }
            semi.push_back(f.readAll());
        }
    }
    if (semi.empty()) {
        std::fprintf(stderr, "usage: %s FOLDER... [--ingressi N]\n", argv[0]);
        return 2;
    }
    for (const QByteArray &s : semi)
        prova(s);
    std::mt19937 g(20261123);
    for (long i = 0; i < ingressi; ++i)
        prova(cambia(semi[g() % semi.size()], g));
    std::printf("%zu seeds and %ld changed inputs, no finding\n", semi.size(), ingressi);
    return 0;
}
