#pragma once

// The game's own films: small looping SWF animations drawn from simple shapes
// (and a few pixel-art bitmaps), written byte by byte.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace swfanim {

enum class Compressione { Nessuna, Zlib, Lzma };

// A sound the film carries as its soundtrack, from frame 1 for as long as it
// lasts (cut at the film's last frame), in the films' 4-bit ADPCM.
struct Colonna {
    std::vector<int16_t> campioni;  // interleaved
    int frequenza = 22050;          // 5512, 11025, 22050 or 44100
    int canali = 1;
};

struct Opzioni {
    Compressione compressione = Compressione::Zlib;
    int fotogrammi = 0;   // 0: the animation's own
    int larghezza = 0;    // pixels; 0: the animation's own stage
    int altezza = 0;
    Colonna suono;        // none when empty
};

// A 16-bit PCM WAV file, as sox writes it; false for anything else.
bool leggiWav(const QByteArray &file, Colonna &c);

// Names of the single subjects (faces of the film sets) and of the reward scenes.
QStringList soggetti();
QStringList scenePremio();

// Italian word for a subject, as spoken and written in the sets.
QString parolaDi(const QString &soggetto);

// The word with its article ("il sole", "l'ape"), for the second sound of a pair.
QString fraseDi(const QString &soggetto);

// A whole SWF file; empty for an unknown name.
QByteArray creaFilm(const QString &nome, const Opzioni &o = {});

// The bouncing ball the renderer was first tried with.
QByteArray pallaCheRimbalza(int fotogrammi, int larghezza, int altezza, Compressione c);

} // namespace swfanim
