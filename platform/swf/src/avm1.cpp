// The part of AVM1 that children's films use: timeline control on the
// current clip or a named one, variables kept on each clip, the properties of
// clips (_x, _alpha, _currentframe, ...), the constant pool, arithmetic,
// strings, conditions and jumps. Objects, functions and classes are stepped
// over harmlessly, with the stack kept as the code expects it.

#include "riproduzione.h"

#include <cmath>
#include <numbers>

namespace swf {

namespace {

constexpr size_t kMaxPila = 4096;
// Joined strings stop growing here: names and labels are short, and a script
// that doubles a string in a loop must not fill the memory
constexpr qsizetype kMaxStringa = 4096;
// variables a clip may hold: a script that makes new names in a loop stops here
constexpr size_t kMaxVariabili = 4096;

// NaN and out-of-range numbers must not reach an int conversion
int intero(double v, int minimo, int massimo)
{
    if (std::isnan(v))
        return minimo;
    return static_cast<int>(std::clamp(v, static_cast<double>(minimo), static_cast<double>(massimo)));
}

// ECMA's ToInt32, for the bit operators
int32_t int32(double v)
{
    if (!std::isfinite(v))
        return 0;
    const double m = std::fmod(std::trunc(v), 4294967296.0);
    const auto u = static_cast<uint32_t>(static_cast<int64_t>(m < 0 ? m + 4294967296.0 : m));
    return static_cast<int32_t>(u);
}

QByteArray numeroInTesto(double n)
{
    if (std::isnan(n))
        return "NaN";
    if (std::isinf(n))
        return n > 0 ? "Infinity" : "-Infinity";
    if (n == std::trunc(n) && std::abs(n) < 1e15)
        return QByteArray::number(static_cast<qint64>(n));
    return QByteArray::number(n, 'g', 15);
}

const char *const kProprieta[] = {"_x", "_y", "_xscale", "_yscale", "_currentframe", "_totalframes", "_alpha",
                                  "_visible", "_width", "_height", "_rotation", "_target", "_framesloaded", "_name",
                                  "_droptarget", "_url", "_highquality", "_focusrect", "_soundbuftime", "_quality",
                                  "_xmouse", "_ymouse"};
constexpr int kNumeroProprieta = 22;

int indiceProprieta(const QByteArray &nome)
{
    if (!nome.startsWith('_'))
        return -1;
    const QByteArray l = nome.toLower();
    for (int i = 0; i < kNumeroProprieta; ++i)
        if (l == kProprieta[i])
            return i;
    return -1;
}

struct Macchina {
    Riproduzione &r;
    const std::shared_ptr<Clip> clip;  // the timeline the code belongs to
    std::shared_ptr<Clip> bersaglio;   // where SetTarget points
    int versione;

    // Old films (up to SWF 6) know no case in names and read undefined as 0 or "".
    bool vecchio() const { return versione < 7; }
    QByteArray chiave(const QByteArray &nome) const { return vecchio() ? nome.toLower() : nome; }

    double numero(const Valore &v) const
    {
        switch (v.tipo) {
        case Valore::Numero: case Valore::Booleano: return v.n;
        case Valore::Stringa: {
            const QByteArray t = v.s.trimmed();
            if (t.isEmpty())
                return vecchio() ? 0 : NAN;
            bool ok = false;
            double x = t.startsWith("0x") || t.startsWith("0X") ? static_cast<double>(t.mid(2).toLongLong(&ok, 16))
                                                                : t.toDouble(&ok);
            return ok ? x : NAN;
        }
        case Valore::Indefinito: case Valore::Nullo: return vecchio() ? 0 : NAN;
        default: return NAN;
        }
    }
    bool vero(const Valore &v) const
    {
        switch (v.tipo) {
        case Valore::Numero: case Valore::Booleano: return v.n != 0 && !std::isnan(v.n);
        case Valore::Stringa: {
            if (!vecchio())
                return !v.s.isEmpty();
            double x = numero(v);
            return !std::isnan(x) && x != 0;
        }
        case Valore::RifClip: return !v.clip.expired();
        case Valore::Ogg: case Valore::RifIstanza: return true;
        default: return false;
        }
    }
    QByteArray testo(const Valore &v) const
    {
        switch (v.tipo) {
        case Valore::Numero: return numeroInTesto(v.n);
        case Valore::Booleano: return v.n ? "true" : "false";
        case Valore::Stringa: return v.s;
        case Valore::Nullo: return "null";
        case Valore::Indefinito: return vecchio() ? "" : "undefined";
        case Valore::RifClip: return percorso(v.clip.lock(), true);
        default: return "[object Object]";
        }
    }
    bool uguali(const Valore &a, const Valore &b) const
    {
        if (a.tipo == Valore::RifClip || b.tipo == Valore::RifClip)
            return a.tipo == b.tipo && a.clip.lock() == b.clip.lock();
        if (a.tipo == Valore::Stringa && b.tipo == Valore::Stringa)
            return a.s == b.s;
        const bool vuotoA = a.tipo == Valore::Indefinito || a.tipo == Valore::Nullo;
        const bool vuotoB = b.tipo == Valore::Indefinito || b.tipo == Valore::Nullo;
        if (vuotoA || vuotoB)
            return vuotoA && vuotoB;
        return numero(a) == numero(b);
    }

    // "_level0.a.b" (dots) or "/a/b" (slashes): where a clip stands
    QByteArray percorso(const std::shared_ptr<Clip> &c, bool punti) const
    {
        QList<QByteArray> parti;
        for (auto k = c; k && k != r.radice && parti.size() <= kMaxNesting; k = k->genitore.lock()) {
            auto i = k->istanza.lock();
            parti.prepend(i ? i->nome : QByteArray());
        }
        if (punti)
            return parti.isEmpty() ? QByteArray("_level0") : "_level0." + parti.join('.');
        return "/" + parti.join('/');
    }

    static std::shared_ptr<Clip> figlio(const std::shared_ptr<Clip> &c, const QByteArray &nome)
    {
        if (!c)
            return nullptr;
        const QByteArray n = nome.toLower();
        for (auto &[k, v] : c->lista)
            if (v->figli && v->def.tipo == Definizione::SpriteT && v->nome.toLower() == n)
                return v->figli;
        return nullptr;
    }

    // One step of a path: a child, or one of the names every clip knows.
    std::shared_ptr<Clip> passo(const std::shared_ptr<Clip> &c, const QByteArray &parte) const
    {
        const QByteArray l = parte.toLower();
        if (l == "this" || l == ".")
            return c;
        if (l == "_root" || l == "_level0")
            return r.radice;
        if (l == "_parent" || l == "..")
            return c ? c->genitore.lock() : nullptr;
        return figlio(c, parte);
    }

    // "/a/b", "../a", "_root.a.b", "a.b", "a", "" (the clip itself)
    std::shared_ptr<Clip> risolvi(const std::shared_ptr<Clip> &base, const QByteArray &p) const
    {
        if (p.isEmpty())
            return base;
        std::shared_ptr<Clip> c = base;
        QByteArray resto = p;
        if (resto.startsWith('/')) {
            c = r.radice;
            resto = resto.mid(1);
        }
        const bool barre = resto.contains('/') || p.startsWith('/');
        for (const QByteArray &parte : resto.split(barre ? '/' : '.')) {
            if (parte.isEmpty())
                continue;
            c = passo(c, parte);
            if (!c)
                return nullptr;
        }
        return c;
    }

    std::shared_ptr<Istanza> istanzaDi(const std::shared_ptr<Clip> &c) const { return c ? c->istanza.lock() : nullptr; }

    // What a clip covers in its own twips, for _width and _height.
    QRectF limitiDefinizione(const Definizione &d, int annidamento) const
    {
        if (annidamento > kMaxNesting)
            return {};
        switch (d.tipo) {
        case Definizione::FormaT: return d.forma->limiti;
        case Definizione::MorphT: return d.morph->limitiInizio;
        case Definizione::TestoT: return d.testo->matrice.mapRect(d.testo->limiti);
        case Definizione::CampoT: return d.campo->limiti;
        case Definizione::BitmapT: return QRectF(0, 0, d.bitmap->larghezza * 20.0, d.bitmap->altezza * 20.0);
        default: return {};
        }
    }
    QRectF limitiClip(const Clip &c, int annidamento) const
    {
        QRectF u;
        if (annidamento > kMaxNesting)
            return u;
        for (auto &[k, i] : c.lista) {
            const QRectF b = i->figli ? limitiClip(*i->figli, annidamento + 1) : limitiDefinizione(i->def, annidamento);
            if (!b.isNull())
                u = u.united(i->matrice.mapRect(b));
        }
        return u;
    }
    QTransform mondo(const std::shared_ptr<Clip> &c) const
    {
        QTransform m;
        int n = 0;
        for (auto k = c; k && n <= kMaxNesting; k = k->genitore.lock(), ++n)
            if (auto i = k->istanza.lock())
                m = m * i->matrice;
        return m;
    }

    Valore proprieta(const std::shared_ptr<Clip> &c, int p) const
    {
        if (!c)
            return {};
        auto ist = istanzaDi(c);
        const QTransform m = ist ? ist->matrice : QTransform();
        switch (p) {
        case 0: return Valore::numero(m.dx() / 20.0);
        case 1: return Valore::numero(m.dy() / 20.0);
        case 2: return Valore::numero(std::hypot(m.m11(), m.m12()) * 100);
        case 3: return Valore::numero(std::hypot(m.m21(), m.m22()) * 100);
        case 4: return Valore::numero(c->corrente + 1);
        case 5: case 12: return Valore::numero(c->seq ? c->seq->numeroFotogrammi : 1);
        case 6: return Valore::numero(ist ? ist->colore.ma * 100 : 100);
        case 7: return Valore::booleano(ist ? ist->visibile : true);
        case 8: case 9: {
            const QRectF b = m.mapRect(limitiClip(*c, 0));
            return Valore::numero((p == 8 ? b.width() : b.height()) / 20.0);
        }
        case 10: return Valore::numero(std::atan2(m.m12(), m.m11()) * 180 / std::numbers::pi);
        case 11: return Valore::stringa(percorso(c, false));
        case 13: return Valore::stringa(ist ? ist->nome : QByteArray());
        case 14: case 15: return Valore::stringa("");
        case 16: case 17: return Valore::numero(1);
        case 18: return Valore::numero(5);
        case 19: return Valore::stringa("HIGH");
        case 20: case 21: {
            bool ok = false;
            const QPointF q = mondo(c).inverted(&ok).map(r.puntatore.punto);
            return Valore::numero(ok ? (p == 20 ? q.x() : q.y()) / 20.0 : 0);
        }
        default: return {};
        }
    }

    void impostaProprieta(const std::shared_ptr<Clip> &c, int p, const Valore &v) const
    {
        auto ist = istanzaDi(c);
        if (!ist)
            return;
        double x = numero(v);
        QTransform &m = ist->matrice;
        const bool numerico = std::isfinite(x);
        auto scala = [&](double sx, double sy) {
            m = QTransform(m.m11() * sx, m.m12() * sx, m.m21() * sy, m.m22() * sy, m.dx(), m.dy());
        };
        switch (p) {
        case 0: case 1:
            if (!numerico)
                return;
            x = std::clamp(x, -1e6, 1e6) * 20;
            m = QTransform(m.m11(), m.m12(), m.m21(), m.m22(), p == 0 ? x : m.dx(), p == 1 ? x : m.dy());
            break;
        case 2: case 3: {
            if (!numerico)
                return;
            const double ora = p == 2 ? std::hypot(m.m11(), m.m12()) : std::hypot(m.m21(), m.m22());
            const double voluta = std::clamp(x, -1e5, 1e5) / 100;
            if (ora == 0) {
                const double a = std::atan2(m.m12(), m.m11());
                if (p == 2)
                    m = QTransform(voluta * std::cos(a), voluta * std::sin(a), m.m21(), m.m22(), m.dx(), m.dy());
                else
                    m = QTransform(m.m11(), m.m12(), -voluta * std::sin(a), voluta * std::cos(a), m.dx(), m.dy());
            } else {
                p == 2 ? scala(voluta / ora, 1) : scala(1, voluta / ora);
            }
            break;
        }
        case 6:
            if (!numerico)
                return;
            ist->colore.ma = std::clamp(x, -1e5, 1e5) / 100;
            break;
        case 7:
            ist->visibile = vero(v);
            return;
        case 8: case 9: {
            if (!numerico)
                return;
            const QRectF b = m.mapRect(limitiClip(*c, 0));
            const double ora = (p == 8 ? b.width() : b.height()) / 20.0;
            if (ora > 0)
                p == 8 ? scala(std::clamp(x, 0.0, 1e6) / ora, 1) : scala(1, std::clamp(x, 0.0, 1e6) / ora);
            break;
        }
        case 10: {
            if (!numerico)
                return;
            const double sx = std::hypot(m.m11(), m.m12()), sy = std::hypot(m.m21(), m.m22());
            const double prima = std::atan2(m.m12(), m.m11());
            const double inclina = std::atan2(-m.m21(), m.m22()) - prima;
            const double a = std::fmod(x, 360.0) * std::numbers::pi / 180;
            m = QTransform(sx * std::cos(a), sx * std::sin(a), -sy * std::sin(a + inclina), sy * std::cos(a + inclina),
                           m.dx(), m.dy());
            break;
        }
        case 13:
            ist->nome = testo(v);
            return;
        default:
            return;
        }
        // a clip moved by a script is the script's: the timeline no longer moves it
        ist->toccataDaScript = true;
    }

    // Reading a name: "a", "a.b.c", "/a/b:var", "_root.x", a property.
    Valore leggi(const QByteArray &nome) const
    {
        std::shared_ptr<Clip> c = bersaglio;
        QByteArray ultimo = nome;
        if (const auto dp = nome.lastIndexOf(':'); dp >= 0) {
            c = risolvi(bersaglio, nome.left(dp));
            ultimo = nome.mid(dp + 1);
        } else if (nome.startsWith('/') || (nome.contains('/') && !nome.contains('.'))) {
            return Valore::diClip(risolvi(bersaglio, nome));
        } else if (const auto punto = nome.lastIndexOf('.'); punto > 0) {
            c = risolvi(bersaglio, nome.left(punto));
            ultimo = nome.mid(punto + 1);
        }
        if (!c)
            return {};
        const QByteArray l = ultimo.toLower();
        if (l == "this")
            return Valore::diClip(c);
        if (l == "_root" || l == "_level0")
            return Valore::diClip(r.radice);
        if (l == "_parent")
            return Valore::diClip(c->genitore.lock());
        if (const int p = indiceProprieta(ultimo); p >= 0)
            return proprieta(c, p);
        if (auto it = c->variabili.find(chiave(ultimo)); it != c->variabili.end())
            return it->second;
        if (auto f = figlio(c, ultimo))
            return Valore::diClip(f);
        return {};
    }

    void scriviVariabile(const std::shared_ptr<Clip> &c, const QByteArray &nome, Valore v) const
    {
        if (!c)
            return;
        if (const int p = indiceProprieta(nome); p >= 0) {
            impostaProprieta(c, p, v);
            return;
        }
        const QByteArray k = chiave(nome);
        auto it = c->variabili.find(k);
        if (it != c->variabili.end())
            it->second = std::move(v);
        else if (c->variabili.size() < kMaxVariabili)
            c->variabili.emplace(k, std::move(v));
    }

    void scrivi(const QByteArray &nome, Valore v) const
    {
        std::shared_ptr<Clip> c = bersaglio;
        QByteArray ultimo = nome;
        if (const auto dp = nome.lastIndexOf(':'); dp >= 0) {
            c = risolvi(bersaglio, nome.left(dp));
            ultimo = nome.mid(dp + 1);
        } else if (const auto punto = nome.lastIndexOf('.'); punto > 0) {
            c = risolvi(bersaglio, nome.left(punto));
            ultimo = nome.mid(punto + 1);
        }
        if (!ultimo.isEmpty())
            scriviVariabile(c, ultimo, std::move(v));
    }

    Valore membro(const Valore &o, const QByteArray &nome) const
    {
        if (o.tipo == Valore::RifClip) {
            auto c = o.clip.lock();
            if (!c)
                return {};
            const QByteArray l = nome.toLower();
            if (l == "_parent")
                return Valore::diClip(c->genitore.lock());
            if (const int p = indiceProprieta(nome); p >= 0)
                return proprieta(c, p);
            if (auto it = c->variabili.find(chiave(nome)); it != c->variabili.end())
                return it->second;
            if (auto f = figlio(c, nome))
                return Valore::diClip(f);
            return {};
        }
        if (o.tipo == Valore::Stringa && nome == "length")
            return Valore::numero(static_cast<double>(QString::fromUtf8(o.s).size()));
        return {};
    }

    int fotogrammaDa(const Clip &c, const Valore &v) const
    {
        if (v.tipo == Valore::Stringa) {
            bool ok = false;
            int n = v.s.toInt(&ok);
            if (ok)
                return n - 1;
            auto it = c.seq->etichette.find(v.s.toLower());
            return it == c.seq->etichette.end() ? -1 : it->second;
        }
        double n = numero(v);
        if (std::isnan(n))
            return -1;
        return intero(n, 0, kMaxFrames + 1) - 1;
    }

    // The methods of a clip that the player knows; false for any other.
    bool metodoClip(const std::shared_ptr<Clip> &c, const QByteArray &metodo, const std::vector<Valore> &arg, Valore &esito)
    {
        if (!c || !c->seq)
            return false;
        const QByteArray m = metodo.toLower();
        if (m == "play") {
            c->inRiproduzione = true;
        } else if (m == "stop") {
            c->inRiproduzione = false;
        } else if (m == "nextframe") {
            r.vaiA(c, c->corrente + 1, false);
        } else if (m == "prevframe") {
            r.vaiA(c, std::max(c->corrente - 1, 0), false);
        } else if ((m == "gotoandplay" || m == "gotoandstop") && !arg.empty()) {
            int f = fotogrammaDa(*c, arg[0]);
            if (f >= 0)
                r.vaiA(c, f, m == "gotoandplay");
            else
                c->inRiproduzione = m == "gotoandplay";
        } else if (m == "getbytesloaded" || m == "getbytestotal") {
            // the whole film is in memory before it plays
            esito = Valore::numero(static_cast<double>(r.film->intestazione.lunghezzaDichiarata));
        } else {
            return false;
        }
        return true;
    }

    // A random integer below `n`, from the film's own sequence.
    int casuale(int n)
    {
        r.semeCasuale = r.semeCasuale * 6364136223846793005ull + 1442695040888963407ull;
        return n <= 0 ? 0 : static_cast<int>((r.semeCasuale >> 33) % static_cast<uint64_t>(n));
    }

    void esegui(const QByteArray &codice);
};

void Macchina::esegui(const QByteArray &codice)
{
    Lettore lt(reinterpret_cast<const uint8_t *>(codice.constData()), static_cast<size_t>(codice.size()));
    std::vector<Valore> pila;
    std::vector<QByteArray> costanti;
    Valore registri[4];
    auto togli = [&]() {
        if (pila.empty())
            return Valore{};
        Valore v = std::move(pila.back());
        pila.pop_back();
        return v;
    };
    auto metti = [&](Valore v) {
        if (pila.size() < kMaxPila)
            pila.push_back(std::move(v));
    };
    auto togliN = [&](double n) {
        for (int i = intero(n, 0, static_cast<int>(kMaxPila)); i > 0 && !pila.empty(); --i)
            pila.pop_back();
    };
    auto stringaLimitata = [](QByteArray s) {
        s.truncate(kMaxStringa);
        return Valore::stringa(std::move(s));
    };

    // every instruction is paid from the tick's budget, shared by all scripts
    for (; r.istruzioniPasso > 0 && lt.ok() && !lt.fine(); --r.istruzioniPasso) {
        uint8_t op = lt.u8();
        if (op == 0)
            break;
        Lettore a;
        if (op >= 0x80) {
            uint16_t lun = lt.u16();
            if (lun > lt.restanti())
                break;
            a = lt.sotto(lun);
        }
        if (!lt.ok())
            break;
        Clip *t = bersaglio.get();
        switch (op) {
        case 0x04: if (t) r.vaiA(bersaglio, t->corrente + 1, false); break;
        case 0x05: if (t) r.vaiA(bersaglio, std::max(t->corrente - 1, 0), false); break;
        case 0x06: if (t) t->inRiproduzione = true; break;
        case 0x07: if (t) t->inRiproduzione = false; break;
        case 0x08: case 0x28: break;  // ToggleQuality, EndDrag
        case 0x09: if (r.suoni.mixer) r.suoni.mixer->fermaTutto(); break;  // StopSounds
        case 0x81: if (t) r.vaiA(bersaglio, a.u16(), false); break;
        case 0x8C: {
            QByteArray etichetta = a.stringa().toLower();
            if (t && t->seq) {
                auto it = t->seq->etichette.find(etichetta);
                if (it != t->seq->etichette.end())
                    r.vaiA(bersaglio, it->second, false);
            }
            break;
        }
        case 0x9F: {
            uint8_t f = a.u8();
            int bias = (f & 2) ? a.u16() : 0;
            Valore v = togli();
            std::shared_ptr<Clip> c = bersaglio;
            if (v.tipo == Valore::Stringa && v.s.contains(':')) {
                int i = static_cast<int>(v.s.lastIndexOf(':'));
                c = risolvi(bersaglio, v.s.left(i));
                v.s = v.s.mid(i + 1);
            }
            if (c && c->seq) {
                int fr = fotogrammaDa(*c, v);
                if (fr >= 0)
                    r.vaiA(c, fr + (v.tipo == Valore::Stringa ? 0 : bias), f & 1);
            }
            break;
        }
        case 0x8B: {
            QByteArray nome = a.stringa();
            bersaglio = nome.isEmpty() ? clip : risolvi(clip, nome);
            break;
        }
        case 0x20: {
            Valore v = togli();
            if (v.tipo == Valore::RifClip)
                bersaglio = v.clip.lock();
            else
                bersaglio = testo(v).isEmpty() ? clip : risolvi(clip, testo(v));
            break;
        }
        case 0x88: {
            costanti.clear();
            int n = a.u16();
            for (int i = 0; i < n && a.ok(); ++i)
                costanti.push_back(a.stringa());
            break;
        }
        case 0x96:
            while (a.ok() && !a.fine()) {
                uint8_t tipo = a.u8();
                switch (tipo) {
                case 0: metti(Valore::stringa(a.stringa())); break;
                case 1: metti(Valore::numero(a.f32())); break;
                case 2: metti(Valore::nullo()); break;
                case 3: metti(Valore{}); break;
                case 4: { uint8_t i = a.u8(); metti(i < 4 ? registri[i] : Valore{}); break; }
                case 5: metti(Valore::booleano(a.u8() != 0)); break;
                case 6: metti(Valore::numero(a.f64())); break;
                case 7: metti(Valore::numero(a.s32())); break;
                case 8: case 9: {
                    size_t i = tipo == 8 ? a.u8() : a.u16();
                    metti(i < costanti.size() ? Valore::stringa(costanti[i]) : Valore{});
                    break;
                }
                default: a.segnaErrore(); break;
                }
            }
            break;
        case 0x87: {  // StoreRegister
            uint8_t i = a.u8();
            if (i < 4 && !pila.empty())
                registri[i] = pila.back();
            break;
        }
        case 0x17: togli(); break;
        case 0x4C: if (!pila.empty()) metti(pila.back()); break;  // PushDuplicate
        case 0x4D: if (pila.size() >= 2) std::swap(pila[pila.size() - 1], pila[pila.size() - 2]); break;
        case 0x26: togli(); break;  // trace: nowhere to print
        case 0x99: {
            int16_t salto = a.s16();
            lt.vaiA(static_cast<size_t>(static_cast<int64_t>(lt.pos()) + salto));
            break;
        }
        case 0x9D: {
            int16_t salto = a.s16();
            if (vero(togli()))
                lt.vaiA(static_cast<size_t>(static_cast<int64_t>(lt.pos()) + salto));
            break;
        }
        case 0x12: metti(Valore::booleano(!vero(togli()))); break;
        case 0x10: case 0x11: {  // And, Or
            Valore b = togli(), x = togli();
            metti(Valore::booleano(op == 0x10 ? vero(x) && vero(b) : vero(x) || vero(b)));
            break;
        }
        case 0x0A: case 0x0B: case 0x0C: case 0x0D: case 0x47: case 0x3F: {
            Valore b = togli(), x = togli();
            if (op == 0x47 && (x.tipo == Valore::Stringa || b.tipo == Valore::Stringa)) {
                metti(stringaLimitata(testo(x) + testo(b)));
                break;
            }
            double p = numero(x), q = numero(b);
            metti(Valore::numero(op == 0x0B ? p - q : op == 0x0C ? p * q : op == 0x0D ? p / q
                                 : op == 0x3F ? std::fmod(p, q) : p + q));
            break;
        }
        case 0x60: case 0x61: case 0x62: case 0x63: case 0x64: case 0x65: {
            const Valore b = togli(), x = togli();
            const int32_t p = int32(numero(x)), q = int32(numero(b));
            const int s = q & 31;
            double v = 0;
            switch (op) {
            case 0x60: v = p & q; break;
            case 0x61: v = p | q; break;
            case 0x62: v = p ^ q; break;
            case 0x63: v = static_cast<int32_t>(static_cast<uint32_t>(p) << s); break;
            case 0x64: v = p >> s; break;
            default: v = static_cast<uint32_t>(p) >> s; break;
            }
            metti(Valore::numero(v));
            break;
        }
        case 0x0E: case 0x49: {
            Valore b = togli(), x = togli();
            metti(Valore::booleano(uguali(x, b)));
            break;
        }
        case 0x66: {  // StrictEquals: no conversion
            Valore b = togli(), x = togli();
            const bool stessoTipo = x.tipo == b.tipo;
            metti(Valore::booleano(stessoTipo && uguali(x, b)));
            break;
        }
        case 0x0F: case 0x48: case 0x67: {
            Valore b = togli(), x = togli();
            if (op != 0x0F && x.tipo == Valore::Stringa && b.tipo == Valore::Stringa)
                metti(Valore::booleano(op == 0x48 ? x.s < b.s : x.s > b.s));
            else
                metti(Valore::booleano(op == 0x67 ? numero(x) > numero(b) : numero(x) < numero(b)));
            break;
        }
        case 0x13: case 0x29: case 0x68: {  // StringEquals, StringLess, StringGreater
            Valore b = togli(), x = togli();
            const QByteArray p = testo(x), q = testo(b);
            metti(Valore::booleano(op == 0x13 ? p == q : op == 0x29 ? p < q : p > q));
            break;
        }
        case 0x21: {  // StringAdd
            Valore b = togli(), x = togli();
            metti(stringaLimitata(testo(x) + testo(b)));
            break;
        }
        case 0x14: case 0x31: metti(Valore::numero(static_cast<double>(QString::fromUtf8(testo(togli())).size()))); break;
        case 0x15: case 0x35: {  // StringExtract: string, index from 1, count
            const double n = numero(togli()), i = numero(togli());
            const QString s = QString::fromUtf8(testo(togli()));
            const int da = intero(i, 1, static_cast<int>(s.size()) + 1) - 1;
            const int quanti = std::isnan(n) || n < 0 ? static_cast<int>(s.size()) : intero(n, 0, static_cast<int>(s.size()));
            metti(Valore::stringa(s.mid(da, quanti).toUtf8()));
            break;
        }
        case 0x32: case 0x36: {  // CharToAscii
            const QString s = QString::fromUtf8(testo(togli()));
            metti(Valore::numero(s.isEmpty() ? 0 : s.at(0).unicode()));
            break;
        }
        case 0x33: case 0x37: {  // AsciiToChar
            const int c = intero(numero(togli()), 0, 0xffff);
            metti(Valore::stringa(QString(QChar(static_cast<char16_t>(c))).toUtf8()));
            break;
        }
        case 0x18: {  // ToInteger
            const double v = numero(togli());
            metti(Valore::numero(std::isnan(v) ? 0 : std::trunc(v)));
            break;
        }
        case 0x4A: metti(Valore::numero(numero(togli()))); break;
        case 0x4B: metti(Valore::stringa(testo(togli()))); break;
        case 0x44: {  // TypeOf
            const Valore v = togli();
            const char *n = "object";
            switch (v.tipo) {
            case Valore::Indefinito: n = "undefined"; break;
            case Valore::Nullo: n = "null"; break;
            case Valore::Booleano: n = "boolean"; break;
            case Valore::Numero: n = "number"; break;
            case Valore::Stringa: n = "string"; break;
            case Valore::RifClip: n = "movieclip"; break;
            default: break;
            }
            metti(Valore::stringa(n));
            break;
        }
        case 0x50: metti(Valore::numero(numero(togli()) + 1)); break;
        case 0x51: metti(Valore::numero(numero(togli()) - 1)); break;
        case 0x30: metti(Valore::numero(casuale(intero(numero(togli()), 0, 1 << 30)))); break;  // random(n)
        case 0x34:  // getTimer: the film's own time, counted in frames
            metti(Valore::numero(std::floor(static_cast<double>(r.tick) * 1000.0 / std::max(r.film->fps, 1.0))));
            break;
        case 0x45: {  // TargetPath
            const Valore v = togli();
            metti(v.tipo == Valore::RifClip ? Valore::stringa(percorso(v.clip.lock(), false)) : Valore{});
            break;
        }
        case 0x1C: metti(leggi(testo(togli()))); break;  // GetVariable
        case 0x1D: {  // SetVariable
            Valore v = togli();
            scrivi(testo(togli()), std::move(v));
            break;
        }
        case 0x3C: {  // DefineLocal: outside functions, a variable of the clip
            Valore v = togli();
            scriviVariabile(bersaglio, testo(togli()), std::move(v));
            break;
        }
        case 0x41: {  // DefineLocal2
            const QByteArray nome = testo(togli());
            if (bersaglio && !bersaglio->variabili.count(chiave(nome)) && indiceProprieta(nome) < 0)
                scriviVariabile(bersaglio, nome, Valore{});
            break;
        }
        case 0x3A: case 0x3B: {  // Delete, Delete2
            const QByteArray nome = testo(togli());
            std::shared_ptr<Clip> c = bersaglio;
            if (op == 0x3A) {
                const Valore o = togli();
                c = o.tipo == Valore::RifClip ? o.clip.lock() : nullptr;
            }
            metti(Valore::booleano(c && c->variabili.erase(chiave(nome)) > 0));
            break;
        }
        case 0x22: {  // GetProperty
            const int p = intero(numero(togli()), -1, 1000);
            const Valore dove = togli();
            auto c = dove.tipo == Valore::RifClip ? dove.clip.lock() : risolvi(bersaglio, testo(dove));
            metti(p >= 0 && p < kNumeroProprieta ? proprieta(c, p) : Valore{});
            break;
        }
        case 0x23: {  // SetProperty
            Valore v = togli();
            const int p = intero(numero(togli()), -1, 1000);
            const Valore dove = togli();
            auto c = dove.tipo == Valore::RifClip ? dove.clip.lock() : risolvi(bersaglio, testo(dove));
            if (c && p >= 0 && p < kNumeroProprieta)
                impostaProprieta(c, p, v);
            break;
        }
        case 0x4E: {  // GetMember
            const QByteArray nome = testo(togli());
            metti(membro(togli(), nome));
            break;
        }
        case 0x4F: {  // SetMember
            Valore v = togli();
            const QByteArray nome = testo(togli());
            const Valore o = togli();
            if (o.tipo == Valore::RifClip)
                scriviVariabile(o.clip.lock(), nome, std::move(v));
            break;
        }
        case 0x52: case 0x3D: {  // CallMethod / CallFunction
            QByteArray metodo = testo(togli());
            std::shared_ptr<Clip> oggetto = bersaglio;
            if (op == 0x52) {
                Valore o = togli();
                oggetto = o.tipo == Valore::RifClip ? o.clip.lock() : nullptr;
            }
            int n = intero(numero(togli()), 0, 256);
            std::vector<Valore> arg;
            for (int i = 0; i < n; ++i)
                arg.push_back(togli());
            Valore esito;
            metodoClip(oggetto, metodo, arg, esito);
            metti(esito);
            break;
        }
        case 0x40: case 0x53: {  // NewObject, NewMethod: no objects here
            togli();
            if (op == 0x53)
                togli();
            togliN(numero(togli()));
            metti(Valore{});
            break;
        }
        case 0x42: togliN(numero(togli())); metti(Valore{}); break;        // InitArray
        case 0x43: togliN(2 * numero(togli())); metti(Valore{}); break;    // InitObject
        case 0x46: case 0x55: togli(); metti(Valore::nullo()); break;      // Enumerate: nothing to list
        case 0x24: togli(); togli(); togli(); break;                       // CloneSprite
        case 0x25: togli(); break;                                         // RemoveSprite
        case 0x27: {                                                       // StartDrag
            togli();
            togli();
            if (vero(togli()))
                togliN(4);
            break;
        }
        case 0x9A: togli(); togli(); break;  // GetURL2: nothing leaves the game
        case 0x8D: togli(); break;           // WaitForFrame2: every frame is loaded
        case 0x9E: togli(); break;           // Call
        case 0x54: case 0x69: case 0x2B: {   // InstanceOf, Extends, CastOp
            togli();
            togli();
            if (op != 0x69)
                metti(op == 0x54 ? Valore::booleano(false) : Valore::nullo());
            break;
        }
        case 0x3E: case 0x2A: lt.vaiA(lt.size()); break;  // Return, Throw: this block ends
        case 0x9B: case 0x8E: {  // DefineFunction(2): the body follows the record
            size_t fine = a.size();
            if (fine >= 2) {
                Lettore coda(a.dati() + fine - 2, 2);
                uint16_t corpo = coda.u16();
                lt.salta(corpo);
            }
            // a named function is a statement and leaves nothing on the stack
            Lettore nome(a.dati(), a.size());
            if (nome.stringa().isEmpty())
                metti(Valore{});
            break;
        }
        case 0x94: togli(); break;  // With: the body runs in place
        default: break;
        }
        if (r.radice == nullptr)
            break;
    }
}

} // namespace

void eseguiAvm1(Riproduzione &r, const std::shared_ptr<Clip> &clip, const QByteArray &codice)
{
    Macchina m{r, clip, clip, r.film ? r.film->intestazione.versione : 6};
    m.esegui(codice);
}

} // namespace swf
