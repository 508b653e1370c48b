#pragma once

// Bounded little-endian / bit-level reading of SWF data. Every read past the
// end yields zeros and marks the reader as failed, so callers can parse
// untrusted files without checking each step.

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace swf {

constexpr qint64 kMaxDecompressed = 64 * 1024 * 1024;

class Lettore {
public:
    Lettore() = default;
    Lettore(const uint8_t *dati, size_t n) : d_(dati), n_(n) {}

    bool ok() const { return !errore_; }
    bool fine() const { return pos_ >= n_; }
    size_t pos() const { return pos_; }
    size_t size() const { return n_; }
    size_t restanti() const { return pos_ < n_ ? n_ - pos_ : 0; }
    const uint8_t *dati() const { return d_; }
    const uint8_t *qui() const { return d_ + (pos_ < n_ ? pos_ : n_); }

    void allinea() { nbit_ = 0; }
    void salta(size_t k);
    void vaiA(size_t p);

    uint8_t u8();
    uint16_t u16();
    uint32_t u32();
    int16_t s16() { return static_cast<int16_t>(u16()); }
    int32_t s32() { return static_cast<int32_t>(u32()); }
    double fixed8() { return s16() / 256.0; }     // 8.8 signed
    double fixed16() { return s32() / 65536.0; }  // 16.16 signed
    float f32();
    double f64();
    uint32_t encodedU32();

    uint32_t ub(int bits);
    int32_t sb(int bits);
    double fb(int bits) { return sb(bits) / 65536.0; }
    bool flag() { return ub(1) != 0; }

    // Null-terminated string; Latin-1 before SWF 6, UTF-8 after.
    QByteArray stringa();

    Lettore sotto(size_t lunghezza);  // a sub-reader over the next bytes
    void segnaErrore() { errore_ = true; }

private:
    const uint8_t *d_ = nullptr;
    size_t n_ = 0;
    size_t pos_ = 0;
    uint32_t bitbuf_ = 0;
    int nbit_ = 0;
    bool errore_ = false;
};

struct Intestazione {
    char firma = 0;  // 'F', 'C' or 'Z'
    int versione = 0;
    uint32_t lunghezzaDichiarata = 0;
};

// The counts behind lavoroDelThread(), for the calling thread.
struct LavoroThread;
LavoroThread &lavoroQui();

// Unpacks a whole SWF file (FWS/CWS/ZWS) into the uncompressed body after the
// 8-byte header. Returns false on anything malformed or over the size cap.
bool decomprimi(const QByteArray &file, Intestazione &intestazione, QByteArray &corpo,
                qint64 limite = kMaxDecompressed);

// zlib stream to bytes, capped; partial output is kept when the stream is truncated.
bool inflateZlib(const uint8_t *dati, size_t n, QByteArray &uscita, qint64 limite,
                 bool accettaTroncato = false);

} // namespace swf
