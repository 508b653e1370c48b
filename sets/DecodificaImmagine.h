#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// Pictures made small straight from the file: a JPEG is decoded at a reduced
// scale, or from the thumbnail its camera embedded when that is big enough,
// so a photograph never lies whole in memory; a picture whose decoding would
// take more than the budget is refused from its header alone.
struct Decodifica {
    QImage Immagine;
    bool Riuscita = false;
    qint64 ByteLetti = 0;   // bytes of the file read, each counted once
    qint64 ByteDecodifica = 0; // what the decoder needed in memory for the picture
    bool DaMiniaturaExif = false; // made from the small copy a camera embeds, not the picture's data
};

inline constexpr qint64 BudgetDecodifica = 64LL * 1024 * 1024;

// The picture at exactly `dimensione` (stretched, as the old image list
// did) or, with `proporzioni`, fitted inside it without growing.
Decodifica DecodificaRidotta(const QString &fileLocale, const QSize &dimensione, bool proporzioni = false,
                             qint64 budget = BudgetDecodifica);
