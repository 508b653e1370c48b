// The time of each input that fuzzing found, through the fuzz entry point in
// an ordinary build: the figures the replay test does not take.
// usage: bench_reperti FILE_OR_FOLDER...

#include "elenco_reperti.h"

#include <chrono>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    QStringList argomenti;
    for (int i = 1; i < argc; ++i)
        argomenti << QString::fromLocal8Bit(argv[i]);
    const std::vector<Reperto> reperti = LeggiReperti(argomenti);
    if (reperti.empty()) {
        std::fprintf(stderr, "usage: bench_reperti FILE_OR_FOLDER...\n");
        return 2;
    }
    double peggiore = 0;
    for (const Reperto &r : reperti) {
        if (!r.letto) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(r.nome));
            return 2;
        }
        const auto inizio = std::chrono::steady_clock::now();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(r.dati.constData()), static_cast<size_t>(r.dati.size()));
        const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inizio).count();
        peggiore = std::max(peggiore, ms);
        std::printf("%-60s %9.1f ms\n", qPrintable(r.nome), ms);
    }
    std::printf("%zu inputs, the slowest %.1f ms\n", reperti.size(), peggiore);
    return 0;
}
