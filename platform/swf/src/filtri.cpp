// Filters on the device-size layer of one object. Blurs are box blurs run as
// many times as the filter's quality asks; shadows, glows and bevels are made
// from the layer's alpha, blurred and moved, and put under, over or in place
// of the object as their flags say.

#include "filtri.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace swf {

namespace {

// The highest quality the format can say is 31; past 15 a blur no longer changes.
constexpr int kMaxPassaggi = 15;

int passiDi(const Filtro &f) { return std::clamp(f.passaggi, 0, kMaxPassaggi); }

// A box of width b stage pixels; two device pixels wide or less leaves the picture as it was.
int raggio(double b, double scala)
{
    const double w = b * scala;
    if (!(w >= 2))
        return 0;
    return static_cast<int>(std::min((w - 1) / 2, 4096.0));
}

bool paga(int64_t *lavoro, int64_t costo)
{
    if (!lavoro)
        return true;
    if (*lavoro <= 0)
        return false;
    *lavoro -= costo;
    return true;
}

int64_t costoPassaggi(const QImage &img, int passi) { return 1 + static_cast<int64_t>(img.width()) * img.height() / 16 * passi; }

// One channel of the layer: its alpha, or the inverse of it.
struct Mappa {
    int w = 0, h = 0;
    std::vector<uint8_t> v;
    uint8_t fuori = 0;  // what lies outside the layer
    uint8_t a(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= w || y >= h)
            return fuori;
        return v[static_cast<size_t>(y) * static_cast<size_t>(w) + static_cast<size_t>(x)];
    }
};

Mappa alfaDi(const QImage &img, bool inversa)
{
    Mappa m;
    m.w = img.width();
    m.h = img.height();
    m.fuori = inversa ? 255 : 0;
    m.v.resize(static_cast<size_t>(m.w) * static_cast<size_t>(m.h));
    for (int y = 0; y < m.h; ++y) {
        const auto *s = reinterpret_cast<const uint32_t *>(img.constScanLine(y));
        uint8_t *d = m.v.data() + static_cast<size_t>(y) * static_cast<size_t>(m.w);
        for (int x = 0; x < m.w; ++x) {
            const auto al = static_cast<uint8_t>(s[x] >> 24);
            d[x] = inversa ? static_cast<uint8_t>(255 - al) : al;
        }
    }
    return m;
}

// Box blur of one line of n values, window 2r+1, outside values count as fuori.
void sfocaLinea(uint8_t *dati, ptrdiff_t passo, int n, int r, uint8_t fuori, std::vector<uint8_t> &riga)
{
    for (int k = 0; k < n; ++k)
        riga[static_cast<size_t>(k)] = dati[k * passo];
    const uint32_t finestra = static_cast<uint32_t>(2 * r + 1);
    auto val = [&](int k) -> uint32_t { return k < 0 || k >= n ? fuori : riga[static_cast<size_t>(k)]; };
    uint32_t s = 0;
    for (int k = -r; k < r; ++k)
        s += val(k);
    for (int k = 0; k < n; ++k) {
        s += val(k + r);
        dati[k * passo] = static_cast<uint8_t>(std::min<uint32_t>(255, s / finestra));
        s -= val(k - r);
    }
}

void sfocaMappa(Mappa &m, int rx, int ry, int passi)
{
    std::vector<uint8_t> riga(static_cast<size_t>(std::max(m.w, m.h)));
    for (int p = 0; p < passi; ++p) {
        if (rx > 0)
            for (int y = 0; y < m.h; ++y)
                sfocaLinea(m.v.data() + static_cast<size_t>(y) * static_cast<size_t>(m.w), 1, m.w, rx, m.fuori, riga);
        if (ry > 0)
            for (int x = 0; x < m.w; ++x)
                sfocaLinea(m.v.data() + x, m.w, m.h, ry, m.fuori, riga);
    }
}

// The blur filter itself: every channel of the premultiplied layer.
void sfocaImmagine(QImage &img, int rx, int ry, int passi)
{
    const int w = img.width(), h = img.height();
    std::vector<uint32_t> riga(static_cast<size_t>(std::max(w, h)));
    auto passa = [&](int r, bool orizzontale) {
        if (r <= 0)
            return;
        const int n = orizzontale ? w : h, linee = orizzontale ? h : w;
        const uint32_t finestra = static_cast<uint32_t>(2 * r + 1);
        for (int l = 0; l < linee; ++l) {
            auto px = [&](int k) -> uint32_t & {
                return orizzontale ? reinterpret_cast<uint32_t *>(img.scanLine(l))[k]
                                   : reinterpret_cast<uint32_t *>(img.scanLine(k))[l];
            };
            for (int k = 0; k < n; ++k)
                riga[static_cast<size_t>(k)] = px(k);
            uint32_t s[4] = {0, 0, 0, 0};
            auto agg = [&](int k, int segno) {
                if (k < 0 || k >= n)
                    return;
                const uint32_t v = riga[static_cast<size_t>(k)];
                for (int ch = 0; ch < 4; ++ch)
                    s[ch] += static_cast<uint32_t>(segno * static_cast<int>((v >> (8 * ch)) & 0xff));
            };
            for (int k = -r; k < r; ++k)
                agg(k, 1);
            for (int k = 0; k < n; ++k) {
                agg(k + r, 1);
                uint32_t v = 0;
                for (int ch = 0; ch < 4; ++ch)
                    v |= std::min<uint32_t>(255, s[ch] / finestra) << (8 * ch);
                px(k) = v;
                agg(k - r, -1);
            }
        }
    };
    for (int i = 0; i < passi; ++i) {
        passa(rx, true);
        passa(ry, false);
    }
}

// The 256 colours of a gradient filter, premultiplied, from its stops.
std::array<uint32_t, 256> tabella(const Filtro &f)
{
    std::array<uint32_t, 256> t{};
    const auto &g = f.gradiente;
    if (g.empty())
        return t;
    for (int k = 0; k < 256; ++k) {
        size_t i = 0;
        while (i + 1 < g.size() && g[i + 1].first <= k)
            ++i;
        Rgba c = g[i].second;
        if (k > g[i].first && i + 1 < g.size() && g[i + 1].first > g[i].first) {
            const double u = static_cast<double>(k - g[i].first) / (g[i + 1].first - g[i].first);
            const Rgba &d = g[i + 1].second;
            auto mix = [u](int a, int b) { return static_cast<uint8_t>(std::lround(a + (b - a) * u)); };
            c = Rgba{mix(c.r, d.r), mix(c.g, d.g), mix(c.b, d.b), mix(c.a, d.a)};
        } else if (k < g.front().first) {
            c = g.front().second;
        }
        const uint32_t a = c.a;
        t[static_cast<size_t>(k)] = (a << 24) | ((c.r * a / 255) << 16) | ((c.g * a / 255) << 8) | (c.b * a / 255);
    }
    return t;
}

// Puts the effect under, over or in place of the object.
void componiEffetto(QImage &strato, const QImage &effetto, bool interno, bool knockout, bool nascondi, bool sopra)
{
    QImage out(strato.size(), QImage::Format_ARGB32_Premultiplied);
    out.fill(0);
    QPainter q(&out);
    if (knockout) {
        q.drawImage(0, 0, effetto);
        if (!interno && !sopra) {
            q.setCompositionMode(QPainter::CompositionMode_DestinationOut);
            q.drawImage(0, 0, strato);
        }
    } else if (nascondi) {
        q.drawImage(0, 0, effetto);
    } else if (interno || sopra) {
        q.drawImage(0, 0, strato);
        q.drawImage(0, 0, effetto);
    } else {
        q.drawImage(0, 0, effetto);
        q.drawImage(0, 0, strato);
    }
    q.end();
    strato = std::move(out);
}

// Drop shadow, glow and gradient glow: the alpha (or, inside, its inverse)
// blurred and moved, then coloured by one colour or through the gradient.
void ombra(QImage &strato, const Filtro &f, double sc)
{
    const bool gradiente = f.tipo == Filtro::AloneGradiente;
    const bool sposta = f.tipo == Filtro::Ombra || gradiente;
    Mappa m = alfaDi(strato, f.interno);
    sfocaMappa(m, raggio(f.bx, sc), raggio(f.by, sc), passiDi(f));
    const double forza = std::isnan(f.forza) ? 0.0 : std::clamp(f.forza, 0.0, 255.0);
    const double angolo = std::isnan(f.angolo) ? 0.0 : f.angolo;
    const double distanza = std::isnan(f.distanza) ? 0.0 : std::clamp(f.distanza, -8192.0, 8192.0);
    const int dx = sposta ? static_cast<int>(std::lround(std::cos(angolo) * distanza * sc)) : 0;
    const int dy = sposta ? static_cast<int>(std::lround(std::sin(angolo) * distanza * sc)) : 0;
    const std::array<uint32_t, 256> colori = gradiente ? tabella(f) : std::array<uint32_t, 256>{};
    const double a = f.colore.a / 255.0;
    QImage effetto(strato.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < strato.height(); ++y) {
        auto *o = reinterpret_cast<uint32_t *>(effetto.scanLine(y));
        const auto *s = reinterpret_cast<const uint32_t *>(strato.constScanLine(y));
        for (int x = 0; x < strato.width(); ++x) {
            const double livello = std::min(1.0, m.a(x - dx, y - dy) / 255.0 * forza);
            // inside, only where the object is, weighed by its own alpha
            const double dentro = f.interno ? (s[x] >> 24) / 255.0 : 1.0;
            if (gradiente) {
                const uint32_t c = colori[static_cast<size_t>(std::lround(livello * 255))];
                if (dentro >= 1.0) {
                    o[x] = c;
                } else {
                    uint32_t v = 0;
                    for (int ch = 0; ch < 4; ++ch)
                        v |= static_cast<uint32_t>(std::lround(((c >> (8 * ch)) & 0xff) * dentro)) << (8 * ch);
                    o[x] = v;
                }
                continue;
            }
            const double al = livello * a * dentro;
            const auto A = static_cast<uint32_t>(std::lround(al * 255));
            o[x] = (A << 24) | (static_cast<uint32_t>(f.colore.r * al) << 16) | (static_cast<uint32_t>(f.colore.g * al) << 8) |
                   static_cast<uint32_t>(f.colore.b * al);
        }
    }
    componiEffetto(strato, effetto, f.interno, f.knockout, f.soloOggetto, false);
}

// Bevel, the usual kind (inside the object, the object kept): the object's
// blurred alpha shifted along the angle both ways; the difference of the two
// copies gives an edge of one colour or the other, inside the object. The
// colour of the second field lies on the side the angle points to.
void smussaDentro(QImage &strato, const Mappa &sfocata, const Filtro &f, int dx, int dy)
{
    const int w = strato.width(), h = strato.height();
    const double forza = std::clamp(f.forza, 0.0, 255.0);
    for (int y = 0; y < h; ++y) {
        auto *s = reinterpret_cast<uint32_t *>(strato.scanLine(y));
        for (int x = 0; x < w; ++x) {
            const double sa = s[x] >> 24;
            if (sa == 0)
                continue;
            const int p = sfocata.a(x + dx, y + dy), q = sfocata.a(x - dx, y - dy);
            const uint32_t l1 = static_cast<uint32_t>(std::clamp(p - q, 0, 255)), l2 = static_cast<uint32_t>(std::clamp(q - p, 0, 255));
            double rgb[3] = {static_cast<double>((s[x] >> 16) & 0xff), static_cast<double>((s[x] >> 8) & 0xff), static_cast<double>(s[x] & 0xff)};
            auto sopra = [&](const Rgba &c, uint32_t m) {
                const double k = std::min(1.0, m / 255.0 * forza) * c.a / 255.0 * (sa / 255.0);
                rgb[0] = rgb[0] * (1 - k) + c.r * k * sa / 255.0;
                rgb[1] = rgb[1] * (1 - k) + c.g * k * sa / 255.0;
                rgb[2] = rgb[2] * (1 - k) + c.b * k * sa / 255.0;
            };
            sopra(f.colore, l1);
            sopra(f.colore2, l2);
            s[x] = (static_cast<uint32_t>(sa) << 24) | (static_cast<uint32_t>(std::clamp(rgb[0], 0.0, sa)) << 16) |
                   (static_cast<uint32_t>(std::clamp(rgb[1], 0.0, sa)) << 8) | static_cast<uint32_t>(std::clamp(rgb[2], 0.0, sa));
        }
    }
}

// Bevel and gradient bevel of every kind: inner, outer or full ("on top"),
// with knockout; the gradient bevel reads its colour from the gradient, the
// middle of it where both copies agree.
void smussa(QImage &strato, const Filtro &f, double sc)
{
    const bool gradiente = f.tipo == Filtro::RilievoGradiente;
    const double angolo = std::isnan(f.angolo) ? 0.0 : f.angolo;
    const double distanza = std::isnan(f.distanza) ? 0.0 : std::clamp(f.distanza, -8192.0, 8192.0);
    const int dx = static_cast<int>(std::lround(std::cos(angolo) * distanza * sc));
    const int dy = static_cast<int>(std::lround(std::sin(angolo) * distanza * sc));
    Mappa sfocata = alfaDi(strato, false);
    sfocaMappa(sfocata, raggio(f.bx, sc), raggio(f.by, sc), passiDi(f));
    const bool interno = f.interno && !f.sopra;
    if (!gradiente && interno && !f.knockout) {
        smussaDentro(strato, sfocata, f, dx, dy);
        return;
    }
    const double forza = std::isnan(f.forza) ? 0.0 : std::clamp(f.forza, 0.0, 255.0);
    const std::array<uint32_t, 256> colori = gradiente ? tabella(f) : std::array<uint32_t, 256>{};
    QImage effetto(strato.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < strato.height(); ++y) {
        auto *o = reinterpret_cast<uint32_t *>(effetto.scanLine(y));
        const auto *s = reinterpret_cast<const uint32_t *>(strato.constScanLine(y));
        for (int x = 0; x < strato.width(); ++x) {
            const double sa = (s[x] >> 24) / 255.0;
            const double peso = f.sopra ? 1.0 : f.interno ? sa : 1.0 - sa;
            const int diff = sfocata.a(x + dx, y + dy) - sfocata.a(x - dx, y - dy);
            double c[4] = {0, 0, 0, 0};  // a, r, g, b, premultiplied
            if (gradiente) {
                const double t = std::clamp(diff * forza, -255.0, 255.0);
                const uint32_t v = colori[static_cast<size_t>(std::clamp(std::lround(127.5 + t / 2), 0L, 255L))];
                c[0] = (v >> 24); c[1] = (v >> 16) & 0xff; c[2] = (v >> 8) & 0xff; c[3] = v & 0xff;
            } else {
                const Rgba &col = diff > 0 ? f.colore : f.colore2;
                const double k = std::min(1.0, std::abs(diff) / 255.0 * forza) * col.a / 255.0;
                c[0] = 255 * k; c[1] = col.r * k; c[2] = col.g * k; c[3] = col.b * k;
            }
            o[x] = (static_cast<uint32_t>(std::lround(c[0] * peso)) << 24) | (static_cast<uint32_t>(std::lround(c[1] * peso)) << 16) |
                   (static_cast<uint32_t>(std::lround(c[2] * peso)) << 8) | static_cast<uint32_t>(std::lround(c[3] * peso));
        }
    }
    componiEffetto(strato, effetto, interno, f.knockout, false, f.sopra);
}

void matriceColore(QImage &strato, const Filtro &f)
{
    const auto &m = f.matrice;
    for (int y = 0; y < strato.height(); ++y) {
        auto *s = reinterpret_cast<QRgb *>(strato.scanLine(y));
        for (int x = 0; x < strato.width(); ++x) {
            const QRgb v = qUnpremultiply(s[x]);
            const double c[4] = {static_cast<double>(qRed(v)), static_cast<double>(qGreen(v)), static_cast<double>(qBlue(v)), static_cast<double>(qAlpha(v))};
            int o[4];
            for (int k = 0; k < 4; ++k) {
                const double val = m[static_cast<size_t>(k * 5)] * c[0] + m[static_cast<size_t>(k * 5 + 1)] * c[1] +
                                   m[static_cast<size_t>(k * 5 + 2)] * c[2] + m[static_cast<size_t>(k * 5 + 3)] * c[3] + m[static_cast<size_t>(k * 5 + 4)];
                o[k] = std::isnan(val) ? 0 : static_cast<int>(std::lround(std::clamp(val, 0.0, 255.0)));
            }
            s[x] = qPremultiply(qRgba(o[0], o[1], o[2], o[3]));
        }
    }
}

} // namespace

void applicaFiltri(QImage &strato, const std::vector<Filtro> &filtri, double sc, int64_t *lavoro)
{
    for (const Filtro &f : filtri) {
        switch (f.tipo) {
        case Filtro::Sfocatura:
            if (paga(lavoro, costoPassaggi(strato, 4 * passiDi(f))))
                sfocaImmagine(strato, raggio(f.bx, sc), raggio(f.by, sc), passiDi(f));
            break;
        case Filtro::Ombra:
        case Filtro::Alone:
        case Filtro::AloneGradiente:
            if (paga(lavoro, costoPassaggi(strato, 3 + passiDi(f))))
                ombra(strato, f, sc);
            break;
        case Filtro::Rilievo:
        case Filtro::RilievoGradiente:
            if (paga(lavoro, costoPassaggi(strato, 3 + passiDi(f))))
                smussa(strato, f, sc);
            break;
        case Filtro::MatriceColore:
            if (paga(lavoro, costoPassaggi(strato, 2)))
                matriceColore(strato, f);
            break;
        default:
            break;
        }
    }
}

} // namespace swf
