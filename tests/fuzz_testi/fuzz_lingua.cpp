// libFuzzer entry: any bytes as a language file. The first byte chooses
// whether the rest is read as it stands or, one input in sixteen, repeated
// past the 64,000 bytes where the reader goes line by line (a long input
// costs a hundred short ones, and the short ones explore the lines and
// sections the long ones are made of); the rest is looked up in the sections
// and keys the game asks for, and in a section and key taken from its own
// first line. A value set in the text reads back.

#include "lang/FileProfilo.h"
#include "lang/modLanguageSupport.h"
#include "platform/TestoFile.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    QByteArray byte(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    if ((data[0] & 15) == 0 && !byte.isEmpty()) {
        const QByteArray pezzo = byte;
        while (byte.size() <= LimiteProfiloPrivato)
            byte += pezzo;
    }
    const QString chiavi[][2] = {
        {QStringLiteral("Strings"), QStringLiteral("0031")},
        {QStringLiteral("FormMenu"), QStringLiteral("FormMenu.Caption")},
        {QStringLiteral("Language"), QStringLiteral("CurrentLanguage")},
        {QStringLiteral("Strings"), QString()},
    };
    for (const auto &c : chiavi) {
        if (LeggiVoceDaByte(byte, c[0], c[1]).size() > qMax<qsizetype>(byte.size(), LunghezzaMassimaVoce))
            __builtin_trap();
    }
    const QString testo = DecodificaTesto(byte);
    const QStringList prima = DividiRighe(testo).mid(0, 1);
    if (!prima.isEmpty()) {
        const QString riga = prima.first();
        const qsizetype meta = riga.size() / 2;
        (void)LeggiVoceDaByte(byte, riga.left(meta), riga.mid(meta));
    }
    if (byte.size() <= LimiteProfiloPrivato) {
        // a plain value written into the text is the value read back
        const QString nuovo = ScriviVoceProfiloPrivato(testo, QStringLiteral("Prova"), QStringLiteral("Voce"),
                                                       QStringLiteral("valore"));
        if (LeggiVoceProfiloPrivato(nuovo, QStringLiteral("Prova"), QStringLiteral("Voce")) != QStringLiteral("valore"))
            __builtin_trap();
    }
    return 0;
}
