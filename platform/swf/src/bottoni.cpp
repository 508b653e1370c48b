// Buttons: their reading (DefineButton, DefineButton2, DefineButtonCxform,
// DefineButtonSound), the characters each state shows, and the pointer that
// moves them from up to over to down, running their actions and sounds.

#include "riproduzione.h"

namespace swf {

namespace {

constexpr size_t kMaxParti = 256;
constexpr size_t kMaxAzioniBottone = 64;

// The characters of a button, up to the record that ends them.
bool leggiParti(Lettore &r, int versione, Bottone &b)
{
    while (r.ok() && !r.fine()) {
        const uint8_t f = r.u8();
        if (f == 0)
            return true;
        ParteBottone p;
        p.stati = f & 0x0f;
        const bool filtri = f & 0x10;
        const bool fusione = f & 0x20;
        p.carattere = r.u16();
        p.profondita = r.u16();
        p.matrice = leggiMatrice(r);
        if (versione == 2) {
            p.colore = leggiCx(r, true);
            if (filtri && !leggiFiltri(r, p.filtri))
                return false;
            if (fusione)
                p.fusione = r.u8();
        }
        if (r.ok() && b.parti.size() < kMaxParti)
            b.parti.push_back(std::move(p));
    }
    return r.ok();
}

QByteArray copia(const Lettore &r, size_t da, size_t a)
{
    a = std::min(a, r.size());
    if (da >= a)
        return {};
    return QByteArray(reinterpret_cast<const char *>(r.dati() + da), static_cast<qsizetype>(a - da));
}

} // namespace

bool leggiBottone(Lettore &r, int versione, Bottone &b)
{
    if (versione == 1) {
        if (!leggiParti(r, 1, b))
            return false;
        // the actions of a DefineButton run when it is released over it
        b.azioni.push_back(Bottone::Azione{GiuASopra, copia(r, r.pos(), r.size())});
        return true;
    }
    b.menu = r.u8() & 0x01;
    const size_t inizioOffset = r.pos();
    const uint16_t offset = r.u16();
    if (!leggiParti(r, 2, b))
        return false;
    if (offset == 0)
        return true;
    size_t pos = inizioOffset + offset;
    while (pos + 4 <= r.size() && b.azioni.size() < kMaxAzioniBottone) {
        r.vaiA(pos);
        const uint16_t lunghezza = r.u16();
        const uint16_t condizioni = r.u16();
        const size_t fine = lunghezza == 0 ? r.size() : pos + lunghezza;
        if (!r.ok() || fine <= pos + 4)
            break;
        b.azioni.push_back(Bottone::Azione{condizioni, copia(r, pos + 4, fine)});
        if (lunghezza == 0)
            break;
        pos = fine;
    }
    return true;
}

void leggiColoreBottone(Lettore &r, Film &film)
{
    const uint16_t id = r.u16();
    auto it = film.definizioni.find(id);
    if (it == film.definizioni.end() || !it->second.bottone)
        return;
    ColorTransform c = leggiCx(r, false);
    if (!r.ok())
        return;
    it->second.bottone->haColore = true;
    it->second.bottone->colore = c;
}

void leggiSuoniBottone(Lettore &r, Film &film)
{
    const uint16_t id = r.u16();
    auto it = film.definizioni.find(id);
    if (it == film.definizioni.end() || !it->second.bottone)
        return;
    std::array<AvvioSuono, 4> suoni;
    for (AvvioSuono &s : suoni) {
        s.id = r.u16();
        if (s.id != 0)
            s.info = leggiInfoSuono(r);
        if (!r.ok())
            return;
    }
    it->second.bottone->suoni = std::move(suoni);
}

void Riproduzione::statoBottone(Istanza &ist, uint8_t stato, int annidamento)
{
    ist.statoBottone = stato;
    if (!ist.def.bottone || annidamento >= kMaxNesting)
        return;
    if (!ist.figli) {
        ist.figli = std::make_shared<Clip>();
        ist.figli->annidamento = annidamento + 1;
    }
    Clip &c = *ist.figli;
    std::map<int, std::shared_ptr<Istanza>> lista;
    const auto &parti = ist.def.bottone->parti;
    for (size_t k = 0; k < parti.size(); ++k) {
        const ParteBottone &pb = parti[k];
        if (!(pb.stati & stato) || lista.count(pb.profondita))
            continue;
        // a character shown in both states stays as it is, its clip running on
        auto vecchia = c.lista.find(pb.profondita);
        if (vecchia != c.lista.end() && vecchia->second->nascita == static_cast<int>(k)) {
            lista[pb.profondita] = vecchia->second;
            continue;
        }
        Piazza p;
        p.haCarattere = true;
        p.carattere = pb.carattere;
        p.profondita = pb.profondita;
        p.haMatrice = true;
        p.matrice = pb.matrice;
        p.haColore = true;
        p.colore = pb.colore;
        p.haFiltri = !pb.filtri.empty();
        p.filtri = pb.filtri;
        p.haFusione = true;
        p.fusione = pb.fusione;
        if (auto nuova = nuovaIstanza(p, static_cast<int>(k), annidamento + 1, ist.figli))
            lista[pb.profondita] = nuova;
    }
    c.lista = std::move(lista);
}

namespace {

bool colpisceDefinizione(const Film &film, const Definizione &d, const QTransform &m, const QPointF &p, int annidamento);

bool colpisceCarattere(const Film &film, uint16_t id, const QTransform &m, const QPointF &p, int annidamento)
{
    auto it = film.definizioni.find(id);
    return it != film.definizioni.end() && colpisceDefinizione(film, it->second, m, p, annidamento);
}

bool dentroRettangolo(const QRectF &r, const QTransform &m, const QPointF &p)
{
    bool ok = false;
    const QTransform inv = m.inverted(&ok);
    return ok && r.contains(inv.map(p));
}

// The area a character covers, for the hit state of a button: the fills of a
// shape, the box of a text, what a clip shows on its first frame.
bool colpisceDefinizione(const Film &film, const Definizione &d, const QTransform &m, const QPointF &p, int annidamento)
{
    if (annidamento > kMaxNesting)
        return false;
    switch (d.tipo) {
    case Definizione::FormaT: {
        bool ok = false;
        const QTransform inv = m.inverted(&ok);
        if (!ok)
            return false;
        const QPointF q = inv.map(p);
        return d.forma->limiti.contains(q) && contornoForma(*d.forma).contains(q);
    }
    case Definizione::MorphT: {
        bool ok = false;
        const QTransform inv = m.inverted(&ok);
        return ok && contornoForma(*formaMorph(*d.morph, 0)).contains(inv.map(p));
    }
    case Definizione::TestoT:
        return dentroRettangolo(d.testo->limiti, d.testo->matrice * m, p);
    case Definizione::CampoT:
        return dentroRettangolo(d.campo->limiti, m, p);
    case Definizione::BitmapT:
        return d.bitmap->larghezza > 0 && dentroRettangolo(QRectF(0, 0, d.bitmap->larghezza * 20.0, d.bitmap->altezza * 20.0), m, p);
    case Definizione::SpriteT:
        if (!d.sprite->fotogrammi.empty())
            for (const Comando &c : d.sprite->fotogrammi.front().comandi)
                if (c.tipo == Comando::Metti && c.piazza.haCarattere && c.piazza.clip == 0
                    && colpisceCarattere(film, c.piazza.carattere, c.piazza.matrice * m, p, annidamento + 1))
                    return true;
        return false;
    case Definizione::BottoneT:
        for (const ParteBottone &pb : d.bottone->parti)
            if ((pb.stati & ParteBottone::Colpo) && colpisceCarattere(film, pb.carattere, pb.matrice * m, p, annidamento + 1))
                return true;
        return false;
    default:
        return false;
    }
}

struct Trovato {
    std::shared_ptr<Istanza> bottone;
    std::shared_ptr<Clip> clip;
};

// The topmost button under the point, and the timeline that holds it. Shapes
// drawn over a button don't take its clicks.
Trovato trovaBottone(const Film &film, const std::shared_ptr<Clip> &c, const QTransform &mondo, const QPointF &p, int annidamento)
{
    if (!c || annidamento > kMaxNesting)
        return {};
    for (auto it = c->lista.rbegin(); it != c->lista.rend(); ++it) {
        const auto &ist = it->second;
        if (!ist->visibile || ist->clip > 0)
            continue;
        const QTransform m = ist->matrice * mondo;
        if (ist->def.tipo == Definizione::BottoneT) {
            if (colpisceDefinizione(film, ist->def, m, p, annidamento))
                return Trovato{ist, c};
        } else if (ist->def.tipo == Definizione::SpriteT && ist->figli) {
            Trovato t = trovaBottone(film, ist->figli, m, p, annidamento + 1);
            if (t.bottone)
                return t;
        }
    }
    return {};
}

} // namespace

void Riproduzione::transizioneBottone(const std::shared_ptr<Istanza> &ist, const std::shared_ptr<Clip> &clip,
                                      uint16_t transizione, uint8_t stato)
{
    if (!ist || !ist->def.bottone)
        return;
    if (ist->statoBottone != stato)
        statoBottone(*ist, stato, clip ? clip->annidamento : 0);
    const Bottone &b = *ist->def.bottone;
    for (const Bottone::Azione &a : b.azioni)
        if ((a.condizioni & transizione) && clip)
            coda.push_back(Azione{clip, a.codice});
    int suono = transizione == SopraAInattivo ? 0 : transizione == InattivoASopra ? 1 : transizione == SopraAGiu ? 2
                : transizione == GiuASopra ? 3 : -1;
    if (suono >= 0 && b.suoni[static_cast<size_t>(suono)].id != 0)
        suoni.avviaSuono(*this, b.suoni[static_cast<size_t>(suono)]);
}

void Riproduzione::eventoPuntatore(EventoPuntatore e, const QPointF &punto)
{
    if (!radice)
        return;
    puntatore.punto = punto;
    Trovato t;
    if (e != EventoPuntatore::Esce)
        t = trovaBottone(*film, radice, QTransform(), punto, 0);
    auto sotto = puntatore.sotto.lock();
    auto preso = puntatore.preso.lock();
    creazioniPasso = 0;
    if (!puntatore.premuto) {
        if (sotto != t.bottone) {
            if (sotto)
                transizioneBottone(sotto, puntatore.sottoClip.lock(), SopraAInattivo, ParteBottone::Su);
            if (t.bottone)
                transizioneBottone(t.bottone, t.clip, InattivoASopra, ParteBottone::Sopra);
        }
        if (e == EventoPuntatore::Premi) {
            puntatore.premuto = true;
            puntatore.preso = t.bottone;
            puntatore.presoClip = t.clip;
            puntatore.fuori = false;
            if (t.bottone)
                transizioneBottone(t.bottone, t.clip, SopraAGiu, ParteBottone::Giu);
        }
    } else if (!preso) {
        // pressed away from any button: the one it is let go over lights up
        if (e == EventoPuntatore::Rilascia && t.bottone)
            transizioneBottone(t.bottone, t.clip, InattivoASopra, ParteBottone::Sopra);
    } else {
        auto clip = puntatore.presoClip.lock();
        const bool dentro = t.bottone == preso;
        if (e == EventoPuntatore::Rilascia || e == EventoPuntatore::Esce) {
            if (dentro)
                transizioneBottone(preso, clip, GiuASopra, ParteBottone::Sopra);
            else
                transizioneBottone(preso, clip, FuoriAInattivo, ParteBottone::Su);
            if (t.bottone && !dentro)
                transizioneBottone(t.bottone, t.clip, InattivoASopra, ParteBottone::Sopra);
        } else if (dentro && puntatore.fuori) {
            puntatore.fuori = false;
            transizioneBottone(preso, clip, FuoriAGiu, ParteBottone::Giu);
        } else if (!dentro && !puntatore.fuori) {
            puntatore.fuori = true;
            // held down and dragged off, a button shows its over state
            transizioneBottone(preso, clip, GiuAFuori, ParteBottone::Sopra);
        }
    }
    if (e == EventoPuntatore::Rilascia || e == EventoPuntatore::Esce) {
        puntatore.premuto = false;
        puntatore.preso.reset();
        puntatore.presoClip.reset();
        puntatore.fuori = false;
    }
    puntatore.sotto = t.bottone;
    puntatore.sottoClip = t.clip;
    eseguiCoda();
    suoni.sincronizza(*this);
}

} // namespace swf
