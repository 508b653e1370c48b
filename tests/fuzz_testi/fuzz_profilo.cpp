// libFuzzer entry: any bytes as a player's profile file, read as the game
// reads a profile at start and on choosing a player, and its text read again
// on its own; a profile read back writes out as whole text again.

#include "ambiente_fuzz.h"

#include "platform/TestoFile.h"
#include "profiles/Profilo.h"

#include <QRegularExpression>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PreparaAmbienteFuzz();
    const QByteArray byte(reinterpret_cast<const char *>(data), qsizetype(size));
    FileUtente = FileDelProfilo(QStringLiteral("prova"));
    ScriviFileFuzz(FileUtente, byte);
    FinisceIlGioco([] { LeggiProfilo(); });

    ProfiloGiocatore p;
    const auto scrivibile = [](const QString &s) {
        // a font name goes out on a line of its own, unquoted: one with a
        // comma, a quote or blanks at its ends would not come back the same
        static const QRegularExpression semplice(QStringLiteral("^([A-Za-z0-9]+( [A-Za-z0-9]+)*)?$"));
        return semplice.match(s).hasMatch();
    };
    if (ProfiloDaTesto(DecodificaTesto(byte), &p) && scrivibile(p.FontParola1) && scrivibile(p.FontParola2)) {
        // a profile that reads whole reads the same from its own text
        ProfiloGiocatore q;
        if (!ProfiloDaTesto(TestoProfilo(p), &q) || TestoProfilo(q) != TestoProfilo(p))
            __builtin_trap();
    }
    return 0;
}
