#include "lettore.h"

#include "swf/filmato.h"

#include <lzma.h>
#include <zlib.h>

#include <cstring>

namespace swf {

void Lettore::salta(size_t k)
{
    nbit_ = 0;
    if (k > restanti()) {
        pos_ = n_;
        errore_ = true;
    } else {
        pos_ += k;
    }
}

void Lettore::vaiA(size_t p)
{
    nbit_ = 0;
    if (p > n_) {
        pos_ = n_;
        errore_ = true;
    } else {
        pos_ = p;
    }
}

uint8_t Lettore::u8()
{
    nbit_ = 0;
    if (pos_ >= n_) {
        errore_ = true;
        return 0;
    }
    return d_[pos_++];
}

uint16_t Lettore::u16()
{
    uint16_t a = u8();
    return static_cast<uint16_t>(a | (u8() << 8));
}

uint32_t Lettore::u32()
{
    uint32_t a = u16();
    return a | (static_cast<uint32_t>(u16()) << 16);
}

float Lettore::f32()
{
    uint32_t v = u32();
    float f;
    std::memcpy(&f, &v, 4);
    return f;
}

double Lettore::f64()
{
    // AVM1 doubles store the high word first.
    uint64_t hi = u32();
    uint64_t lo = u32();
    uint64_t v = (hi << 32) | lo;
    double f;
    std::memcpy(&f, &v, 8);
    return f;
}

uint32_t Lettore::encodedU32()
{
    uint32_t v = 0;
    for (int i = 0; i < 5; ++i) {
        uint8_t b = u8();
        v |= static_cast<uint32_t>(b & 0x7f) << (7 * i);
        if (!(b & 0x80))
            break;
    }
    return v;
}

uint32_t Lettore::ub(int bits)
{
    if (bits <= 0)
        return 0;
    if (bits > 32) {
        errore_ = true;
        return 0;
    }
    uint32_t v = 0;
    for (int i = 0; i < bits; ++i) {
        if (nbit_ == 0) {
            if (pos_ >= n_) {
                errore_ = true;
                return 0;
            }
            bitbuf_ = d_[pos_++];
            nbit_ = 8;
        }
        --nbit_;
        v = (v << 1) | ((bitbuf_ >> nbit_) & 1u);
    }
    return v;
}

int32_t Lettore::sb(int bits)
{
    if (bits <= 0)
        return 0;
    uint32_t v = ub(bits);
    if (bits < 32 && (v & (1u << (bits - 1))))
        v |= ~0u << bits;
    return static_cast<int32_t>(v);
}

QByteArray Lettore::stringa()
{
    nbit_ = 0;
    size_t inizio = pos_;
    while (pos_ < n_ && d_[pos_] != 0)
        ++pos_;
    QByteArray s(reinterpret_cast<const char *>(d_ + inizio), static_cast<qsizetype>(pos_ - inizio));
    if (pos_ < n_)
        ++pos_;
    else
        errore_ = true;
    return s;
}

Lettore Lettore::sotto(size_t lunghezza)
{
    nbit_ = 0;
    if (lunghezza > restanti()) {
        errore_ = true;
        lunghezza = restanti();
    }
    Lettore r(d_ + pos_, lunghezza);
    pos_ += lunghezza;
    return r;
}

bool inflateZlib(const uint8_t *dati, size_t n, QByteArray &uscita, qint64 limite, bool accettaTroncato)
{
    uscita.clear();
    z_stream zs;
    std::memset(&zs, 0, sizeof zs);
    if (inflateInit(&zs) != Z_OK)
        return false;
    zs.next_in = const_cast<Bytef *>(dati);
    zs.avail_in = static_cast<uInt>(std::min<size_t>(n, 0x7fffffff));
    QByteArray blocco(64 * 1024, Qt::Uninitialized);
    int rc = Z_OK;
    bool ok = true;
    while (rc != Z_STREAM_END) {
        zs.next_out = reinterpret_cast<Bytef *>(blocco.data());
        zs.avail_out = static_cast<uInt>(blocco.size());
        rc = inflate(&zs, Z_NO_FLUSH);
        qint64 prodotti = blocco.size() - zs.avail_out;
        lavoroQui().byteLetti += prodotti;
        if (uscita.size() + prodotti > limite) {
            ok = false;
            break;
        }
        uscita.append(blocco.constData(), static_cast<qsizetype>(prodotti));
        if (rc == Z_STREAM_END)
            break;
        if (rc != Z_OK) {
            ok = accettaTroncato && rc == Z_BUF_ERROR && !uscita.isEmpty();
            break;
        }
        if (prodotti == 0 && zs.avail_in == 0) {
            ok = accettaTroncato && !uscita.isEmpty();
            break;
        }
    }
    inflateEnd(&zs);
    if (!ok)
        uscita.clear();
    return ok;
}

static bool inflateLzma(const uint8_t *props, const uint8_t *dati, size_t n, qint64 attesi, QByteArray &uscita)
{
    // Rebuild the classic .lzma header (properties + 64-bit size) so the
    // "alone" decoder can stop at the declared size without an end marker.
    QByteArray tutto;
    tutto.reserve(static_cast<qsizetype>(13 + n));
    tutto.append(reinterpret_cast<const char *>(props), 5);
    uint64_t dim = static_cast<uint64_t>(attesi);
    for (int i = 0; i < 8; ++i)
        tutto.append(static_cast<char>((dim >> (8 * i)) & 0xff));
    tutto.append(reinterpret_cast<const char *>(dati), static_cast<qsizetype>(n));

    lzma_stream zs = LZMA_STREAM_INIT;
    if (lzma_alone_decoder(&zs, 256ull * 1024 * 1024) != LZMA_OK)
        return false;
    uscita.resize(static_cast<qsizetype>(attesi));
    zs.next_in = reinterpret_cast<const uint8_t *>(tutto.constData());
    zs.avail_in = static_cast<size_t>(tutto.size());
    zs.next_out = reinterpret_cast<uint8_t *>(uscita.data());
    zs.avail_out = static_cast<size_t>(attesi);
    lzma_ret rc = LZMA_OK;
    while (rc == LZMA_OK && zs.avail_out > 0 && zs.avail_in > 0)
        rc = lzma_code(&zs, LZMA_FINISH);
    qint64 prodotti = attesi - static_cast<qint64>(zs.avail_out);
    lavoroQui().byteLetti += prodotti;
    lzma_end(&zs);
    if (rc != LZMA_OK && rc != LZMA_STREAM_END)
        return false;
    uscita.resize(static_cast<qsizetype>(prodotti));
    return prodotti > 0;
}

bool decomprimi(const QByteArray &file, Intestazione &h, QByteArray &corpo, qint64 limite)
{
    corpo.clear();
    if (file.size() < 8)
        return false;
    const auto *p = reinterpret_cast<const uint8_t *>(file.constData());
    if (p[1] != 'W' || p[2] != 'S')
        return false;
    h.firma = static_cast<char>(p[0]);
    h.versione = p[3];
    h.lunghezzaDichiarata = p[4] | (p[5] << 8) | (p[6] << 16) | (static_cast<uint32_t>(p[7]) << 24);
    const qint64 attesi = static_cast<qint64>(h.lunghezzaDichiarata) - 8;
    switch (h.firma) {
    case 'F':
        corpo = file.mid(8);
        lavoroQui().byteLetti += corpo.size();
        if (corpo.size() > limite)
            return false;
        return !corpo.isEmpty();
    case 'C':
        // Some writers store a wrong length: trust the stream, keep what inflates.
        return inflateZlib(p + 8, static_cast<size_t>(file.size() - 8), corpo, limite, true);
    case 'Z': {
        if (file.size() < 17 || attesi <= 0 || attesi > limite)
            return false;
        return inflateLzma(p + 12, p + 17, static_cast<size_t>(file.size() - 17), attesi, corpo);
    }
    default:
        return false;
    }
}

} // namespace swf
