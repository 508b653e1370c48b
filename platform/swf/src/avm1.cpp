// The small part of AVM1 that children's films use: timeline control on the
// current clip or a named one. Everything else is stepped over harmlessly.

#include "riproduzione.h"

#include <cmath>

namespace swf {

namespace {

constexpr size_t kMaxPila = 4096;
// Joined strings stop growing here: names and labels are short, and a script
// that doubles a string in a loop must not fill the memory
constexpr qsizetype kMaxStringa = 4096;

struct Valore {
    enum Tipo { Indefinito, Nullo, Booleano, Numero, Stringa, RifClip } tipo = Indefinito;
    double n = 0;
    QByteArray s;
    std::weak_ptr<Clip> clip;

    static Valore numero(double v) { Valore x; x.tipo = Numero; x.n = v; return x; }
    static Valore stringa(QByteArray v) { Valore x; x.tipo = Stringa; x.s = std::move(v); return x; }
    static Valore booleano(bool v) { Valore x; x.tipo = Booleano; x.n = v ? 1 : 0; return x; }

    double comeNumero() const
    {
        switch (tipo) {
        case Numero: case Booleano: return n;
        case Stringa: { bool ok = false; double v = s.trimmed().toDouble(&ok); return ok ? v : NAN; }
        default: return NAN;
        }
    }
    bool vero() const
    {
        switch (tipo) {
        case Numero: case Booleano: return n != 0 && !std::isnan(n);
        case Stringa: { double v = comeNumero(); return !std::isnan(v) && v != 0; }
        case RifClip: return !clip.expired();
        default: return false;
        }
    }
    QByteArray comeStringa() const
    {
        switch (tipo) {
        case Numero: return QByteArray::number(n, 'g', 15);
        case Booleano: return n ? "true" : "false";
        case Stringa: return s;
        case Nullo: return "null";
        default: return "";
        }
    }
};

// NaN and out-of-range numbers must not reach an int conversion
int intero(double v, int minimo, int massimo)
{
    if (std::isnan(v))
        return minimo;
    return static_cast<int>(std::clamp(v, static_cast<double>(minimo), static_cast<double>(massimo)));
}

std::shared_ptr<Clip> figlio(const std::shared_ptr<Clip> &c, const QByteArray &nome)
{
    if (!c)
        return nullptr;
    const QByteArray n = nome.toLower();
    for (auto &[k, v] : c->lista)
        if (v->figli && v->def.tipo == Definizione::SpriteT && v->nome.toLower() == n)
            return v->figli;
    return nullptr;
}

// "/a/b", "_root.a.b", "a.b", "a", "" (the current clip)
std::shared_ptr<Clip> risolvi(Riproduzione &r, const std::shared_ptr<Clip> &base, const QByteArray &percorso)
{
    if (percorso.isEmpty() || percorso == "this")
        return base;
    std::shared_ptr<Clip> c = base;
    QByteArray p = percorso;
    if (p.startsWith('/')) {
        c = r.radice;
        p = p.mid(1);
    }
    for (const QByteArray &parte : p.split(p.contains('/') ? '/' : '.')) {
        if (parte.isEmpty() || parte == "this")
            continue;
        const QByteArray l = parte.toLower();
        if (l == "_root" || l == "_level0")
            c = r.radice;
        else
            c = figlio(c, parte);
        if (!c)
            return nullptr;
    }
    return c;
}

int fotogrammaDa(const Clip &c, const Valore &v)
{
    if (v.tipo == Valore::Stringa) {
        bool ok = false;
        int n = v.s.toInt(&ok);
        if (ok)
            return n - 1;
        auto it = c.seq->etichette.find(v.s.toLower());
        return it == c.seq->etichette.end() ? -1 : it->second;
    }
    double n = v.comeNumero();
    if (std::isnan(n))
        return -1;
    return intero(n, 0, kMaxFrames + 1) - 1;
}

bool chiamaMetodoClip(Riproduzione &r, const std::shared_ptr<Clip> &c, const QByteArray &metodo,
                      const std::vector<Valore> &arg)
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
    } else {
        return false;
    }
    return true;
}

} // namespace

void eseguiAvm1(Riproduzione &r, const std::shared_ptr<Clip> &clip, const QByteArray &codice)
{
    Lettore lt(reinterpret_cast<const uint8_t *>(codice.constData()), static_cast<size_t>(codice.size()));
    std::vector<Valore> pila;
    std::vector<QByteArray> costanti;
    std::shared_ptr<Clip> bersaglio = clip;
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
    auto valoreDiNome = [&](const QByteArray &nome) {
        const QByteArray l = nome.toLower();
        Valore v;
        std::shared_ptr<Clip> c;
        if (l == "_root" || l == "_level0")
            c = r.radice;
        else if (l == "this")
            c = bersaglio;
        else
            c = risolvi(r, bersaglio, nome);
        if (c) {
            v.tipo = Valore::RifClip;
            v.clip = c;
        }
        return v;
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
                c = risolvi(r, bersaglio, v.s.left(i));
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
            bersaglio = nome.isEmpty() ? clip : risolvi(r, clip, nome);
            break;
        }
        case 0x20: {
            Valore v = togli();
            if (v.tipo == Valore::RifClip)
                bersaglio = v.clip.lock();
            else
                bersaglio = v.comeStringa().isEmpty() ? clip : risolvi(r, clip, v.comeStringa());
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
                case 2: { Valore v; v.tipo = Valore::Nullo; metti(v); break; }
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
            if (togli().vero())
                lt.vaiA(static_cast<size_t>(static_cast<int64_t>(lt.pos()) + salto));
            break;
        }
        case 0x12: metti(Valore::booleano(!togli().vero())); break;
        case 0x0A: case 0x0B: case 0x0C: case 0x0D: case 0x47: {
            Valore b = togli(), x = togli();
            if (op == 0x47 && (x.tipo == Valore::Stringa || b.tipo == Valore::Stringa)) {
                metti(Valore::stringa((x.comeStringa() + b.comeStringa()).left(kMaxStringa)));
                break;
            }
            double p = x.comeNumero(), q = b.comeNumero();
            metti(Valore::numero(op == 0x0B ? p - q : op == 0x0C ? p * q : op == 0x0D ? p / q : p + q));
            break;
        }
        case 0x0E: case 0x49: case 0x66: {
            Valore b = togli(), x = togli();
            bool uguali = (x.tipo == Valore::Stringa && b.tipo == Valore::Stringa) ? x.s == b.s
                                                                                     : x.comeNumero() == b.comeNumero();
            metti(Valore::booleano(uguali));
            break;
        }
        case 0x0F: case 0x48: {
            Valore b = togli(), x = togli();
            metti(Valore::booleano(x.comeNumero() < b.comeNumero()));
            break;
        }
        case 0x50: metti(Valore::numero(togli().comeNumero() + 1)); break;
        case 0x51: metti(Valore::numero(togli().comeNumero() - 1)); break;
        case 0x1C: metti(valoreDiNome(togli().comeStringa())); break;
        case 0x1D: togli(); togli(); break;
        case 0x3C: togli(); togli(); break;
        case 0x41: togli(); break;
        case 0x4E: {  // GetMember
            QByteArray nome = togli().comeStringa();
            Valore o = togli();
            Valore v;
            if (o.tipo == Valore::RifClip) {
                if (auto c = figlio(o.clip.lock(), nome)) {
                    v.tipo = Valore::RifClip;
                    v.clip = c;
                } else if (auto c2 = o.clip.lock(); c2 && nome.toLower() == "_currentframe") {
                    v = Valore::numero(c2->corrente + 1);
                } else if (c2 && nome.toLower() == "_totalframes") {
                    v = Valore::numero(c2->seq ? c2->seq->numeroFotogrammi : 0);
                }
            }
            metti(v);
            break;
        }
        case 0x4F: togli(); togli(); togli(); break;
        case 0x52: case 0x3D: {  // CallMethod / CallFunction
            QByteArray metodo = togli().comeStringa();
            std::shared_ptr<Clip> oggetto = bersaglio;
            if (op == 0x52) {
                Valore o = togli();
                oggetto = o.tipo == Valore::RifClip ? o.clip.lock() : nullptr;
            }
            int n = intero(togli().comeNumero(), 0, 256);
            std::vector<Valore> arg;
            for (int i = 0; i < n; ++i)
                arg.push_back(togli());
            chiamaMetodoClip(r, oggetto, metodo, arg);
            metti(Valore{});
            break;
        }
        case 0x9B: case 0x8E: {  // DefineFunction(2): the body follows the record
            size_t fine = a.size();
            if (fine >= 2) {
                Lettore coda(a.dati() + fine - 2, 2);
                uint16_t corpo = coda.u16();
                lt.salta(corpo);
            }
            Valore f;
            metti(f);
            break;
        }
        case 0x94: break;  // With: run the body in place
        default: break;
        }
        if (r.radice == nullptr)
            break;
    }
}

} // namespace swf
