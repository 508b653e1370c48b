// Drawing a display list with QPainter: shapes, bitmaps, text, masks,
// blend modes and filters. Everything is drawn into a premultiplied ARGB
// image so that blend modes and filters can read back what lies below.

#include "filtri.h"
#include "riproduzione.h"
#include "testo.h"

#include "swf/filmato.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>

#include <array>
#include <cmath>

namespace swf {

namespace {

struct Ctx {
    const Film &film;
    OpzioniDisegno opz;
    QSize dimensione;
    bool inStrato = false;  // inside a 'layer' group: alpha and erase apply
    int annidamento = 0;
    // where in the pixel this pass samples the edges, as a shift of the
    // whole picture; colours are still taken at the pixel's centre
    QPointF campione = {};
    // work left for this picture, shared by every copy of the context: path
    // elements handed to the rasteriser, layers made, bitmaps recoloured. A
    // film that draws thousands of huge shapes stops being drawn when it runs
    // out, instead of holding the face for seconds.
    int64_t *lavoro = nullptr;
    // the last bitmap rewritten under a colour transform in this picture,
    // shared like the work: a pattern of copies of one faded bitmap rewrites
    // its pixels once
    struct Colorato {
        qint64 chiave = 0;
        ColorTransform cx;
        QImage img;
    } *colorato = nullptr;
};

// A children's picture needs a few thousand path elements; this is hundreds
// of times that, and about a tenth of a second of rasterising at its worst.
constexpr int64_t kMaxLavoroPerQuadro = 2'000'000;

// What a path costs the rasteriser: its elements, and far more when it reaches
// beyond the raster engine's fixed-point range and has to be clipped first
// (milliseconds, however few its elements).
int64_t costoPercorso(const QPainterPath &percorso, const QTransform &m)
{
    constexpr double kLimiteRaster = 32767;
    const QRectF r = m.mapRect(percorso.controlPointRect());
    const bool enorme = !(r.left() > -kLimiteRaster && r.top() > -kLimiteRaster && r.right() < kLimiteRaster
                          && r.bottom() < kLimiteRaster);
    return 1 + percorso.elementCount() + (enorme ? 100000 : 0);
}

bool paga(const Ctx &ctx, int64_t costo)
{
    if (!ctx.lavoro)
        return true;
    if (*ctx.lavoro <= 0)
        return false;
    *ctx.lavoro -= costo;
    return true;
}

double scalaDi(const QTransform &m)
{
    return std::sqrt(std::max(0.0, (m.m11() * m.m11() + m.m12() * m.m12() + m.m21() * m.m21() + m.m22() * m.m22()) / 2));
}

double lineare(double c) { c /= 255.0; return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); }
double gamma(double c) { c = c <= 0.0031308 ? c * 12.92 : 1.055 * std::pow(c, 1 / 2.4) - 0.055; return std::clamp(c * 255.0, 0.0, 255.0); }

// Ratios that go back or repeat: the colour table is filled entry by entry,
// stepping to the next record at most once per entry, so a repeated ratio
// still shows each of its colours for one entry and a ratio that goes back
// takes effect one entry later. Each entry is then a band of its own.
QGradientStops tabellaDisordinata(const Gradiente &g, const ColorTransform &cx)
{
    // the reference player reads radial tables half an entry further out
    const double spostamento = g.tipo == Gradiente::Lineare ? 0.0 : 0.5;
    const size_t n = g.stop.size();
    std::vector<QColor> colori;
    for (auto &[r, c] : g.stop)
        colori.push_back(cx.applica(c));
    auto mescola = [&](const QColor &a, const QColor &b, double t) {
        if (g.interp == 1) {
            auto m = [&](int x, int y) { return gamma(lineare(x) + (lineare(y) - lineare(x)) * t) / 255.0; };
            return QColor::fromRgbF(static_cast<float>(m(a.red(), b.red())), static_cast<float>(m(a.green(), b.green())),
                                    static_cast<float>(m(a.blue(), b.blue())), static_cast<float>(a.alphaF() + (b.alphaF() - a.alphaF()) * t));
        }
        return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * t), static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * t),
                                static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * t), static_cast<float>(a.alphaF() + (b.alphaF() - a.alphaF()) * t));
    };
    QGradientStops s;
    size_t i = 0;
    for (int k = 0; k < 256; ++k) {
        if (i + 1 < n && g.stop[i + 1].first <= k)
            ++i;
        QColor c = colori[i];
        if (i + 1 < n) {
            const int r0 = g.stop[i].first, r1 = g.stop[i + 1].first;
            const double t = r1 == r0 ? 0.0 : std::clamp((k - r0) / static_cast<double>(r1 - r0), 0.0, 1.0);
            c = mescola(colori[i], colori[i + 1], t);
        }
        // entry k covers the ratios from k - 1/2 to k + 1/2
        const double inizio = std::clamp((k - 0.5 + spostamento) / 255.0, 0.0, 1.0), fine = std::clamp((k + 0.5 + spostamento) / 255.0, 0.0, 1.0);
        if (!s.isEmpty() && s.back().first >= 1.0 - 1e-6)
            break;
        if (!s.isEmpty() && inizio <= s.back().first)
            s.append({std::min(1.0, s.back().first + 1e-6), c});
        else
            s.append({inizio, c});
        if (fine - 2e-6 > s.back().first)
            s.append({fine - 1e-6, c});
    }
    return s;
}

QGradientStops fermate(const Gradiente &g, const ColorTransform &cx)
{
    QGradientStops s;
    if (g.stop.empty())
        return s;
    for (size_t i = 1; i < g.stop.size(); ++i)
        if (g.stop[i].first <= g.stop[i - 1].first)
            return tabellaDisordinata(g, cx);
    std::vector<std::pair<double, QColor>> v;
    double ultimo = 0;
    for (auto &[r, c] : g.stop) {
        double pos = std::max<double>(r, ultimo);
        ultimo = pos;
        v.emplace_back(pos / 255.0, cx.applica(c));
    }
    if (g.interp == 1 && v.size() >= 2) {
        // linear-RGB interpolation, approximated by extra stops
        std::vector<std::pair<double, QColor>> fitte;
        for (size_t i = 0; i + 1 < v.size(); ++i) {
            const auto &[p0, c0] = v[i];
            const auto &[p1, c1] = v[i + 1];
            const int passi = p1 > p0 ? 16 : 1;
            for (int k = 0; k < passi; ++k) {
                double t = static_cast<double>(k) / passi;
                auto m = [&](int a, int b) { return gamma(lineare(a) + (lineare(b) - lineare(a)) * t); };
                QColor c = QColor::fromRgbF(static_cast<float>(m(c0.red(), c1.red()) / 255), static_cast<float>(m(c0.green(), c1.green()) / 255),
                                            static_cast<float>(m(c0.blue(), c1.blue()) / 255), static_cast<float>(c0.alphaF() + (c1.alphaF() - c0.alphaF()) * t));
                fitte.emplace_back(p0 + (p1 - p0) * t, c);
            }
        }
        fitte.push_back(v.back());
        v = std::move(fitte);
    }
    // Qt wants strictly increasing positions; equal ratios make a hard edge
    double prec = -1;
    for (auto &[p, c] : v) {
        double q = p <= prec ? prec + 1e-6 : p;
        if (q > 1)
            q = 1;
        if (q <= prec)
            continue;
        s.append({q, c});
        prec = q;
    }
    if (s.size() == 1)
        s.append({1.0, s.front().second});
    return s;
}

QBrush pennelloGradiente(const Gradiente &g, const ColorTransform &cx)
{
    QGradient *grad = nullptr;
    QLinearGradient lin(-16384, 0, 16384, 0);
    QRadialGradient rad(QPointF(0, 0), 16384, QPointF(g.tipo == Gradiente::Focale ? g.fuoco * 16384 * 0.999 : 0, 0));
    if (g.tipo == Gradiente::Lineare)
        grad = &lin;
    else
        grad = &rad;
    grad->setStops(fermate(g, cx));
    grad->setSpread(g.spread == 1 ? QGradient::ReflectSpread : g.spread == 2 ? QGradient::RepeatSpread : QGradient::PadSpread);
    grad->setInterpolationMode(QGradient::ComponentInterpolation);
    QBrush b(*grad);
    b.setTransform(g.matrice);
    return b;
}

QImage immagineTrasformata(const QImage &src, const ColorTransform &cx)
{
    if (cx.identita())
        return src;
    // each channel depends on itself only: one table of 256 per channel,
    // filled by the transform itself, instead of the transform per pixel
    std::array<std::array<QRgb, 256>, 4> tabella;
    for (int v = 0; v < 256; ++v) {
        const auto u = static_cast<uint8_t>(v);
        const QRgb t = cx.applica(Rgba{u, u, u, u}).rgba();
        tabella[0][v] = t & 0x00ff0000u;
        tabella[1][v] = t & 0x0000ff00u;
        tabella[2][v] = t & 0x000000ffu;
        tabella[3][v] = t & 0xff000000u;
    }
    QImage out = src.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto *p = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            const QRgb v = p[x];
            p[x] = tabella[0][qRed(v)] | tabella[1][qGreen(v)] | tabella[2][qBlue(v)] | tabella[3][qAlpha(v)];
        }
    }
    return out.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

const QImage *bitmapDi(const Ctx &ctx, uint16_t id)
{
    auto it = ctx.film.definizioni.find(id);
    if (it == ctx.film.definizioni.end() || it->second.tipo != Definizione::BitmapT)
        return nullptr;
    const QImage &img = decodificaBitmap(*it->second.bitmap, ctx.film.tabelleJpeg);
    return img.isNull() ? nullptr : &img;
}

// A bitmap as a fill or a character shows it. Under a colour transform every
// pixel of the whole bitmap is rewritten first, and the picture's budget pays
// for them as for a layer of that size; null when the bitmap is missing or
// the budget has run out.
QImage bitmapColorato(const Ctx &ctx, uint16_t id, const ColorTransform &cx)
{
    const QImage *img = bitmapDi(ctx, id);
    if (!img)
        return {};
    if (cx.identita())
        return *img;
    if (ctx.colorato && ctx.colorato->chiave == img->cacheKey() && ctx.colorato->cx == cx)
        return ctx.colorato->img;
    if (!paga(ctx, 1 + static_cast<int64_t>(img->width()) * img->height() / 16))
        return {};
    QImage out = immagineTrasformata(*img, cx);
    if (ctx.colorato)
        *ctx.colorato = {img->cacheKey(), cx, out};
    return out;
}

// A smoothed bitmap drawn much smaller than it is: average it down first
// (bilinear sampling alone would skip pixels and shimmer), and let the
// matrix stretch the smaller picture back over the same area.
void riduci(QImage &vista, QTransform &matrice, const QTransform &m)
{
    const QTransform tot = matrice * m;
    const double sx = std::hypot(tot.m11(), tot.m12()), sy = std::hypot(tot.m21(), tot.m22());
    if ((sx >= 0.7 && sy >= 0.7) || vista.isNull())
        return;
    const int w = std::max(1, static_cast<int>(std::lround(vista.width() * std::min(1.0, sx))));
    const int h = std::max(1, static_cast<int>(std::lround(vista.height() * std::min(1.0, sy))));
    // a few reductions are kept: the same bitmap is usually drawn at the same size frame after frame
    struct Voce {
        qint64 chiave;
        QSize dimensione;
        QImage img;
    };
    // per thread: films are loaded and first drawn off the interface thread
    thread_local std::vector<Voce> fatte;
    QImage ridotta;
    for (const Voce &v : fatte)
        if (v.chiave == vista.cacheKey() && v.dimensione == QSize(w, h))
            ridotta = v.img;
    if (ridotta.isNull()) {
        ridotta = vista.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (fatte.size() >= 16)
            fatte.erase(fatte.begin());
        fatte.push_back({vista.cacheKey(), QSize(w, h), ridotta});
    }
    matrice = QTransform::fromScale(static_cast<double>(vista.width()) / w, static_cast<double>(vista.height()) / h) * matrice;
    vista = ridotta;
}

// A gradient or a bitmap laid on a shape keeps its place when the pass moves
// the edges to its sample point: the colour belongs to the pixel's centre.
QBrush alCentro(QBrush b, const QPainter &p, const Ctx &ctx)
{
    if (ctx.campione.isNull())
        return b;
    const QTransform t = p.transform();
    b.setTransform(b.transform() * t * QTransform::fromTranslate(-ctx.campione.x(), -ctx.campione.y()) * t.inverted());
    return b;
}

void riempi(QPainter &p, const QPainterPath &percorso, const Riempimento &f, const QTransform &m,
            const ColorTransform &cx, const Ctx &ctx)
{
    if (!paga(ctx, costoPercorso(percorso, p.transform())))
        return;
    switch (f.tipo) {
    case Riempimento::Solido:
        p.fillPath(percorso, cx.applica(f.colore));
        break;
    case Riempimento::Grad:
        if (!f.grad.stop.empty())
            p.fillPath(percorso, alCentro(pennelloGradiente(f.grad, cx), p, ctx));
        break;
    case Riempimento::Bitmap: {
        QImage vista = bitmapColorato(ctx, f.bitmapId, cx);
        if (vista.isNull())
            break;
        QTransform matrice = f.matriceBitmap;
        if (f.liscio && ctx.opz.antialias)
            riduci(vista, matrice, m);
        p.save();
        p.setRenderHint(QPainter::SmoothPixmapTransform, f.liscio && ctx.opz.antialias);
        if (f.ripeti) {
            QBrush b(vista);
            b.setTransform(matrice);
            p.fillPath(percorso, alCentro(b, p, ctx));
        } else {
            p.setClipPath(percorso, Qt::IntersectClip);
            p.setTransform(matrice * m * QTransform::fromTranslate(-ctx.campione.x(), -ctx.campione.y()));
            p.drawImage(0, 0, vista);
        }
        p.restore();
        break;
    }
    default:
        break;
    }
}

// Curves turned into short straight edges, fine enough for the given device
// scale. Done once per scale step, so the rasteriser does not flatten the same
// curves again on every frame.
QPainterPath spiana(const QPainterPath &p, double scala)
{
    bool curve = false;
    for (int i = 0; i < p.elementCount() && !curve; ++i)
        curve = p.elementAt(i).type == QPainterPath::CurveToElement;
    if (!curve)
        return p;
    QPainterPath out;
    out.setFillRule(p.fillRule());
    QPointF ultimo;
    for (int i = 0; i < p.elementCount(); ++i) {
        const QPainterPath::Element e = p.elementAt(i);
        if (e.type == QPainterPath::MoveToElement) {
            out.moveTo(e);
            ultimo = e;
        } else if (e.type == QPainterPath::LineToElement) {
            out.lineTo(e);
            ultimo = e;
        } else if (e.type == QPainterPath::CurveToElement && i + 2 < p.elementCount()) {
            const QPointF c1 = e, c2 = p.elementAt(i + 1), fine = p.elementAt(i + 2);
            i += 2;
            const double lunghezza = (QLineF(ultimo, c1).length() + QLineF(c1, c2).length() + QLineF(c2, fine).length()) * scala;
            // NaN and huge lengths from broken files must not reach the int
            const double passi = std::ceil(std::sqrt(lunghezza * 1.5));
            const int n = std::isnan(passi) ? 1 : static_cast<int>(std::clamp(passi, 1.0, 64.0));
            for (int k = 1; k < n; ++k) {
                const double t = static_cast<double>(k) / n, u = 1 - t;
                out.lineTo(ultimo * (u * u * u) + c1 * (3 * u * u * t) + c2 * (3 * u * t * t) + fine * (t * t * t));
            }
            out.lineTo(fine);
            ultimo = fine;
        }
    }
    return out;
}

void traccia(QPainter &p, const QPainterPath &percorso, const Tratto &t, const QTransform &m,
             const ColorTransform &cx, const Ctx &ctx, QPainterPath *contorno, QPainterPath *contornoSpianato = nullptr,
             double scalaSpianato = 0)
{
    if (!paga(ctx, costoPercorso(percorso, p.transform())))
        return;
    QPen pen;
    const QImage bitmap = t.conRiempimento && t.riempimento.tipo == Riempimento::Bitmap
                              ? bitmapColorato(ctx, t.riempimento.bitmapId, cx)
                              : QImage();
    if (t.conRiempimento && t.riempimento.tipo == Riempimento::Grad)
        pen.setBrush(alCentro(pennelloGradiente(t.riempimento.grad, cx), p, ctx));
    else if (!bitmap.isNull()) {
        QBrush b(bitmap);
        b.setTransform(t.riempimento.matriceBitmap);
        pen.setBrush(alCentro(b, p, ctx));
    } else
        pen.setColor(cx.applica(t.colore));
    pen.setCapStyle(t.capInizio == 1 ? Qt::FlatCap : t.capInizio == 2 ? Qt::SquareCap : Qt::RoundCap);
    pen.setJoinStyle(t.giunzione == 1 ? Qt::BevelJoin : t.giunzione == 2 ? Qt::MiterJoin : Qt::RoundJoin);
    if (t.giunzione == 2)
        pen.setMiterLimit(std::max(1.0, t.miter));
    const double scala = scalaDi(m);
    // one flag alone is drawn as a scaling line, as the reference player does
    const bool fissa = t.noHScale && t.noVScale;
    double larghezzaDisp = fissa ? t.larghezza / 20.0 * ctx.opz.scalaScena : t.larghezza * scala;
    if (larghezzaDisp < 1.0) {
        // hairlines and thin strokes are drawn one device pixel wide
        pen.setCosmetic(true);
        pen.setWidthF(1.0);
    } else if (fissa) {
        // the width holds along the least stretched axis; under a stretch the
        // line widens with it, as the reference player draws it
        const double S = m.m11() * m.m11() + m.m12() * m.m12() + m.m21() * m.m21() + m.m22() * m.m22();
        const double det = m.m11() * m.m22() - m.m12() * m.m21();
        const double minima = std::sqrt(std::max(0.0, (S - std::sqrt(std::max(0.0, S * S - 4 * det * det))) / 2));
        if (minima < 1e-9) {
            pen.setCosmetic(true);
            pen.setWidthF(larghezzaDisp);
        } else {
            pen.setWidthF(larghezzaDisp / minima);
        }
    } else {
        pen.setWidthF(t.larghezza);
        if (contorno) {
            if (contorno->isEmpty()) {
                QPainterPathStroker st(pen);
                *contorno = st.createStroke(percorso);
                contorno->setFillRule(Qt::WindingFill);
            }
            if (contornoSpianato) {
                if (contornoSpianato->isEmpty())
                    *contornoSpianato = spiana(*contorno, scalaSpianato);
                p.fillPath(*contornoSpianato, pen.brush());
            } else {
                p.fillPath(*contorno, pen.brush());
            }
            return;
        }
    }
    p.strokePath(percorso, pen);
}

void disegnaForma(QPainter &p, const Forma &f, const QTransform &m, const ColorTransform &cx, const Ctx &ctx)
{
    p.setTransform(m);
    // the largest stretch of the transform, in half octaves
    const double S = m.m11() * m.m11() + m.m12() * m.m12() + m.m21() * m.m21() + m.m22() * m.m22();
    const double det = m.m11() * m.m22() - m.m12() * m.m21();
    const double massima = std::sqrt(std::max(1e-12, S / 2 + std::sqrt(std::max(0.0, S * S / 4 - det * det))));
    const int gradino = static_cast<int>(std::clamp(std::floor(std::log2(massima) * 2), -200.0, 200.0));
    const double scalaSpianato = std::exp2((gradino + 1) / 2.0);
    for (const StratoForma &s : f.strati) {
        if (s.gradinoSpianato != gradino) {
            s.gradinoSpianato = gradino;
            s.areeSpianate.clear();
            s.lineeSpianate.clear();
            for (const QPainterPath &a : s.areePerStile)
                s.areeSpianate.push_back(spiana(a, scalaSpianato));
            for (const QPainterPath &l : s.lineePerStile)
                s.lineeSpianate.push_back(spiana(l, scalaSpianato));
            s.contorniSpianati.assign(s.lineePerStile.size(), QPainterPath());
            s.contorniLinee.assign(s.lineePerStile.size(), QPainterPath());
        }
        for (size_t i = 0; i < s.areeSpianate.size() && i < s.riempimenti.size(); ++i)
            if (!s.areeSpianate[i].isEmpty())
                riempi(p, s.areeSpianate[i], s.riempimenti[i], m, cx, ctx);
        if (s.contorniLinee.size() != s.lineePerStile.size())
            s.contorniLinee.assign(s.lineePerStile.size(), QPainterPath());
        for (size_t i = 0; i < s.lineeSpianate.size() && i < s.tratti.size(); ++i)
            if (!s.lineeSpianate[i].isEmpty())
                traccia(p, s.lineeSpianate[i], s.tratti[i], m, cx, ctx, &s.contorniLinee[i], &s.contorniSpianati[i], scalaSpianato);
    }
}

template <typename F>
void perOgniGlifo(const Ctx &ctx, const Testo &t, const QTransform &m, F &&f)
{
    for (const VoceTesto &v : t.voci) {
        auto it = ctx.film.definizioni.find(v.font);
        if (it == ctx.film.definizioni.end() || it->second.tipo != Definizione::CarattereT)
            continue;
        const Carattere &c = *it->second.carattere;
        double x = v.x;
        const double s = v.altezza / c.unitaEm;
        for (auto &[g, avanzo] : v.glifi) {
            if (g < c.glifi.size()) {
                QTransform gm(s, 0, 0, s, x, v.y);
                f(c.glifi[g].percorso, gm * t.matrice * m, v);
            }
            x += avanzo;
        }
    }
}

// Static text in a device font: the font carries the characters, not their outlines.
void disegnaTestoDispositivo(QPainter &p, const Testo &t, const QTransform &m, const ColorTransform &cx, const Ctx &ctx)
{
    for (const VoceTesto &v : t.voci) {
        auto it = ctx.film.definizioni.find(v.font);
        if (it == ctx.film.definizioni.end() || it->second.tipo != Definizione::CarattereT)
            continue;
        const Carattere &c = *it->second.carattere;
        if (c.codici.empty())
            continue;
        double x = v.x;
        const QColor colore = cx.applica(v.colore);
        for (auto &[g, avanzo] : v.glifi) {
            if (g < c.codici.size() && (g >= c.glifi.size() || c.glifi[g].percorso.isEmpty()) && paga(ctx, 16))
                disegnaCarattereDispositivo(p, c, g, QTransform(v.altezza / 1024, 0, 0, v.altezza / 1024, x, v.y) * t.matrice * m,
                                            colore);
            x += avanzo;
        }
    }
}

void disegnaClip(QPainter &p, const Clip &c, const QTransform &mondo, const ColorTransform &cx, Ctx &ctx);

QPainterPath percorsoMaschera(const Istanza &i, const QTransform &genitore, const Ctx &ctx, int annidamento)
{
    QPainterPath out;
    out.setFillRule(Qt::WindingFill);
    if (annidamento > kMaxNesting || !i.visibile)
        return out;
    const QTransform m = i.matrice * genitore;
    switch (i.def.tipo) {
    case Definizione::FormaT:
        out = m.map(contornoForma(*i.def.forma));
        break;
    case Definizione::MorphT:
        out = m.map(contornoForma(*formaMorph(*i.def.morph, i.rapporto)));
        break;
    case Definizione::TestoT:
        perOgniGlifo(ctx, *i.def.testo, m, [&](const QPainterPath &g, const QTransform &gm, const VoceTesto &) {
            out.addPath(gm.map(g));
        });
        break;
    case Definizione::SpriteT:
    case Definizione::BottoneT:
        if (i.figli)
            for (auto &[k, v] : i.figli->lista)
                if (v->clip == 0)
                    out.addPath(percorsoMaschera(*v, m, ctx, annidamento + 1));
        break;
    default:
        break;
    }
    // a mask is handed to the rasteriser as a clip: paid like a fill
    if (!paga(ctx, costoPercorso(out, QTransform())))
        return QPainterPath();
    return out;
}

// Blends a layer onto what the painter's image already holds.
void componi(QPainter &p, const QImage &strato, int modo, const Ctx &ctx)
{
    p.save();
    p.resetTransform();
    QPainter::CompositionMode cm = QPainter::CompositionMode_SourceOver;
    switch (modo) {
    case 3: cm = QPainter::CompositionMode_Multiply; break;
    case 4: cm = QPainter::CompositionMode_Screen; break;
    case 5: cm = QPainter::CompositionMode_Lighten; break;
    case 6: cm = QPainter::CompositionMode_Darken; break;
    case 7: cm = QPainter::CompositionMode_Difference; break;
    case 8: cm = QPainter::CompositionMode_Plus; break;
    case 12: cm = ctx.inStrato ? QPainter::CompositionMode_DestinationOut : QPainter::CompositionMode_SourceOver; break;
    case 13: cm = QPainter::CompositionMode_Overlay; break;
    case 14: cm = QPainter::CompositionMode_HardLight; break;
    default: break;
    }
    auto *dest = dynamic_cast<QImage *>(p.device());
    if (modo == 11 && dest) {
        // alpha: only where the object drew does it cut into the layer
        QImage ris = dest->copy();
        for (int y = 0; y < ris.height() && y < strato.height(); ++y) {
            auto *d = reinterpret_cast<uint32_t *>(ris.scanLine(y));
            auto *s = reinterpret_cast<const uint32_t *>(strato.constScanLine(y));
            for (int x = 0; x < ris.width() && x < strato.width(); ++x) {
                uint32_t sa = s[x] >> 24;
                if (sa == 0 || sa == 255)
                    continue;
                uint32_t v = 0;
                for (int ch = 0; ch < 4; ++ch)
                    v |= ((((d[x] >> (8 * ch)) & 0xff) * sa / 255) << (8 * ch));
                d[x] = v;
            }
        }
        p.setCompositionMode(QPainter::CompositionMode_Source);
        p.drawImage(0, 0, ris);
    } else if ((modo == 9 || modo == 10) && dest) {
        // subtract and invert have no Qt mode: compute the result, then copy it through the clip
        QImage ris = dest->copy();
        for (int y = 0; y < ris.height() && y < strato.height(); ++y) {
            auto *d = reinterpret_cast<uint32_t *>(ris.scanLine(y));
            auto *s = reinterpret_cast<const uint32_t *>(strato.constScanLine(y));
            for (int x = 0; x < ris.width() && x < strato.width(); ++x) {
                uint32_t sa = s[x] >> 24;
                if (sa == 0)
                    continue;
                uint32_t v = 0;
                uint32_t da = d[x] >> 24;
                for (int ch = 0; ch < 3; ++ch) {
                    int dc = (d[x] >> (8 * ch)) & 0xff, sc = (s[x] >> (8 * ch)) & 0xff;
                    // the layer is premultiplied: subtracting it already weighs by coverage
                    int mix = modo == 9 ? std::max(0, dc - sc)
                                        : ((static_cast<int>(da) - dc) * static_cast<int>(sa) + dc * (255 - static_cast<int>(sa))) / 255;
                    v |= static_cast<uint32_t>(std::clamp(mix, 0, 255)) << (8 * ch);
                }
                d[x] = v | (da << 24);
            }
        }
        p.setCompositionMode(QPainter::CompositionMode_Source);
        p.drawImage(0, 0, ris);
    } else {
        p.setCompositionMode(cm);
        p.drawImage(0, 0, strato);
    }
    p.restore();
}

void disegnaContenuto(QPainter &p, const Istanza &i, const QTransform &m, const ColorTransform &cx, Ctx &ctx)
{
    switch (i.def.tipo) {
    case Definizione::FormaT:
        disegnaForma(p, *i.def.forma, m, cx, ctx);
        break;
    case Definizione::MorphT:
        disegnaForma(p, *formaMorph(*i.def.morph, i.rapporto), m, cx, ctx);
        break;
    case Definizione::TestoT:
        perOgniGlifo(ctx, *i.def.testo, m, [&](const QPainterPath &g, const QTransform &gm, const VoceTesto &v) {
            if (!paga(ctx, costoPercorso(g, gm)))
                return;
            p.setTransform(gm);
            p.fillPath(g, cx.applica(v.colore));
        });
        disegnaTestoDispositivo(p, *i.def.testo, m, cx, ctx);
        break;
    case Definizione::BitmapT: {
        const QImage *img = bitmapDi(ctx, i.carattere);
        if (img && paga(ctx, 1 + static_cast<int64_t>(img->width()) * img->height() / 64)) {
            p.setTransform(QTransform::fromScale(20, 20) * m);
            p.setRenderHint(QPainter::SmoothPixmapTransform, false);
            p.drawImage(0, 0, bitmapColorato(ctx, i.carattere, cx));
        }
        break;
    }
    case Definizione::SpriteT:
        if (i.figli)
            disegnaClip(p, *i.figli, m, cx, ctx);
        break;
    case Definizione::BottoneT:
        if (i.figli)
            disegnaClip(p, *i.figli, m, i.def.bottone->haColore ? cx.dopo(i.def.bottone->colore) : cx, ctx);
        break;
    case Definizione::CampoT:
        disegnaCampoTesto(p, ctx.film, *i.def.campo, m, cx, ctx.lavoro);
        break;
    default:
        break;
    }
}

void disegnaIstanza(QPainter &p, const Istanza &i, const QTransform &genitore, const ColorTransform &cxGen, Ctx &ctx)
{
    if (!i.visibile)
        return;
    const QTransform m = i.matrice * genitore;
    const ColorTransform cx = cxGen.dopo(i.colore);
    int modo = i.fusione <= 1 ? 0 : i.fusione;
    if (modo > 14)
        modo = 0;
    const bool serveStrato = modo != 0 || !i.filtri.empty();
    if (!serveStrato || ctx.annidamento > 8) {
        disegnaContenuto(p, i, m, cx, ctx);
        return;
    }
    if ((modo == 11 || modo == 12) && !ctx.inStrato && i.filtri.empty()) {
        // without a 'layer' ancestor these modes have nothing to cut into
        return;
    }
    // a layer, and each filter on it, is paid by its pixels
    if (!paga(ctx, static_cast<int64_t>(ctx.dimensione.width()) * ctx.dimensione.height() / 16
                       * static_cast<int64_t>(1 + i.filtri.size())))
        return;
    QImage strato(ctx.dimensione, QImage::Format_ARGB32_Premultiplied);
    strato.fill(0);
    {
        QPainter q(&strato);
        q.setRenderHints(p.renderHints());
        Ctx figlio = ctx;
        figlio.inStrato = modo == 2 || (ctx.inStrato && modo == 0);
        figlio.annidamento = ctx.annidamento + 1;
        // with filters the colour transform applies to the filtered picture
        disegnaContenuto(q, i, m, i.filtri.empty() ? cx : ColorTransform{}, figlio);
    }
    if (!i.filtri.empty()) {
        applicaFiltri(strato, i.filtri, ctx.opz.scalaScena, ctx.lavoro);
        if (!cx.identita())
            strato = immagineTrasformata(strato, cx);
    }
    componi(p, strato, modo, ctx);
}

void disegnaClip(QPainter &p, const Clip &c, const QTransform &mondo, const ColorTransform &cx, Ctx &ctx)
{
    if (ctx.annidamento > kMaxNesting)
        return;
    struct Maschera {
        int fino;
        QPainterPath percorso;
    };
    std::vector<Maschera> attive;
    bool cambiato = false;
    p.save();
    for (auto &voce : c.lista) {
        const int prof = voce.first;
        const auto &ist = voce.second;
        size_t prima = attive.size();
        std::erase_if(attive, [&](const Maschera &m) { return prof > m.fino; });
        cambiato |= attive.size() != prima;
        if (ist->clip > 0) {
            if (ist->clip > prof) {
                attive.push_back({ist->clip, percorsoMaschera(*ist, mondo, ctx, 0)});
                cambiato = true;
            }
            continue;
        }
        if (cambiato) {
            p.restore();
            p.save();
            p.resetTransform();
            for (auto &m : attive)
                p.setClipPath(m.percorso, Qt::IntersectClip);
            cambiato = false;
        }
        disegnaIstanza(p, *ist, mondo, cx, ctx);
    }
    p.restore();
}

} // namespace

namespace {

// One drawing of the whole film into dest; returns the work it took.
int64_t disegnaPassata(QImage &dest, const Riproduzione &r, const QTransform &mondo, const OpzioniDisegno &o,
                       bool areaEsatta, QPointF campione, int64_t budget)
{
    Ctx ctx{*r.film, o, dest.size()};
    ctx.campione = campione;
    int64_t lavoro = budget;
    ctx.lavoro = &lavoro;
    Ctx::Colorato colorato;
    ctx.colorato = &colorato;
    QPainter p(&dest);
    p.setRenderHint(QPainter::Antialiasing, areaEsatta);
    p.setRenderHint(QPainter::SmoothPixmapTransform, o.antialias);
    disegnaClip(p, *r.radice, mondo, ColorTransform{}, ctx);
    lavoroQui().lavoroDisegno += budget - lavoro;
    return budget - lavoro;
}

// Smooth edges as the reference player makes them: four samples in every
// pixel at the usual rotated-grid places, the colour taken once at the
// pixel's centre. Each pass is drawn without smoothing, its edges moved so
// that the pixel's centre falls on one sample; the four are averaged. A
// rectangle a twip off the pixel grid comes out whole, as there, not 95%
// covered as an exact-area rasteriser leaves it.
constexpr double kCampioni[4][2] = {{0.375, 0.125}, {0.875, 0.375}, {0.125, 0.625}, {0.625, 0.875}};

// A film heavier than this for one sampled pass is drawn once with exact-area
// smoothing instead, so its frame never costs more than about one and a
// quarter budgets.
constexpr int64_t kMaxLavoroCampionato = kMaxLavoroPerQuadro / 4;

// The four passes summed channel by channel, two 16-bit lanes a word (red
// and blue in one, alpha and green in the other): four bytes of 255 and the
// rounding fit in a lane with room to spare.
void sommaPassata(std::vector<uint32_t> &rb, std::vector<uint32_t> &ag, const QImage &passata)
{
    uint32_t *s = rb.data(), *t = ag.data();
    for (int y = 0; y < passata.height(); ++y) {
        auto *riga = reinterpret_cast<const uint32_t *>(passata.constScanLine(y));
        for (int x = 0; x < passata.width(); ++x) {
            *s++ += riga[x] & 0x00ff00ffu;
            *t++ += (riga[x] >> 8) & 0x00ff00ffu;
        }
    }
}

} // namespace

void disegnaFilm(QImage &dest, const Riproduzione &r, const QTransform &scenaADispositivo, const OpzioniDisegno &o)
{
    if (!r.film || !r.radice)
        return;
    const QTransform mondo = QTransform::fromScale(1 / 20.0, 1 / 20.0) * scenaADispositivo;
    if (!o.antialias) {
        disegnaPassata(dest, r, mondo, o, false, {}, kMaxLavoroPerQuadro);
        return;
    }
    const QImage fondo = dest.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    std::vector<uint32_t> rb(size_t(fondo.width()) * fondo.height(), 0x00020002u), ag(rb);
    for (const auto &c : kCampioni) {
        const QPointF spostamento(0.5 - c[0], 0.5 - c[1]);
        QImage passata = fondo;
        const int64_t speso = disegnaPassata(passata, r, mondo * QTransform::fromTranslate(spostamento.x(), spostamento.y()),
                                             o, false, spostamento, kMaxLavoroCampionato);
        if (speso >= kMaxLavoroCampionato) {
            disegnaPassata(dest, r, mondo, o, true, {}, kMaxLavoroPerQuadro);
            return;
        }
        sommaPassata(rb, ag, passata);
    }
    QImage media(fondo.size(), QImage::Format_ARGB32_Premultiplied);
    const uint32_t *s = rb.data(), *t = ag.data();
    for (int y = 0; y < media.height(); ++y) {
        auto *riga = reinterpret_cast<uint32_t *>(media.scanLine(y));
        for (int x = 0; x < media.width(); ++x)
            riga[x] = ((*s++ >> 2) & 0x00ff00ffu) | (((*t++ >> 2) & 0x00ff00ffu) << 8);
    }
    dest = media.convertToFormat(dest.format());
}

} // namespace swf
