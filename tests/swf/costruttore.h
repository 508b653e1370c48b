#pragma once

// Builds small SWF files byte by byte for the tests.

#include <QByteArray>
#include <QString>

#include <lzma.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace swftest {

class Bit {
public:
    void ub(uint32_t v, int n)
    {
        for (int i = n - 1; i >= 0; --i) {
            acc_ = static_cast<uint8_t>((acc_ << 1) | ((v >> i) & 1));
            if (++n_ == 8) {
                out.append(static_cast<char>(acc_));
                acc_ = 0;
                n_ = 0;
            }
        }
    }
    void sb(int32_t v, int n) { ub(static_cast<uint32_t>(v) & (n == 32 ? 0xffffffffu : ((1u << n) - 1)), n); }
    void allinea()
    {
        if (n_ > 0)
            ub(0, 8 - n_);
    }
    void u8(int v) { allinea(); out.append(static_cast<char>(v)); }
    void u16(int v) { u8(v & 0xff); u8((v >> 8) & 0xff); }
    void u32(uint32_t v) { u16(static_cast<int>(v & 0xffff)); u16(static_cast<int>(v >> 16)); }
    void stringa(const QByteArray &s) { allinea(); out.append(s); out.append('\0'); }
    QByteArray fine() { allinea(); return out; }
    QByteArray out;

private:
    uint8_t acc_ = 0;
    int n_ = 0;
};

inline int bitPer(int32_t v)
{
    int n = 1;
    while (n < 32 && (v < -(1 << (n - 1)) || v >= (1 << (n - 1))))
        ++n;
    return n;
}

inline void rect(Bit &b, int x0, int x1, int y0, int y1)
{
    int n = std::max({bitPer(x0), bitPer(x1), bitPer(y0), bitPer(y1)});
    b.ub(static_cast<uint32_t>(n), 5);
    b.sb(x0, n); b.sb(x1, n); b.sb(y0, n); b.sb(y1, n);
    b.allinea();
}

// translation only, in twips
inline void matrice(Bit &b, int tx, int ty, double sx = 1, double sy = 1)
{
    b.allinea();
    if (sx != 1 || sy != 1) {
        b.ub(1, 1);
        int32_t a = static_cast<int32_t>(sx * 65536), d = static_cast<int32_t>(sy * 65536);
        int n = std::max(bitPer(a), bitPer(d));
        b.ub(static_cast<uint32_t>(n), 5);
        b.sb(a, n); b.sb(d, n);
    } else {
        b.ub(0, 1);
    }
    b.ub(0, 1);
    int n = std::max(bitPer(tx), bitPer(ty));
    b.ub(static_cast<uint32_t>(n), 5);
    b.sb(tx, n); b.sb(ty, n);
    b.allinea();
}

inline QByteArray zlib(const QByteArray &dati)
{
    uLongf n = compressBound(static_cast<uLong>(dati.size()));
    QByteArray z(static_cast<qsizetype>(n), '\0');
    compress2(reinterpret_cast<Bytef *>(z.data()), &n, reinterpret_cast<const Bytef *>(dati.constData()),
              static_cast<uLong>(dati.size()), 9);
    z.resize(static_cast<qsizetype>(n));
    return z;
}

inline QByteArray tag(int codice, const QByteArray &corpo, bool lungo = false)
{
    Bit b;
    if (corpo.size() < 0x3f && !lungo) {
        b.u16((codice << 6) | static_cast<int>(corpo.size()));
    } else {
        b.u16((codice << 6) | 0x3f);
        b.u32(static_cast<uint32_t>(corpo.size()));
    }
    return b.fine() + corpo;
}

// DefineShape3 with one rectangle (twips), fill style 1 on the inside; the
// caller writes the fill style.
template <typename Stile>
QByteArray rettangoloCon(int id, int x0, int y0, int x1, int y1, Stile stile)
{
    Bit b;
    b.u16(id);
    rect(b, x0, x1, y0, y1);
    b.u8(1);     // one fill style
    stile(b);
    b.u8(0);     // no line styles
    b.ub(1, 4);  // fill bits
    b.ub(0, 4);  // line bits
    // style change: move to (x0,y0), fill1 = 1
    b.ub(0, 1);
    b.ub(0b00101, 5);
    int n = std::max(bitPer(x0), bitPer(y0));
    b.ub(static_cast<uint32_t>(n), 5);
    b.sb(x0, n); b.sb(y0, n);
    b.ub(1, 1);
    auto retta = [&](int dx, int dy) {
        b.ub(1, 1); b.ub(1, 1);
        int nb = std::max({bitPer(dx), bitPer(dy), 2});
        b.ub(static_cast<uint32_t>(nb - 2), 4);
        b.ub(1, 1);  // general line
        b.sb(dx, nb); b.sb(dy, nb);
    };
    retta(x1 - x0, 0);
    retta(0, y1 - y0);
    retta(x0 - x1, 0);
    retta(0, y0 - y1);
    b.ub(0, 6);  // end
    return tag(32, b.fine());
}

// A solid rectangle.
inline QByteArray rettangolo(int id, int x0, int y0, int x1, int y1, uint32_t rgba)
{
    return rettangoloCon(id, x0, y0, x1, y1, [rgba](Bit &b) {
        b.u8(0x00);  // solid
        b.u8(rgba >> 24); b.u8((rgba >> 16) & 0xff); b.u8((rgba >> 8) & 0xff); b.u8(rgba & 0xff);
    });
}

// A rectangle filled with a clipped, unsmoothed bitmap, each bitmap pixel
// `scala` twips wide, from the rectangle's origin.
inline QByteArray rettangoloBitmap(int id, int bitmap, int x0, int y0, int x1, int y1, double scala)
{
    return rettangoloCon(id, x0, y0, x1, y1, [=](Bit &b) {
        b.u8(0x43);
        b.u16(bitmap);
        matrice(b, x0, y0, scala, scala);
    });
}

// DefineBitsLossless2 of 32-bit pixels, given as 0xAARRGGBB (not premultiplied).
inline QByteArray bitmapArgb(int id, int larghezza, int altezza, const std::vector<uint32_t> &pixel)
{
    QByteArray grezzi;
    for (uint32_t v : pixel) {
        const uint32_t a = v >> 24;
        grezzi.append(static_cast<char>(a));
        for (int k = 16; k >= 0; k -= 8)
            grezzi.append(static_cast<char>(((v >> k) & 0xff) * a / 255));
    }
    Bit b;
    b.u16(id);
    b.u8(5);
    b.u16(larghezza);
    b.u16(altezza);
    return tag(36, b.fine() + zlib(grezzi), true);
}

// DefineShape3: a wobbly closed blob of curves, filled and outlined.
inline QByteArray blob(int id, int cx, int cy, int r, int segmenti, uint32_t rgba, int linea = 40)
{
    Bit b;
    b.u16(id);
    rect(b, cx - 2 * r, cx + 2 * r, cy - 2 * r, cy + 2 * r);
    b.u8(1);
    b.u8(0x00);
    b.u8(rgba >> 24); b.u8((rgba >> 16) & 0xff); b.u8((rgba >> 8) & 0xff); b.u8(rgba & 0xff);
    b.u8(1);
    b.u16(linea);
    b.u8(0); b.u8(0); b.u8(0); b.u8(255);
    b.ub(1, 4);
    b.ub(1, 4);
    std::vector<std::pair<int, int>> p;
    for (int i = 0; i <= 2 * segmenti; ++i) {
        double a = 2 * 3.14159265358979 * i / (2 * segmenti);
        double rr = r * (i % 2 ? 1.25 : 1.0) * (1 + 0.15 * std::sin(3 * a));
        p.emplace_back(cx + static_cast<int>(rr * std::cos(a)), cy + static_cast<int>(rr * std::sin(a)));
    }
    p.back() = p.front();
    b.ub(0, 1);
    b.ub(0b01101, 5);
    int n = std::max(bitPer(p[0].first), bitPer(p[0].second));
    b.ub(static_cast<uint32_t>(n), 5);
    b.sb(p[0].first, n); b.sb(p[0].second, n);
    b.ub(1, 1);  // fill1
    b.ub(1, 1);  // line
    for (size_t i = 1; i + 1 < p.size(); i += 2) {
        int c1 = p[i].first - p[i - 1].first, c2 = p[i].second - p[i - 1].second;
        int a1 = p[i + 1].first - p[i].first, a2 = p[i + 1].second - p[i].second;
        int nb = std::max({bitPer(c1), bitPer(c2), bitPer(a1), bitPer(a2), 2});
        b.ub(1, 1); b.ub(0, 1);
        b.ub(static_cast<uint32_t>(nb - 2), 4);
        b.sb(c1, nb); b.sb(c2, nb); b.sb(a1, nb); b.sb(a2, nb);
    }
    b.ub(0, 6);
    return tag(32, b.fine());
}

inline QByteArray piazza(int profondita, int carattere, int tx = 0, int ty = 0, int clip = 0, const QByteArray &nome = {})
{
    Bit b;
    int flags = 0x04 | (carattere ? 0x02 : 0x01) | (clip ? 0x40 : 0) | (nome.isEmpty() ? 0 : 0x20);
    b.u8(flags);
    b.u16(profondita);
    if (carattere)
        b.u16(carattere);
    matrice(b, tx, ty);
    if (!nome.isEmpty())
        b.stringa(nome);
    if (clip)
        b.u16(clip);
    return tag(26, b.fine());
}

// Filters of a PlaceObject3, each written as the format lays it out.
inline void coloreFiltro(Bit &b, uint32_t rgba)
{
    b.u8(rgba >> 24); b.u8((rgba >> 16) & 0xff); b.u8((rgba >> 8) & 0xff); b.u8(rgba & 0xff);
}
inline void fisso16(Bit &b, double v) { b.u32(static_cast<uint32_t>(static_cast<int32_t>(std::lround(v * 65536)))); }
inline void fisso8(Bit &b, double v) { b.u16(static_cast<int>(std::lround(v * 256)) & 0xffff); }

inline QByteArray filtroSfocatura(double bx, double by, int passi)
{
    Bit b;
    b.u8(1);
    fisso16(b, bx); fisso16(b, by);
    b.u8(passi << 3);
    return b.fine();
}
// drop shadow (angle in radians, distance in pixels); composito false hides the object
inline QByteArray filtroOmbra(uint32_t rgba, double bx, double by, double angolo, double distanza, double forza,
                              bool interno, bool knockout, bool composito, int passi)
{
    Bit b;
    b.u8(0);
    coloreFiltro(b, rgba);
    fisso16(b, bx); fisso16(b, by); fisso16(b, angolo); fisso16(b, distanza);
    fisso8(b, forza);
    b.u8((interno ? 0x80 : 0) | (knockout ? 0x40 : 0) | (composito ? 0x20 : 0) | (passi & 0x1f));
    return b.fine();
}
inline QByteArray filtroAlone(uint32_t rgba, double bx, double by, double forza, bool interno, bool knockout, bool composito, int passi)
{
    Bit b;
    b.u8(2);
    coloreFiltro(b, rgba);
    fisso16(b, bx); fisso16(b, by);
    fisso8(b, forza);
    b.u8((interno ? 0x80 : 0) | (knockout ? 0x40 : 0) | (composito ? 0x20 : 0) | (passi & 0x1f));
    return b.fine();
}
// gradient glow (4) or gradient bevel (7): stops of ratio and colour
inline QByteArray filtroGradiente(int tipo, const std::vector<std::pair<int, uint32_t>> &stop, double bx, double by, double angolo,
                                  double distanza, double forza, bool interno, bool knockout, bool sopra, int passi)
{
    Bit b;
    b.u8(tipo);
    b.u8(static_cast<int>(stop.size()));
    for (auto &[r, c] : stop)
        coloreFiltro(b, c);
    for (auto &[r, c] : stop)
        b.u8(r);
    fisso16(b, bx); fisso16(b, by); fisso16(b, angolo); fisso16(b, distanza);
    fisso8(b, forza);
    b.u8((interno ? 0x80 : 0) | (knockout ? 0x40 : 0) | 0x20 | (sopra ? 0x10 : 0) | (passi & 0x0f));
    return b.fine();
}
// PlaceObject3 of a character with a list of filters
inline QByteArray piazzaFiltrata(int profondita, int carattere, int tx, int ty, const std::vector<QByteArray> &filtri)
{
    Bit b;
    b.u8(0x04 | 0x02);
    b.u8(0x01);
    b.u16(profondita);
    b.u16(carattere);
    matrice(b, tx, ty);
    b.u8(static_cast<int>(filtri.size()));
    QByteArray out = b.fine();
    for (const QByteArray &f : filtri)
        out += f;
    return tag(70, out);
}

inline QByteArray mostra() { return tag(1, {}); }
inline QByteArray sfondo(int r, int g, int bl)
{
    QByteArray c;
    c.append(static_cast<char>(r)); c.append(static_cast<char>(g)); c.append(static_cast<char>(bl));
    return tag(9, c);
}
inline QByteArray azione(const QByteArray &codice) { return tag(12, codice + QByteArray(1, '\0')); }
inline QByteArray etichetta(const QByteArray &nome) { Bit b; b.stringa(nome); return tag(43, b.fine()); }
inline QByteArray sprite(int id, int fotogrammi, const QByteArray &tags)
{
    Bit b;
    b.u16(id);
    b.u16(fotogrammi);
    return tag(39, b.fine() + tags + tag(0, {}));
}

// Whole uncompressed file.
inline QByteArray film(const QByteArray &tags, int fotogrammi, int larghezza = 100, int altezza = 100, int versione = 10,
                       double fps = 24)
{
    Bit corpo;
    rect(corpo, 0, larghezza * 20, 0, altezza * 20);
    corpo.u16(static_cast<int>(fps * 256));
    corpo.u16(fotogrammi);
    QByteArray c = corpo.fine() + tags + tag(0, {});
    Bit h;
    h.u8('F'); h.u8('W'); h.u8('S'); h.u8(versione);
    h.u32(static_cast<uint32_t>(c.size() + 8));
    return h.fine() + c;
}

inline QByteArray comprimiCws(const QByteArray &fws)
{
    QByteArray out = fws.left(8);
    out[0] = 'C';
    return out + zlib(fws.mid(8));
}

// A compressed film whose body unpacks to `byte` zeros (a hostile file: one
// megabyte on disk, a gigabyte once unpacked). The deflate stream is a block
// of zeros repeated, written in a moment, with the right checksum at its end.
inline QByteArray cwsGonfiato(qint64 byte)
{
    constexpr qint64 kPezzo = 1 << 20;
    const QByteArray zeri(kPezzo, '\0');
    z_stream zs{};
    deflateInit(&zs, 9);
    auto comprimi = [&](const QByteArray &dentro, int modo) {
        QByteArray fuori(static_cast<qsizetype>(deflateBound(&zs, static_cast<uLong>(dentro.size())) + 64), '\0');
        zs.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(dentro.constData()));
        zs.avail_in = static_cast<uInt>(dentro.size());
        zs.next_out = reinterpret_cast<Bytef *>(fuori.data());
        zs.avail_out = static_cast<uInt>(fuori.size());
        deflate(&zs, modo);
        fuori.resize(fuori.size() - static_cast<qsizetype>(zs.avail_out));
        return fuori;
    };
    // the first piece carries the stream's header; every later one only
    // refers back to zeros, so it can stand after any piece
    QByteArray corpo = comprimi(zeri, Z_SYNC_FLUSH);
    const QByteArray ripetuto = comprimi(zeri, Z_SYNC_FLUSH);
    const qint64 pezzi = std::max<qint64>(2, byte / kPezzo);
    corpo.reserve(static_cast<qsizetype>(corpo.size() + ripetuto.size() * (pezzi - 2) + 16));
    for (qint64 i = 2; i < pezzi; ++i)
        corpo += ripetuto;
    QByteArray coda = comprimi(QByteArray(), Z_FINISH);
    deflateEnd(&zs);
    uLong adler = adler32(0, nullptr, 0);
    const uLong adlerPezzo = adler32(adler, reinterpret_cast<const Bytef *>(zeri.constData()), static_cast<uInt>(kPezzo));
    for (qint64 i = 0; i < pezzi; ++i)
        adler = adler32_combine(adler, adlerPezzo, kPezzo);
    for (int k = 0; k < 4; ++k)
        coda[coda.size() - 4 + k] = static_cast<char>((adler >> (24 - 8 * k)) & 0xff);
    Bit h;
    h.u8('C'); h.u8('W'); h.u8('S'); h.u8(10);
    h.u32(static_cast<uint32_t>(std::min<qint64>(pezzi * kPezzo + 8, 0xffffffffLL)));
    return h.fine() + corpo + coda;
}

inline QByteArray comprimiZws(const QByteArray &fws)
{
    lzma_options_lzma opt;
    lzma_lzma_preset(&opt, 6);
    lzma_stream s = LZMA_STREAM_INIT;
    if (lzma_alone_encoder(&s, &opt) != LZMA_OK)
        return {};
    QByteArray out(fws.size() * 2 + 1024, '\0');
    s.next_in = reinterpret_cast<const uint8_t *>(fws.constData() + 8);
    s.avail_in = static_cast<size_t>(fws.size() - 8);
    s.next_out = reinterpret_cast<uint8_t *>(out.data());
    s.avail_out = static_cast<size_t>(out.size());
    while (lzma_code(&s, LZMA_FINISH) == LZMA_OK) {
    }
    out.resize(static_cast<qsizetype>(s.total_out));
    lzma_end(&s);
    // .lzma: 5 bytes properties, 8 bytes size, data -> ZWS: compressed length, properties, data
    QByteArray dati = out.mid(13);
    Bit h;
    h.u8('Z'); h.u8('W'); h.u8('S'); h.u8(13);
    h.u32(static_cast<uint32_t>(fws.size()));
    h.u32(static_cast<uint32_t>(dati.size()));
    return h.fine() + out.left(5) + dati;
}

// Sounds. Samples are interleaved 16-bit, left first.

// The rate field of a sound: 0 5.5 kHz, 1 11 kHz, 2 22 kHz, 3 44 kHz.
inline int codiceFrequenza(int hz) { return hz <= 5512 ? 0 : hz <= 11025 ? 1 : hz <= 22050 ? 2 : 3; }

inline QByteArray pcm16(const std::vector<int16_t> &c, bool bigEndian = false)
{
    QByteArray o;
    for (int16_t v : c) {
        const auto u = static_cast<uint16_t>(v);
        o.append(static_cast<char>(bigEndian ? u >> 8 : u & 0xff));
        o.append(static_cast<char>(bigEndian ? u & 0xff : u >> 8));
    }
    return o;
}

inline QByteArray pcm8(const std::vector<int16_t> &c)
{
    QByteArray o;
    for (int16_t v : c)
        o.append(static_cast<char>((v >> 8) + 128));
    return o;
}

// The films' ADPCM, 2 to 5 bits a code: packets of 4096 samples a channel,
// each opening with the sample and the step index. The encoder runs the
// decoder's own step, so both stay in the same state.
inline QByteArray adpcm(const std::vector<int16_t> &c, int canali, int bit)
{
    static const int passi[89] = {
        7, 8, 9, 10, 11, 12, 13, 14, 16, 17, 19, 21, 23, 25, 28, 31, 34, 37, 41, 45, 50, 55, 60, 66, 73, 80,
        88, 97, 107, 118, 130, 143, 157, 173, 190, 209, 230, 253, 279, 307, 337, 371, 408, 449, 494, 544, 598,
        658, 724, 796, 876, 963, 1060, 1166, 1282, 1411, 1552, 1707, 1878, 2066, 2272, 2499, 2749, 3024, 3327,
        3660, 4026, 4428, 4871, 5358, 5894, 6484, 7132, 7845, 8630, 9493, 10442, 11487, 12635, 13899, 15289,
        16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};
    static const int i2[] = {-1, 2}, i3[] = {-1, -1, 2, 4}, i4[] = {-1, -1, -1, -1, 2, 4, 6, 8},
                     i5[] = {-1, -1, -1, -1, -1, -1, -1, -1, 1, 2, 4, 6, 8, 10, 13, 16};
    const int *indici = bit == 2 ? i2 : bit == 3 ? i3 : bit == 4 ? i4 : i5;
    const uint32_t segno = 1u << (bit - 1);
    Bit b;
    b.ub(static_cast<uint32_t>(bit - 2), 2);
    const size_t n = c.size() / static_cast<size_t>(canali);
    int valore[2] = {0, 0}, indice[2] = {0, 0};
    for (size_t i = 0; i < n; ++i) {
        for (int k = 0; k < canali; ++k) {
            const int s = c[i * static_cast<size_t>(canali) + static_cast<size_t>(k)];
            if (i % 4096 == 0) {
                valore[k] = s;
                // a step index that suits the next samples; the field holds 6 bits
                const int dopo = i + 1 < n ? c[(i + 1) * static_cast<size_t>(canali) + static_cast<size_t>(k)] : s;
                indice[k] = 0;
                while (indice[k] < 63 && passi[indice[k]] < std::abs(dopo - s))
                    ++indice[k];
                b.sb(s, 16);
                b.ub(static_cast<uint32_t>(indice[k]), 6);
                continue;
            }
            int passo = passi[indice[k]];
            const int diff = s - valore[k];
            int resto = std::abs(diff);
            uint32_t codice = diff < 0 ? segno : 0;
            int delta = 0;
            for (uint32_t m = segno >> 1; m; m >>= 1) {
                if (resto >= passo) {
                    codice |= m;
                    resto -= passo;
                    delta += passo;
                }
                passo >>= 1;
            }
            delta += passo;
            valore[k] = std::clamp(diff < 0 ? valore[k] - delta : valore[k] + delta, -32768, 32767);
            indice[k] = std::clamp(indice[k] + indici[codice & (segno - 1)], 0, 88);
            b.ub(codice, bit);
        }
    }
    return b.fine();
}

// DefineSound. formato: 0 native PCM, 1 ADPCM, 2 MP3, 3 little-endian PCM.
inline QByteArray defineSound(int id, int formato, int hz, bool sedicibit, bool stereo, uint32_t campioni, const QByteArray &dati)
{
    Bit b;
    b.u16(id);
    b.ub(static_cast<uint32_t>(formato), 4);
    b.ub(static_cast<uint32_t>(codiceFrequenza(hz)), 2);
    b.ub(sedicibit ? 1 : 0, 1);
    b.ub(stereo ? 1 : 0, 1);
    b.u32(campioni);
    return tag(14, b.fine() + dati, true);
}

struct InfoAvvio {
    bool ferma = false, nonMultiplo = false;
    int inizio = -1, fine = -1;  // samples at 44.1 kHz; -1 none
    int ripetizioni = -1;
    std::vector<std::array<uint32_t, 3>> inviluppo;  // position at 44.1 kHz, left, right (0..32768)
};

inline QByteArray infoSuono(const InfoAvvio &i)
{
    Bit b;
    b.ub(0, 2);
    b.ub(i.ferma, 1);
    b.ub(i.nonMultiplo, 1);
    b.ub(!i.inviluppo.empty(), 1);
    b.ub(i.ripetizioni >= 0, 1);
    b.ub(i.fine >= 0, 1);
    b.ub(i.inizio >= 0, 1);
    if (i.inizio >= 0)
        b.u32(static_cast<uint32_t>(i.inizio));
    if (i.fine >= 0)
        b.u32(static_cast<uint32_t>(i.fine));
    if (i.ripetizioni >= 0)
        b.u16(i.ripetizioni);
    if (!i.inviluppo.empty()) {
        b.u8(static_cast<int>(i.inviluppo.size()));
        for (const auto &p : i.inviluppo) {
            b.u32(p[0]);
            b.u16(static_cast<int>(p[1]));
            b.u16(static_cast<int>(p[2]));
        }
    }
    return b.fine();
}

inline QByteArray startSound(int id, const InfoAvvio &i = {})
{
    Bit b;
    b.u16(id);
    return tag(15, b.fine() + infoSuono(i));
}

inline QByteArray startSound2(const QByteArray &classe, const InfoAvvio &i = {})
{
    Bit b;
    b.stringa(classe);
    return tag(89, b.fine() + infoSuono(i));
}

// ExportAssets: names for characters.
inline QByteArray esporta(int id, const QByteArray &nome)
{
    Bit b;
    b.u16(1);
    b.u16(id);
    b.stringa(nome);
    return tag(56, b.fine());
}

// SoundStreamHead2; latenza only for MP3.
inline QByteArray testaFlusso(int formato, int hz, bool stereo, int campioniPerFotogramma, int latenza = 0, bool sedicibit = true)
{
    Bit b;
    b.ub(0, 4);
    b.ub(static_cast<uint32_t>(codiceFrequenza(hz)), 2);
    b.ub(1, 1);
    b.ub(stereo ? 1 : 0, 1);
    b.ub(static_cast<uint32_t>(formato), 4);
    b.ub(static_cast<uint32_t>(codiceFrequenza(hz)), 2);
    b.ub(sedicibit ? 1 : 0, 1);
    b.ub(stereo ? 1 : 0, 1);
    b.u16(campioniPerFotogramma);
    if (formato == 2)
        b.u16(latenza & 0xffff);
    return tag(45, b.fine());
}

inline QByteArray bloccoFlusso(const QByteArray &dati) { return tag(19, dati, true); }

// The first sample of frame k (0-based) of a soundtrack.
inline int64_t inizioFotogramma(int k, int hz, double fps) { return static_cast<int64_t>(std::floor(k * hz / fps)); }

// The blocks of a soundtrack in PCM (formato 3 or 0) or ADPCM (1), one a
// frame, each with that frame's own samples; an empty one when none are left.
inline std::vector<QByteArray> blocchiFlusso(int formato, const std::vector<int16_t> &c, int canali, int hz, double fps,
                                             int fotogrammi, int bitAdpcm = 4, bool bigEndian = false, bool ottoBit = false)
{
    std::vector<QByteArray> o;
    const int64_t n = static_cast<int64_t>(c.size()) / canali;
    for (int k = 0; k < fotogrammi; ++k) {
        const int64_t a = std::min(n, inizioFotogramma(k, hz, fps)), b = std::min(n, inizioFotogramma(k + 1, hz, fps));
        if (b <= a) {
            o.emplace_back();
            continue;
        }
        const std::vector<int16_t> pezzo(c.begin() + a * canali, c.begin() + b * canali);
        o.push_back(bloccoFlusso(formato == 1 ? adpcm(pezzo, canali, bitAdpcm) : ottoBit ? pcm8(pezzo) : pcm16(pezzo, bigEndian)));
    }
    return o;
}

// The head, then each frame's block and the frame shown.
inline QByteArray fotogrammiConFlusso(int formato, const std::vector<int16_t> &c, int canali, int hz, double fps,
                                      int fotogrammi, int bitAdpcm = 4, bool bigEndian = false, bool ottoBit = false)
{
    QByteArray o = testaFlusso(formato, hz, canali == 2, static_cast<int>(std::lround(hz / fps)), 0, !ottoBit);
    for (const QByteArray &b : blocchiFlusso(formato, c, canali, hz, fps, fotogrammi, bitAdpcm, bigEndian, ottoBit))
        o += b + mostra();
    return o;
}

// Buttons. A part names the states it shows in: 1 up, 2 over, 4 down, 8 hit.
struct ParteProva {
    int stati = 0, carattere = 0, profondita = 1, tx = 0, ty = 0;
    double moltiplicaAlfa = 1;  // DefineButton2 only: the part's own colour transform
};

inline void partiBottone(Bit &b, const std::vector<ParteProva> &parti, bool seconda)
{
    for (const ParteProva &p : parti) {
        b.u8(p.stati);
        b.u16(p.carattere);
        b.u16(p.profondita);
        matrice(b, p.tx, p.ty);
        if (seconda) {
            // a colour transform with alpha: multiply terms only
            const int a = static_cast<int>(std::lround(p.moltiplicaAlfa * 256));
            const int n = std::max(bitPer(a), bitPer(256));
            b.ub(0, 1);
            b.ub(1, 1);
            b.ub(static_cast<uint32_t>(n), 4);
            b.sb(256, n); b.sb(256, n); b.sb(256, n); b.sb(a, n);
            b.allinea();
        }
    }
    b.u8(0);
}

// DefineButton: its actions run on release over it.
inline QByteArray bottone1(int id, const std::vector<ParteProva> &parti, const QByteArray &azioni)
{
    Bit b;
    b.u16(id);
    partiBottone(b, parti, false);
    return tag(7, b.fine() + azioni + QByteArray(1, '\0'), true);
}

// DefineButton2 with actions for conditions (bits of the condition word:
// 0x001 idle to over, 0x002 over to idle, 0x004 over to down, 0x008 down to over).
inline QByteArray bottone2(int id, const std::vector<ParteProva> &parti,
                           const std::vector<std::pair<int, QByteArray>> &azioni, bool menu = false)
{
    Bit testa;
    testa.u16(id);
    testa.u8(menu ? 1 : 0);
    Bit p;
    partiBottone(p, parti, true);
    const QByteArray corpoParti = p.fine();
    testa.u16(azioni.empty() ? 0 : static_cast<int>(2 + corpoParti.size()));
    QByteArray condizioni;
    for (size_t i = 0; i < azioni.size(); ++i) {
        const QByteArray codice = azioni[i].second + QByteArray(1, '\0');
        Bit c;
        c.u16(i + 1 == azioni.size() ? 0 : static_cast<int>(4 + codice.size()));
        c.u16(azioni[i].first);
        condizioni += c.fine() + codice;
    }
    return tag(34, testa.fine() + corpoParti + condizioni, true);
}

// DefineButtonCxform: multiply and add terms for red, green and blue.
inline QByteArray coloreBottone(int id, double mr, double mg, double mb, int ar = 0, int ag = 0, int ab = 0)
{
    Bit b;
    b.u16(id);
    const int m[3] = {static_cast<int>(std::lround(mr * 256)), static_cast<int>(std::lround(mg * 256)),
                      static_cast<int>(std::lround(mb * 256))};
    const int n = std::max({bitPer(m[0]), bitPer(m[1]), bitPer(m[2]), bitPer(ar), bitPer(ag), bitPer(ab)});
    b.ub(1, 1);
    b.ub(1, 1);
    b.ub(static_cast<uint32_t>(n), 4);
    b.sb(m[0], n); b.sb(m[1], n); b.sb(m[2], n);
    b.sb(ar, n); b.sb(ag, n); b.sb(ab, n);
    return tag(23, b.fine());
}

// DefineButtonSound: sounds for over to idle, idle to over, over to down, down to over (0: none).
inline QByteArray suoniBottone(int id, const std::array<int, 4> &suoni)
{
    Bit b;
    b.u16(id);
    QByteArray out = b.fine();
    for (int s : suoni) {
        Bit k;
        k.u16(s);
        out += k.fine();
        if (s)
            out += infoSuono({});
    }
    return tag(17, out);
}

// PlaceObject2 of a named clip with onClipEvent handlers (event bits: 0x01
// load, 0x02 enterFrame), flags of 32 bits as films from SWF 6 on write them.
inline QByteArray piazzaConEventi(int profondita, int carattere, int tx, int ty, const QByteArray &nome,
                                  const std::vector<std::pair<uint32_t, QByteArray>> &gestori)
{
    Bit b;
    b.u8(0x80 | 0x20 | 0x04 | 0x02);
    b.u16(profondita);
    b.u16(carattere);
    matrice(b, tx, ty);
    b.stringa(nome);
    b.u16(0);
    uint32_t tutti = 0;
    for (auto &[e, c] : gestori)
        tutti |= e;
    b.u32(tutti);
    for (auto &[e, c] : gestori) {
        const QByteArray codice = c + QByteArray(1, '\0');
        b.u32(e);
        b.u32(static_cast<uint32_t>(codice.size()));
        b.out += codice;
    }
    b.u32(0);
    return tag(26, b.fine(), true);
}

// DoInitAction for a clip.
inline QByteArray azioneIniziale(int sprite, const QByteArray &codice)
{
    Bit b;
    b.u16(sprite);
    return tag(59, b.fine() + codice + QByteArray(1, '\0'), true);
}

// Fonts and text. A device font: its glyphs have no outlines, only characters.
inline QByteArray fontDispositivo(int id, const QByteArray &nome, const QString &caratteri, bool grassetto = false)
{
    Bit b;
    b.u16(id);
    b.u8(0x04 | (grassetto ? 0x01 : 0));  // wide codes
    b.u8(0);
    b.u8(static_cast<int>(nome.size()));
    b.out += nome;
    const int n = static_cast<int>(caratteri.size());
    b.u16(n);
    // offsets from the start of the offset table: each glyph is an empty shape of 2 bytes
    const int tabella = 2 * n + 2;
    for (int i = 0; i < n; ++i)
        b.u16(tabella + 2 * i);
    b.u16(tabella + 2 * n);
    for (int i = 0; i < n; ++i) {
        b.u8(0x10);
        b.u8(0x00);
    }
    for (QChar c : caratteri)
        b.u16(c.unicode());
    return tag(48, b.fine(), true);
}

// A font whose every glyph is a square from (100, -700) to (700, 0) on a 1024
// em, with a layout: ascent 800, descent 200, advance 800.
inline QByteArray fontQuadrati(int id, const QByteArray &nome, const QString &caratteri)
{
    Bit g;
    g.ub(1, 4);
    g.ub(0, 4);
    g.ub(0, 1);
    g.ub(0b00101, 5);
    const int n5 = std::max(bitPer(100), bitPer(-700));
    g.ub(static_cast<uint32_t>(n5), 5);
    g.sb(100, n5); g.sb(-700, n5);
    g.ub(1, 1);
    auto retta = [&](int dx, int dy) {
        g.ub(1, 1); g.ub(1, 1);
        int nb = std::max({bitPer(dx), bitPer(dy), 2});
        g.ub(static_cast<uint32_t>(nb - 2), 4);
        g.ub(1, 1);
        g.sb(dx, nb); g.sb(dy, nb);
    };
    retta(600, 0);
    retta(0, 700);
    retta(-600, 0);
    retta(0, -700);
    g.ub(0, 6);
    const QByteArray glifo = g.fine();
    Bit b;
    b.u16(id);
    b.u8(0x80 | 0x04);  // layout, wide codes
    b.u8(0);
    b.u8(static_cast<int>(nome.size()));
    b.out += nome;
    const int n = static_cast<int>(caratteri.size());
    b.u16(n);
    const int tabella = 2 * n + 2;
    for (int i = 0; i < n; ++i)
        b.u16(tabella + static_cast<int>(glifo.size()) * i);
    b.u16(tabella + static_cast<int>(glifo.size()) * n);
    for (int i = 0; i < n; ++i)
        b.out += glifo;
    for (QChar c : caratteri)
        b.u16(c.unicode());
    b.u16(800);
    b.u16(200);
    b.u16(0);
    for (int i = 0; i < n; ++i)
        b.u16(800);
    for (int i = 0; i < n; ++i)
        rect(b, 100, 700, -700, 0);
    b.u16(0);
    return tag(48, b.fine(), true);
}

// DefineText2: one record of glyph indices in a font, each `avanzo` twips on.
inline QByteArray testoStatico(int id, int font, int altezza, uint32_t rgba, int x, int y, const std::vector<int> &glifi, int avanzo)
{
    Bit b;
    b.u16(id);
    rect(b, 0, 4000, 0, 4000);
    matrice(b, 0, 0);
    const int bitG = 8, bitA = std::max(bitPer(avanzo), 2);
    b.u8(bitG);
    b.u8(bitA);
    b.u8(0x80 | 0x08 | 0x04 | 0x02 | 0x01);
    b.u16(font);
    coloreFiltro(b, rgba);
    b.u16(x & 0xffff);
    b.u16(y & 0xffff);
    b.u16(altezza);
    b.u8(static_cast<int>(glifi.size()));
    for (int gl : glifi) {
        b.ub(static_cast<uint32_t>(gl), bitG);
        b.sb(avanzo, bitA);
    }
    b.allinea();
    b.u8(0);
    return tag(33, b.fine(), true);
}

struct OpzioniCampo {
    bool html = false, contorni = false, aCapo = false;
    int allinea = 0;
    int leading = 0;
};

// DefineEditText over (0, 0)-(larghezza, altezza) twips.
inline QByteArray campoTesto(int id, int larghezza, int altezza, int font, int altezzaFont, uint32_t rgba, const QByteArray &testo,
                             const OpzioniCampo &o = {})
{
    Bit b;
    b.u16(id);
    rect(b, 0, larghezza, 0, altezza);
    b.u8(0x80 | (o.aCapo ? 0x40 | 0x20 : 0) | 0x08 | 0x04 | 0x01);
    b.u8(0x20 | (o.html ? 0x02 : 0) | (o.contorni ? 0x01 : 0));
    b.u16(font);
    b.u16(altezzaFont);
    coloreFiltro(b, rgba);
    b.u8(o.allinea);
    b.u16(0);
    b.u16(0);
    b.u16(0);
    b.u16(o.leading & 0xffff);
    b.stringa("");
    b.stringa(testo);
    return tag(37, b.fine(), true);
}

// AVM1 by hand: each helper gives the bytes of one action.
namespace as {
inline QByteArray op(int codice) { return QByteArray(1, static_cast<char>(codice)); }
inline QByteArray record(int codice, const QByteArray &dati)
{
    Bit b;
    b.u8(codice);
    b.u16(static_cast<int>(dati.size()));
    return b.fine() + dati;
}
inline QByteArray stringa(const QByteArray &s) { Bit b; b.u8(0); b.stringa(s); return record(0x96, b.fine()); }
inline QByteArray intero(int v) { Bit b; b.u8(7); b.u32(static_cast<uint32_t>(v)); return record(0x96, b.fine()); }
inline QByteArray booleano(bool v) { Bit b; b.u8(5); b.u8(v ? 1 : 0); return record(0x96, b.fine()); }
inline QByteArray registro(int i) { Bit b; b.u8(4); b.u8(i); return record(0x96, b.fine()); }
inline QByteArray indefinito() { Bit b; b.u8(3); return record(0x96, b.fine()); }
inline QByteArray costante(int i) { Bit b; b.u8(8); b.u8(i); return record(0x96, b.fine()); }
inline QByteArray costanti(const std::vector<QByteArray> &v)
{
    Bit b;
    b.u16(static_cast<int>(v.size()));
    for (const QByteArray &s : v)
        b.stringa(s);
    return record(0x88, b.fine());
}
// Jump and If: the offset counts from the end of the record
inline QByteArray salta(int offset) { Bit b; b.u16(offset & 0xffff); return record(0x99, b.fine()); }
inline QByteArray seVero(int offset) { Bit b; b.u16(offset & 0xffff); return record(0x9D, b.fine()); }
inline QByteArray vaiA(int fotogramma0) { Bit b; b.u16(fotogramma0); return record(0x81, b.fine()); }
inline QByteArray ferma() { return op(0x07); }
inline QByteArray imposta(const QByteArray &nome, const QByteArray &valore) { return stringa(nome) + valore + op(0x1D); }
inline QByteArray leggi(const QByteArray &nome) { return stringa(nome) + op(0x1C); }
// gotoAndStop(frame) on the current timeline, frame 1-based from the stack
inline QByteArray vaiAPila() { Bit b; b.u8(0); return record(0x9F, b.fine()); }
} // namespace as

} // namespace swftest
