#pragma once

// The game's one sound engine: one mixer, which the game owns, played on one
// Qt Multimedia audio sink opened once, in a thread of its own. The game's
// sound channel is one voice of it; every film adds its own source.
//
// With no sound card or no sound server the engine stays silent: one line on
// the first failure, and the game goes on. COPPIE_AUDIO_WAV=file.wav writes
// everything the mixer plays to that file as well (with no device, the mixer
// is then read at the pace of a real one, so the capture is the same; so it
// is with COPPIE_AUDIO_OROLOGIO set, for benchmarks on machines without sound).

#include "platform/audio/CanaleGioco.h"
#include "platform/audio/Mixer.h"

#include <QString>

#include <functional>
#include <memory>

namespace audio {

class Dispositivo;

class MotoreAudio
{
public:
    static MotoreAudio &istanza();
    // Before the first istanza(): open no device; the mixer moves only when
    // its reader (a test, a benchmark) reads it.
    static void SenzaDispositivo();

    Mixer &mixer() { return mixer_; }
    CanaleGioco &canale() { return *canale_; }

    // The device is opened in the engine's thread; this waits for that. For
    // benchmarks and tools: the game never waits for it.
    void attendiAvvio();
    bool dispositivoAperto() const;
    QString descrizione() const;  // the device and format, or why there is none
    // Frames the device holds that are not heard yet, as of its last read.
    int fotogrammiInAttesa() const;
    // Called on the device's thread with each block it takes from the mixer.
    void impostaOsservatore(std::function<void(const int16_t *stereo, int fotogrammi)> osservatore);
    // Stops the device: at the end of the program.
    void chiudi();

private:
    explicit MotoreAudio(bool conDispositivo);
    Mixer mixer_;
    std::shared_ptr<CanaleGioco> canale_;
    Dispositivo *dispositivo = nullptr;
    bool chiuso = false;
};

} // namespace audio
