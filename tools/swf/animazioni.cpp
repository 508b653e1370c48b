#include "animazioni.h"

#include "costruttore.h"

#include <QMap>
#include <QPointF>
#include <QTransform>

#include <array>
#include <climits>
#include <cstring>
#include <cmath>
#include <functional>

namespace swfanim {

namespace {

using swftest::Bit;
using swftest::bitPer;
using swftest::tag;

constexpr double kPi = 3.14159265358979323846;
double S(double t) { return std::sin(2 * kPi * t); }
double C(double t) { return std::cos(2 * kPi * t); }
double frazione(double t) { return t - std::floor(t); }

struct Col {
    int r = 0, g = 0, b = 0, a = 255;
};
Col rgb(uint32_t v, int a = 255) { return {static_cast<int>(v >> 16 & 255), static_cast<int>(v >> 8 & 255), static_cast<int>(v & 255), a}; }
Col chiaro(Col c, double k) { return {c.r + static_cast<int>((255 - c.r) * k), c.g + static_cast<int>((255 - c.g) * k), c.b + static_cast<int>((255 - c.b) * k), c.a}; }
Col scuro(Col c, double k) { return {static_cast<int>(c.r * (1 - k)), static_cast<int>(c.g * (1 - k)), static_cast<int>(c.b * (1 - k)), c.a}; }

// ---- shapes: parts drawn in order, each in its own style layer so that they may overlap

struct Riemp {
    enum Tipo { Nessuno, Solido, Lineare, Radiale, Bitmap } tipo = Solido;
    Col c;
    std::vector<std::pair<int, Col>> stop;
    QTransform m;  // gradient square (-16384..16384) or bitmap pixels -> shape twips
    int bitmap = 0;
};

struct Seg {
    bool curva = false;
    QPoint c, p;
};

struct Contorno {
    QPoint inizio;
    std::vector<Seg> seg;
    bool chiuso = true;  // open lines are for strokes only
};

struct Parte {
    std::vector<Contorno> contorni;
    Riemp riemp;
    int linea = 0;  // twips, 0 = none
    Col coloreLinea;
};

QPoint punto(double x, double y) { return QPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))); }

Contorno poligono(const std::vector<QPointF> &p)
{
    Contorno c;
    c.inizio = punto(p[0].x(), p[0].y());
    for (size_t i = 1; i < p.size(); ++i)
        c.seg.push_back({false, {}, punto(p[i].x(), p[i].y())});
    return c;
}

// Ellipse of 8 quadratic arcs, optionally turned by rot degrees.
Contorno ellisse(double cx, double cy, double rx, double ry, double rot = 0)
{
    const double k = 1 / std::cos(kPi / 8), r = rot * kPi / 180;
    auto pt = [&](double a, double s) {
        const double x = rx * s * std::cos(a), y = ry * s * std::sin(a);
        return punto(cx + x * std::cos(r) - y * std::sin(r), cy + x * std::sin(r) + y * std::cos(r));
    };
    Contorno c;
    c.inizio = pt(0, 1);
    for (int i = 0; i < 8; ++i)
        c.seg.push_back({true, pt((i + 0.5) * kPi / 4, k), pt((i + 1) * kPi / 4, 1)});
    return c;
}
Contorno cerchio(double cx, double cy, double r) { return ellisse(cx, cy, r, r); }

Contorno stella(double cx, double cy, double ro, double ri, int punte, double rot = -90)
{
    std::vector<QPointF> p;
    for (int i = 0; i < 2 * punte; ++i) {
        const double a = (rot + 180.0 * i / punte) * kPi / 180, r = i % 2 ? ri : ro;
        p.emplace_back(cx + r * std::cos(a), cy + r * std::sin(a));
    }
    return poligono(p);
}

Contorno rettangolo(double x, double y, double w, double h, double raggio = 0)
{
    if (raggio <= 0)
        return poligono({{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
    const double r = std::min({raggio, w / 2, h / 2});
    Contorno c;
    c.inizio = punto(x + r, y);
    auto retta = [&](double px, double py) { c.seg.push_back({false, {}, punto(px, py)}); };
    auto curva = [&](double qx, double qy, double px, double py) { c.seg.push_back({true, punto(qx, qy), punto(px, py)}); };
    retta(x + w - r, y);
    curva(x + w, y, x + w, y + r);
    retta(x + w, y + h - r);
    curva(x + w, y + h, x + w - r, y + h);
    retta(x + r, y + h);
    curva(x, y + h, x, y + h - r);
    retta(x, y + r);
    curva(x, y, x + r, y);
    return c;
}

// A band of a ring between radii r0 and r1, from angle a0 to a1 in degrees (y grows downwards).
Contorno arco(double cx, double cy, double r0, double r1, double a0, double a1, int passi = 24)
{
    std::vector<QPointF> p;
    for (int i = 0; i <= passi; ++i) {
        const double a = (a0 + (a1 - a0) * i / passi) * kPi / 180;
        p.emplace_back(cx + r1 * std::cos(a), cy + r1 * std::sin(a));
    }
    for (int i = passi; i >= 0; --i) {
        const double a = (a0 + (a1 - a0) * i / passi) * kPi / 180;
        p.emplace_back(cx + r0 * std::cos(a), cy + r0 * std::sin(a));
    }
    return poligono(p);
}

// A closed curve r(a) around a centre, sampled.
Contorno polare(double cx, double cy, const std::function<double(double)> &r, int passi = 48)
{
    std::vector<QPointF> p;
    for (int i = 0; i < passi; ++i) {
        const double a = 2 * kPi * i / passi;
        p.emplace_back(cx + r(a) * std::cos(a), cy + r(a) * std::sin(a));
    }
    return poligono(p);
}

// The vertical slice x0..x1 of an ellipse centred at the origin: stripes of a bee.
Contorno fettaEllisse(double rx, double ry, double x0, double x1)
{
    std::vector<QPointF> p;
    const int n = 10;
    auto y = [&](double x) { return ry * std::sqrt(std::max(0.0, 1 - (x / rx) * (x / rx))); };
    for (int i = 0; i <= n; ++i) {
        const double x = x0 + (x1 - x0) * i / n;
        p.emplace_back(x, -y(x));
    }
    for (int i = n; i >= 0; --i) {
        const double x = x0 + (x1 - x0) * i / n;
        p.emplace_back(x, y(x));
    }
    return poligono(p);
}

// Crescent: circle (0,0,R) less circle (d) of radius R2.
Contorno lunetta(double R, double dx, double dy, double R2)
{
    const double d = std::hypot(dx, dy), fi = std::atan2(dy, dx);
    const double a = (R * R - R2 * R2 + d * d) / (2 * d);
    const double h = std::sqrt(std::max(0.0, R * R - a * a));
    const double beta = std::atan2(h, a);  // half-angle on the big circle
    const double px = a, py = h;           // intersection in the rotated frame
    const double gamma = std::atan2(py, px - d);  // angle of that point seen from the small centre
    std::vector<QPointF> p;
    const int n = 24;
    for (int i = 0; i <= n; ++i) {
        const double t = beta + (2 * kPi - 2 * beta) * i / n;
        p.emplace_back(R * std::cos(t + fi), R * std::sin(t + fi));
    }
    // the inner edge is the part of the small circle that faces the big centre
    for (int i = 1; i < n; ++i) {
        const double t = -gamma - (2 * kPi - 2 * gamma) * i / n;
        p.emplace_back(dx + R2 * std::cos(t + fi), dy + R2 * std::sin(t + fi));
    }
    return poligono(p);
}

Contorno spezzata(const std::vector<QPointF> &p)
{
    Contorno c = poligono(p);
    c.chiuso = false;
    return c;
}

Contorno arcoAperto(double cx, double cy, double r, double a0, double a1, int passi = 8)
{
    std::vector<QPointF> p;
    for (int i = 0; i <= passi; ++i) {
        const double a = (a0 + (a1 - a0) * i / passi) * kPi / 180;
        p.emplace_back(cx + r * std::cos(a), cy + r * std::sin(a));
    }
    return spezzata(p);
}

class Forma {
public:
    Forma &pieno(Contorno c, Col col, int linea = 0, Col colLinea = rgb(0x3b2a20))
    {
        Parte p;
        p.contorni.push_back(std::move(c));
        p.riemp.c = col;
        p.linea = linea;
        p.coloreLinea = colLinea;
        parti.push_back(std::move(p));
        return *this;
    }
    Forma &radiale(Contorno c, Col centro, Col bordo, double cx, double cy, double r, int linea = 0, Col colLinea = rgb(0x3b2a20))
    {
        Parte p;
        p.contorni.push_back(std::move(c));
        p.riemp.tipo = Riemp::Radiale;
        p.riemp.stop = {{0, centro}, {255, bordo}};
        p.riemp.m = QTransform(r / 16384, 0, 0, r / 16384, cx, cy);
        p.linea = linea;
        p.coloreLinea = colLinea;
        parti.push_back(std::move(p));
        return *this;
    }
    Forma &lineare(Contorno c, std::vector<std::pair<int, Col>> stop, double x0, double y0, double x1, double y1)
    {
        // the gradient square runs along its x axis: turn and stretch it onto the segment
        const double lx = x1 - x0, ly = y1 - y0, l = std::hypot(lx, ly) / 32768;
        const double ang = std::atan2(ly, lx);
        Parte p;
        p.contorni.push_back(std::move(c));
        p.riemp.tipo = Riemp::Lineare;
        p.riemp.stop = std::move(stop);
        p.riemp.m = QTransform(l * std::cos(ang), l * std::sin(ang), -l * std::sin(ang), l * std::cos(ang), (x0 + x1) / 2, (y0 + y1) / 2);
        parti.push_back(std::move(p));
        return *this;
    }
    Forma &tratto(Contorno c, int linea, Col col)
    {
        Parte p;
        p.contorni.push_back(std::move(c));
        p.riemp.tipo = Riemp::Nessuno;
        p.linea = linea;
        p.coloreLinea = col;
        parti.push_back(std::move(p));
        return *this;
    }
    // Pixel-art bitmap: each bitmap pixel becomes a square of 'lato' twips, centred.
    Forma &bitmap(int id, int w, int h, double lato)
    {
        const double x0 = -w * lato / 2, y0 = -h * lato / 2;
        Parte p;
        p.contorni.push_back(rettangolo(x0, y0, w * lato, h * lato));
        p.riemp.tipo = Riemp::Bitmap;
        p.riemp.bitmap = id;
        p.riemp.m = QTransform(lato, 0, 0, lato, x0, y0);
        parti.push_back(std::move(p));
        return *this;
    }
    // Overlapping circles as one patch: outlines first, then the fills over them.
    Forma &nuvola(const std::vector<std::array<double, 3>> &cerchi, Col col, int linea, Col colLinea)
    {
        if (linea > 0)
            for (auto &c : cerchi)
                pieno(cerchio(c[0], c[1], c[2]), colLinea, linea, colLinea);
        for (auto &c : cerchi)
            pieno(cerchio(c[0], c[1], c[2]), col);
        return *this;
    }

    std::vector<Parte> parti;
};

void matriceSwf(Bit &b, const QTransform &m)
{
    b.allinea();
    const auto fisso = [](double v) { return static_cast<int32_t>(std::lround(v * 65536)); };
    const int32_t a = fisso(m.m11()), d = fisso(m.m22()), r0 = fisso(m.m12()), r1 = fisso(m.m21());
    if (a != 65536 || d != 65536) {
        b.ub(1, 1);
        const int n = std::max(bitPer(a), bitPer(d));
        b.ub(static_cast<uint32_t>(n), 5);
        b.sb(a, n);
        b.sb(d, n);
    } else {
        b.ub(0, 1);
    }
    if (r0 != 0 || r1 != 0) {
        b.ub(1, 1);
        const int n = std::max(bitPer(r0), bitPer(r1));
        b.ub(static_cast<uint32_t>(n), 5);
        b.sb(r0, n);
        b.sb(r1, n);
    } else {
        b.ub(0, 1);
    }
    const int32_t tx = static_cast<int32_t>(std::lround(m.dx())), ty = static_cast<int32_t>(std::lround(m.dy()));
    const int n = std::max(bitPer(tx), bitPer(ty));
    b.ub(static_cast<uint32_t>(n), 5);
    b.sb(tx, n);
    b.sb(ty, n);
    b.allinea();
}

void rgba(Bit &b, Col c)
{
    b.u8(std::clamp(c.r, 0, 255));
    b.u8(std::clamp(c.g, 0, 255));
    b.u8(std::clamp(c.b, 0, 255));
    b.u8(std::clamp(c.a, 0, 255));
}

void stili(Bit &b, const Parte &p)
{
    if (p.riemp.tipo == Riemp::Nessuno) {
        b.u8(0);
    } else {
        b.u8(1);
        switch (p.riemp.tipo) {
        case Riemp::Solido:
            b.u8(0x00);
            rgba(b, p.riemp.c);
            break;
        case Riemp::Lineare:
        case Riemp::Radiale:
            b.u8(p.riemp.tipo == Riemp::Lineare ? 0x10 : 0x12);
            matriceSwf(b, p.riemp.m);
            b.u8(static_cast<int>(p.riemp.stop.size()));  // pad spread, RGB interpolation
            for (auto &[r, c] : p.riemp.stop) {
                b.u8(r);
                rgba(b, c);
            }
            break;
        case Riemp::Bitmap:
            b.u8(0x43);  // clipped, not smoothed: crisp pixel art
            b.u16(p.riemp.bitmap);
            matriceSwf(b, p.riemp.m);
            break;
        default:
            break;
        }
    }
    if (p.linea > 0) {
        b.u8(1);
        b.u16(p.linea);
        rgba(b, p.coloreLinea);
    } else {
        b.u8(0);
    }
    b.ub(1, 4);  // one bit for fill indexes
    b.ub(1, 4);  // and for line indexes
}

double areaSegnata(const Contorno &c)
{
    double a = 0;
    QPoint prec = c.inizio;
    auto lato = [&](QPoint p) {
        a += static_cast<double>(prec.x()) * p.y() - static_cast<double>(p.x()) * prec.y();
        prec = p;
    };
    for (const Seg &s : c.seg) {
        if (s.curva)
            lato(s.c);
        lato(s.p);
    }
    lato(c.inizio);
    return a;
}

QByteArray codificaForma(int id, const Forma &f)
{
    int x0 = INT_MAX, y0 = INT_MAX, x1 = INT_MIN, y1 = INT_MIN;
    for (const Parte &p : f.parti)
        for (const Contorno &c : p.contorni) {
            auto estendi = [&](QPoint q) {
                const int m = p.linea / 2 + 1;
                x0 = std::min(x0, q.x() - m); x1 = std::max(x1, q.x() + m);
                y0 = std::min(y0, q.y() - m); y1 = std::max(y1, q.y() + m);
            };
            estendi(c.inizio);
            for (const Seg &s : c.seg) {
                if (s.curva)
                    estendi(s.c);
                estendi(s.p);
            }
        }
    Bit b;
    b.u16(id);
    swftest::rect(b, x0, x1, y0, y1);
    for (size_t i = 0; i < f.parti.size(); ++i) {
        const Parte &p = f.parti[i];
        if (i == 0) {
            stili(b, p);
        } else {
            b.ub(0, 1);
            b.ub(0b10000, 5);  // new styles alone
            stili(b, p);
        }
        for (const Contorno &c : p.contorni) {
            // the fill goes on the side where the inside lies
            const bool orario = areaSegnata(c) > 0;
            const int riemp = p.riemp.tipo == Riemp::Nessuno ? 0 : 1;
            b.ub(0, 1);
            b.ub(0b01111, 5);
            const int n = std::max(bitPer(c.inizio.x()), bitPer(c.inizio.y()));
            b.ub(static_cast<uint32_t>(n), 5);
            b.sb(c.inizio.x(), n);
            b.sb(c.inizio.y(), n);
            b.ub(orario ? 0 : riemp, 1);
            b.ub(orario ? riemp : 0, 1);
            b.ub(p.linea > 0 ? 1 : 0, 1);
            QPoint qui = c.inizio;
            auto retta = [&](QPoint p2) {
                const int dx = p2.x() - qui.x(), dy = p2.y() - qui.y();
                if (dx == 0 && dy == 0)
                    return;
                const int nb = std::max({bitPer(dx), bitPer(dy), 2});
                b.ub(1, 1); b.ub(1, 1);
                b.ub(static_cast<uint32_t>(nb - 2), 4);
                b.ub(1, 1);
                b.sb(dx, nb); b.sb(dy, nb);
                qui = p2;
            };
            for (const Seg &s : c.seg) {
                if (!s.curva) {
                    retta(s.p);
                    continue;
                }
                const int cdx = s.c.x() - qui.x(), cdy = s.c.y() - qui.y();
                const int adx = s.p.x() - s.c.x(), ady = s.p.y() - s.c.y();
                const int nb = std::max({bitPer(cdx), bitPer(cdy), bitPer(adx), bitPer(ady), 2});
                b.ub(1, 1); b.ub(0, 1);
                b.ub(static_cast<uint32_t>(nb - 2), 4);
                b.sb(cdx, nb); b.sb(cdy, nb); b.sb(adx, nb); b.sb(ady, nb);
                qui = s.p;
            }
            if (c.chiuso)
                retta(c.inizio);
        }
    }
    b.ub(0, 6);
    return tag(32, b.fine(), true);
}

QByteArray zlib(const QByteArray &dati)
{
    uLongf n = compressBound(static_cast<uLong>(dati.size()));
    QByteArray z(static_cast<qsizetype>(n), '\0');
    compress2(reinterpret_cast<Bytef *>(z.data()), &n, reinterpret_cast<const Bytef *>(dati.constData()),
              static_cast<uLong>(dati.size()), 9);
    z.resize(static_cast<qsizetype>(n));
    return z;
}

// Pixel art: rows of characters, each a key of the palette ('.' = clear).
struct Disegnino {
    std::vector<const char *> righe;
    QMap<char, Col> tavolozza;
};

// DefineBitsLossless2, colour-mapped with an alpha palette: rows padded to 4 bytes.
QByteArray bitmapTavolozza(int id, const Disegnino &d)
{
    const int w = static_cast<int>(std::strlen(d.righe[0])), h = static_cast<int>(d.righe.size());
    QList<char> chiavi = d.tavolozza.keys();
    chiavi.prepend('.');
    QByteArray raw;
    for (char k : chiavi) {
        const Col c = k == '.' ? Col{0, 0, 0, 0} : d.tavolozza.value(k);
        // premultiplied, as the format wants
        raw.append(static_cast<char>(c.r * c.a / 255));
        raw.append(static_cast<char>(c.g * c.a / 255));
        raw.append(static_cast<char>(c.b * c.a / 255));
        raw.append(static_cast<char>(c.a));
    }
    const int riga = (w + 3) & ~3;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < riga; ++x)
            raw.append(static_cast<char>(x < w ? std::max<qsizetype>(0, chiavi.indexOf(d.righe[static_cast<size_t>(y)][x])) : 0));
    }
    Bit b;
    b.u16(id);
    b.u8(3);
    b.u16(w);
    b.u16(h);
    b.u8(static_cast<int>(chiavi.size()) - 1);
    return tag(36, b.fine() + zlib(raw), true);
}

// DefineBitsLossless, 24-bit: opaque, every pixel as reserved, red, green, blue.
QByteArray bitmap24(int id, const Disegnino &d, Col fondo)
{
    const int w = static_cast<int>(std::strlen(d.righe[0])), h = static_cast<int>(d.righe.size());
    QByteArray raw;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const char k = d.righe[static_cast<size_t>(y)][x];
            const Col c = k == '.' ? fondo : d.tavolozza.value(k);
            raw.append('\0');
            raw.append(static_cast<char>(c.r));
            raw.append(static_cast<char>(c.g));
            raw.append(static_cast<char>(c.b));
        }
    Bit b;
    b.u16(id);
    b.u8(5);
    b.u16(w);
    b.u16(h);
    return tag(20, b.fine() + zlib(raw), true);
}

const Disegnino &coccinellaPixel()
{
    static const Disegnino d{{
                                 "......kk..kk......",
                                 ".......k..k.......",
                                 "......kkkkkk......",
                                 ".....kwkkkkwk.....",
                                 "....rrrrkkrrrr....",
                                 "...rrkkrkkrkkrr...",
                                 "..rrrkkrkkrkkrrr..",
                                 "..rrrrrrkkrrrrrr..",
                                 ".rrkkrrrkkrrrkkrr.",
                                 ".rrkkrrrkkrrrkkrr.",
                                 ".rrrrrrrkkrrrrrrr.",
                                 ".rrrrkkrkkrkkrrrr.",
                                 "..rrrkkrkkrkkrrr..",
                                 "..rrrrrrkkrrrrrr..",
                                 "...rrrrrkkrrrrr...",
                                 "....rrrrkkrrrr....",
                                 "......rrkkrr......",
                                 "..................",
                             },
                             {{'k', rgb(0x222222)}, {'w', rgb(0xffffff)}, {'r', rgb(0xe53935)}}};
    return d;
}

const Disegnino &fragolaPixel()
{
    static const Disegnino d{{
                                 "................",
                                 "......g..g......",
                                 ".....gggggg.....",
                                 "....gggGGggg....",
                                 "...rrrgggrrrr...",
                                 "..rrrrrrrrrrrr..",
                                 "..rryrrrrrryrr..",
                                 "..rrrrrryrrrrr..",
                                 "..rrrryrrrrrrr..",
                                 "...rrrrrrryrr...",
                                 "...ryrrrrrrrr...",
                                 "....rrrryrrr....",
                                 ".....rrrrrr.....",
                                 "......rrrr......",
                                 ".......rr.......",
                                 "................",
                             },
                             {{'g', rgb(0x43a047)}, {'G', rgb(0x1b5e20)}, {'r', rgb(0xe53935)}, {'y', rgb(0xfff176)}}};
    return d;
}

// ---- scenes: shapes placed as actors whose pose is a function of the loop phase

struct Posa {
    double x = 0, y = 0, ang = 0, sx = 1, sy = 1, alfa = 1;
};

struct Attore {
    int carattere;
    QTransform base;
    std::function<Posa(double)> posa;
};

class Scena {
public:
    Scena(int larghezza, int altezza, Col sfondo) : w(larghezza), h(altezza), fondo(sfondo) {}

    int forma(const QString &chiave, const std::function<Forma()> &fai)
    {
        if (auto it = forme.find(chiave); it != forme.end())
            return it.value();
        const int id = prossimoId++;
        definizioni += codificaForma(id, fai());
        forme.insert(chiave, id);
        return id;
    }
    int bitmap(const QString &chiave, const std::function<QByteArray(int)> &fai)
    {
        if (auto it = forme.find(chiave); it != forme.end())
            return it.value();
        const int id = prossimoId++;
        definizioni += fai(id);
        forme.insert(chiave, id);
        return id;
    }
    void attore(int carattere, const QTransform &base, std::function<Posa(double)> posa)
    {
        attori.push_back({carattere, base, std::move(posa)});
    }
    int larghezza() const { return w * 20; }
    int altezza() const { return h * 20; }

    QByteArray film(int fps, int fotogrammi, const Colonna &suono) const
    {
        QByteArray t;
        {
            Bit a;
            a.u32(0);  // FileAttributes: nothing special
            t += tag(69, a.fine());
        }
        t += swftest::sfondo(fondo.r, fondo.g, fondo.b);
        t += definizioni;
        std::vector<QByteArray> blocchi;
        if (!suono.campioni.empty()) {
            t += swftest::testaFlusso(1, suono.frequenza, suono.canali == 2, suono.frequenza / fps);
            blocchi = swftest::blocchiFlusso(1, suono.campioni, suono.canali, suono.frequenza, fps, fotogrammi, 4);
        }
        std::vector<QTransform> ultime(attori.size());
        std::vector<int> ultimeAlfa(attori.size(), -1);
        for (int f = 0; f < fotogrammi; ++f) {
            const double fase = static_cast<double>(f) / fotogrammi;
            for (size_t i = 0; i < attori.size(); ++i) {
                const Attore &a = attori[i];
                const Posa p = a.posa(fase);
                QTransform locale;
                locale.translate(p.x, p.y);
                locale.rotate(p.ang);
                locale.scale(p.sx, p.sy);
                const QTransform m = locale * a.base;
                const int alfa = std::clamp(static_cast<int>(std::lround(p.alfa * 256)), 0, 256);
                if (f > 0 && m == ultime[i] && alfa == ultimeAlfa[i])
                    continue;
                Bit b;
                const bool colore = alfa != 256 || (f > 0 && ultimeAlfa[i] != 256);
                b.u8(0x04 | (f == 0 ? 0x02 : 0x01) | (colore ? 0x08 : 0));
                b.u16(static_cast<int>(i) + 1);
                if (f == 0)
                    b.u16(a.carattere);
                matriceSwf(b, m);
                if (colore) {
                    // multiply terms only: alpha fades, colours stay
                    b.ub(0, 1);
                    b.ub(1, 1);
                    const int n = std::max(bitPer(256), bitPer(alfa));
                    b.ub(static_cast<uint32_t>(n), 4);
                    b.sb(256, n); b.sb(256, n); b.sb(256, n); b.sb(alfa, n);
                    b.allinea();
                }
                t += tag(26, b.fine());
                ultime[i] = m;
                ultimeAlfa[i] = alfa;
            }
            if (static_cast<size_t>(f) < blocchi.size())
                t += blocchi[static_cast<size_t>(f)];
            t += swftest::mostra();
        }
        // header: version 8, stage, frame rate 8.8, frame count
        Bit corpo;
        swftest::rect(corpo, 0, w * 20, 0, h * 20);
        corpo.u16(fps << 8);
        corpo.u16(fotogrammi);
        const QByteArray c = corpo.fine() + t + tag(0, {});
        Bit testa;
        testa.u8('F'); testa.u8('W'); testa.u8('S'); testa.u8(8);
        testa.u32(static_cast<uint32_t>(c.size() + 8));
        return testa.fine() + c;
    }

private:
    int w, h;
    Col fondo;
    int prossimoId = 1;
    QByteArray definizioni;
    QMap<QString, int> forme;
    std::vector<Attore> attori;
};

// Colours for variants of the same subject.
const Col kVivaci[] = {rgb(0xe53935), rgb(0x1e88e5), rgb(0xfdd835), rgb(0x43a047), rgb(0x8e24aa), rgb(0xfb8c00), rgb(0xec407a), rgb(0x00acc1)};
Col vivace(int i) { return kVivaci[((i % 8) + 8) % 8]; }
const Col kContorno = rgb(0x3b2a20);

Posa P(double x, double y, double ang = 0, double sx = 1, double sy = 1, double alfa = 1) { return {x, y, ang, sx, sy, alfa}; }

// Every subject is drawn around (0,0) within about +-1900 twips, the size of a
// 200x200 face; 'base' places and scales it, 'fase' shifts its loop.
using Soggetto = std::function<void(Scena &, const QTransform &, double, int)>;

int formaRuota(Scena &s)
{
    return s.forma("ruota", [] {
        Forma f;
        f.pieno(cerchio(0, 0, 380), rgb(0x37474f), 40, kContorno);
        f.pieno(cerchio(0, 0, 200), rgb(0xcfd8dc));
        f.pieno(rettangolo(-180, -35, 360, 70), rgb(0x78909c));
        f.pieno(rettangolo(-35, -180, 70, 360), rgb(0x78909c));
        f.pieno(cerchio(0, 0, 60), rgb(0x37474f));
        return f;
    });
}

int formaSbuffo(Scena &s)
{
    return s.forma("sbuffo", [] {
        Forma f;
        f.nuvola({{0, 0, 220}, {160, -60, 170}, {-150, -40, 160}}, rgb(0xeceff1), 40, rgb(0xb0bec5));
        return f;
    });
}

int formaNuvola(Scena &s)
{
    return s.forma("nuvola", [] {
        Forma f;
        f.nuvola({{-500, 100, 380}, {0, -150, 520}, {480, 80, 400}, {150, 200, 350}, {-200, 220, 330}}, rgb(0xffffff), 60, rgb(0x90a4ae));
        return f;
    });
}

int formaStellina(Scena &s, Col c)
{
    return s.forma(QStringLiteral("stellina%1").arg(c.r * 65536 + c.g * 256 + c.b), [c] {
        Forma f;
        f.pieno(stella(0, 0, 300, 120, 5), c, 30, scuro(c, 0.3));
        return f;
    });
}

void sole(Scena &s, const QTransform &b, double fase, int)
{
    const int raggi = s.forma("sole.raggi", [] {
        Forma f;
        f.pieno(stella(0, 0, 1800, 1250, 12), rgb(0xffa726), 50, rgb(0xef6c00));
        return f;
    });
    const int viso = s.forma("sole.viso", [] {
        Forma f;
        f.radiale(cerchio(0, 0, 1150), rgb(0xfff59d), rgb(0xfdd835), -300, -300, 1500, 60, rgb(0xef6c00));
        f.pieno(ellisse(-400, -250, 110, 170), rgb(0x3e2723));
        f.pieno(ellisse(400, -250, 110, 170), rgb(0x3e2723));
        f.pieno(cerchio(-370, -300, 40), rgb(0xffffff));
        f.pieno(cerchio(430, -300, 40), rgb(0xffffff));
        f.pieno(ellisse(-700, 150, 180, 120), rgb(0xff8a80, 160));
        f.pieno(ellisse(700, 150, 180, 120), rgb(0xff8a80, 160));
        f.pieno(arco(0, 50, 480, 600, 20, 160), rgb(0x6d4c41));
        return f;
    });
    s.attore(raggi, b, [fase](double t) { return P(0, 0, 30 * frazione(t + fase)); });
    s.attore(viso, b, [fase](double t) { return P(0, 60 * S(t + fase), 5 * S(t + fase)); });
}

void palla(Scena &s, const QTransform &b, double fase, int v)
{
    const int ombra = s.forma("palla.ombra", [] {
        Forma f;
        f.pieno(ellisse(0, 0, 700, 150), rgb(0x000000, 70));
        return f;
    });
    const int palla = s.forma(QStringLiteral("palla%1").arg(v), [v] {
        Forma f;
        f.pieno(cerchio(0, 0, 700), rgb(0xffffff), 50, kContorno);
        for (int k = 0; k < 6; k += 2) {
            std::vector<QPointF> p{{0, 0}};
            for (int i = 0; i <= 8; ++i) {
                const double a = (k * 60 + 60.0 * i / 8) * kPi / 180;
                p.emplace_back(680 * std::cos(a), 680 * std::sin(a));
            }
            f.pieno(poligono(p), vivace(v + k / 2));
        }
        f.pieno(cerchio(0, 0, 140), rgb(0xffffff), 30, kContorno);
        f.pieno(ellisse(-280, -320, 160, 90, -35), rgb(0xffffff, 150));
        return f;
    });
    auto altezza = [fase](double t) {
        const double u = frazione(t + fase);
        return 1 - (2 * u - 1) * (2 * u - 1);
    };
    s.attore(ombra, b, [altezza](double t) {
        const double k = 1 - 0.5 * altezza(t);
        return P(0, 1500, 0, k, k, 0.4 + 0.6 * k);
    });
    s.attore(palla, b, [altezza, fase](double t) {
        const double h = altezza(t);
        const double schiaccia = h < 0.12 ? 1 - (0.12 - h) * 1.5 : 1;
        return P(0, 800 - 2200 * h + (1 - schiaccia) * 700, 180 * frazione(t + fase), 2 - schiaccia, schiaccia);
    });
}

void stellaGrande(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xffd54f) : chiaro(vivace(v), 0.2);
    const int st = s.forma(QStringLiteral("stella%1").arg(v), [c] {
        Forma f;
        f.radiale(stella(0, 0, 1500, 650, 5), rgb(0xffffff), c, 0, 0, 1300, 80, scuro(c, 0.4));
        f.pieno(ellisse(-220, -150, 90, 130), rgb(0x3e2723));
        f.pieno(ellisse(220, -150, 90, 130), rgb(0x3e2723));
        f.pieno(arco(0, 60, 240, 330, 20, 160), rgb(0x3e2723));
        return f;
    });
    const int luccica = s.forma("luccica", [] {
        Forma f;
        f.pieno(stella(0, 0, 320, 70, 4, 0), rgb(0xffffff), 20, rgb(0xffe082));
        return f;
    });
    s.attore(st, b, [fase](double t) {
        const double k = 1 + 0.1 * S(2 * (t + fase));
        return P(0, 0, 15 * S(t + fase), k, k);
    });
    const double pos[3][2] = {{-1500, -1300}, {1450, -900}, {1200, 1400}};
    for (int i = 0; i < 3; ++i)
        s.attore(luccica, b, [fase, i, pos](double t) {
            const double k = 0.5 + 0.5 * S(t + fase + i / 3.0);
            return P(pos[i][0], pos[i][1], 90 * frazione(t + fase), 0.4 + 0.8 * k, 0.4 + 0.8 * k, 0.3 + 0.7 * k);
        });
}

void palloncino(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = vivace(v);
    const int pal = s.forma(QStringLiteral("palloncino%1").arg(v), [c] {
        Forma f;
        f.tratto(spezzata({{0, 700}, {-120, 1000}, {100, 1300}, {-80, 1600}, {40, 1900}}), 30, rgb(0x757575));
        f.pieno(poligono({{0, 600}, {-130, 760}, {130, 760}}), scuro(c, 0.2), 30, scuro(c, 0.5));
        f.radiale(ellisse(0, -300, 800, 950), chiaro(c, 0.6), c, -300, -650, 1500, 50, scuro(c, 0.5));
        f.pieno(ellisse(-330, -700, 120, 220, 25), rgb(0xffffff, 170));
        return f;
    });
    s.attore(pal, b, [fase](double t) { return P(250 * S(t + fase), -150 + 120 * S(2 * (t + fase)), 6 * S(t + fase)); });
}

void pesce(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xff7043) : vivace(v);
    const int coda = s.forma(QStringLiteral("pesce.coda%1").arg(v), [c] {
        Forma f;
        Contorno k;
        k.inizio = QPoint(0, 0);
        k.seg = {{true, QPoint(300, -200), QPoint(700, -600)}, {true, QPoint(500, 0), QPoint(700, 600)}, {true, QPoint(300, 200), QPoint(0, 0)}};
        f.pieno(k, scuro(c, 0.15), 50, scuro(c, 0.5));
        return f;
    });
    const int corpo = s.forma(QStringLiteral("pesce.corpo%1").arg(v), [c] {
        Forma f;
        f.pieno(poligono({{-100, -500}, {300, -900}, {450, -450}}), scuro(c, 0.15), 40, scuro(c, 0.5));
        f.radiale(ellisse(0, 0, 950, 620), chiaro(c, 0.5), c, -300, -200, 1300, 50, scuro(c, 0.5));
        f.pieno(fettaEllisse(950, 620, -150, 0), chiaro(c, 0.7));
        f.pieno(fettaEllisse(950, 620, 300, 430), chiaro(c, 0.7));
        f.pieno(cerchio(-520, -150, 170), rgb(0xffffff), 30, kContorno);
        f.pieno(cerchio(-560, -140, 80), rgb(0x212121));
        f.pieno(arco(-760, 150, 90, 140, 200, 320), rgb(0x5d4037));
        return f;
    });
    const int bolla = s.forma("bolla", [] {
        Forma f;
        f.pieno(cerchio(0, 0, 110), rgb(0xe1f5fe, 120), 30, rgb(0xffffff));
        f.pieno(cerchio(-35, -35, 30), rgb(0xffffff));
        return f;
    });
    auto pos = [fase](double t) { return QPointF(220 * S(t + fase), 150 * S(2 * (t + fase))); };
    s.attore(coda, b, [pos, fase](double t) { return P(pos(t).x() + 850, pos(t).y(), 22 * S(2 * (t + fase))); });
    s.attore(corpo, b, [pos](double t) { return P(pos(t).x(), pos(t).y()); });
    for (int i = 0; i < 3; ++i)
        s.attore(bolla, b, [fase, i](double t) {
            const double u = frazione(t + fase + i / 3.0);
            return P(-1100 + 120 * S(2 * u), -100 - 1800 * u, 0, 0.6 + 0.6 * u, 0.6 + 0.6 * u, u > 0.85 ? (1 - u) / 0.15 : 1);
        });
}

void macchina(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xe53935) : vivace(v);
    const int corpo = s.forma(QStringLiteral("macchina%1").arg(v), [c] {
        Forma f;
        f.pieno(poligono({{-800, -150}, {-450, -800}, {500, -800}, {900, -150}}), chiaro(c, 0.1), 50, kContorno);
        f.pieno(poligono({{-620, -200}, {-380, -680}, {-30, -680}, {-30, -200}}), rgb(0xb3e5fc), 30, kContorno);
        f.pieno(poligono({{70, -200}, {70, -680}, {440, -680}, {720, -200}}), rgb(0xb3e5fc), 30, kContorno);
        f.pieno(rettangolo(-1500, -250, 3000, 800, 250), c, 50, kContorno);
        f.pieno(cerchio(1330, 50, 120), rgb(0xfff176), 30, kContorno);
        f.pieno(rettangolo(-1520, 250, 250, 120, 50), rgb(0x9e9e9e));
        f.pieno(rettangolo(-200, -100, 260, 60, 30), scuro(c, 0.4));
        return f;
    });
    const int ruota = formaRuota(s);
    auto sobbalzo = [fase](double t) { return 40 * std::abs(S(2 * (t + fase))); };
    s.attore(corpo, b, [sobbalzo](double t) { return P(0, -sobbalzo(t)); });
    for (double x : {-850.0, 850.0})
        s.attore(ruota, b, [x, fase](double t) { return P(x, 600, 360 * frazione(2 * (t + fase))); });
    const int sbuffo = formaSbuffo(s);
    for (int i = 0; i < 2; ++i)
        s.attore(sbuffo, b, [fase, i](double t) {
            const double u = frazione(t + fase + i / 2.0);
            return P(-1600 - 700 * u, 350 - 200 * u, 0, 0.3 + 0.6 * u, 0.3 + 0.6 * u, 1 - u);
        });
}

void fiore(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xec407a) : vivace(v);
    const int stelo = s.forma("fiore.stelo", [] {
        Forma f;
        f.pieno(rettangolo(-60, 0, 120, 1900), rgb(0x43a047), 30, rgb(0x1b5e20));
        f.pieno(ellisse(-380, 1100, 380, 150, -30), rgb(0x66bb6a), 30, rgb(0x1b5e20));
        f.pieno(ellisse(380, 700, 380, 150, 30), rgb(0x66bb6a), 30, rgb(0x1b5e20));
        return f;
    });
    const int testa = s.forma(QStringLiteral("fiore.testa%1").arg(v), [c] {
        Forma f;
        for (int i = 0; i < 8; ++i) {
            const double a = i * 45.0, r = 520;
            f.pieno(ellisse(r * std::cos(a * kPi / 180), r * std::sin(a * kPi / 180), 420, 240, a), c, 40, scuro(c, 0.45));
        }
        f.radiale(cerchio(0, 0, 380), rgb(0xffee58), rgb(0xffa000), 0, 0, 420, 40, rgb(0xe65100));
        for (int i = 0; i < 6; ++i)
            f.pieno(cerchio(180 * std::cos(i * kPi / 3), 180 * std::sin(i * kPi / 3), 45), rgb(0x8d6e63));
        return f;
    });
    s.attore(stelo, b, [](double) { return P(0, -100); });
    s.attore(testa, b, [fase](double t) {
        const double k = 1 + 0.08 * S(2 * (t + fase));
        return P(0, -700, 45 * frazione(t + fase), k, k);
    });
}

void cuore(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xe53935) : vivace(v);
    const int cu = s.forma(QStringLiteral("cuore%1").arg(v), [c] {
        Forma f;
        Contorno k;
        k.inizio = QPoint(0, 1300);
        k.seg = {{true, QPoint(-1700, 200), QPoint(-1250, -650)},
                 {true, QPoint(-750, -1450), QPoint(0, -550)},
                 {true, QPoint(750, -1450), QPoint(1250, -650)},
                 {true, QPoint(1700, 200), QPoint(0, 1300)}};
        f.radiale(k, chiaro(c, 0.45), c, -400, -400, 2000, 70, scuro(c, 0.5));
        f.pieno(ellisse(-700, -550, 260, 150, -40), rgb(0xffffff, 160));
        return f;
    });
    s.attore(cu, b, [fase](double t) {
        const double u = frazione(2 * (t + fase));
        const double k = 0.9 + 0.15 * std::exp(-30 * (u - 0.15) * (u - 0.15)) + 0.08 * std::exp(-30 * (u - 0.45) * (u - 0.45));
        return P(0, 0, 0, k, k);
    });
}

void luna(Scena &s, const QTransform &b, double fase, int)
{
    const int lu = s.forma("luna", [] {
        Forma f;
        f.radiale(lunetta(1300, 700, -350, 1100), rgb(0xfffde7), rgb(0xffee58), -600, 0, 1600, 60, rgb(0xf9a825));
        f.tratto(arcoAperto(-850, -100, 120, 20, 160), 40, rgb(0x5d4037));
        f.pieno(ellisse(-750, 250, 120, 80), rgb(0xff8a80, 170));
        return f;
    });
    const int st = formaStellina(s, rgb(0xfff59d));
    s.attore(lu, b, [fase](double t) { return P(-150, 0, 10 * S(t + fase)); });
    const double pos[4][2] = {{1200, -1300}, {1500, 300}, {800, 1400}, {-1500, -1500}};
    for (int i = 0; i < 4; ++i)
        s.attore(st, b, [fase, i, pos](double t) {
            const double k = 0.5 + 0.5 * S(t + fase + i / 4.0);
            return P(pos[i][0], pos[i][1], 72 * frazione(t + fase), 0.6 + 0.5 * k, 0.6 + 0.5 * k, 0.3 + 0.7 * k);
        });
}

void nuvolaPioggia(Scena &s, const QTransform &b, double fase, int)
{
    const int nu = formaNuvola(s);
    const int goccia = s.forma("goccia", [] {
        Forma f;
        Contorno k;
        k.inizio = QPoint(0, -200);
        k.seg = {{true, QPoint(140, 0), QPoint(110, 80)}, {true, QPoint(0, 230), QPoint(-110, 80)}, {true, QPoint(-140, 0), QPoint(0, -200)}};
        f.pieno(k, rgb(0x42a5f5), 25, rgb(0x1565c0));
        return f;
    });
    const int viso = s.forma("nuvola.viso", [] {
        Forma f;
        f.pieno(ellisse(-250, 0, 70, 100), rgb(0x455a64));
        f.pieno(ellisse(250, 0, 70, 100), rgb(0x455a64));
        f.pieno(arco(0, 100, 160, 220, 30, 150), rgb(0x455a64));
        return f;
    });
    for (int i = 0; i < 5; ++i)
        s.attore(goccia, b, [fase, i](double t) {
            const double u = frazione(t + fase + i * 0.37);
            return P(-700 + i * 350, -300 + 2000 * u, 0, 1, 1, u > 0.8 ? (1 - u) * 5 : 1);
        });
    s.attore(nu, b, [fase](double t) { return P(250 * S(t + fase), -900, 0, 1.3, 1.3); });
    s.attore(viso, b, [fase](double t) { return P(250 * S(t + fase), -900); });
}

void farfalla(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0x8e24aa) : vivace(v);
    const int ala = s.forma(QStringLiteral("farfalla.ala%1").arg(v), [c] {
        Forma f;
        f.pieno(ellisse(-700, -450, 700, 520, -30), c, 50, kContorno);
        f.pieno(ellisse(-520, 380, 480, 360, 30), chiaro(c, 0.3), 50, kContorno);
        f.pieno(cerchio(-750, -500, 220), rgb(0xfff176), 30, kContorno);
        f.pieno(cerchio(-520, 400, 130), rgb(0xffffff));
        return f;
    });
    const int corpo = s.forma("farfalla.corpo", [] {
        Forma f;
        f.tratto(spezzata({{0, -700}, {-150, -1100}, {-350, -1250}}), 40, kContorno);
        f.tratto(spezzata({{0, -700}, {150, -1100}, {350, -1250}}), 40, kContorno);
        f.pieno(ellisse(0, 100, 140, 750), rgb(0x4e342e), 30, kContorno);
        f.pieno(cerchio(0, -750, 200), rgb(0x4e342e), 30, kContorno);
        f.pieno(cerchio(-80, -790, 50), rgb(0xffffff));
        f.pieno(cerchio(80, -790, 50), rgb(0xffffff));
        return f;
    });
    auto pos = [fase](double t) { return QPointF(500 * S(t + fase), 300 * S(2 * (t + fase))); };
    auto apertura = [fase](double t) { return 0.25 + 0.75 * std::abs(C(2 * (t + fase))); };
    s.attore(ala, b, [pos, apertura](double t) { return P(pos(t).x(), pos(t).y(), 0, apertura(t), 1); });
    s.attore(ala, b, [pos, apertura](double t) { return P(pos(t).x(), pos(t).y(), 0, -apertura(t), 1); });
    s.attore(corpo, b, [pos](double t) { return P(pos(t).x(), pos(t).y()); });
}

void barca(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xe53935) : vivace(v);
    const int barca = s.forma(QStringLiteral("barca%1").arg(v), [c] {
        Forma f;
        f.pieno(rettangolo(-60, -1700, 120, 1800), rgb(0x8d6e63), 30, kContorno);
        f.pieno(poligono({{-60, -1700}, {-60, -300}, {-1100, -300}}), rgb(0xffffff), 40, kContorno);
        f.pieno(poligono({{60, -1500}, {60, -300}, {800, -300}}), rgb(0xfff9c4), 40, kContorno);
        f.pieno(poligono({{60, -1700}, {500, -1580}, {60, -1460}}), c, 30, kContorno);
        f.pieno(poligono({{-1400, -200}, {1400, -200}, {1000, 500}, {-1000, 500}}), rgb(0x8d6e63), 50, kContorno);
        f.pieno(rettangolo(-1300, -200, 2600, 180), c);
        for (int i = -1; i <= 1; ++i)
            f.pieno(cerchio(i * 600, 180, 110), rgb(0xe1f5fe), 30, kContorno);
        return f;
    });
    s.attore(barca, b, [fase](double t) { return P(0, 100 * S(t + fase), 6 * S(t + fase)); });
}

void coccinella(Scena &s, const QTransform &b, double fase, int)
{
    const int bmp = s.bitmap("coccinella.bmp", [](int id) { return bitmapTavolozza(id, coccinellaPixel()); });
    const int cc = s.forma("coccinella", [bmp] {
        Forma f;
        f.bitmap(bmp, 18, 18, 100);
        return f;
    });
    s.attore(cc, b, [fase](double t) {
        const double a = 2 * kPi * frazione(t + fase);
        return P(750 * std::cos(a), 750 * std::sin(a), a * 180 / kPi + 180, 1, 1);
    });
}

void fragola(Scena &s, const QTransform &b, double fase, int)
{
    const int bmp = s.bitmap("fragola.bmp", [](int id) { return bitmap24(id, fragolaPixel(), rgb(0xfff8e1)); });
    const int fr = s.forma("fragola", [bmp] {
        Forma f;
        f.pieno(rettangolo(-1400, -1400, 2800, 2800, 300), rgb(0xffffff), 60, rgb(0xef9a9a));
        f.bitmap(bmp, 16, 16, 150);
        return f;
    });
    s.attore(fr, b, [fase](double t) {
        const double k = 0.95 + 0.08 * std::abs(S(t + fase));
        return P(0, -150 * std::abs(S(t + fase)), 10 * S(t + fase), k, k);
    });
}

void mela(Scena &s, const QTransform &b, double fase, int)
{
    const int me = s.forma("mela", [] {
        Forma f;
        f.pieno(rettangolo(-50, 0, 100, 420), rgb(0x6d4c41));
        f.pieno(ellisse(300, 250, 280, 120, -25), rgb(0x66bb6a), 30, rgb(0x2e7d32));
        auto r = [](double a) { return 1050 - 260 * std::pow(std::max(0.0, -std::sin(a)), 8) - 80 * std::pow(std::max(0.0, std::sin(a)), 8); };
        f.radiale(polare(0, 1350, r), rgb(0xff8a80), rgb(0xd32f2f), -350, 1050, 1600, 60, rgb(0x8e1b1b));
        f.pieno(ellisse(-450, 1000, 130, 230, 20), rgb(0xffffff, 150));
        return f;
    });
    s.attore(me, b, [fase](double t) { return P(0, -1500, 14 * S(t + fase)); });
}

void arcobaleno(Scena &s, const QTransform &b, double fase, int)
{
    const uint32_t colori[] = {0xe53935, 0xfb8c00, 0xfdd835, 0x43a047, 0x1e88e5, 0x8e24aa};
    const int nu = formaNuvola(s);
    for (int i = 0; i < 6; ++i) {
        const int fascia = s.forma(QStringLiteral("arcobaleno%1").arg(i), [i, colori] {
            Forma f;
            f.pieno(arco(0, 0, 1550 - 200 * (i + 1), 1550 - 200 * i, 180, 360, 32), rgb(colori[i]));
            return f;
        });
        s.attore(fascia, b, [fase, i](double t) { return P(0, 600, 0, 1, 1, 0.45 + 0.55 * (0.5 + 0.5 * S(t + fase - i / 6.0))); });
    }
    s.attore(nu, b, [fase](double t) { return P(-1250, 650 + 60 * S(t + fase), 0, 0.9, 0.9); });
    s.attore(nu, b, [fase](double t) { return P(1250, 650 - 60 * S(t + fase), 0, -0.9, 0.9); });
}

void razzo(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xe53935) : vivace(v);
    const int fiamma = s.forma("razzo.fiamma", [] {
        Forma f;
        Contorno k;
        k.inizio = QPoint(-280, 0);
        k.seg = {{true, QPoint(-200, 500), QPoint(0, 900)}, {true, QPoint(200, 500), QPoint(280, 0)}};
        f.pieno(k, rgb(0xff9800), 30, rgb(0xe65100));
        Contorno k2;
        k2.inizio = QPoint(-150, 0);
        k2.seg = {{true, QPoint(-100, 300), QPoint(0, 550)}, {true, QPoint(100, 300), QPoint(150, 0)}};
        f.pieno(k2, rgb(0xfff176));
        return f;
    });
    const int corpo = s.forma(QStringLiteral("razzo%1").arg(v), [c] {
        Forma f;
        f.pieno(poligono({{-400, 400}, {-800, 1000}, {-400, 900}}), c, 40, kContorno);
        f.pieno(poligono({{400, 400}, {800, 1000}, {400, 900}}), c, 40, kContorno);
        Contorno k;
        k.inizio = QPoint(-400, 900);
        k.seg = {{false, {}, QPoint(-400, -300)}, {true, QPoint(-380, -1100), QPoint(0, -1600)}, {true, QPoint(380, -1100), QPoint(400, -300)}, {false, {}, QPoint(400, 900)}};
        f.lineare(k, {{0, rgb(0xcfd8dc)}, {120, rgb(0xffffff)}, {255, rgb(0x90a4ae)}}, -400, 0, 400, 0);
        f.tratto(k, 50, kContorno);
        Contorno punta;
        punta.inizio = QPoint(-330, -700);
        punta.seg = {{true, QPoint(-250, -1200), QPoint(0, -1600)}, {true, QPoint(250, -1200), QPoint(330, -700)}};
        f.pieno(punta, c, 40, kContorno);
        f.pieno(cerchio(0, -100, 260), rgb(0x4fc3f7), 60, rgb(0x607d8b));
        f.pieno(cerchio(-80, -180, 70), rgb(0xffffff, 180));
        f.pieno(rettangolo(-90, 400, 180, 500), c, 30, kContorno);
        return f;
    });
    const int st = formaStellina(s, rgb(0xfff59d));
    for (int i = 0; i < 5; ++i)
        s.attore(st, b, [fase, i](double t) {
            const double u = frazione(t + fase + i * 0.2);
            return P(-1600 + i * 770 + (i % 2) * 200, -2300 + 4600 * u, 0, 0.5, 0.5, 0.8);
        });
    auto dondola = [fase](double t) { return QPointF(80 * S(t + fase), 150 * S(2 * (t + fase)) - 300); };
    s.attore(fiamma, b, [dondola, fase](double t) { return P(dondola(t).x(), dondola(t).y() + 900, 0, 1, 0.8 + 0.3 * std::abs(S(4 * (t + fase)))); });
    s.attore(corpo, b, [dondola](double t) { return P(dondola(t).x(), dondola(t).y()); });
}

void uccellino(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0x1e88e5) : vivace(v);
    const int corpo = s.forma(QStringLiteral("uccellino%1").arg(v), [c] {
        Forma f;
        f.pieno(poligono({{600, 0}, {1300, -350}, {1250, 250}}), scuro(c, 0.2), 40, kContorno);
        f.radiale(cerchio(0, 0, 750), chiaro(c, 0.4), c, -200, -200, 1000, 50, kContorno);
        f.pieno(ellisse(-150, 300, 420, 300), chiaro(c, 0.7));
        f.pieno(poligono({{-700, -150}, {-1150, 0}, {-700, 120}}), rgb(0xffa000), 30, kContorno);
        f.pieno(cerchio(-380, -250, 140), rgb(0xffffff), 30, kContorno);
        f.pieno(cerchio(-420, -250, 70), rgb(0x212121));
        return f;
    });
    const int ala = s.forma(QStringLiteral("uccellino.ala%1").arg(v), [c] {
        Forma f;
        f.pieno(ellisse(0, -350, 300, 450, 20), scuro(c, 0.15), 40, kContorno);
        return f;
    });
    auto pos = [fase](double t) { return QPointF(400 * S(t + fase), 250 * S(2 * (t + fase))); };
    s.attore(corpo, b, [pos](double t) { return P(pos(t).x(), pos(t).y()); });
    s.attore(ala, b, [pos, fase](double t) { return P(pos(t).x() + 150, pos(t).y() - 50, 0, 1, C(3 * (t + fase))); });
}

void girandola(Scena &s, const QTransform &b, double fase, int v)
{
    const int bastone = s.forma("girandola.bastone", [] {
        Forma f;
        f.pieno(rettangolo(-70, 0, 140, 1900, 40), rgb(0xa1887f), 30, kContorno);
        return f;
    });
    const int pale = s.forma(QStringLiteral("girandola%1").arg(v), [v] {
        Forma f;
        for (int i = 0; i < 4; ++i) {
            const double a = i * kPi / 2;
            auto ruota = [a](double x, double y) { return QPointF(x * std::cos(a) - y * std::sin(a), x * std::sin(a) + y * std::cos(a)); };
            Contorno k;
            k.inizio = punto(0, 0);
            const QPointF p1 = ruota(0, -1400), c1 = ruota(900, -1100), p2 = ruota(700, -300);
            k.seg = {{false, {}, punto(p1.x(), p1.y())}, {true, punto(c1.x(), c1.y()), punto(p2.x(), p2.y())}};
            f.pieno(k, vivace(v + i * 2 + (i % 2)), 40, kContorno);
        }
        f.pieno(cerchio(0, 0, 130), rgb(0xffeb3b), 30, kContorno);
        return f;
    });
    s.attore(bastone, b, [](double) { return P(0, -100); });
    s.attore(pale, b, [fase](double t) { return P(0, -300, 360 * frazione(t + fase)); });
}

void ape(Scena &s, const QTransform &b, double fase, int)
{
    const int ala = s.forma("ape.ala", [] {
        Forma f;
        f.pieno(ellisse(0, -350, 260, 380), rgb(0xe1f5fe, 190), 30, rgb(0x78909c));
        return f;
    });
    const int corpo = s.forma("ape", [] {
        Forma f;
        f.pieno(poligono({{750, -80}, {1050, 0}, {750, 80}}), rgb(0x212121));
        f.pieno(ellisse(0, 0, 800, 520), rgb(0xffd600), 50, kContorno);
        f.pieno(fettaEllisse(800, 520, -150, 50), rgb(0x212121));
        f.pieno(fettaEllisse(800, 520, 250, 430), rgb(0x212121));
        f.pieno(fettaEllisse(800, 520, 620, 720), rgb(0x212121));
        f.pieno(cerchio(-350, -120, 120), rgb(0xffffff), 25, kContorno);
        f.pieno(cerchio(-390, -120, 60), rgb(0x212121));
        f.pieno(arco(-450, 120, 100, 150, 30, 150, 8), rgb(0x5d4037));
        f.tratto(spezzata({{-600, -350}, {-800, -750}, {-950, -800}}), 35, kContorno);
        return f;
    });
    auto pos = [fase](double t) { return QPointF(700 * S(t + fase), 400 * S(2 * (t + fase))); };
    s.attore(ala, b, [pos, fase](double t) { return P(pos(t).x() + 150, pos(t).y() - 300, -15, 1, 0.4 + 0.6 * std::abs(C(4 * (t + fase)))); });
    s.attore(corpo, b, [pos](double t) { return P(pos(t).x(), pos(t).y()); });
    s.attore(ala, b, [pos, fase](double t) { return P(pos(t).x() - 50, pos(t).y() - 300, 15, 1, 0.4 + 0.6 * std::abs(C(4 * (t + fase) + 0.1))); });
}

void albero(Scena &s, const QTransform &b, double fase, int)
{
    const int tronco = s.forma("albero.tronco", [] {
        Forma f;
        f.pieno(poligono({{-250, 1900}, {-150, 0}, {150, 0}, {250, 1900}}), rgb(0x795548), 40, kContorno);
        return f;
    });
    const int chioma = s.forma("albero.chioma", [] {
        Forma f;
        f.nuvola({{-700, -700, 650}, {0, -1100, 750}, {700, -700, 650}, {-350, -200, 600}, {400, -150, 600}}, rgb(0x66bb6a), 60, rgb(0x2e7d32));
        for (auto [x, y] : std::vector<std::pair<int, int>>{{-600, -700}, {300, -1100}, {500, -300}, {-200, -300}})
            f.pieno(cerchio(x, y, 150), rgb(0xe53935), 30, rgb(0x8e1b1b));
        return f;
    });
    const int foglia = s.forma("foglia", [] {
        Forma f;
        f.pieno(ellisse(0, 0, 220, 110), rgb(0x9ccc65), 25, rgb(0x33691e));
        return f;
    });
    s.attore(tronco, b, [](double) { return P(0, 0); });
    s.attore(chioma, b, [fase](double t) { return P(0, 100, 3 * S(t + fase)); });
    s.attore(foglia, b, [fase](double t) {
        const double u = frazione(t + fase);
        return P(700 + 300 * S(2 * u), -200 + 2000 * u, 40 * S(2 * u), 1, 1, u > 0.8 ? (1 - u) * 5 : 1);
    });
}

void casa(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0xffcc80) : chiaro(vivace(v), 0.5);
    const int casa = s.forma(QStringLiteral("casa%1").arg(v), [c] {
        Forma f;
        f.pieno(rettangolo(500, -1400, 300, 700), rgb(0x8d6e63), 40, kContorno);
        f.pieno(rettangolo(-1200, -300, 2400, 1700), c, 50, kContorno);
        f.pieno(poligono({{-1500, -250}, {0, -1500}, {1500, -250}}), rgb(0xd84315), 50, kContorno);
        f.pieno(rettangolo(-300, 500, 600, 900, 80), rgb(0x6d4c41), 40, kContorno);
        f.pieno(cerchio(170, 950, 50), rgb(0xffd54f));
        for (double x : {-900.0, 500.0}) {
            f.pieno(rettangolo(x, 50, 450, 400), rgb(0xb3e5fc), 40, kContorno);
            f.pieno(rettangolo(x + 200, 50, 50, 400), rgb(0xffffff));
            f.pieno(rettangolo(x, 230, 450, 40), rgb(0xffffff));
        }
        return f;
    });
    const int sbuffo = formaSbuffo(s);
    s.attore(casa, b, [](double) { return P(0, 350); });
    for (int i = 0; i < 3; ++i)
        s.attore(sbuffo, b, [fase, i](double t) {
            const double u = frazione(t + fase + i / 3.0);
            return P(650 + 500 * u, -1250 - 900 * u, 0, 0.4 + 0.9 * u, 0.4 + 0.9 * u, 1 - u);
        });
}

void gelato(Scena &s, const QTransform &b, double fase, int v)
{
    const int cono = s.forma(QStringLiteral("gelato%1").arg(v), [v] {
        Forma f;
        f.pieno(poligono({{-650, 0}, {650, 0}, {0, 1800}}), rgb(0xffcc80), 50, rgb(0xa1662f));
        for (int i = 1; i <= 3; ++i) {
            const double y = i * 400.0, w = 650.0 * (1 - y / 1800);
            f.tratto(spezzata({{-w, y}, {w, y}}), 30, rgb(0xc68a4a));
        }
        f.tratto(spezzata({{-350, 0}, {120, 1400}}), 30, rgb(0xc68a4a));
        f.tratto(spezzata({{350, 0}, {-120, 1400}}), 30, rgb(0xc68a4a));
        const Col gusti[] = {rgb(0xf48fb1), rgb(0xa5d6a7), rgb(0x8d6e63), rgb(0xfff59d)};
        f.pieno(cerchio(-330, -250, 480), gusti[v % 4], 50, scuro(gusti[v % 4], 0.35));
        f.pieno(cerchio(330, -250, 480), gusti[(v + 1) % 4], 50, scuro(gusti[(v + 1) % 4], 0.35));
        f.pieno(cerchio(0, -800, 520), gusti[(v + 2) % 4], 50, scuro(gusti[(v + 2) % 4], 0.35));
        for (int i = 0; i < 7; ++i)
            f.pieno(rettangolo(-300 + (i * 137) % 600, -1000 + (i * 211) % 500, 90, 30, 15), vivace(i));
        return f;
    });
    const int ciliegia = s.forma("ciliegia", [] {
        Forma f;
        f.tratto(spezzata({{0, -200}, {100, -450}, {250, -550}}), 35, rgb(0x33691e));
        f.radiale(cerchio(0, 0, 230), rgb(0xff8a80), rgb(0xc62828), -80, -80, 320, 30, rgb(0x7f0000));
        return f;
    });
    s.attore(cono, b, [fase](double t) { return P(0, 200, 5 * S(t + fase)); });
    s.attore(ciliegia, b, [fase](double t) { return P(50 * S(t + fase), -1450 - 350 * std::abs(S(t + fase))); });
}

void treno(Scena &s, const QTransform &b, double fase, int v)
{
    const Col c = v == 0 ? rgb(0x1e88e5) : vivace(v);
    const int loco = s.forma(QStringLiteral("treno%1").arg(v), [c] {
        Forma f;
        f.pieno(rettangolo(-900, -1100, 250, 500), rgb(0x424242), 40, kContorno);
        f.pieno(rettangolo(-1050, -1250, 550, 180, 60), rgb(0x424242), 40, kContorno);
        f.pieno(rettangolo(-1300, -600, 1500, 900, 100), c, 50, kContorno);
        f.pieno(rettangolo(200, -1300, 1100, 1600, 80), rgb(0xe53935), 50, kContorno);
        f.pieno(rettangolo(100, -1450, 1300, 220, 80), rgb(0x424242), 40, kContorno);
        f.pieno(rettangolo(450, -1050, 600, 500, 60), rgb(0xb3e5fc), 40, kContorno);
        f.pieno(poligono({{-1300, 200}, {-1600, 500}, {-1300, 500}}), rgb(0xfdd835), 40, kContorno);
        f.pieno(cerchio(-1200, -300, 150), rgb(0xfff176), 30, kContorno);
        return f;
    });
    const int ruota = formaRuota(s);
    const int sbuffo = formaSbuffo(s);
    for (int i = 0; i < 3; ++i)
        s.attore(sbuffo, b, [fase, i](double t) {
            const double u = frazione(t + fase + i / 3.0);
            return P(-775 + 900 * u, -1400 - 700 * u, 0, 0.4 + 0.9 * u, 0.4 + 0.9 * u, 1 - u);
        });
    s.attore(loco, b, [fase](double t) { return P(0, -30 * std::abs(S(3 * (t + fase)))); });
    for (double x : {-800.0, 0.0, 850.0})
        s.attore(ruota, b, [x, fase](double t) { return P(x, 550, -360 * frazione(2 * (t + fase)), x > 500 ? 1.3 : 1, x > 500 ? 1.3 : 1); });
}

struct VoceSoggetto {
    const char *nome;
    const char *parola;
    const char *articolo;
    Soggetto disegna;
    enum Scenario { Cielo, Prato, Mare, Notte, Strada, Binari } scenario;
    Col sfondo;
};

const std::vector<VoceSoggetto> &catalogo()
{
    static const std::vector<VoceSoggetto> c = {
        {"sole", "sole", "il", sole, VoceSoggetto::Cielo, rgb(0xb3e5fc)},
        {"palla", "palla", "la", palla, VoceSoggetto::Prato, rgb(0xe1f5fe)},
        {"stella", "stella", "la", stellaGrande, VoceSoggetto::Notte, rgb(0x283593)},
        {"palloncino", "palloncino", "il", palloncino, VoceSoggetto::Cielo, rgb(0xe1f5fe)},
        {"pesce", "pesce", "il", pesce, VoceSoggetto::Mare, rgb(0x4fc3f7)},
        {"macchina", "macchina", "la", macchina, VoceSoggetto::Strada, rgb(0xdcedc8)},
        {"fiore", "fiore", "il", fiore, VoceSoggetto::Prato, rgb(0xfff9c4)},
        {"cuore", "cuore", "il", cuore, VoceSoggetto::Cielo, rgb(0xfce4ec)},
        {"luna", "luna", "la", luna, VoceSoggetto::Notte, rgb(0x1a237e)},
        {"nuvola", "nuvola", "la", nuvolaPioggia, VoceSoggetto::Prato, rgb(0xcfd8dc)},
        {"farfalla", "farfalla", "la", farfalla, VoceSoggetto::Prato, rgb(0xe8f5e9)},
        {"barca", "barca", "la", barca, VoceSoggetto::Mare, rgb(0xb3e5fc)},
        {"coccinella", "coccinella", "la", coccinella, VoceSoggetto::Prato, rgb(0xc5e1a5)},
        {"fragola", "fragola", "la", fragola, VoceSoggetto::Cielo, rgb(0xffebee)},
        {"mela", "mela", "la", mela, VoceSoggetto::Cielo, rgb(0xf1f8e9)},
        {"arcobaleno", "arcobaleno", "l'", arcobaleno, VoceSoggetto::Prato, rgb(0xb3e5fc)},
        {"razzo", "razzo", "il", razzo, VoceSoggetto::Notte, rgb(0x311b92)},
        {"uccellino", "uccellino", "l'", uccellino, VoceSoggetto::Cielo, rgb(0xe3f2fd)},
        {"girandola", "girandola", "la", girandola, VoceSoggetto::Prato, rgb(0xfff3e0)},
        {"ape", "ape", "l'", ape, VoceSoggetto::Prato, rgb(0xfffde7)},
        {"albero", "albero", "l'", albero, VoceSoggetto::Prato, rgb(0xe1f5fe)},
        {"casa", "casa", "la", casa, VoceSoggetto::Prato, rgb(0xbbdefb)},
        {"gelato", "gelato", "il", gelato, VoceSoggetto::Cielo, rgb(0xf3e5f5)},
        {"treno", "treno", "il", treno, VoceSoggetto::Binari, rgb(0xe0f7fa)},
    };
    return c;
}

// Backgrounds that move with the loop, for a stage w x h in twips.
void scenario(Scena &s, VoceSoggetto::Scenario tipo, double fase)
{
    const int w = s.larghezza(), h = s.altezza();
    const QTransform zero;
    switch (tipo) {
    case VoceSoggetto::Prato: {
        const int prato = s.forma(QStringLiteral("prato%1x%2").arg(w).arg(h), [w, h] {
            Forma f;
            std::vector<QPointF> p{{-20, h * 0.82}};
            for (int i = 0; i <= 16; ++i)
                p.emplace_back(w * i / 16.0, h * 0.8 + (i % 2 ? -h * 0.015 : h * 0.015));
            p.emplace_back(w + 20, h + 20);
            p.emplace_back(-20, h + 20);
            f.pieno(poligono(p), rgb(0x8bc34a), 40, rgb(0x558b2f));
            return f;
        });
        s.attore(prato, zero, [](double) { return P(0, 0); });
        break;
    }
    case VoceSoggetto::Cielo: {
        const int nu = formaNuvola(s);
        s.attore(nu, zero, [w, h, fase](double t) { return P(-1200 + (w + 2400) * frazione(t + fase), h * 0.15, 0, 0.5, 0.5, 0.9); });
        break;
    }
    case VoceSoggetto::Notte: {
        const int st = formaStellina(s, rgb(0xffffff));
        for (int i = 0; i < 6; ++i)
            s.attore(st, zero, [w, h, i, fase](double t) {
                const double k = 0.5 + 0.5 * S(t + fase + i / 6.0);
                return P(w * ((i * 0.37 + 0.08) - std::floor(i * 0.37 + 0.08)), h * ((i * 0.61 + 0.07) - std::floor(i * 0.61 + 0.07)), 0, 0.3 + 0.2 * k, 0.3 + 0.2 * k, 0.4 + 0.6 * k);
            });
        break;
    }
    case VoceSoggetto::Mare: {
        const int onda = s.forma(QStringLiteral("onda%1x%2").arg(w).arg(h), [w, h] {
            Forma f;
            std::vector<QPointF> p;
            for (int x = -2000; x <= w + 2000; x += 250)
                p.emplace_back(x, h * 0.82 + 90 * std::sin(2 * kPi * x / 1000.0));
            p.emplace_back(w + 2000, h + 40);
            p.emplace_back(-2000, h + 40);
            f.pieno(poligono(p), rgb(0x0288d1, 200), 40, rgb(0xe1f5fe));
            return f;
        });
        s.attore(onda, zero, [fase](double t) { return P(-1000 * frazione(2 * (t + fase)), 0); });
        break;
    }
    case VoceSoggetto::Strada:
    case VoceSoggetto::Binari: {
        const bool binari = tipo == VoceSoggetto::Binari;
        const int fondo = s.forma(QStringLiteral("strada%1x%2x%3").arg(w).arg(h).arg(binari), [w, h, binari] {
            Forma f;
            if (binari) {
                f.pieno(rettangolo(-20, h * 0.80, w + 40, h * 0.2 + 20), rgb(0xbcaaa4));
            } else {
                f.pieno(rettangolo(-20, h * 0.78, w + 40, h * 0.22 + 20), rgb(0x616161));
            }
            return f;
        });
        const int segni = s.forma(QStringLiteral("segni%1x%2x%3").arg(w).arg(h).arg(binari), [w, h, binari] {
            Forma f;
            for (int x = -1000; x <= w + 1000; x += 1000) {
                if (binari)
                    f.pieno(rettangolo(x, h * 0.83, 300, h * 0.06), rgb(0x6d4c41));
                else
                    f.pieno(rettangolo(x, h * 0.88, 500, 80), rgb(0xffffff));
            }
            if (binari)
                f.pieno(rettangolo(-1000, h * 0.845, w + 2000, 70), rgb(0x757575));
            return f;
        });
        s.attore(fondo, zero, [](double) { return P(0, 0); });
        s.attore(segni, zero, [fase](double t) { return P(-1000 * frazione(2 * (t + fase)), 0); });
        break;
    }
    }
}

const VoceSoggetto *trova(const QString &nome)
{
    for (const auto &v : catalogo())
        if (QLatin1String(v.nome) == nome)
            return &v;
    return nullptr;
}

QTransform posto(double x, double y, double scala) { return QTransform(scala, 0, 0, scala, x, y); }

struct Premio {
    const char *nome;
    VoceSoggetto::Scenario scenario;
    Col sfondo;
    // subject, x, y (fractions of the stage), scale, phase, variant
    std::vector<std::tuple<const char *, double, double, double, double, int>> figure;
};

const std::vector<Premio> &premi()
{
    static const std::vector<Premio> p = {
        {"premio_stelle", VoceSoggetto::Notte, rgb(0x283593),
         {{"stella", 0.2, 0.3, 0.8, 0.0, 0}, {"stella", 0.5, 0.6, 1.1, 0.3, 2}, {"stella", 0.8, 0.3, 0.8, 0.6, 4}, {"luna", 0.85, 0.8, 0.5, 0.2, 0}}},
        {"premio_palloncini", VoceSoggetto::Cielo, rgb(0xe1f5fe),
         {{"palloncino", 0.15, 0.5, 0.8, 0.0, 0}, {"palloncino", 0.38, 0.42, 0.9, 0.25, 1}, {"palloncino", 0.62, 0.5, 0.85, 0.5, 2}, {"palloncino", 0.85, 0.42, 0.8, 0.75, 3}}},
        {"premio_acquario", VoceSoggetto::Mare, rgb(0x29b6f6),
         {{"pesce", 0.3, 0.3, 0.7, 0.0, 0}, {"pesce", 0.7, 0.55, 0.8, 0.4, 1}, {"pesce", 0.35, 0.72, 0.55, 0.7, 6}}},
        {"premio_giardino", VoceSoggetto::Prato, rgb(0xfff9c4),
         {{"fiore", 0.15, 0.6, 0.7, 0.0, 0}, {"fiore", 0.38, 0.62, 0.8, 0.3, 2}, {"fiore", 0.62, 0.6, 0.7, 0.6, 4}, {"fiore", 0.85, 0.62, 0.75, 0.1, 5}}},
        {"premio_farfalle", VoceSoggetto::Prato, rgb(0xe8f5e9),
         {{"farfalla", 0.25, 0.35, 0.7, 0.0, 0}, {"farfalla", 0.72, 0.4, 0.8, 0.5, 1}, {"fiore", 0.5, 0.7, 0.6, 0.2, 6}}},
        {"premio_sole", VoceSoggetto::Prato, rgb(0xb3e5fc),
         {{"sole", 0.5, 0.4, 1.2, 0.0, 0}, {"uccellino", 0.18, 0.3, 0.5, 0.3, 0}, {"uccellino", 0.82, 0.45, 0.45, 0.7, 3}}},
        {"premio_corsa", VoceSoggetto::Strada, rgb(0xdcedc8),
         {{"macchina", 0.5, 0.62, 1.1, 0.0, 0}, {"sole", 0.85, 0.2, 0.45, 0.3, 0}}},
        {"premio_cuori", VoceSoggetto::Cielo, rgb(0xfce4ec),
         {{"cuore", 0.25, 0.4, 0.7, 0.0, 0}, {"cuore", 0.5, 0.6, 0.9, 0.33, 6}, {"cuore", 0.75, 0.4, 0.7, 0.66, 4}}},
        {"premio_girandole", VoceSoggetto::Prato, rgb(0xfff3e0),
         {{"girandola", 0.25, 0.45, 0.9, 0.0, 0}, {"girandola", 0.5, 0.4, 1.0, 0.3, 1}, {"girandola", 0.75, 0.45, 0.9, 0.6, 3}}},
        {"premio_api", VoceSoggetto::Prato, rgb(0xfffde7),
         {{"fiore", 0.3, 0.62, 0.75, 0.0, 2}, {"fiore", 0.72, 0.62, 0.75, 0.5, 0}, {"ape", 0.5, 0.35, 0.9, 0.0, 0}}},
        {"premio_arcobaleno", VoceSoggetto::Prato, rgb(0xb3e5fc),
         {{"arcobaleno", 0.5, 0.45, 1.6, 0.0, 0}, {"sole", 0.12, 0.2, 0.4, 0.5, 0}}},
        {"premio_coccinelle", VoceSoggetto::Prato, rgb(0xc5e1a5),
         {{"coccinella", 0.28, 0.45, 1.1, 0.0, 0}, {"coccinella", 0.72, 0.45, 1.1, 0.5, 0}}},
        {"premio_razzo", VoceSoggetto::Notte, rgb(0x311b92),
         {{"razzo", 0.5, 0.5, 1.1, 0.0, 0}, {"luna", 0.15, 0.25, 0.5, 0.3, 0}, {"stella", 0.85, 0.3, 0.4, 0.6, 2}}},
        {"premio_palle", VoceSoggetto::Prato, rgb(0xe1f5fe),
         {{"palla", 0.2, 0.52, 0.75, 0.0, 0}, {"palla", 0.5, 0.52, 0.75, 0.33, 1}, {"palla", 0.8, 0.52, 0.75, 0.66, 2}}},
        {"premio_trenino", VoceSoggetto::Binari, rgb(0xe0f7fa),
         {{"treno", 0.5, 0.6, 1.1, 0.0, 0}, {"nuvola", 0.2, 0.35, 0.4, 0.5, 0}}},
        {"premio_gelati", VoceSoggetto::Cielo, rgb(0xf3e5f5),
         {{"gelato", 0.25, 0.55, 0.75, 0.0, 0}, {"gelato", 0.5, 0.5, 0.85, 0.33, 1}, {"gelato", 0.75, 0.55, 0.75, 0.66, 2}}},
    };
    return p;
}

QByteArray comprimi(const QByteArray &fws, Compressione c)
{
    switch (c) {
    case Compressione::Zlib:
        return swftest::comprimiCws(fws);
    case Compressione::Lzma:
        return swftest::comprimiZws(fws);
    default:
        return fws;
    }
}

} // namespace

QStringList soggetti()
{
    QStringList l;
    for (const auto &v : catalogo())
        l << QString::fromLatin1(v.nome);
    return l;
}

QStringList scenePremio()
{
    QStringList l;
    for (const auto &p : premi())
        l << QString::fromLatin1(p.nome);
    return l;
}

QString parolaDi(const QString &soggetto)
{
    const VoceSoggetto *v = trova(soggetto);
    return v ? QString::fromLatin1(v->parola) : QString();
}

QString fraseDi(const QString &soggetto)
{
    const VoceSoggetto *v = trova(soggetto);
    if (!v)
        return {};
    const QString articolo = QString::fromLatin1(v->articolo);
    return articolo.endsWith(u'\'') ? articolo + QString::fromLatin1(v->parola) : articolo + u' ' + QString::fromLatin1(v->parola);
}

QByteArray creaFilm(const QString &nome, const Opzioni &o)
{
    if (nome == QLatin1String("palla-che-rimbalza"))
        return pallaCheRimbalza(o.fotogrammi > 0 ? o.fotogrammi : 24, o.larghezza > 0 ? o.larghezza : 200,
                                o.altezza > 0 ? o.altezza : 200, o.compressione);
    // subjects: 12 fps, 2 s; rewards: 10 fps, 3 s
    if (const VoceSoggetto *v = trova(nome)) {
        const int w = o.larghezza > 0 ? o.larghezza : 200, h = o.altezza > 0 ? o.altezza : 200;
        Scena s(w, h, v->sfondo);
        scenario(s, v->scenario, 0);
        const double k = std::min(w, h) / 200.0;
        v->disegna(s, posto(w * 10, h * 10, k), 0, 0);
        return comprimi(s.film(12, o.fotogrammi > 0 ? o.fotogrammi : 24, o.suono), o.compressione);
    }
    for (const Premio &p : premi()) {
        if (QLatin1String(p.nome) != nome)
            continue;
        const int w = o.larghezza > 0 ? o.larghezza : 400, h = o.altezza > 0 ? o.altezza : 376;  // the shape of the reward screen's film
        Scena s(w, h, p.sfondo);
        scenario(s, p.scenario, 0);
        const double k = std::min(w, h) / 200.0 * 0.5;
        for (const auto &[sogg, x, y, scala, fase, variante] : p.figure)
            if (const VoceSoggetto *v = trova(QLatin1String(sogg)))
                v->disegna(s, posto(w * 20 * x, h * 20 * y, k * scala), fase, variante);
        return comprimi(s.film(10, o.fotogrammi > 0 ? o.fotogrammi : 30, o.suono), o.compressione);
    }
    return {};
}

QByteArray pallaCheRimbalza(int fotogrammi, int w, int h, Compressione c)
{
    using namespace swftest;
    const int r = std::min(w, h) * 20 / 8;
    QByteArray t = sfondo(255, 244, 214);
    t += swftest::rettangolo(1, 0, h * 20 * 4 / 5, w * 20, h * 20, 0x7cb342ff);  // grass
    t += blob(2, 0, 0, r, 16, 0xe53935ff, 60);
    t += piazza(1, 1);
    for (int f = 0; f < fotogrammi; ++f) {
        const double fase = static_cast<double>(f) / fotogrammi;
        const int x = static_cast<int>((w * 20 - 4 * r) * fase) + 2 * r;
        const int y = h * 20 * 4 / 5 - r - static_cast<int>(std::abs(std::sin(fase * 2 * kPi)) * (h * 20 / 2));
        if (f == 0) {
            t += piazza(2, 2, x, y);
        } else {
            Bit m;
            m.u8(0x05);
            m.u16(2);
            matrice(m, x, y);
            t += swftest::tag(26, m.fine());
        }
        t += mostra();
    }
    return comprimi(film(t, fotogrammi, w, h), c);
}

bool leggiWav(const QByteArray &file, Colonna &c)
{
    auto u16 = [&](qsizetype p) { return static_cast<uint16_t>(static_cast<uint8_t>(file[p]) | (static_cast<uint8_t>(file[p + 1]) << 8)); };
    auto u32 = [&](qsizetype p) { return static_cast<uint32_t>(u16(p)) | (static_cast<uint32_t>(u16(p + 2)) << 16); };
    if (file.size() < 12 || !file.startsWith("RIFF") || file.mid(8, 4) != "WAVE")
        return false;
    bool formato = false;
    for (qsizetype p = 12; p + 8 <= file.size();) {
        const QByteArray id = file.mid(p, 4);
        const qsizetype n = u32(p + 4);
        const qsizetype dati = p + 8;
        if (n < 0 || dati + n > file.size())
            return false;
        if (id == "fmt " && n >= 16) {
            if (u16(dati) != 1 || u16(dati + 14) != 16)
                return false;
            c.canali = u16(dati + 2);
            c.frequenza = static_cast<int>(u32(dati + 4));
            formato = c.canali == 1 || c.canali == 2;
        } else if (id == "data" && formato) {
            c.campioni.resize(static_cast<size_t>(n / 2));
            for (qsizetype i = 0; i < n / 2; ++i)
                c.campioni[static_cast<size_t>(i)] = static_cast<int16_t>(u16(dati + 2 * i));
            return true;
        }
        p = dati + n + (n & 1);
    }
    return false;
}

} // namespace swfanim
