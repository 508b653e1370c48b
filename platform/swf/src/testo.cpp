// Text with fonts: the simple HTML of edit fields read into paragraphs of
// runs, edit fields laid out with their embedded glyphs or a system font, and
// the characters of device fonts.

#include "testo.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QMutex>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>

namespace swf {

namespace {

// A field's text is short; these keep a hostile one from costing much
constexpr size_t kMaxParagrafi = 1000;
constexpr size_t kMaxPezzi = 4000;
constexpr int kMaxAnnidamentoHtml = 64;

bool serveInterfaccia() { return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr; }

QString entita(const QString &t)
{
    if (!t.contains(u'&'))
        return t;
    QString o;
    for (qsizetype i = 0; i < t.size(); ++i) {
        if (t[i] != u'&') {
            o += t[i];
            continue;
        }
        const qsizetype fine = t.indexOf(u';', i);
        if (fine < 0 || fine - i > 10) {
            o += t[i];
            continue;
        }
        const QString nome = t.mid(i + 1, fine - i - 1).toLower();
        QChar c;
        if (nome == u"lt") c = u'<';
        else if (nome == u"gt") c = u'>';
        else if (nome == u"amp") c = u'&';
        else if (nome == u"quot") c = u'"';
        else if (nome == u"apos") c = u'\'';
        else if (nome == u"nbsp") c = QChar(0xa0);
        else if (nome.startsWith(u'#')) {
            bool ok = false;
            const uint v = nome.startsWith(u"#x") ? nome.mid(2).toUInt(&ok, 16) : nome.mid(1).toUInt(&ok);
            if (ok && v > 0 && v < 0xffff)
                c = QChar(static_cast<char16_t>(v));
        }
        if (c.isNull()) {
            o += t[i];
            continue;
        }
        o += c;
        i = fine;
    }
    return o;
}

// name="value", name='value' or name=value
QHash<QString, QString> attributi(const QString &tag)
{
    QHash<QString, QString> a;
    qsizetype i = tag.indexOf(u' ');
    while (i >= 0 && i < tag.size()) {
        while (i < tag.size() && tag[i].isSpace())
            ++i;
        const qsizetype uguale = tag.indexOf(u'=', i);
        if (uguale < 0)
            break;
        const QString nome = tag.mid(i, uguale - i).trimmed().toLower();
        qsizetype j = uguale + 1;
        QString valore;
        if (j < tag.size() && (tag[j] == u'"' || tag[j] == u'\'')) {
            const QChar q = tag[j];
            const qsizetype fine = tag.indexOf(q, j + 1);
            valore = tag.mid(j + 1, fine < 0 ? -1 : fine - j - 1);
            i = fine < 0 ? tag.size() : fine + 1;
        } else {
            qsizetype fine = j;
            while (fine < tag.size() && !tag[fine].isSpace())
                ++fine;
            valore = tag.mid(j, fine - j);
            i = fine;
        }
        a.insert(nome, entita(valore));
    }
    return a;
}

int allineamento(const QString &v, int altrimenti)
{
    const QString l = v.toLower();
    return l == u"left" ? 0 : l == u"right" ? 1 : l == u"center" ? 2 : l == u"justify" ? 3 : altrimenti;
}

struct Lettura {
    std::vector<Paragrafo> out;
    Paragrafo corrente;
    int allineaBase = 0;

    void aggiungi(const PezzoTesto &stile, const QString &t)
    {
        if (t.isEmpty())
            return;
        auto &pz = corrente.pezzi;
        if (!pz.empty() && pz.back().grassetto == stile.grassetto && pz.back().corsivo == stile.corsivo &&
            pz.back().colore == stile.colore && pz.back().altezza == stile.altezza && pz.back().faccia == stile.faccia) {
            pz.back().testo += t;
            return;
        }
        if (pz.size() >= kMaxPezzi)
            return;
        PezzoTesto p = stile;
        p.testo = t;
        pz.push_back(std::move(p));
    }
    void chiudi(int allineaNuovo)
    {
        if (out.size() < kMaxParagrafi)
            out.push_back(std::move(corrente));
        corrente = Paragrafo{};
        corrente.allinea = allineaNuovo;
    }
};

} // namespace

std::vector<Paragrafo> paragrafiSemplici(const QString &testo, const PezzoTesto &base, int allinea)
{
    Lettura l;
    l.corrente.allinea = allinea;
    QString t = testo;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    const QStringList righe = t.split(u'\n');
    for (qsizetype i = 0; i < righe.size(); ++i) {
        l.aggiungi(base, righe[i]);
        l.chiudi(allinea);
    }
    return std::move(l.out);
}

std::vector<Paragrafo> paragrafiDaHtml(const QString &html, const PezzoTesto &base, int allinea)
{
    Lettura l;
    l.corrente.allinea = allinea;
    std::vector<PezzoTesto> stili{base};
    qsizetype i = 0;
    while (i < html.size()) {
        if (html[i] != u'<') {
            qsizetype fine = html.indexOf(u'<', i);
            if (fine < 0)
                fine = html.size();
            QString t = html.mid(i, fine - i);
            // the lines of the source are not the lines of the text: <p> and <br> are
            t.remove(u'\r').remove(u'\n');
            l.aggiungi(stili.back(), entita(t));
            i = fine;
            continue;
        }
        qsizetype fine = html.indexOf(u'>', i);
        if (fine < 0)
            break;
        const QString tag = html.mid(i + 1, fine - i - 1).trimmed();
        i = fine + 1;
        const bool chiude = tag.startsWith(u'/');
        QString nome = (chiude ? tag.mid(1) : tag).section(u' ', 0, 0).toLower();
        if (nome.endsWith(u'/'))
            nome.chop(1);
        if (nome == u"p" || nome == u"li") {
            if (chiude)
                l.chiudi(l.corrente.allinea);
            else {
                if (!l.corrente.pezzi.empty())
                    l.chiudi(l.corrente.allinea);
                l.corrente.allinea = allineamento(attributi(tag).value(QStringLiteral("align")), allinea);
            }
        } else if (nome == u"br" || nome == u"sbr") {
            l.chiudi(l.corrente.allinea);
        } else if (nome == u"b" || nome == u"i" || nome == u"font") {
            if (chiude) {
                if (stili.size() > 1)
                    stili.pop_back();
                continue;
            }
            if (static_cast<int>(stili.size()) >= kMaxAnnidamentoHtml)
                continue;
            PezzoTesto s = stili.back();
            if (nome == u"b")
                s.grassetto = true;
            else if (nome == u"i")
                s.corsivo = true;
            else {
                const auto a = attributi(tag);
                if (const QString c = a.value(QStringLiteral("color")); c.startsWith(u'#') && c.size() >= 7) {
                    bool ok = false;
                    const uint v = c.mid(1, 6).toUInt(&ok, 16);
                    if (ok)
                        s.colore = Rgba{static_cast<uint8_t>(v >> 16), static_cast<uint8_t>((v >> 8) & 0xff),
                                        static_cast<uint8_t>(v & 0xff), s.colore.a};
                }
                if (const QString d = a.value(QStringLiteral("size")); !d.isEmpty()) {
                    bool ok = false;
                    const double v = d.toDouble(&ok);
                    if (ok) {
                        const double px = d.startsWith(u'+') || d.startsWith(u'-') ? s.altezza / 20 + v : v;
                        s.altezza = std::clamp(px, 1.0, 500.0) * 20;
                    }
                }
                if (const QString f = a.value(QStringLiteral("face")); !f.isEmpty())
                    s.faccia = f.section(u',', 0, 0).trimmed().toUtf8();
            }
            stili.push_back(std::move(s));
        }
        // textformat, span, a, u and the rest: their text stays, their look is not kept
    }
    if (!l.corrente.pezzi.empty() || l.out.empty())
        l.chiudi(allinea);
    return std::move(l.out);
}

QFont fontDiSistema(const QByteArray &nome, bool grassetto, bool corsivo, double pixel)
{
    static QMutex m;
    static QStringList famiglie;
    static bool lette = false;
    QString n = QString::fromUtf8(nome).trimmed();
    QFont f;
    QFont::StyleHint stile = QFont::SansSerif;
    if (n == u"_serif")
        stile = QFont::Serif;
    else if (n == u"_typewriter")
        stile = QFont::TypeWriter;
    bool esiste = false;
    if (!n.isEmpty() && !n.startsWith(u'_')) {
        QMutexLocker l(&m);
        if (!lette) {
            famiglie = QFontDatabase::families();
            lette = true;
        }
        esiste = famiglie.contains(n, Qt::CaseInsensitive);
    }
    if (esiste) {
        f.setFamily(n);
    } else {
        f.setFamily(stile == QFont::Serif ? QStringLiteral("Serif") : stile == QFont::TypeWriter ? QStringLiteral("Monospace")
                                                                                                 : QStringLiteral("Sans Serif"));
        f.setStyleHint(stile);
    }
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(pixel, 100000.0)))));
    f.setBold(grassetto);
    f.setItalic(corsivo);
    return f;
}

void disegnaCarattereDispositivo(QPainter &p, const Carattere &c, uint32_t glifo, const QTransform &m, const QColor &colore)
{
    if (glifo >= c.codici.size() || !serveInterfaccia())
        return;
    const QChar ch(static_cast<char16_t>(c.codici[glifo]));
    if (ch.isSpace() || ch.isNull())
        return;
    p.setTransform(m);
    p.setFont(fontDiSistema(c.nome, c.grassetto, c.corsivo, 1024));
    p.setPen(colore);
    p.drawText(QPointF(0, 0), QString(ch));
    p.setPen(Qt::NoPen);
}

namespace {

// An edit field drawn with the glyphs of its own font, line by line.
void disegnaConGlifi(QPainter &p, const Carattere &car, const CampoTesto &c, const QRectF &area, const QTransform &m,
                     const ColorTransform &cx, int64_t *lavoro)
{
    QHash<char16_t, uint32_t> indice;
    for (size_t g = 0; g < car.codici.size() && g < car.glifi.size(); ++g)
        indice.insert(static_cast<char16_t>(car.codici[g]), static_cast<uint32_t>(g));
    struct Segno {
        int glifo = -1;  // -1: a space
        double x = 0, scala = 1;
        QColor colore;
    };
    struct Riga {
        std::vector<Segno> segni;
        double larghezza = 0, ascesa = 0, discesa = 0;
        int allinea = 0;
    };
    std::vector<Riga> righe;
    for (const Paragrafo &par : c.paragrafi) {
        Riga riga;
        riga.allinea = par.allinea;
        int ultimoSpazio = -1;
        auto chiudiRiga = [&](Riga &r) {
            righe.push_back(std::move(r));
            r = Riga{};
            r.allinea = par.allinea;
        };
        for (const PezzoTesto &pz : par.pezzi) {
            const double s = pz.altezza / car.unitaEm;
            const double asc = car.haLayout ? car.ascesa * s : pz.altezza * 0.8;
            const double disc = car.haLayout ? car.discesa * s : pz.altezza * 0.2;
            const QColor colore = cx.applica(pz.colore);
            for (const QChar ch : pz.testo) {
                riga.ascesa = std::max(riga.ascesa, asc);
                riga.discesa = std::max(riga.discesa, disc);
                Segno sg;
                sg.scala = s;
                sg.colore = colore;
                sg.x = riga.larghezza;
                double avanzo = pz.altezza * 0.25;
                auto it = indice.constFind(ch.unicode());
                if (it != indice.constEnd()) {
                    sg.glifo = static_cast<int>(*it);
                    const size_t g = *it;
                    avanzo = car.haLayout && g < car.avanzi.size()
                                 ? car.avanzi[g] * s
                                 : (car.glifi[g].percorso.boundingRect().right() + car.unitaEm * 0.05) * s;
                }
                if (ch.isSpace()) {
                    sg.glifo = -1;
                    ultimoSpazio = static_cast<int>(riga.segni.size());
                } else if (it == indice.constEnd()) {
                    continue;  // a character the font lacks is not drawn
                }
                // past the right edge: the line breaks at its last space
                if (c.aCapo && sg.glifo >= 0 && riga.larghezza + avanzo > area.width() && ultimoSpazio > 0) {
                    const size_t spazio = static_cast<size_t>(ultimoSpazio);
                    const double inizio = spazio + 1 < riga.segni.size() ? riga.segni[spazio + 1].x : riga.larghezza;
                    Riga resto;
                    resto.allinea = riga.allinea;
                    resto.ascesa = riga.ascesa;
                    resto.discesa = riga.discesa;
                    for (size_t k = spazio + 1; k < riga.segni.size(); ++k) {
                        Segno q = riga.segni[k];
                        q.x -= inizio;
                        resto.segni.push_back(q);
                    }
                    resto.larghezza = riga.larghezza - inizio;
                    riga.larghezza = riga.segni[spazio].x;
                    riga.segni.resize(spazio);
                    chiudiRiga(riga);
                    riga = std::move(resto);
                    ultimoSpazio = -1;
                    sg.x = riga.larghezza;
                }
                riga.segni.push_back(sg);
                riga.larghezza += avanzo;
            }
        }
        if (riga.ascesa == 0) {
            const double h = par.pezzi.empty() ? c.altezza : par.pezzi.front().altezza;
            riga.ascesa = car.haLayout ? car.ascesa * h / car.unitaEm : h * 0.8;
            riga.discesa = car.haLayout ? car.discesa * h / car.unitaEm : h * 0.2;
        }
        chiudiRiga(riga);
    }
    double y = area.top();
    for (const Riga &r : righe) {
        const double base = y + r.ascesa;
        if (y > area.bottom())
            break;
        double x0 = area.left();
        if (r.allinea == 1)
            x0 = area.right() - r.larghezza;
        else if (r.allinea == 2)
            x0 = area.left() + (area.width() - r.larghezza) / 2;
        for (const Segno &sg : r.segni) {
            if (sg.glifo < 0)
                continue;
            const QPainterPath &g = car.glifi[static_cast<size_t>(sg.glifo)].percorso;
            if (lavoro) {
                if (*lavoro <= 0)
                    return;
                *lavoro -= 1 + g.elementCount();
            }
            p.setTransform(QTransform(sg.scala, 0, 0, sg.scala, x0 + sg.x, base) * m);
            p.fillPath(g, sg.colore);
        }
        y = base + r.discesa + c.interlinea;
    }
}

// An edit field drawn with system fonts: Qt's text layout does the lines,
// the wrapping and the alignment.
void disegnaConSistema(QPainter &p, const Film &film, const Carattere *car, const CampoTesto &c, const QRectF &area,
                       const QTransform &m, const ColorTransform &cx, int64_t *lavoro)
{
    QTextDocument doc;
    doc.setUndoRedoEnabled(false);
    doc.setDocumentMargin(0);
    QTextOption opzione;
    opzione.setWrapMode(c.aCapo ? QTextOption::WordWrap : QTextOption::NoWrap);
    doc.setDefaultTextOption(opzione);
    QTextCursor cur(&doc);
    bool primo = true;
    qint64 caratteri = 0;
    for (const Paragrafo &par : c.paragrafi) {
        QTextBlockFormat bf;
        bf.setAlignment(par.allinea == 1 ? Qt::AlignRight : par.allinea == 2 ? Qt::AlignHCenter
                        : par.allinea == 3                ? Qt::AlignJustify
                                                          : Qt::AlignLeft);
        if (c.interlinea != 0)
            bf.setLineHeight(c.interlinea, QTextBlockFormat::LineDistanceHeight);
        if (primo)
            cur.setBlockFormat(bf);
        else
            cur.insertBlock(bf);
        primo = false;
        for (const PezzoTesto &pz : par.pezzi) {
            QByteArray nome = pz.faccia;
            if (nome.isEmpty() && car)
                nome = car->nome;
            QTextCharFormat cf;
            cf.setFont(fontDiSistema(nome, pz.grassetto || (car && car->grassetto), pz.corsivo || (car && car->corsivo),
                                     pz.altezza));
            cf.setForeground(cx.applica(pz.colore));
            cur.insertText(pz.testo, cf);
            caratteri += pz.testo.size();
        }
    }
    (void)film;
    if (lavoro) {
        if (*lavoro <= 0)
            return;
        *lavoro -= 1 + caratteri * 16;
    }
    if (c.aCapo || c.multilinea)
        doc.setTextWidth(std::max(1.0, area.width()));
    p.save();
    p.setTransform(m);
    p.setClipRect(c.limiti, Qt::IntersectClip);
    p.translate(area.topLeft());
    doc.drawContents(&p);
    p.restore();
}

} // namespace

void disegnaCampoTesto(QPainter &p, const Film &film, const CampoTesto &c, const QTransform &m, const ColorTransform &cx,
                       int64_t *lavoro)
{
    p.setTransform(m);
    if (c.bordo) {
        QPen pen(cx.applica(Rgba{0, 0, 0, 255}));
        pen.setCosmetic(true);
        pen.setWidthF(1);
        p.setPen(pen);
        p.setBrush(cx.applica(Rgba{255, 255, 255, 255}));
        p.drawRect(c.limiti);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::NoBrush);
    }
    if (c.paragrafi.empty())
        return;
    const Carattere *car = nullptr;
    if (auto it = film.definizioni.find(c.font); it != film.definizioni.end() && it->second.carattere)
        car = it->second.carattere.get();
    // a gutter of 2 pixels on each side, as the fields of the authoring tools have
    const QRectF area = c.limiti.adjusted(40 + c.margineSx, 40, -40 - c.margineDx, -40);
    if (c.contorni && car && !car->glifi.empty() && !car->codici.empty()) {
        p.save();
        disegnaConGlifi(p, *car, c, area, m, cx, lavoro);
        p.restore();
        return;
    }
    // system fonts need a GUI application; without one (tools, fuzzing) only the box is drawn
    if (serveInterfaccia())
        disegnaConSistema(p, film, car, c, area, m, cx, lavoro);
}

} // namespace swf
