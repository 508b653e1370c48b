// Shapes, morph shapes, fonts and static text: from records to painter paths.

#include "modello.h"

#include <algorithm>
#include <unordered_map>

namespace swf {

namespace {

constexpr size_t kMaxRecords = 4'000'000;
constexpr size_t kMaxStyles = 65535;

Rgba leggiColore(Lettore &r, bool alfa)
{
    Rgba c;
    c.r = r.u8(); c.g = r.u8(); c.b = r.u8();
    c.a = alfa ? r.u8() : 255;
    return c;
}

void leggiGradiente(Lettore &r, bool alfa, bool focale, Gradiente &g)
{
    r.allinea();
    g.spread = static_cast<int>(r.ub(2));
    g.interp = static_cast<int>(r.ub(2));
    int n = static_cast<int>(r.ub(4));
    for (int i = 0; i < n; ++i) {
        uint8_t rapporto = r.u8();
        g.stop.emplace_back(rapporto, leggiColore(r, alfa));
    }
    if (focale)
        g.fuoco = std::clamp(r.fixed8(), -1.0, 1.0);
}

bool leggiRiempimento(Lettore &r, int versione, Riempimento &f)
{
    const bool alfa = versione >= 3;
    int tipo = r.u8();
    switch (tipo) {
    case 0x00:
        f.tipo = Riempimento::Solido;
        f.colore = leggiColore(r, alfa);
        break;
    case 0x10: case 0x12: case 0x13:
        f.tipo = Riempimento::Grad;
        f.grad.tipo = tipo == 0x10 ? Gradiente::Lineare : tipo == 0x12 ? Gradiente::Radiale : Gradiente::Focale;
        f.grad.matrice = leggiMatrice(r);
        leggiGradiente(r, alfa, tipo == 0x13, f.grad);
        break;
    case 0x40: case 0x41: case 0x42: case 0x43:
        f.tipo = Riempimento::Bitmap;
        f.bitmapId = r.u16();
        f.matriceBitmap = leggiMatrice(r);
        f.ripeti = tipo == 0x40 || tipo == 0x42;
        f.liscio = tipo == 0x40 || tipo == 0x41;
        break;
    default:
        return false;
    }
    return r.ok();
}

bool leggiStili(Lettore &r, int versione, StratoForma &s)
{
    size_t n = r.u8();
    if (n == 0xff && versione >= 2)
        n = r.u16();
    // a damaged count can claim thousands: room grows with what is read
    s.riempimenti.reserve(std::min<size_t>(n, 64));
    for (size_t i = 0; i < n && r.ok(); ++i) {
        Riempimento f;
        if (!leggiRiempimento(r, versione, f))
            return false;
        s.riempimenti.push_back(std::move(f));
    }
    n = r.u8();
    if (n == 0xff && versione >= 2)
        n = r.u16();
    s.tratti.reserve(std::min<size_t>(n, 64));
    for (size_t i = 0; i < n && r.ok(); ++i) {
        Tratto t;
        t.larghezza = r.u16();
        if (versione >= 4) {
            r.allinea();
            t.capInizio = static_cast<int>(r.ub(2));
            t.giunzione = static_cast<int>(r.ub(2));
            t.conRiempimento = r.flag();
            t.noHScale = r.flag();
            t.noVScale = r.flag();
            t.pixelHinting = r.flag();
            r.ub(5);
            t.noClose = r.flag();
            t.capFine = static_cast<int>(r.ub(2));
            if (t.giunzione == 2)
                t.miter = r.u16() / 256.0;
            if (t.conRiempimento) {
                if (!leggiRiempimento(r, versione, t.riempimento))
                    return false;
                t.colore = t.riempimento.colore;
            } else {
                t.colore = leggiColore(r, true);
            }
        } else {
            t.colore = leggiColore(r, versione >= 3);
        }
        s.tratti.push_back(std::move(t));
    }
    return r.ok();
}

// Reads SHAPERECORDs into absolute records. New style groups are read by
// nuoviStili (null where none may appear, e.g. fonts and morph shapes).
template <typename F>
bool leggiRecord(Lettore &r, std::vector<Record> &out, F &&nuoviStili)
{
    r.allinea();
    int bitF = static_cast<int>(r.ub(4));
    int bitL = static_cast<int>(r.ub(4));
    int32_t x = 0, y = 0;
    int strato = 0;
    while (r.ok() && out.size() < kMaxRecords) {
        if (r.flag()) {
            Record e;
            if (r.flag()) {
                int n = static_cast<int>(r.ub(4)) + 2;
                int32_t dx = 0, dy = 0;
                if (r.flag()) {
                    dx = r.sb(n);
                    dy = r.sb(n);
                } else if (r.flag()) {
                    dy = r.sb(n);
                } else {
                    dx = r.sb(n);
                }
                e.tipo = Record::Retta;
                e.cx = x + dx / 2;
                e.cy = y + dy / 2;
                x += dx;
                y += dy;
            } else {
                int n = static_cast<int>(r.ub(4)) + 2;
                int32_t cdx = r.sb(n), cdy = r.sb(n), adx = r.sb(n), ady = r.sb(n);
                e.tipo = Record::Curva;
                e.cx = x + cdx;
                e.cy = y + cdy;
                x = e.cx + adx;
                y = e.cy + ady;
            }
            e.x = x;
            e.y = y;
            if (!r.ok())
                return false;
            out.push_back(e);
            continue;
        }
        uint32_t flags = r.ub(5);
        if (flags == 0)
            break;
        Record s;
        s.tipo = Record::Stile;
        if (flags & 0x01) {
            int n = static_cast<int>(r.ub(5));
            s.sposta = true;
            x = s.mx = r.sb(n);
            y = s.my = r.sb(n);
        }
        if (flags & 0x02) { s.haF0 = true; s.f0 = r.ub(bitF); }
        if (flags & 0x04) { s.haF1 = true; s.f1 = r.ub(bitF); }
        if (flags & 0x08) { s.haL = true; s.l = r.ub(bitL); }
        if (flags & 0x10) {
            if (!nuoviStili(r))
                return false;
            s.nuovoStrato = ++strato;
            r.allinea();
            bitF = static_cast<int>(r.ub(4));
            bitL = static_cast<int>(r.ub(4));
        }
        if (!r.ok())
            return false;
        out.push_back(s);
    }
    return true;
}

struct Lato {
    int32_t x0, y0, cx, cy, x1, y1;
    bool curva;
};

inline uint64_t chiave(int32_t x, int32_t y)
{
    return (static_cast<uint64_t>(static_cast<uint32_t>(x)) << 32) | static_cast<uint32_t>(y);
}

void aggiungiLato(QPainterPath &p, const Lato &l)
{
    if (l.curva)
        p.quadTo(l.cx, l.cy, l.x1, l.y1);
    else
        p.lineTo(l.x1, l.y1);
}

// Links the edges of one fill style into closed contours: each edge belongs to
// exactly one contour, so the even-odd area does not depend on how they chain.
QPainterPath concatena(const std::vector<Lato> &lati)
{
    QPainterPath p;
    if (lati.empty())
        return p;
    std::unordered_map<uint64_t, std::vector<uint32_t>> daInizio;
    daInizio.reserve(lati.size());
    for (uint32_t i = 0; i < lati.size(); ++i)
        daInizio[chiave(lati[i].x0, lati[i].y0)].push_back(i);
    std::vector<char> usato(lati.size(), 0);
    for (uint32_t i = 0; i < lati.size(); ++i) {
        if (usato[i])
            continue;
        const int32_t sx = lati[i].x0, sy = lati[i].y0;
        p.moveTo(sx, sy);
        uint32_t cur = i;
        for (;;) {
            usato[cur] = 1;
            aggiungiLato(p, lati[cur]);
            const Lato &l = lati[cur];
            if (l.x1 == sx && l.y1 == sy)
                break;
            auto it = daInizio.find(chiave(l.x1, l.y1));
            if (it == daInizio.end())
                break;
            auto &v = it->second;
            while (!v.empty() && usato[v.back()])
                v.pop_back();
            if (v.empty())
                break;
            cur = v.back();
            v.pop_back();
        }
        p.closeSubpath();
    }
    return p;
}

} // namespace

void costruisciForma(const std::vector<Record> &record, std::vector<StratoForma> &strati, Forma &forma)
{
    if (strati.empty())
        strati.emplace_back();
    struct Linea {
        std::vector<Lato> lati;
    };
    std::vector<std::vector<std::vector<Lato>>> aree(strati.size());
    std::vector<std::vector<std::vector<Linea>>> linee(strati.size());
    for (size_t s = 0; s < strati.size(); ++s) {
        aree[s].resize(strati[s].riempimenti.size());
        linee[s].resize(strati[s].tratti.size());
    }
    size_t strato = 0;
    uint32_t f0 = 0, f1 = 0, ln = 0;
    int32_t x = 0, y = 0;
    for (const Record &rec : record) {
        if (rec.tipo == Record::Stile) {
            if (rec.nuovoStrato >= 0 && static_cast<size_t>(rec.nuovoStrato) < strati.size()) {
                strato = static_cast<size_t>(rec.nuovoStrato);
                f0 = f1 = ln = 0;
            }
            if (rec.sposta) { x = rec.mx; y = rec.my; }
            if (rec.haF0) f0 = rec.f0;
            if (rec.haF1) f1 = rec.f1;
            if (rec.haL) ln = rec.l;
            continue;
        }
        Lato l{x, y, rec.cx, rec.cy, rec.x, rec.y, rec.tipo == Record::Curva};
        x = rec.x;
        y = rec.y;
        auto &a = aree[strato];
        if (f1 > 0 && f1 <= a.size())
            a[f1 - 1].push_back(l);
        if (f0 > 0 && f0 <= a.size())
            a[f0 - 1].push_back(Lato{l.x1, l.y1, l.cx, l.cy, l.x0, l.y0, l.curva});
        auto &li = linee[strato];
        if (ln > 0 && ln <= li.size()) {
            auto &v = li[ln - 1];
            if (v.empty() || v.back().lati.back().x1 != l.x0 || v.back().lati.back().y1 != l.y0)
                v.emplace_back();
            v.back().lati.push_back(l);
        }
    }
    QRectF limiti;
    for (size_t s = 0; s < strati.size(); ++s) {
        auto &st = strati[s];
        st.areePerStile.clear();
        st.lineePerStile.clear();
        for (auto &lati : aree[s]) {
            QPainterPath p = concatena(lati);
            p.setFillRule(forma.nonZero ? Qt::WindingFill : Qt::OddEvenFill);
            st.areePerStile.push_back(std::move(p));
        }
        for (size_t i = 0; i < linee[s].size(); ++i) {
            QPainterPath p;
            const bool apri = st.tratti[i].noClose;
            for (auto &lin : linee[s][i]) {
                p.moveTo(lin.lati.front().x0, lin.lati.front().y0);
                for (auto &l : lin.lati)
                    aggiungiLato(p, l);
                const auto &a = lin.lati.front();
                const auto &b = lin.lati.back();
                if (!apri && a.x0 == b.x1 && a.y0 == b.y1)
                    p.closeSubpath();
            }
            st.lineePerStile.push_back(std::move(p));
        }
    }
    forma.strati = std::move(strati);
    forma.contornoPronto = false;
}

const QPainterPath &contornoForma(Forma &f)
{
    if (!f.contornoPronto) {
        QPainterPath u;
        u.setFillRule(Qt::WindingFill);
        for (auto &s : f.strati)
            for (auto &p : s.areePerStile) {
                if (p.isEmpty())
                    continue;
                // each style's own rule decides its area; merge them as plain polygons
                for (const QPolygonF &poli : p.toFillPolygons())
                    u.addPolygon(poli);
            }
        f.contorno = u.simplified();
        f.contornoPronto = true;
    }
    return f.contorno;
}

bool leggiForma(Lettore &r, int versione, Forma &forma)
{
    r.allinea();
    int nb = static_cast<int>(r.ub(5));
    double x0 = r.sb(nb), x1 = r.sb(nb), y0 = r.sb(nb), y1 = r.sb(nb);
    forma.limiti = QRectF(QPointF(x0, y0), QPointF(x1, y1));
    if (versione >= 4) {
        r.allinea();
        nb = static_cast<int>(r.ub(5));
        r.sb(nb); r.sb(nb); r.sb(nb); r.sb(nb);
        r.allinea();
        uint8_t f = r.u8();
        forma.nonZero = f & 0x04;
    }
    std::vector<StratoForma> strati(1);
    if (!leggiStili(r, versione, strati[0]))
        return false;
    std::vector<Record> record;
    auto nuovi = [&](Lettore &rr) {
        if (strati.size() > 4096)
            return false;
        StratoForma s;
        rr.allinea();
        if (!leggiStili(rr, versione, s))
            return false;
        strati.push_back(std::move(s));
        return true;
    };
    // A shape cut short still draws what was read.
    leggiRecord(r, record, nuovi);
    costruisciForma(record, strati, forma);
    return true;
}

// ---------------------------------------------------------------- morph

namespace {

bool leggiRiempimentoMorph(Lettore &r, Riempimento &a, Riempimento &b)
{
    int tipo = r.u8();
    switch (tipo) {
    case 0x00:
        a.tipo = b.tipo = Riempimento::Solido;
        a.colore = leggiColore(r, true);
        b.colore = leggiColore(r, true);
        break;
    case 0x10: case 0x12: case 0x13: {
        a.tipo = b.tipo = Riempimento::Grad;
        a.grad.tipo = b.grad.tipo = tipo == 0x10 ? Gradiente::Lineare : tipo == 0x12 ? Gradiente::Radiale : Gradiente::Focale;
        a.grad.matrice = leggiMatrice(r);
        b.grad.matrice = leggiMatrice(r);
        uint8_t testa = r.u8();
        a.grad.spread = b.grad.spread = testa >> 6;
        a.grad.interp = b.grad.interp = (testa >> 4) & 3;
        int n = testa & 15;
        for (int i = 0; i < n; ++i) {
            uint8_t ra = r.u8();
            Rgba ca = leggiColore(r, true);
            uint8_t rb = r.u8();
            Rgba cb = leggiColore(r, true);
            a.grad.stop.emplace_back(ra, ca);
            b.grad.stop.emplace_back(rb, cb);
        }
        if (tipo == 0x13) {
            a.grad.fuoco = std::clamp(r.fixed8(), -1.0, 1.0);
            b.grad.fuoco = std::clamp(r.fixed8(), -1.0, 1.0);
        }
        break;
    }
    case 0x40: case 0x41: case 0x42: case 0x43:
        a.tipo = b.tipo = Riempimento::Bitmap;
        a.bitmapId = b.bitmapId = r.u16();
        a.matriceBitmap = leggiMatrice(r);
        b.matriceBitmap = leggiMatrice(r);
        a.ripeti = b.ripeti = tipo == 0x40 || tipo == 0x42;
        a.liscio = b.liscio = tipo == 0x40 || tipo == 0x41;
        break;
    default:
        return false;
    }
    return r.ok();
}

double mescola(double a, double b, double t) { return a + (b - a) * t; }

Rgba mescolaColore(const Rgba &a, const Rgba &b, double t)
{
    auto m = [&](uint8_t x, uint8_t y) { return static_cast<uint8_t>(std::lround(mescola(x, y, t))); };
    return Rgba{m(a.r, b.r), m(a.g, b.g), m(a.b, b.b), m(a.a, b.a)};
}

QTransform mescolaMatrice(const QTransform &a, const QTransform &b, double t)
{
    return QTransform(mescola(a.m11(), b.m11(), t), mescola(a.m12(), b.m12(), t), mescola(a.m21(), b.m21(), t),
                      mescola(a.m22(), b.m22(), t), mescola(a.dx(), b.dx(), t), mescola(a.dy(), b.dy(), t));
}

Riempimento mescolaRiempimento(const Riempimento &a, const Riempimento &b, double t)
{
    Riempimento r = a;
    r.colore = mescolaColore(a.colore, b.colore, t);
    r.grad.matrice = mescolaMatrice(a.grad.matrice, b.grad.matrice, t);
    r.grad.fuoco = mescola(a.grad.fuoco, b.grad.fuoco, t);
    for (size_t i = 0; i < r.grad.stop.size() && i < b.grad.stop.size(); ++i) {
        r.grad.stop[i].first = static_cast<uint8_t>(std::lround(mescola(a.grad.stop[i].first, b.grad.stop[i].first, t)));
        r.grad.stop[i].second = mescolaColore(a.grad.stop[i].second, b.grad.stop[i].second, t);
    }
    r.matriceBitmap = mescolaMatrice(a.matriceBitmap, b.matriceBitmap, t);
    return r;
}

} // namespace

bool leggiMorph(Lettore &r, int versione, Morph &m)
{
    auto rect = [&]() {
        r.allinea();
        int nb = static_cast<int>(r.ub(5));
        double x0 = r.sb(nb), x1 = r.sb(nb), y0 = r.sb(nb), y1 = r.sb(nb);
        r.allinea();
        return QRectF(QPointF(x0, y0), QPointF(x1, y1));
    };
    m.limitiInizio = rect();
    m.limitiFine = rect();
    if (versione >= 2) {
        rect();
        rect();
        r.u8();
    }
    uint32_t offset = r.u32();
    const size_t baseFine = r.pos();
    size_t n = r.u8();
    if (n == 0xff)
        n = r.u16();
    for (size_t i = 0; i < n; ++i) {
        Riempimento a, b;
        if (!leggiRiempimentoMorph(r, a, b))
            return false;
        m.riempInizio.push_back(a);
        m.riempFine.push_back(b);
    }
    n = r.u8();
    if (n == 0xff)
        n = r.u16();
    for (size_t i = 0; i < n && r.ok(); ++i) {
        Tratto a, b;
        a.larghezza = r.u16();
        b.larghezza = r.u16();
        if (versione >= 2) {
            r.allinea();
            a.capInizio = static_cast<int>(r.ub(2));
            a.giunzione = static_cast<int>(r.ub(2));
            a.conRiempimento = r.flag();
            a.noHScale = r.flag();
            a.noVScale = r.flag();
            a.pixelHinting = r.flag();
            r.ub(5);
            a.noClose = r.flag();
            a.capFine = static_cast<int>(r.ub(2));
            if (a.giunzione == 2)
                a.miter = r.u16() / 256.0;
            Tratto copia = a;
            copia.larghezza = b.larghezza;
            b = copia;
            if (a.conRiempimento) {
                if (!leggiRiempimentoMorph(r, a.riempimento, b.riempimento))
                    return false;
                a.colore = a.riempimento.colore;
                b.colore = b.riempimento.colore;
            } else {
                a.colore = leggiColore(r, true);
                b.colore = leggiColore(r, true);
            }
        } else {
            a.colore = leggiColore(r, true);
            b.colore = leggiColore(r, true);
        }
        m.trattiInizio.push_back(a);
        m.trattiFine.push_back(b);
    }
    if (!r.ok())
        return false;
    auto nessuno = [](Lettore &) { return false; };
    leggiRecord(r, m.inizio, nessuno);
    if (offset > 0 && baseFine + offset <= r.size())
        r.vaiA(baseFine + offset);
    leggiRecord(r, m.fine, nessuno);
    return true;
}

std::shared_ptr<Forma> formaMorph(Morph &m, int rapporto)
{
    if (m.cache && m.ultimoRapporto == rapporto)
        return m.cache;
    const double t = rapporto / 65535.0;
    std::vector<Record> rec;
    rec.reserve(m.inizio.size());
    size_t j = 0;
    auto prossimoLato = [&]() -> const Record * {
        while (j < m.fine.size() && m.fine[j].tipo == Record::Stile && !m.fine[j].sposta)
            ++j;
        return j < m.fine.size() ? &m.fine[j] : nullptr;
    };
    int32_t xa = 0, ya = 0, xb = 0, yb = 0;
    for (const Record &a : m.inizio) {
        Record out = a;
        if (a.tipo == Record::Stile) {
            if (a.sposta) {
                const Record *b = prossimoLato();
                int32_t bx = a.mx, by = a.my;
                if (b && b->tipo == Record::Stile) {
                    bx = b->mx;
                    by = b->my;
                    ++j;
                }
                out.mx = static_cast<int32_t>(std::lround(mescola(a.mx, bx, t)));
                out.my = static_cast<int32_t>(std::lround(mescola(a.my, by, t)));
                xa = a.mx; ya = a.my; xb = bx; yb = by;
            }
            rec.push_back(out);
            continue;
        }
        const Record *b = prossimoLato();
        Record eb = a;
        if (b && b->tipo == Record::Stile) {
            // the end shape moved where the start shape did not: follow it
            xb = b->mx;
            yb = b->my;
            ++j;
            b = prossimoLato();
        }
        if (b && b->tipo != Record::Stile) {
            eb = *b;
            ++j;
        } else {
            eb.cx = xb + (a.cx - xa);
            eb.cy = yb + (a.cy - ya);
            eb.x = xb + (a.x - xa);
            eb.y = yb + (a.y - ya);
        }
        xa = a.x; ya = a.y; xb = eb.x; yb = eb.y;
        out.tipo = (a.tipo == Record::Curva || eb.tipo == Record::Curva) ? Record::Curva : Record::Retta;
        out.cx = static_cast<int32_t>(std::lround(mescola(a.cx, eb.cx, t)));
        out.cy = static_cast<int32_t>(std::lround(mescola(a.cy, eb.cy, t)));
        out.x = static_cast<int32_t>(std::lround(mescola(a.x, eb.x, t)));
        out.y = static_cast<int32_t>(std::lround(mescola(a.y, eb.y, t)));
        rec.push_back(out);
    }
    std::vector<StratoForma> strati(1);
    for (size_t i = 0; i < m.riempInizio.size(); ++i)
        strati[0].riempimenti.push_back(mescolaRiempimento(m.riempInizio[i], m.riempFine[i], t));
    for (size_t i = 0; i < m.trattiInizio.size(); ++i) {
        Tratto tr = m.trattiInizio[i];
        const Tratto &b = m.trattiFine[i];
        tr.larghezza = static_cast<uint16_t>(std::lround(mescola(tr.larghezza, b.larghezza, t)));
        tr.colore = mescolaColore(tr.colore, b.colore, t);
        if (tr.conRiempimento)
            tr.riempimento = mescolaRiempimento(tr.riempimento, b.riempimento, t);
        strati[0].tratti.push_back(tr);
    }
    auto f = std::make_shared<Forma>();
    QRectF a = m.limitiInizio, b = m.limitiFine;
    f->limiti = QRectF(QPointF(mescola(a.left(), b.left(), t), mescola(a.top(), b.top(), t)),
                       QPointF(mescola(a.right(), b.right(), t), mescola(a.bottom(), b.bottom(), t)));
    costruisciForma(rec, strati, *f);
    m.cache = f;
    m.ultimoRapporto = rapporto;
    return f;
}

// ---------------------------------------------------------------- fonts and text

namespace {

QPainterPath percorsoGlifo(Lettore r)
{
    std::vector<Record> rec;
    auto nessuno = [](Lettore &) { return false; };
    leggiRecord(r, rec, nessuno);
    QPainterPath p;
    p.setFillRule(Qt::OddEvenFill);
    bool aperto = false;
    for (const Record &e : rec) {
        if (e.tipo == Record::Stile) {
            if (e.sposta) {
                if (aperto)
                    p.closeSubpath();
                p.moveTo(e.mx, e.my);
                aperto = true;
            }
            continue;
        }
        if (!aperto) {
            p.moveTo(0, 0);
            aperto = true;
        }
        if (e.tipo == Record::Curva)
            p.quadTo(e.cx, e.cy, e.x, e.y);
        else
            p.lineTo(e.x, e.y);
    }
    if (aperto)
        p.closeSubpath();
    return p;
}

} // namespace

bool leggiCarattere(Lettore &r, int versione, Carattere &c)
{
    if (versione == 1) {
        const size_t base = r.pos();
        uint16_t primo = r.u16();
        size_t n = primo / 2;
        if (!r.ok() || n == 0)
            return r.ok();
        std::vector<uint32_t> off{primo};
        for (size_t i = 1; i < n; ++i)
            off.push_back(r.u16());
        for (size_t i = 0; i < n && r.ok(); ++i) {
            size_t inizio = base + off[i];
            size_t fine = i + 1 < n ? base + off[i + 1] : r.size();
            if (inizio >= r.size() || fine > r.size() || fine < inizio) {
                c.glifi.emplace_back();
                continue;
            }
            c.glifi.push_back(Glifo{percorsoGlifo(Lettore(r.dati() + inizio, fine - inizio))});
        }
        return r.ok();
    }
    uint8_t flags = r.u8();
    r.u8();  // language
    c.grassetto = flags & 0x01;
    c.corsivo = flags & 0x02;
    {
        int ln = r.u8();
        if (static_cast<size_t>(ln) <= r.restanti())
            c.nome = QByteArray(reinterpret_cast<const char *>(r.qui()), ln);
        r.salta(static_cast<size_t>(ln));
        while (c.nome.endsWith('\0'))
            c.nome.chop(1);
    }
    size_t n = r.u16();
    const bool larghi = flags & 0x08;
    const size_t base = r.pos();
    std::vector<uint32_t> off;
    for (size_t i = 0; i < n && r.ok(); ++i)
        off.push_back(larghi ? r.u32() : r.u16());
    uint32_t codici = n > 0 ? (larghi ? r.u32() : r.u16()) : 0;
    if (!r.ok())
        return false;
    c.unitaEm = versione == 3 ? 20480 : 1024;
    for (size_t i = 0; i < n; ++i) {
        size_t inizio = base + off[i];
        size_t fine = i + 1 < n ? base + off[i + 1] : base + codici;
        if (inizio >= r.size() || fine > r.size() || fine < inizio) {
            c.glifi.emplace_back();
            continue;
        }
        c.glifi.push_back(Glifo{percorsoGlifo(Lettore(r.dati() + inizio, fine - inizio))});
    }
    // the code table, then the layout: a font read without them still draws its glyphs
    if (n > 0)
        r.vaiA(base + codici);
    const bool codiciLarghi = flags & 0x04;
    for (size_t i = 0; i < n && r.ok(); ++i)
        c.codici.push_back(codiciLarghi ? r.u16() : r.u8());
    if (!r.ok()) {
        c.codici.clear();
        return true;
    }
    if (flags & 0x80) {
        c.ascesa = r.u16();
        c.discesa = r.u16();
        c.interlinea = r.s16();
        for (size_t i = 0; i < n && r.ok(); ++i)
            c.avanzi.push_back(r.s16());
        c.haLayout = r.ok();
        if (!c.haLayout)
            c.avanzi.clear();
    }
    return true;
}

void leggiInfoCarattere(Lettore &r, int versione, Film &film)
{
    const uint16_t id = r.u16();
    auto it = film.definizioni.find(id);
    if (it == film.definizioni.end() || !it->second.carattere)
        return;
    Carattere &c = *it->second.carattere;
    const int ln = r.u8();
    QByteArray nome;
    if (static_cast<size_t>(ln) <= r.restanti())
        nome = QByteArray(reinterpret_cast<const char *>(r.qui()), ln);
    r.salta(static_cast<size_t>(ln));
    while (nome.endsWith('\0'))
        nome.chop(1);
    const uint8_t flags = r.u8();
    if (versione == 2)
        r.u8();  // language
    if (!r.ok())
        return;
    c.nome = nome;
    c.grassetto = flags & 0x02;
    c.corsivo = flags & 0x04;
    const bool larghi = versione == 2 || (flags & 0x01);
    std::vector<uint16_t> codici;
    for (size_t i = 0; i < c.glifi.size() && r.restanti() >= (larghi ? 2u : 1u); ++i)
        codici.push_back(larghi ? r.u16() : r.u8());
    c.codici = std::move(codici);
}

bool leggiTesto(Lettore &r, int versione, Testo &t)
{
    r.allinea();
    int nb = static_cast<int>(r.ub(5));
    double x0 = r.sb(nb), x1 = r.sb(nb), y0 = r.sb(nb), y1 = r.sb(nb);
    t.limiti = QRectF(QPointF(x0, y0), QPointF(x1, y1));
    t.matrice = leggiMatrice(r);
    int bitG = r.u8();
    int bitA = r.u8();
    if (!r.ok() || bitG > 32 || bitA > 32)
        return false;
    VoceTesto stato;
    double x = 0, y = 0;
    while (r.ok() && t.voci.size() < 100000) {
        uint8_t testa = r.u8();
        if (testa == 0 || !r.ok())
            break;
        if (testa & 0x08)
            stato.font = r.u16();
        if (testa & 0x04)
            stato.colore = leggiColore(r, versione >= 2);
        if (testa & 0x01)
            x = r.s16();
        if (testa & 0x02)
            y = r.s16();
        if (testa & 0x08)
            stato.altezza = r.u16();
        int n = r.u8();
        VoceTesto v = stato;
        v.glifi.clear();
        v.x = x;
        v.y = y;
        for (int i = 0; i < n && r.ok(); ++i) {
            uint32_t g = r.ub(bitG);
            int32_t a = r.sb(bitA);
            v.glifi.emplace_back(g, a);
            x += a;
        }
        r.allinea();
        t.voci.push_back(std::move(v));
    }
    return true;
}

bool leggiCampoTesto(Lettore &r, int versioneSwf, CampoTesto &c)
{
    r.allinea();
    int nb = static_cast<int>(r.ub(5));
    double x0 = r.sb(nb), x1 = r.sb(nb), y0 = r.sb(nb), y1 = r.sb(nb);
    c.limiti = QRectF(QPointF(x0, y0), QPointF(x1, y1));
    uint8_t f1 = r.u8(), f2 = r.u8();
    c.aCapo = f1 & 0x40;
    c.multilinea = f1 & 0x20;
    c.bordo = f2 & 0x08;
    c.html = f2 & 0x02;
    c.contorni = f2 & 0x01;
    if (f1 & 0x01)
        c.font = r.u16();
    if (f2 & 0x80)
        r.stringa();
    if ((f1 & 0x01) || (f2 & 0x80))
        c.altezza = r.u16();
    if (f1 & 0x04) {
        c.haColore = true;
        c.colore = leggiColore(r, true);
    }
    if (f1 & 0x02)
        r.u16();
    if (f2 & 0x20) {
        c.allinea = r.u8();
        c.margineSx = r.u16();
        c.margineDx = r.u16();
        r.u16();
        c.interlinea = r.s16();
    }
    r.stringa();
    if (f1 & 0x80) {
        QByteArray t = r.stringa();
        c.testo = versioneSwf >= 6 ? QString::fromUtf8(t) : QString::fromLatin1(t);
        PezzoTesto base;
        base.colore = c.colore;
        base.altezza = c.altezza;
        c.paragrafi = c.html ? paragrafiDaHtml(c.testo, base, c.allinea) : paragrafiSemplici(c.testo, base, c.allinea);
    }
    return r.ok() || !c.limiti.isEmpty();
}

} // namespace swf
