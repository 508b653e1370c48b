#pragma once

// The game's own sound channel as one voice of the mixer: a new sound cuts
// off the one that plays, there is no queue, and a missing or unreadable file
// is silence. Files are decoded by a thread of its own, never the
// interface's; the last sounds decoded are kept for the next request.

#include "platform/audio/Mixer.h"

#include <QString>

#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace audio {

class CanaleGioco final : public Sorgente
{
public:
    CanaleGioco();
    ~CanaleGioco() override;
    CanaleGioco(const CanaleGioco &) = delete;
    CanaleGioco &operator=(const CanaleGioco &) = delete;

    // From the interface thread: returns at once.
    void suona(const QString &percorsoLocale);
    // The file it holds, empty when it holds none.
    QString inCorso() const;

    void mescola(float *stereo, int fotogrammi, int frequenza) override;

    // What the channel is doing, for tests: the number of the last request,
    // and of the request its voice sounds (0: none).
    struct Stato {
        uint64_t richiesta = 0;
        uint64_t voce = 0;
        bool suona = false;
        size_t byteInMemoria = 0;  // kept sounds
        std::thread::id decodificatoDa;  // the thread that decoded the last file
    };
    Stato stato() const;
    // Blocks until the decoder has nothing left to do. For tests.
    void attendiDecodifica();

    static constexpr size_t kByteMemoria = 24u * 1024 * 1024;

private:
    void lavora();
    std::shared_ptr<const Pcm> decodifica(const QString &percorso);

    mutable std::mutex m;
    std::condition_variable cv;
    QString percorso;          // held
    uint64_t richiesta = 0;    // last request
    QString daDecodificare;    // only the last request waits
    uint64_t generazioneDaDecodificare = 0;
    bool occupato = false;
    bool fine = false;

    struct Voce {
        std::shared_ptr<const Pcm> pcm;
        uint64_t generazione = 0;
        double pos = 0;
    } voce;

    struct Conservato {
        QString chiave;
        std::shared_ptr<const Pcm> pcm;
    };
    std::list<Conservato> conservati;  // most recent first
    size_t byteConservati = 0;
    std::thread::id ultimoFilo;

    std::thread lavoratore;
};

} // namespace audio
