#include "sets/MiniaturaExif.h"

namespace {
// Reads the numbers of an Exif block in its own byte order, never past its end.
class Tiff
{
public:
    explicit Tiff(const QByteArray &b) : dati(b), grande(b.startsWith("MM")) {}
    bool Dentro(qint64 pos, qint64 quanti) const { return pos >= 0 && quanti >= 0 && pos + quanti <= dati.size(); }
    quint32 U16(qint64 p) const { return grande ? (byte(p) << 8) | byte(p + 1) : byte(p) | (byte(p + 1) << 8); }
    quint32 U32(qint64 p) const
    {
        return grande ? (U16(p) << 16) | U16(p + 2) : U16(p) | (U16(p + 2) << 16);
    }

private:
    quint32 byte(qint64 p) const { return quint8(dati[p]); }
    const QByteArray &dati;
    bool grande;
};

bool ApreUnJpeg(const QByteArray &b)
{
    return b.size() >= 4 && quint8(b[0]) == 0xFF && quint8(b[1]) == 0xD8;
}
} // namespace

QByteArray MiniaturaDaExif(const QByteArray &tiff)
{
    if (tiff.size() < 8 || !(tiff.startsWith("II") || tiff.startsWith("MM")))
        return {};
    const Tiff t(tiff);
    if (t.U16(2) != 42)
        return {};
    // The first directory describes the picture; the word after its entries
    // leads to the second, which describes the thumbnail.
    const qint64 primo = t.U32(4);
    if (!t.Dentro(primo, 2))
        return {};
    const qint64 seguito = primo + 2 + qint64(t.U16(primo)) * 12;
    if (!t.Dentro(seguito, 4))
        return {};
    const qint64 secondo = t.U32(seguito);
    if (secondo == 0 || !t.Dentro(secondo, 2))
        return {};
    const qint64 voci = t.U16(secondo);
    if (!t.Dentro(secondo + 2, voci * 12))
        return {};
    qint64 inizio = -1, lunghezza = -1;
    quint32 compressione = 6; // offsets to a JPEG stream say JPEG by themselves
    for (qint64 i = 0; i < voci; ++i) {
        const qint64 v = secondo + 2 + i * 12;
        const quint32 tipo = t.U16(v + 2);
        if (t.U32(v + 4) != 1 || (tipo != 3 && tipo != 4))
            continue;
        const quint32 valore = tipo == 3 ? t.U16(v + 8) : t.U32(v + 8);
        switch (t.U16(v)) {
        case 0x0103: compressione = valore; break;
        case 0x0201: inizio = valore; break;
        case 0x0202: lunghezza = valore; break;
        default: break;
        }
    }
    if (compressione != 6 || inizio <= 0 || lunghezza <= 0 || !t.Dentro(inizio, lunghezza))
        return {};
    const QByteArray miniatura = tiff.mid(inizio, lunghezza);
    return ApreUnJpeg(miniatura) ? miniatura : QByteArray();
}

IntestazioneJpeg LeggiIntestazioneJpeg(QIODevice &d)
{
    IntestazioneJpeg r;
    char c = 0;
    if (!d.getChar(&c) || quint8(c) != 0xFF || !d.getChar(&c) || quint8(c) != 0xD8)
        return r;
    r.Jpeg = true;
    // A file can hold any number of segments; a camera's head has a handful.
    for (int segmento = 0; segmento < 128; ++segmento) {
        if (!d.getChar(&c) || quint8(c) != 0xFF)
            return r;
        do {
            if (!d.getChar(&c))
                return r;
        } while (quint8(c) == 0xFF); // fill bytes before the code
        const quint8 codice = quint8(c);
        if (codice == 0x01 || (codice >= 0xD0 && codice <= 0xD7))
            continue; // markers without a length
        if (codice == 0xDA || codice == 0xD9 || codice == 0x00)
            return r; // the picture's data, or the end, without a frame header
        const QByteArray l = d.read(2);
        if (l.size() != 2)
            return r;
        const qint64 lunghezza = ((quint8(l[0]) << 8) | quint8(l[1])) - 2;
        if (lunghezza < 0)
            return r;
        const bool fotogramma = codice >= 0xC0 && codice <= 0xCF && codice != 0xC4 && codice != 0xC8 && codice != 0xCC;
        if (fotogramma) {
            const QByteArray f = d.read(5);
            if (f.size() == 5)
                r.Intera = QSize((quint8(f[3]) << 8) | quint8(f[4]), (quint8(f[1]) << 8) | quint8(f[2]));
            return r; // the Exif block comes before the frame: nothing more to look for
        }
        if (codice == 0xE1 && r.Miniatura.isEmpty() && lunghezza >= 6) {
            // APP1 holds Exif or XMP; only Exif is read whole.
            const QByteArray firma = d.read(6);
            if (firma.size() != 6)
                return r;
            if (firma == QByteArrayView("Exif\0\0", 6)) {
                const QByteArray tiff = d.read(lunghezza - 6);
                if (tiff.size() != lunghezza - 6)
                    return r;
                r.Miniatura = MiniaturaDaExif(tiff);
                continue;
            }
            if (!d.seek(d.pos() + lunghezza - 6))
                return r;
            continue;
        }
        if (!d.seek(d.pos() + lunghezza))
            return r;
    }
    return r;
}
