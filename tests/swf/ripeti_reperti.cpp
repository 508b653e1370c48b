// Runs the fuzz entry point of an ordinary build over files or folders of
// inputs, one line each with the time it took: the inputs fuzzing once found
// slow or broken stay here as a test, and a new finding can be looked at
// without the sanitisers.
// usage: swf_ripeti_reperti FILE_OR_FOLDER... [--max-ms N]

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    qint64 massimoMs = -1;
    QStringList file;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--max-ms") == 0 && i + 1 < argc) {
            massimoMs = QByteArray(argv[++i]).toLongLong();
            continue;
        }
        const QFileInfo info(QString::fromLocal8Bit(argv[i]));
        if (info.isDir()) {
            for (const QFileInfo &f : QDir(info.filePath()).entryInfoList(QDir::Files, QDir::Name))
                file << f.filePath();
        } else {
            file << info.filePath();
        }
    }
    if (file.isEmpty()) {
        std::fprintf(stderr, "usage: swf_ripeti_reperti FILE_OR_FOLDER... [--max-ms N]\n");
        return 2;
    }
    int lenti = 0;
    for (const QString &percorso : file) {
        QFile f(percorso);
        if (!f.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(percorso));
            return 2;
        }
        const QByteArray dati = f.readAll();
        QElapsedTimer t;
        t.start();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(dati.constData()), static_cast<size_t>(dati.size()));
        const qint64 ms = t.elapsed();
        const bool lento = massimoMs >= 0 && ms > massimoMs;
        lenti += lento ? 1 : 0;
        std::printf("%-60s %6lld ms%s\n", qPrintable(QFileInfo(percorso).fileName()), static_cast<long long>(ms),
                    lento ? "  SLOW" : "");
    }
    std::printf("%lld inputs, %d over the limit\n", static_cast<long long>(file.size()), lenti);
    return lenti == 0 ? 0 : 1;
}
