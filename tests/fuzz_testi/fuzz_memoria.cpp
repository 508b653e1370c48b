// libFuzzer entry: any bytes as a set file, loaded as a board loads it and
// read as an editor reads it. A file the game would stop on ends the run of
// that reader only.

#include "ambiente_fuzz.h"

#include "sets/CaricaMemory.h"
#include "sets/ElencoCoppie.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PreparaAmbienteFuzz();
    const QString file = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\prova.ass");
    ScriviFileFuzz(file, QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));

    TabellaMemoria tabella;
    const bool finito = FinisceIlGioco([&] {
        if (!CaricaMemory(file, QStringLiteral("0024"), &tabella))
            __builtin_trap(); // the file is there: only a missing one gives false
    });
    if (!finito && (tabella.NumeroCoppie < 0 || tabella.NumeroCoppie > TabellaMemoria::RigheMassime))
        __builtin_trap();

    ElencoCoppie elenco;
    int letti = -1;
    FinisceIlGioco([&] { letti = LeggiElencoCoppie(file, &elenco); });
    if (letti > ElencoCoppie::UltimaRiga)
        __builtin_trap();
    // what was read writes out as lines again
    if (letti > 0)
        (void)RigheDaScrivere(elenco, letti);
    return 0;
}
