#pragma once

// The game's own films: small looping SWF animations drawn from simple shapes
// (and a few pixel-art bitmaps), written byte by byte.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace swfanim {

enum class Compressione { Nessuna, Zlib, Lzma };

struct Opzioni {
    Compressione compressione = Compressione::Zlib;
    int fotogrammi = 0;   // 0: the animation's own
    int larghezza = 0;    // pixels; 0: the animation's own stage
    int altezza = 0;
};

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
