// libFuzzer entry: any bytes as a file of the game, decoded as the game
// decodes its text files, then read field by field to the end, and split
// into lines.

#include "platform/LettoreCampi.h"
#include "platform/TestoFile.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString testo = DecodificaTesto(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    LettoreCampi lettore(testo);
    QString campo;
    qsizetype letti = 0;
    int rigaPrima = 0;
    while (lettore.LeggiCampo(&campo)) {
        // each field is a piece of the text; its line never goes back
        if (campo.size() > testo.size() || lettore.Riga() < rigaPrima)
            __builtin_trap();
        rigaPrima = lettore.Riga();
        if (++letti > testo.size() + 1)
            __builtin_trap(); // a reader that stopped moving
    }
    if (!lettore.Fine())
        __builtin_trap();
    (void)DividiRighe(testo);
    return 0;
}
