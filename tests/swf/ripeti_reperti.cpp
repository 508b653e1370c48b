// Runs the fuzz entry point of an ordinary build over files or folders of
// inputs, one line each with the work it took (film bytes read, units of
// drawing): the inputs fuzzing once found slow or broken stay here as a test,
// and a new finding can be looked at without the sanitisers. With
// --max-lavoro, an input whose drawing work passes N fails the run. Their
// times are printed by the benchmark bench_reperti.
// usage: swf_ripeti_reperti FILE_OR_FOLDER... [--max-lavoro N]

#include "elenco_reperti.h"

#include "swf/filmato.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    qint64 massimo = -1;
    QStringList argomenti;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--max-lavoro") == 0 && i + 1 < argc)
            massimo = QByteArray(argv[++i]).toLongLong();
        else
            argomenti << QString::fromLocal8Bit(argv[i]);
    }
    const std::vector<Reperto> reperti = LeggiReperti(argomenti);
    if (reperti.empty()) {
        std::fprintf(stderr, "usage: swf_ripeti_reperti FILE_OR_FOLDER... [--max-lavoro N]\n");
        return 2;
    }
    int pesanti = 0;
    for (const Reperto &r : reperti) {
        if (!r.letto) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(r.nome));
            return 2;
        }
        const swf::LavoroThread prima = swf::lavoroDelThread();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(r.dati.constData()), static_cast<size_t>(r.dati.size()));
        const swf::LavoroThread dopo = swf::lavoroDelThread();
        const qint64 disegno = dopo.lavoroDisegno - prima.lavoroDisegno;
        const bool pesante = massimo >= 0 && disegno > massimo;
        pesanti += pesante ? 1 : 0;
        std::printf("%-60s %10lld bytes read %12lld drawing%s\n", qPrintable(r.nome),
                    static_cast<long long>(dopo.byteLetti - prima.byteLetti), static_cast<long long>(disegno),
                    pesante ? "  OVER" : "");
    }
    std::printf("%lld inputs, %d over the limit\n", static_cast<long long>(reperti.size()), pesanti);
    return pesanti == 0 ? 0 : 1;
}
