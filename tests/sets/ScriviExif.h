#pragma once

// JPEG files as cameras write them: an Exif block right after the start
// marker, whose second image directory points at a small JPEG of the photo.

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>

namespace ScriviExif {

// Where the fields of the block below lie, for tests that spoil one.
inline constexpr int PosizioneInizioMiniatura = 26 + 2 + 12 + 8; // value of the offset's entry
inline constexpr int PosizioneMiniatura = 26 + 2 + 3 * 12 + 4;

// The Exif block (what follows "Exif\0\0"): a first directory with the
// orientation, a second with the thumbnail's compression, offset and length.
inline QByteArray Tiff(const QByteArray &miniatura, bool grande = false)
{
    QByteArray b;
    auto u16 = [&b, grande](quint32 v) {
        if (grande) { b += char(v >> 8); b += char(v); } else { b += char(v); b += char(v >> 8); }
    };
    auto u32 = [&](quint32 v) {
        if (grande) { u16(v >> 16); u16(v & 0xFFFF); } else { u16(v & 0xFFFF); u16(v >> 16); }
    };
    auto voce = [&](quint32 tag, quint32 tipo, quint32 valore) {
        u16(tag); u16(tipo); u32(1);
        if (tipo == 3) { u16(valore); u16(0); } else { u32(valore); }
    };
    b += grande ? "MM" : "II";
    u16(42);
    u32(8);
    u16(1);                 // first directory, at 8
    voce(0x0112, 3, 1);     // orientation: as stored
    u32(26);                // the second directory
    u16(3);                 // second directory, at 26
    voce(0x0103, 3, 6);     // compression: JPEG
    voce(0x0201, 4, PosizioneMiniatura);
    voce(0x0202, 4, quint32(miniatura.size()));
    u32(0);
    Q_ASSERT(b.size() == PosizioneMiniatura);
    return b + miniatura;
}

// The JPEG with the Exif block put in as APP1 right after its start marker.
inline QByteArray ConExif(const QByteArray &jpeg, const QByteArray &tiff)
{
    const QByteArray corpo = QByteArray("Exif\0\0", 6) + tiff;
    const int lunghezza = int(corpo.size()) + 2;
    Q_ASSERT(lunghezza <= 0xFFFF);
    QByteArray app1("\xFF\xE1", 2);
    app1 += char(lunghezza >> 8);
    app1 += char(lunghezza & 0xFF);
    return jpeg.left(2) + app1 + corpo + jpeg.mid(2);
}

inline QByteArray Jpeg(const QImage &img, int qualita = 75)
{
    QByteArray b;
    QBuffer buffer(&b);
    buffer.open(QIODevice::WriteOnly);
    img.save(&buffer, "JPEG", qualita);
    return b;
}

// What a camera embeds: 160 by 120, the photo fitted inside with dark bands
// where its shape is not 4:3.
inline QByteArray MiniaturaDaCamera(const QImage &foto, QSize dimensione = QSize(160, 120))
{
    QImage m(dimensione, QImage::Format_RGB32);
    m.fill(Qt::black);
    const QImage piccola = foto.scaled(dimensione, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter p(&m);
    p.drawImage((dimensione.width() - piccola.width()) / 2, (dimensione.height() - piccola.height()) / 2, piccola);
    p.end();
    return Jpeg(m);
}

} // namespace ScriviExif
