#pragma once

// Sounds of a film: event sounds (DefineSound, started by StartSound), the
// soundtrack of a timeline (SoundStreamHead and its blocks), their decoding,
// and the film's own little mixer, which the game's mixer pulls.

#include "swf/suono.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace swf {

class Lettore;
struct Clip;
struct Film;
struct Riproduzione;

// Decoded sound: interleaved 16-bit samples, one or two channels.
struct Pcm {
    int frequenza = 44100;
    int canali = 1;
    std::vector<int16_t> campioni;
    size_t fotogrammi() const { return campioni.size() / static_cast<size_t>(canali); }
};

enum FormatoSuono : int {
    PcmNativo = 0,  // byte order of the machine that wrote it: told apart by the signal
    Adpcm = 1,
    Mp3 = 2,
    PcmLittleEndian = 3,
};

// 5.5, 11, 22 and 44 kHz
int frequenzaDaCodice(int codice);

struct Suono {
    int formato = 0;
    int frequenza = 44100;
    bool sedicibit = true;
    bool stereo = false;
    uint32_t campioni = 0;  // per channel, as declared
    QByteArray dati;
    std::shared_ptr<const Pcm> pcm;  // null when it cannot be played (Nellymoser, Speex, over budget)
};

struct PuntoInviluppo {
    uint32_t pos44 = 0;  // samples at 44.1 kHz
    uint16_t sinistra = 32768, destra = 32768;
};

struct InfoSuono {
    bool ferma = false, nonMultiplo = false;
    bool haInizio = false, haFine = false;
    uint32_t inizio = 0, fine = 0;  // samples at 44.1 kHz
    uint16_t ripetizioni = 1;
    std::vector<PuntoInviluppo> inviluppo;
};

struct AvvioSuono {
    uint16_t id = 0;
    QByteArray classe;  // StartSound2 names the sound by its class
    InfoSuono info;
};

// The soundtrack of one timeline.
struct Flusso {
    int formato = 0, frequenza = 44100;
    bool sedicibit = true, stereo = false;
    uint16_t campioniPerFotogramma = 0;
    int16_t latenza = 0;
    struct Blocco {
        int fotogramma = 0;
        QByteArray dati;
    };
    std::vector<Blocco> blocchi;
    std::shared_ptr<const Pcm> pcm;
    // where each frame's sound begins, in frames of pcm; -1 before the first block
    std::vector<int64_t> posizioni;
};

// Reading (suono_lettura.cpp)
void leggiDefineSound(Lettore &t, Film &film);
InfoSuono leggiInfoSuono(Lettore &t);
std::shared_ptr<Flusso> leggiTestaFlusso(Lettore &t);
void leggiNomiEsportati(Lettore &t, std::map<QByteArray, uint16_t> &nomi);

// Decoding (suono_decodifica.cpp). Every decoder stops at `limite` samples.
std::vector<int16_t> decodificaAdpcm(const uint8_t *dati, size_t n, int canali, size_t limite);
std::vector<int16_t> decodificaPcm(const uint8_t *dati, size_t n, int formato, bool sedicibit, size_t limite);
// MP3 frames through libmpg123, one decoder for consecutive pieces.
class DecoderMp3 {
public:
    DecoderMp3();
    ~DecoderMp3();
    DecoderMp3(const DecoderMp3 &) = delete;
    DecoderMp3 &operator=(const DecoderMp3 &) = delete;
    // Feeds a piece and appends what it decodes; the first frame fixes rate and channels.
    void alimenta(const uint8_t *dati, size_t n, size_t limite);
    std::vector<int16_t> campioni;
    int frequenza = 0, canali = 0;

private:
    void *h = nullptr;
    int formatoCorrente = 0;
};
// Decodes every sound and soundtrack of a film, within one budget of samples.
void preparaSuoni(Film &film);
constexpr size_t kMaxCampioniFilm = 16u * 1024 * 1024;

// The film's mixer: voices of event sounds and of soundtracks. Safe to call
// from the timeline's thread and the mixing thread at once.
class MixerFilm final : public UscitaSuono {
public:
    static constexpr int kMaxVoci = 32;

    bool mescola(float *stereo, int fotogrammi, int frequenza) override;
    int vociAttive() const override;

    void avvia(uint16_t id, std::shared_ptr<const Pcm> pcm, const InfoSuono &info);
    void fermaId(uint16_t id);
    bool suonaId(uint16_t id) const;
    // Puts the soundtrack `chiave` at `posizione` unless it already plays within
    // `tolleranza` of it (a jump always moves it).
    void flusso(uint64_t chiave, std::shared_ptr<const Pcm> pcm, int64_t posizione, bool salto, int64_t tolleranza);
    void fermaFlusso(uint64_t chiave);
    void fermaTutto();
    // Soundtracks stop; event sounds end the pass they are in.
    void congeda();
    std::optional<double> posizioneFlusso(uint64_t chiave) const;

private:
    struct Voce {
        std::shared_ptr<const Pcm> pcm;
        uint16_t id = 0;
        uint64_t flusso = 0;  // 0 for event sounds
        double pos = 0;       // in frames of pcm
        double inizio = 0, fine = 0;
        int ripetizioni = 1;  // passes left, this one included
        double suonati = 0;   // frames of pcm played, for the envelope
        std::vector<std::pair<double, std::pair<float, float>>> inviluppo;
        bool finita = false;
    };
    void mescolaVoce(Voce &v, float *stereo, int fotogrammi, int frequenza);

    mutable std::mutex m;
    std::vector<Voce> voci;
};

// The timeline's side: which sounds a frame starts, and the soundtracks that
// follow their clips through play, stop and goto.
struct SuoniFilm {
    std::shared_ptr<MixerFilm> mixer;
    bool attivo = false;   // off: nothing sounds, and the frames entered wait for it
    bool congedo = false;  // no new sound until the film starts again
    struct Attesa {
        std::weak_ptr<Clip> clip;
        int fotogramma = 0;
    };
    std::vector<Attesa> attesa;
    struct Traccia {
        std::weak_ptr<Clip> clip;
        std::shared_ptr<const Flusso> flusso;
        uint64_t chiave = 0;
        int ultimo = -1;
    };
    std::vector<Traccia> tracce;
    uint64_t prossimaChiave = 1;

    // A frame of a clip is entered by the timeline or a goto.
    void entra(Riproduzione &r, const std::shared_ptr<Clip> &c, int f);
    void sincronizza(Riproduzione &r);
    void attiva(Riproduzione &r, bool si);
    void congeda();
    void azzera();
    // One sound as a StartSound asks for it, heard only while the film may sound.
    void avviaSuono(Riproduzione &r, const AvvioSuono &a);

private:
    void avviaFotogramma(Riproduzione &r, const Clip &c, int f);
};

} // namespace swf
