// Timeline stepping: display-list commands, looping, gotos and the script queue.

#include "riproduzione.h"

namespace swf {

namespace {
constexpr int kMaxAzioniPerTick = 20000;
// A children's film runs a handful of stops and gotos a frame and shows a few
// dozen clips; these limits are far above that and keep a broken or hostile
// file from stalling a face.
constexpr int64_t kMaxIstruzioniPerTick = 25000;
constexpr size_t kMaxIstanze = 5000;      // in one display list
constexpr size_t kMaxIstanzeFilm = 5000;  // in the whole tree of a film
constexpr size_t kMaxCreazioniPerPasso = 5000;

// What stepping through frame k costs the scripts' budget: a goto in a loop
// pays for the frames it replays, empty ones included
int64_t costoFotogramma(const Sequenza &s, int k)
{
    return 1 + (k < static_cast<int>(s.fotogrammi.size())
                    ? static_cast<int64_t>(s.fotogrammi[static_cast<size_t>(k)].comandi.size())
                    : 0);
}
}

void applicaPiazza(Istanza &i, const Piazza &p)
{
    if (p.haMatrice)
        i.matrice = p.matrice;
    if (p.haColore)
        i.colore = p.colore;
    if (p.haRapporto)
        i.rapporto = p.rapporto;
    if (p.haNome)
        i.nome = p.nome;
    if (p.haClip)
        i.clip = p.clip;
    if (p.haFusione)
        i.fusione = p.fusione;
    if (p.haFiltri)
        i.filtri = p.filtri;
    if (p.haCache)
        i.cache = p.cache;
    if (p.haVisibile)
        i.visibile = p.visibile;
    if (!p.azioniClip.empty())
        i.azioniClip = p.azioniClip;
}

std::shared_ptr<Istanza> Riproduzione::nuovaIstanza(const Piazza &p, int nascita, int annidamento,
                                                    const std::shared_ptr<Clip> &genitore)
{
    auto it = film->definizioni.find(p.carattere);
    if (it == film->definizioni.end() || it->second.tipo == Definizione::CarattereT)
        return nullptr;
    if (*istanzeVive >= kMaxIstanzeFilm || creazioniPasso >= kMaxCreazioniPerPasso)
        return nullptr;
    ++creazioniPasso;
    auto ist = std::make_shared<Istanza>();
    ist->conteggio.vive = istanzeVive;
    ++*istanzeVive;
    ist->carattere = p.carattere;
    ist->def = it->second;
    ist->nascita = nascita;
    ist->tickNascita = tick;
    applicaPiazza(*ist, p);
    if (ist->def.tipo == Definizione::SpriteT) {
        if (annidamento >= kMaxNesting)
            return nullptr;
        ist->figli = std::make_shared<Clip>();
        ist->figli->seq = ist->def.sprite;
        ist->figli->annidamento = annidamento + 1;
        ist->figli->genitore = genitore;
        ist->figli->istanza = ist;
        for (const AzioneClip &a : ist->azioniClip)
            if (a.eventi & CaricaClip)
                coda.push_back(Azione{ist->figli, a.codice});
        eseguiFotogramma(ist->figli, 0, true);
    } else if (ist->def.tipo == Definizione::BottoneT) {
        statoBottone(*ist, ParteBottone::Su, annidamento);
    }
    return ist;
}

void Riproduzione::accoda(const std::shared_ptr<Clip> &c, int f)
{
    suoni.entra(*this, c, f);
    if (!c->seq || f < 0 || f >= static_cast<int>(c->seq->fotogrammi.size()))
        return;
    const Fotogramma &fg = c->seq->fotogrammi[static_cast<size_t>(f)];
    if (c == radice && !fg.azioniIniziali.empty()) {
        if (inizialiEseguite.size() <= static_cast<size_t>(f))
            inizialiEseguite.resize(static_cast<size_t>(f) + 1);
        if (!inizialiEseguite[static_cast<size_t>(f)]) {
            inizialiEseguite[static_cast<size_t>(f)] = true;
            for (const QByteArray &a : fg.azioniIniziali)
                coda.push_back(Azione{c, a});
        }
    }
    for (const QByteArray &a : c->seq->fotogrammi[static_cast<size_t>(f)].azioni)
        coda.push_back(Azione{c, a});
}

void Riproduzione::eseguiFotogramma(const std::shared_ptr<Clip> &cp, int f, bool accodaAzioni)
{
    Clip &c = *cp;
    if (!c.seq || f < 0 || f >= c.seq->numeroFotogrammi)
        return;
    // keep the sequence alive even if a nested call replaces c.seq
    std::shared_ptr<Sequenza> seq = c.seq;
    c.corrente = f;
    if (f >= static_cast<int>(seq->fotogrammi.size()))
        return;  // an empty frame at the end of the timeline
    // a frame's own scripts run before those of the clips it creates
    if (accodaAzioni)
        accoda(cp, f);
    for (const Comando &cmd : seq->fotogrammi[static_cast<size_t>(f)].comandi) {
        if (cmd.tipo == Comando::Togli) {
            c.lista.erase(cmd.profondita);
            continue;
        }
        const Piazza &p = cmd.piazza;
        auto it = c.lista.find(p.profondita);
        if (p.versione == 1 || !p.sposta) {
            if (!p.haCarattere)
                continue;
            if (c.lista.size() >= kMaxIstanze && it == c.lista.end())
                continue;
            auto ist = nuovaIstanza(p, f, c.annidamento, cp);
            if (ist)
                c.lista[p.profondita] = ist;
            else
                c.lista.erase(p.profondita);
            continue;
        }
        if (it == c.lista.end())
            continue;
        Istanza &ist = *it->second;
        if (p.haCarattere && p.carattere != ist.carattere) {
            auto d = film->definizioni.find(p.carattere);
            if (d != film->definizioni.end() && d->second.tipo != Definizione::CarattereT) {
                auto nuova = nuovaIstanza(p, ist.nascita, c.annidamento, cp);
                if (nuova) {
                    nuova->matrice = ist.matrice;
                    nuova->colore = ist.colore;
                    nuova->rapporto = ist.rapporto;
                    nuova->nome = ist.nome;
                    nuova->clip = ist.clip;
                    nuova->fusione = ist.fusione;
                    nuova->filtri = ist.filtri;
                    applicaPiazza(*nuova, p);
                    it->second = nuova;
                    continue;
                }
            }
        }
        if (ist.toccataDaScript && (p.haMatrice || p.haColore)) {
            Piazza q = p;
            q.haMatrice = q.haColore = false;
            applicaPiazza(ist, q);
        } else {
            applicaPiazza(ist, p);
        }
    }
}

void Riproduzione::ricostruisci(const std::shared_ptr<Clip> &cp, int f)
{
    Clip &c = *cp;
    struct Stato {
        Piazza p;
        int nascita;
    };
    std::map<int, Stato> stato;
    for (int k = 0; k <= f && k < static_cast<int>(c.seq->fotogrammi.size()); ++k) {
        istruzioniPasso -= costoFotogramma(*c.seq, k);
        for (const Comando &cmd : c.seq->fotogrammi[static_cast<size_t>(k)].comandi) {
            if (cmd.tipo == Comando::Togli) {
                stato.erase(cmd.profondita);
                continue;
            }
            const Piazza &p = cmd.piazza;
            auto it = stato.find(p.profondita);
            if (p.versione == 1 || !p.sposta) {
                if (p.haCarattere)
                    stato[p.profondita] = Stato{p, k};
                continue;
            }
            if (it == stato.end())
                continue;
            Piazza &q = it->second.p;
            if (p.haCarattere) { q.carattere = p.carattere; }
            if (p.haMatrice) { q.haMatrice = true; q.matrice = p.matrice; }
            if (p.haColore) { q.haColore = true; q.colore = p.colore; }
            if (p.haRapporto) { q.haRapporto = true; q.rapporto = p.rapporto; }
            if (p.haNome) { q.haNome = true; q.nome = p.nome; }
            if (p.haClip) { q.haClip = true; q.clip = p.clip; }
            if (p.haFusione) { q.haFusione = true; q.fusione = p.fusione; }
            if (p.haFiltri) { q.haFiltri = true; q.filtri = p.filtri; }
            if (p.haCache) { q.haCache = true; q.cache = p.cache; }
            if (p.haVisibile) { q.haVisibile = true; q.visibile = p.visibile; }
        }
    }
    std::map<int, std::shared_ptr<Istanza>> nuova;
    for (auto &[prof, s] : stato) {
        auto vecchia = c.lista.find(prof);
        if (vecchia != c.lista.end() && vecchia->second->carattere == s.p.carattere &&
            vecchia->second->nascita == s.nascita) {
            auto ist = vecchia->second;
            // properties come back to what the timeline says at that frame,
            // but for the place and colour a script gave a clip
            Piazza p = s.p;
            if (ist->toccataDaScript) {
                p.haMatrice = p.haColore = false;
            } else {
                ist->matrice = QTransform();
                ist->colore = ColorTransform();
            }
            ist->rapporto = 0;
            ist->fusione = 0;
            ist->filtri.clear();
            applicaPiazza(*ist, p);
            nuova[prof] = ist;
        } else {
            auto ist = nuovaIstanza(s.p, s.nascita, c.annidamento, cp);
            if (ist)
                nuova[prof] = ist;
        }
    }
    c.lista = std::move(nuova);
    c.corrente = f;
}

void Riproduzione::vaiA(const std::shared_ptr<Clip> &cp, int f, bool suona)
{
    Clip &c = *cp;
    if (!c.seq)
        return;
    c.inRiproduzione = suona;
    f = std::clamp(f, 0, c.seq->numeroFotogrammi - 1);
    if (f == c.corrente)
        return;
    if (f > c.corrente) {
        for (int k = c.corrente + 1; k <= f; ++k) {
            istruzioniPasso -= costoFotogramma(*c.seq, k);
            eseguiFotogramma(cp, k, k == f);
        }
    } else {
        accoda(cp, f);
        ricostruisci(cp, f);
    }
}

void Riproduzione::avanzaAlbero(const std::shared_ptr<Clip> &cp)
{
    Clip &c = *cp;
    if (c.seq && c.inRiproduzione && c.seq->numeroFotogrammi > 1) {
        int prossimo = c.corrente + 1;
        if (prossimo >= c.seq->numeroFotogrammi) {
            accoda(cp, 0);
            ricostruisci(cp, 0);
        } else {
            eseguiFotogramma(cp, prossimo, true);
        }
    }
    // children created during this tick already showed their first frame
    std::vector<std::shared_ptr<Clip>> figli;
    for (auto &[k, v] : c.lista)
        if (v->figli && v->tickNascita != tick) {
            // onClipEvent(enterFrame) runs before the scripts of the frame it enters
            for (const AzioneClip &a : v->azioniClip)
                if (a.eventi & EntraFotogramma)
                    coda.push_back(Azione{v->figli, a.codice});
            figli.push_back(v->figli);
        }
    for (auto &v : figli)
        avanzaAlbero(v);
}

void Riproduzione::eseguiCoda()
{
    int eseguite = 0;
    istruzioniPasso = kMaxIstruzioniPerTick;
    while (!coda.empty() && eseguite < kMaxAzioniPerTick && istruzioniPasso > 0) {
        Azione a = std::move(coda.front());
        coda.pop_front();
        ++eseguite;
        if (auto c = a.clip.lock())
            eseguiAvm1(*this, c, a.codice);
    }
    coda.clear();
}

void Riproduzione::inizia()
{
    suoni.azzera();
    suoni.congedo = false;
    coda.clear();
    creazioniPasso = 0;
    puntatore = Puntatore{};
    inizialiEseguite.clear();
    semeCasuale = 0x2545F4914F6CDD1Dull;
    tick = 1;
    radice = std::make_shared<Clip>();
    // non-owning: the film outlives its clips
    radice->seq = std::shared_ptr<Sequenza>(std::shared_ptr<Sequenza>(), &film->principale);
    eseguiFotogramma(radice, 0, true);
    eseguiCoda();
    suoni.sincronizza(*this);
}

void Riproduzione::passo()
{
    if (!radice)
        return;
    ++tick;
    creazioniPasso = 0;
    avanzaAlbero(radice);
    eseguiCoda();
    suoni.sincronizza(*this);
}

namespace {

struct Firma {
    uint64_t h = 0xcbf29ce484222325ull;
    void byte(const void *p, size_t n)
    {
        const auto *b = static_cast<const unsigned char *>(p);
        for (size_t i = 0; i < n; ++i) {
            h ^= b[i];
            h *= 0x100000001b3ull;
        }
    }
    template <typename T>
    void val(const T &v) { byte(&v, sizeof v); }
    void matrice(const QTransform &m)
    {
        const double v[6] = {m.m11(), m.m12(), m.m21(), m.m22(), m.dx(), m.dy()};
        byte(v, sizeof v);
    }
};

void firmaClip(Firma &f, const Clip &c, int annidamento)
{
    if (annidamento > kMaxNesting)
        return;
    f.val(c.lista.size());
    for (const auto &[prof, i] : c.lista) {
        f.val(prof);
        f.val(i->carattere);
        f.val(static_cast<int>(i->def.tipo));
        f.matrice(i->matrice);
        const double cx[8] = {i->colore.mr, i->colore.mg, i->colore.mb, i->colore.ma, i->colore.ar, i->colore.ag, i->colore.ab, i->colore.aa};
        f.byte(cx, sizeof cx);
        f.val(i->rapporto);
        f.val(i->clip);
        f.val(i->fusione);
        f.val(i->visibile);
        f.val(i->filtri.size());
        for (const Filtro &k : i->filtri) {
            f.val(static_cast<int>(k.tipo));
            const double v[6] = {k.bx, k.by, k.angolo, k.distanza, k.forza, static_cast<double>(k.passaggi)};
            f.byte(v, sizeof v);
            f.val(k.colore.r); f.val(k.colore.g); f.val(k.colore.b); f.val(k.colore.a);
            f.val(k.interno); f.val(k.knockout); f.val(k.soloOggetto); f.val(k.sopra);
            for (const auto &[rapporto, col] : k.gradiente) {
                f.val(rapporto); f.val(col.r); f.val(col.g); f.val(col.b); f.val(col.a);
            }
            f.byte(k.matrice.data(), sizeof(float) * k.matrice.size());
        }
        if (i->def.campo) {
            const QString &t = i->def.campo->testo;
            f.byte(t.constData(), static_cast<size_t>(t.size()) * sizeof(QChar));
        }
        if (i->figli) {
            f.val(i->figli->corrente);
            firmaClip(f, *i->figli, annidamento + 1);
        }
    }
}

} // namespace

uint64_t Riproduzione::firmaStato() const
{
    Firma f;
    if (radice) {
        f.val(radice->corrente);
        firmaClip(f, *radice, 0);
    }
    return f.h;
}

} // namespace swf
