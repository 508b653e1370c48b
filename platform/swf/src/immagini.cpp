// Bitmap characters, decoded on first use into premultiplied ARGB.

#include "modello.h"

#include <QBuffer>
#include <QImageReader>

namespace swf {

namespace {

QByteArray togliIntestazioneErrata(QByteArray d)
{
    // Old writers put an EOI+SOI pair before the real SOI.
    if (d.size() >= 4 && static_cast<uint8_t>(d[0]) == 0xFF && static_cast<uint8_t>(d[1]) == 0xD9 &&
        static_cast<uint8_t>(d[2]) == 0xFF && static_cast<uint8_t>(d[3]) == 0xD8)
        d.remove(0, 4);
    return d;
}

QImage caricaImmagine(const QByteArray &dati)
{
    QBuffer buf;
    buf.setData(dati);
    buf.open(QIODevice::ReadOnly);
    QImageReader lettore(&buf);
    lettore.setAutoTransform(false);
    QSize s = lettore.size();
    if (!s.isValid() || static_cast<qint64>(s.width()) * s.height() > kMaxBitmapPixels)
        return {};
    QImage img = lettore.read();
    if (img.isNull())
        return {};
    return img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage decodificaLossless(const ImmagineBitmap &b)
{
    const int w = b.larghezza, h = b.altezza;
    if (w <= 0 || h <= 0 || static_cast<qint64>(w) * h > kMaxBitmapPixels)
        return {};
    const bool alfa = b.versioneLossless == 2;
    const auto *p = reinterpret_cast<const uint8_t *>(b.dati.constData());
    size_t n = static_cast<size_t>(b.dati.size());
    int colori = 0;
    if (b.formato == 3) {
        if (n < 1)
            return {};
        colori = p[0] + 1;
        ++p;
        --n;
    }
    QByteArray raw;
    const qint64 limite = static_cast<qint64>(w) * h * 4 + 1024 + colori * 4;
    inflateZlib(p, n, raw, limite, true);
    const auto *d = reinterpret_cast<const uint8_t *>(raw.constData());
    const size_t dn = static_cast<size_t>(raw.size());
    QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
    if (img.isNull())
        return {};
    img.fill(0);
    auto premolt = [](uint32_t a, uint32_t r, uint32_t g, uint32_t bl) {
        r = std::min(r, a); g = std::min(g, a); bl = std::min(bl, a);
        return (a << 24) | (r << 16) | (g << 8) | bl;
    };
    if (b.formato == 3) {
        const size_t bpc = alfa ? 4 : 3;
        std::vector<uint32_t> tab(static_cast<size_t>(colori), 0);
        for (int i = 0; i < colori; ++i) {
            size_t o = static_cast<size_t>(i) * bpc;
            if (o + bpc > dn)
                break;
            tab[static_cast<size_t>(i)] = alfa ? premolt(d[o + 3], d[o], d[o + 1], d[o + 2])
                                               : (0xFF000000u | (d[o] << 16) | (d[o + 1] << 8) | d[o + 2]);
        }
        const size_t base = static_cast<size_t>(colori) * bpc;
        const size_t riga = (static_cast<size_t>(w) + 3) & ~size_t(3);
        for (int y = 0; y < h; ++y) {
            auto *out = reinterpret_cast<uint32_t *>(img.scanLine(y));
            for (int x = 0; x < w; ++x) {
                size_t o = base + static_cast<size_t>(y) * riga + static_cast<size_t>(x);
                if (o >= dn)
                    return img;
                uint8_t idx = d[o];
                out[x] = idx < colori ? tab[idx] : 0;
            }
        }
    } else if (b.formato == 4) {
        const size_t riga = (static_cast<size_t>(w) * 2 + 3) & ~size_t(3);
        for (int y = 0; y < h; ++y) {
            auto *out = reinterpret_cast<uint32_t *>(img.scanLine(y));
            for (int x = 0; x < w; ++x) {
                size_t o = static_cast<size_t>(y) * riga + static_cast<size_t>(x) * 2;
                if (o + 2 > dn)
                    return img;
                uint32_t v = (d[o] << 8) | d[o + 1];
                uint32_t r = (v >> 10) & 31, g = (v >> 5) & 31, bl = v & 31;
                out[x] = 0xFF000000u | (((r << 3) | (r >> 2)) << 16) | (((g << 3) | (g >> 2)) << 8) | ((bl << 3) | (bl >> 2));
            }
        }
    } else if (b.formato == 5) {
        for (int y = 0; y < h; ++y) {
            auto *out = reinterpret_cast<uint32_t *>(img.scanLine(y));
            for (int x = 0; x < w; ++x) {
                size_t o = (static_cast<size_t>(y) * static_cast<size_t>(w) + static_cast<size_t>(x)) * 4;
                if (o + 4 > dn)
                    return img;
                out[x] = alfa ? premolt(d[o], d[o + 1], d[o + 2], d[o + 3])
                              : (0xFF000000u | (d[o + 1] << 16) | (d[o + 2] << 8) | d[o + 3]);
            }
        }
    } else {
        return {};
    }
    return img;
}

} // namespace

const QImage &decodificaBitmap(ImmagineBitmap &b, const QByteArray &tabelle)
{
    if (b.decodificata)
        return b.img;
    b.decodificata = true;
    if (b.tipo == ImmagineBitmap::Lossless) {
        b.img = decodificaLossless(b);
    } else {
        QByteArray dati = togliIntestazioneErrata(b.dati);
        if (b.tipo == ImmagineBitmap::JpegTabelle && !tabelle.isEmpty()) {
            QByteArray t = togliIntestazioneErrata(tabelle);
            if (t.size() >= 2 && static_cast<uint8_t>(t[t.size() - 2]) == 0xFF && static_cast<uint8_t>(t[t.size() - 1]) == 0xD9)
                t.chop(2);
            if (dati.size() >= 2 && static_cast<uint8_t>(dati[0]) == 0xFF && static_cast<uint8_t>(dati[1]) == 0xD8)
                dati.remove(0, 2);
            dati = t + dati;
        }
        b.img = caricaImmagine(dati);
        if (!b.img.isNull() && !b.alfa.isEmpty()) {
            const int w = b.img.width(), h = b.img.height();
            QByteArray a;
            inflateZlib(reinterpret_cast<const uint8_t *>(b.alfa.constData()), static_cast<size_t>(b.alfa.size()), a,
                        static_cast<qint64>(w) * h + 16, true);
            if (a.size() >= static_cast<qsizetype>(w) * h) {
                for (int y = 0; y < h; ++y) {
                    auto *px = reinterpret_cast<uint32_t *>(b.img.scanLine(y));
                    for (int x = 0; x < w; ++x) {
                        uint32_t al = static_cast<uint8_t>(a[static_cast<qsizetype>(y) * w + x]);
                        uint32_t v = px[x];
                        uint32_t r = ((v >> 16) & 0xff) * al / 255, g = ((v >> 8) & 0xff) * al / 255, bl = (v & 0xff) * al / 255;
                        px[x] = (al << 24) | (r << 16) | (g << 8) | bl;
                    }
                }
            }
        }
    }
    // the encoded bytes are no longer needed once decoded
    b.dati = QByteArray();
    b.alfa = QByteArray();
    return b.img;
}

} // namespace swf
