#pragma once

#include <QFile>
#include <QString>

#include <cstdint>

namespace audio {

// 16-bit stereo WAV written as it comes; the header always tells the length
// written so far, so the file can be read while it grows or after a crash.
class ScrittoreWav
{
public:
    bool apri(const QString &percorso, int frequenza);
    void scrivi(const int16_t *stereo, int fotogrammi);
    bool aperto() const { return file.isOpen(); }

private:
    void intestazione();
    QFile file;
    int hz = 44100;
    uint32_t byteDati = 0;
};

} // namespace audio
