#include "platform/audio/DecodificaFile.h"

#include <QFile>

#include <sndfile.h>

#include <algorithm>

namespace audio {

std::shared_ptr<const Pcm> DecodificaFile(const QString &percorsoLocale, size_t limite)
{
    SF_INFO info{};
    SNDFILE *f = sf_open(QFile::encodeName(percorsoLocale).constData(), SFM_READ, &info);
    if (!f)
        return nullptr;
    auto p = std::make_shared<Pcm>();
    if (info.channels < 1 || info.samplerate < 1000 || info.samplerate > 384000) {
        sf_close(f);
        return nullptr;
    }
    p->frequenza = info.samplerate;
    p->canali = std::min(info.channels, 2);
    const size_t perFotogramma = static_cast<size_t>(info.channels);
    std::vector<int16_t> pezzo(4096 * perFotogramma);
    while (p->campioni.size() < limite) {
        const sf_count_t letti = sf_readf_short(f, pezzo.data(), 4096);
        if (letti <= 0)
            break;
        for (sf_count_t i = 0; i < letti; ++i) {
            const int16_t *c = pezzo.data() + static_cast<size_t>(i) * perFotogramma;
            p->campioni.push_back(c[0]);
            if (p->canali == 2)
                p->campioni.push_back(c[1]);
        }
    }
    sf_close(f);
    p->campioni.resize(std::min(p->campioni.size(), limite) / static_cast<size_t>(p->canali) * static_cast<size_t>(p->canali));
    if (p->campioni.empty())
        return nullptr;
    return p;
}

} // namespace audio
