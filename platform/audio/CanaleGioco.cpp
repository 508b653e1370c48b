#include "platform/audio/CanaleGioco.h"

#include "platform/audio/DecodificaFile.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

namespace audio {

namespace {
QString chiaveFile(const QFileInfo &fi)
{
    return fi.absoluteFilePath() + QLatin1Char('\n') + QString::number(fi.size()) + QLatin1Char('\n') +
           QString::number(fi.lastModified().toMSecsSinceEpoch());
}
} // namespace

CanaleGioco::CanaleGioco() : lavoratore([this] { lavora(); }) {}

CanaleGioco::~CanaleGioco()
{
    {
        std::lock_guard l(m);
        fine = true;
    }
    cv.notify_all();
    lavoratore.join();
}

void CanaleGioco::suona(const QString &percorsoLocale)
{
    const QFileInfo fi(percorsoLocale);
    const bool leggibile = !percorsoLocale.isEmpty() && fi.isFile() && fi.size() > 0;
    const QString chiave = leggibile ? chiaveFile(fi) : QString();
    {
        std::lock_guard l(m);
        ++richiesta;
        voce = Voce{};  // the sound that plays is cut off now, not when the new one is ready
        percorso = leggibile ? percorsoLocale : QString();
        daDecodificare = chiave;
        generazioneDaDecodificare = leggibile ? richiesta : 0;
    }
    if (leggibile)
        cv.notify_all();
}

QString CanaleGioco::inCorso() const
{
    std::lock_guard l(m);
    return percorso;
}

CanaleGioco::Stato CanaleGioco::stato() const
{
    std::lock_guard l(m);
    Stato s;
    s.richiesta = richiesta;
    s.suona = voce.pcm != nullptr;
    s.voce = s.suona ? voce.generazione : 0;
    s.byteInMemoria = byteConservati;
    s.decodificatoDa = ultimoFilo;
    return s;
}

void CanaleGioco::attendiDecodifica()
{
    std::unique_lock l(m);
    cv.wait(l, [this] { return generazioneDaDecodificare == 0 && !occupato; });
}

void CanaleGioco::lavora()
{
    std::unique_lock l(m);
    for (;;) {
        cv.wait(l, [this] { return fine || generazioneDaDecodificare != 0; });
        if (fine)
            return;
        const QString chiave = daDecodificare;
        const uint64_t g = generazioneDaDecodificare;
        generazioneDaDecodificare = 0;
        occupato = true;
        std::shared_ptr<const Pcm> pcm;
        auto it = std::find_if(conservati.begin(), conservati.end(), [&](const Conservato &c) { return c.chiave == chiave; });
        if (it != conservati.end()) {
            conservati.splice(conservati.begin(), conservati, it);
            pcm = it->pcm;
        } else {
            l.unlock();
            pcm = DecodificaFile(chiave.section(QLatin1Char('\n'), 0, 0));
            l.lock();
            ultimoFilo = std::this_thread::get_id();
            if (pcm) {
                const size_t byte = pcm->campioni.size() * sizeof(int16_t);
                conservati.push_front(Conservato{chiave, pcm});
                byteConservati += byte;
                while (byteConservati > kByteMemoria && conservati.size() > 1) {
                    byteConservati -= conservati.back().pcm->campioni.size() * sizeof(int16_t);
                    conservati.pop_back();
                }
            }
        }
        occupato = false;
        // a later request may have come meanwhile: then this sound is not heard
        if (g == richiesta) {
            if (pcm)
                voce = Voce{pcm, g, 0};
            else
                percorso.clear();
        }
        cv.notify_all();
    }
}

void CanaleGioco::mescola(float *stereo, int fotogrammi, int frequenza)
{
    std::lock_guard l(m);
    if (!voce.pcm || frequenza <= 0)
        return;
    const Pcm &p = *voce.pcm;
    const double passo = static_cast<double>(p.frequenza) / frequenza;
    const auto n = static_cast<double>(p.fotogrammi());
    const auto ultimo = static_cast<int64_t>(p.fotogrammi()) - 1;
    const int16_t *c = p.campioni.data();
    constexpr float kScala = 1.0f / 32768.0f;
    for (int i = 0; i < fotogrammi; ++i) {
        if (voce.pos >= n) {
            voce = Voce{};
            return;
        }
        const auto k = static_cast<int64_t>(voce.pos);
        const auto t = static_cast<float>(voce.pos - static_cast<double>(k));
        const int64_t k1 = std::min(k + 1, ultimo);
        if (p.canali == 1) {
            const float v = (c[k] + (c[k1] - c[k]) * t) * kScala;
            stereo[2 * i] += v;
            stereo[2 * i + 1] += v;
        } else {
            stereo[2 * i] += (c[2 * k] + (c[2 * k1] - c[2 * k]) * t) * kScala;
            stereo[2 * i + 1] += (c[2 * k + 1] + (c[2 * k1 + 1] - c[2 * k + 1]) * t) * kScala;
        }
        voce.pos += passo;
    }
}

} // namespace audio
