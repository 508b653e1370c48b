#pragma once

#include "platform/audio/Mixer.h"

#include <QString>

#include <memory>

namespace audio {

// A sound file read whole through libsndfile (WAV in all its encodings, AIFF,
// FLAC, Ogg, MP3). Null when the file cannot be read. Sounds longer than
// `limite` samples are cut there; more than two channels become two.
std::shared_ptr<const Pcm> DecodificaFile(const QString &percorsoLocale, size_t limite = 8u * 1024 * 1024);

} // namespace audio
