#include "platform/audio/Mixer.h"

#include <algorithm>

namespace audio {

void Mixer::impostaFrequenza(int frequenza)
{
    std::lock_guard l(lettura);
    hz = std::clamp(frequenza, 8000, 192000);
}

void Mixer::aggiungi(std::shared_ptr<Sorgente> s)
{
    if (!s)
        return;
    std::lock_guard l(m);
    sorgenti.push_back(std::move(s));
}

void Mixer::togli(const Sorgente *s)
{
    std::lock_guard l(m);
    std::erase_if(sorgenti, [s](const std::shared_ptr<Sorgente> &x) { return x.get() == s; });
}

size_t Mixer::numeroSorgenti() const
{
    std::lock_guard l(m);
    return sorgenti.size();
}

uint64_t Mixer::fotogrammiLetti() const
{
    std::lock_guard l(m);
    return letti;
}

void Mixer::mescola(int fotogrammi)
{
    tampone.assign(static_cast<size_t>(2 * std::max(fotogrammi, 0)), 0.0f);
    if (fotogrammi <= 0)
        return;
    std::vector<std::shared_ptr<Sorgente>> copia;
    {
        // the list is copied, so that adding a source never waits for a mix
        std::lock_guard l(m);
        copia = sorgenti;
        letti += static_cast<uint64_t>(fotogrammi);
    }
    for (const auto &s : copia)
        s->mescola(tampone.data(), fotogrammi, hz);
}

void Mixer::leggi(int16_t *stereo, int fotogrammi)
{
    std::lock_guard l(lettura);
    mescola(fotogrammi);
    for (size_t i = 0; i < tampone.size(); ++i) {
        const float v = tampone[i] * 32768.0f;
        stereo[i] = v == v ? static_cast<int16_t>(std::clamp(v, -32768.0f, 32767.0f)) : 0;  // a NaN is silence
    }
}

void Mixer::leggi(float *stereo, int fotogrammi)
{
    std::lock_guard l(lettura);
    mescola(fotogrammi);
    for (size_t i = 0; i < tampone.size(); ++i)
        stereo[i] = tampone[i] == tampone[i] ? std::clamp(tampone[i], -1.0f, 1.0f) : 0.0f;
}

} // namespace audio
