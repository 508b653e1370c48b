// The sounds the timeline starts: a frame's StartSound tags when the frame is
// entered, and the soundtracks, which follow their clips: they play while
// the clip plays, stop when it stops, and jump with it on a goto.

#include "riproduzione.h"

#include <algorithm>

namespace swf {

void SuoniFilm::entra(Riproduzione &r, const std::shared_ptr<Clip> &c, int f)
{
    if (!c->seq)
        return;
    if (c->seq->flusso && c->seq->flusso->pcm &&
        std::none_of(tracce.begin(), tracce.end(), [&](const Traccia &t) { return t.clip.lock() == c; }))
        tracce.push_back(Traccia{c, c->seq->flusso, prossimaChiave++, -1});
    if (f < 0 || f >= static_cast<int>(c->seq->fotogrammi.size()) || c->seq->fotogrammi[static_cast<size_t>(f)].suoni.empty())
        return;
    if (attivo) {
        avviaFotogramma(r, *c, f);
        return;
    }
    // heard when the film is let sound, if it still stands on this frame
    std::erase_if(attesa, [&](const Attesa &a) {
        auto k = a.clip.lock();
        return !k || k == c;
    });
    attesa.push_back(Attesa{c, f});
}

void SuoniFilm::avviaFotogramma(Riproduzione &r, const Clip &c, int f)
{
    for (const AvvioSuono &a : c.seq->fotogrammi[static_cast<size_t>(f)].suoni)
        avviaSuono(r, a);
}

void SuoniFilm::avviaSuono(Riproduzione &r, const AvvioSuono &a)
{
    if (!mixer || !attivo)
        return;
    uint16_t id = a.id;
    if (!a.classe.isEmpty()) {
        auto n = r.film->nomiEsportati.find(a.classe);
        if (n == r.film->nomiEsportati.end())
            return;
        id = n->second;
    }
    auto s = r.film->suoni.find(id);
    if (s == r.film->suoni.end())
        return;
    if (a.info.ferma) {
        mixer->fermaId(id);
        return;
    }
    if (congedo || (a.info.nonMultiplo && mixer->suonaId(id)))
        return;
    mixer->avvia(id, s->second->pcm, a.info);
}

void SuoniFilm::sincronizza(Riproduzione &r)
{
    for (auto it = tracce.begin(); it != tracce.end();) {
        auto c = it->clip.lock();
        if (!c || (c->seq && c->seq->flusso.get() != it->flusso.get())) {
            if (mixer)
                mixer->fermaFlusso(it->chiave);
            it = tracce.erase(it);
            continue;
        }
        const int f = c->corrente;
        const Flusso &fl = *it->flusso;
        const int64_t pos = f >= 0 && f < static_cast<int>(fl.posizioni.size()) ? fl.posizioni[static_cast<size_t>(f)] : -1;
        const bool suona = attivo && !congedo && c->inRiproduzione && pos >= 0;
        if (mixer) {
            if (suona) {
                // the timeline and the sound card keep their own time: the
                // soundtrack is moved only when it drifts or the clip jumped
                const bool salto = f != it->ultimo && f != it->ultimo + 1;
                const auto tolleranza = static_cast<int64_t>(2.0 * fl.pcm->frequenza / std::max(r.film->fps, 1.0));
                mixer->flusso(it->chiave, fl.pcm, pos, salto, tolleranza);
            } else {
                mixer->fermaFlusso(it->chiave);
            }
        }
        it->ultimo = f;
        ++it;
    }
}

void SuoniFilm::attiva(Riproduzione &r, bool si)
{
    if (si == attivo)
        return;
    attivo = si;
    if (!si) {
        attesa.clear();
        if (mixer)
            mixer->fermaTutto();
        return;
    }
    std::vector<Attesa> pronte;
    pronte.swap(attesa);
    for (const Attesa &a : pronte)
        if (auto c = a.clip.lock(); c && c->corrente == a.fotogramma)
            avviaFotogramma(r, *c, a.fotogramma);
    sincronizza(r);
}

void SuoniFilm::congeda()
{
    congedo = true;
    attesa.clear();
    if (mixer)
        mixer->congeda();
}

void SuoniFilm::azzera()
{
    attesa.clear();
    tracce.clear();
    if (mixer)
        mixer->fermaTutto();
}

} // namespace swf
