#pragma once

// The game's mixer: every sound source adds into one stereo stream, which a
// device, or a test, pulls. Sources are added and removed from the interface
// thread while another thread pulls.

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace audio {

// Decoded sound: interleaved 16-bit samples, one or two channels.
struct Pcm {
    int frequenza = 44100;
    int canali = 1;
    std::vector<int16_t> campioni;
    size_t fotogrammi() const { return campioni.size() / static_cast<size_t>(canali); }
};

class Sorgente
{
public:
    virtual ~Sorgente() = default;
    // Adds `fotogrammi` stereo frames at `frequenza` Hz into `stereo`
    // (interleaved, full scale 1.0).
    virtual void mescola(float *stereo, int fotogrammi, int frequenza) = 0;
};

// A source that is one function: the films' sound comes in this way.
class SorgenteFunzione final : public Sorgente
{
public:
    explicit SorgenteFunzione(std::function<void(float *, int, int)> funzione) : f(std::move(funzione)) {}
    void mescola(float *stereo, int fotogrammi, int frequenza) override { f(stereo, fotogrammi, frequenza); }

private:
    std::function<void(float *, int, int)> f;
};

class Mixer
{
public:
    explicit Mixer(int frequenza = 44100) : hz(frequenza) {}

    int frequenza() const { return hz; }
    void impostaFrequenza(int frequenza);

    void aggiungi(std::shared_ptr<Sorgente> s);
    void togli(const Sorgente *s);
    size_t numeroSorgenti() const;

    // Mixes the next `fotogrammi` frames: stereo 16-bit, or float clipped to
    // full scale. Every read moves the mixer's time on.
    void leggi(int16_t *stereo, int fotogrammi);
    void leggi(float *stereo, int fotogrammi);
    // Frames read since it was made: the mixer's own clock.
    uint64_t fotogrammiLetti() const;

private:
    void mescola(int fotogrammi);

    int hz;
    mutable std::mutex m;
    std::vector<std::shared_ptr<Sorgente>> sorgenti;
    std::mutex lettura;          // one reader at a time
    std::vector<float> tampone;  // the reader's
    uint64_t letti = 0;
};

} // namespace audio
