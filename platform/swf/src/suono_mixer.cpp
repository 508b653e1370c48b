// The film's mixer: each voice reads its sound at its own rate, with its in
// and out points, passes and envelope, and adds into the game's mix.

#include "suono.h"

#include <algorithm>
#include <cmath>

namespace swf {

void MixerFilm::avvia(uint16_t id, std::shared_ptr<const Pcm> pcm, const InfoSuono &info)
{
    if (!pcm || pcm->fotogrammi() == 0)
        return;
    Voce v;
    const double scala = pcm->frequenza / 44100.0;
    const auto lunghezza = static_cast<double>(pcm->fotogrammi());
    v.inizio = info.haInizio ? std::min(info.inizio * scala, lunghezza) : 0;
    v.fine = info.haFine ? std::min(info.fine * scala, lunghezza) : lunghezza;
    if (v.fine <= v.inizio)
        return;
    v.pcm = std::move(pcm);
    v.id = id;
    v.pos = v.inizio;
    v.ripetizioni = std::max<int>(1, info.ripetizioni);
    for (const PuntoInviluppo &p : info.inviluppo)
        v.inviluppo.push_back({p.pos44 * scala, {std::min(p.sinistra, uint16_t(32768)) / 32768.0f, std::min(p.destra, uint16_t(32768)) / 32768.0f}});
    std::stable_sort(v.inviluppo.begin(), v.inviluppo.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::lock_guard l(m);
    int eventi = 0;
    for (const Voce &w : voci)
        eventi += w.flusso == 0;
    if (eventi >= kMaxVoci) {
        // the oldest event sound makes room
        auto it = std::find_if(voci.begin(), voci.end(), [](const Voce &w) { return w.flusso == 0; });
        voci.erase(it);
    }
    voci.push_back(std::move(v));
}

void MixerFilm::fermaId(uint16_t id)
{
    std::lock_guard l(m);
    std::erase_if(voci, [id](const Voce &v) { return v.flusso == 0 && v.id == id; });
}

bool MixerFilm::suonaId(uint16_t id) const
{
    std::lock_guard l(m);
    return std::any_of(voci.begin(), voci.end(), [id](const Voce &v) { return v.flusso == 0 && v.id == id && !v.finita; });
}

void MixerFilm::flusso(uint64_t chiave, std::shared_ptr<const Pcm> pcm, int64_t posizione, bool salto, int64_t tolleranza)
{
    if (!pcm)
        return;
    std::lock_guard l(m);
    auto it = std::find_if(voci.begin(), voci.end(), [chiave](const Voce &v) { return v.flusso == chiave; });
    if (it != voci.end() && it->pcm == pcm && !salto && std::abs(it->pos - static_cast<double>(posizione)) <= static_cast<double>(tolleranza))
        return;
    if (it == voci.end()) {
        voci.emplace_back();
        it = voci.end() - 1;
    }
    Voce &v = *it;
    v.pcm = std::move(pcm);
    v.flusso = chiave;
    v.fine = static_cast<double>(v.pcm->fotogrammi());
    v.pos = std::clamp(static_cast<double>(posizione), 0.0, v.fine);
    v.finita = v.pos >= v.fine;
}

void MixerFilm::fermaFlusso(uint64_t chiave)
{
    std::lock_guard l(m);
    std::erase_if(voci, [chiave](const Voce &v) { return v.flusso == chiave; });
}

void MixerFilm::fermaTutto()
{
    std::lock_guard l(m);
    voci.clear();
}

void MixerFilm::congeda()
{
    std::lock_guard l(m);
    std::erase_if(voci, [](const Voce &v) { return v.flusso != 0; });
    for (Voce &v : voci)
        v.ripetizioni = 1;
}

std::optional<double> MixerFilm::posizioneFlusso(uint64_t chiave) const
{
    std::lock_guard l(m);
    for (const Voce &v : voci)
        if (v.flusso == chiave)
            return v.pos;
    return std::nullopt;
}

int MixerFilm::vociAttive() const
{
    std::lock_guard l(m);
    return static_cast<int>(std::count_if(voci.begin(), voci.end(), [](const Voce &v) { return !v.finita; }));
}

bool MixerFilm::mescola(float *stereo, int fotogrammi, int frequenza)
{
    if (fotogrammi <= 0 || frequenza <= 0)
        return false;
    std::lock_guard l(m);
    bool suonato = false;
    for (Voce &v : voci) {
        if (v.finita)
            continue;
        mescolaVoce(v, stereo, fotogrammi, frequenza);
        suonato = true;
    }
    // a finished soundtrack stays, so that it is not started again where it ended
    std::erase_if(voci, [](const Voce &v) { return v.finita && v.flusso == 0; });
    return suonato;
}

void MixerFilm::mescolaVoce(Voce &v, float *stereo, int fotogrammi, int frequenza)
{
    const Pcm &p = *v.pcm;
    const double passo = static_cast<double>(p.frequenza) / frequenza;
    const int16_t *c = p.campioni.data();
    const auto ultimo = static_cast<int64_t>(p.fotogrammi()) - 1;
    const bool mono = p.canali == 1;
    constexpr float kScala = 1.0f / 32768.0f;
    size_t punto = 0;  // envelope segment, moves forward only within one call
    for (int i = 0; i < fotogrammi; ++i) {
        if (v.pos >= v.fine) {
            if (v.ripetizioni > 1 && v.flusso == 0) {
                --v.ripetizioni;
                v.pos = v.inizio + std::fmod(v.pos - v.fine, v.fine - v.inizio);
                punto = 0;
            } else {
                v.finita = true;
                v.pos = v.fine;
                return;
            }
        }
        const auto k = static_cast<int64_t>(v.pos);
        const auto t = static_cast<float>(v.pos - static_cast<double>(k));
        const int64_t k1 = std::min(k + 1, ultimo);
        float s, d;
        if (mono) {
            s = d = (c[k] + (c[k1] - c[k]) * t) * kScala;
        } else {
            s = (c[2 * k] + (c[2 * k1] - c[2 * k]) * t) * kScala;
            d = (c[2 * k + 1] + (c[2 * k1 + 1] - c[2 * k + 1]) * t) * kScala;
        }
        if (!v.inviluppo.empty()) {
            // the envelope runs from the in point over every pass
            const double x = v.inizio + v.suonati;
            while (punto + 1 < v.inviluppo.size() && v.inviluppo[punto + 1].first <= x)
                ++punto;
            const auto &a = v.inviluppo[punto];
            float ls = a.second.first, ld = a.second.second;
            if (x > a.first && punto + 1 < v.inviluppo.size()) {
                const auto &b = v.inviluppo[punto + 1];
                const auto u = static_cast<float>((x - a.first) / (b.first - a.first));
                ls += (b.second.first - ls) * u;
                ld += (b.second.second - ld) * u;
            }
            s *= ls;
            d *= ld;
        }
        stereo[2 * i] += s;
        stereo[2 * i + 1] += d;
        v.pos += passo;
        v.suonati += passo;
    }
}

} // namespace swf
