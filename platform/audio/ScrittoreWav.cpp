#include "platform/audio/ScrittoreWav.h"

#include <QtEndian>

namespace audio {

bool ScrittoreWav::apri(const QString &percorso, int frequenza)
{
    file.setFileName(percorso);
    hz = frequenza;
    byteDati = 0;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    intestazione();
    return true;
}

void ScrittoreWav::intestazione()
{
    auto u32 = [](QByteArray &b, uint32_t v) {
        char c[4];
        qToLittleEndian(v, c);
        b.append(c, 4);
    };
    auto u16 = [](QByteArray &b, uint16_t v) {
        char c[2];
        qToLittleEndian(v, c);
        b.append(c, 2);
    };
    QByteArray h;
    h += "RIFF";
    u32(h, 36 + byteDati);
    h += "WAVEfmt ";
    u32(h, 16);
    u16(h, 1);  // PCM
    u16(h, 2);
    u32(h, static_cast<uint32_t>(hz));
    u32(h, static_cast<uint32_t>(hz) * 4);
    u16(h, 4);
    u16(h, 16);
    h += "data";
    u32(h, byteDati);
    const qint64 qui = file.pos();
    file.seek(0);
    file.write(h);
    file.seek(qui < 44 ? 44 : qui);
}

void ScrittoreWav::scrivi(const int16_t *stereo, int fotogrammi)
{
    if (!file.isOpen() || fotogrammi <= 0)
        return;
    QByteArray b(fotogrammi * 4, Qt::Uninitialized);
    for (int i = 0; i < 2 * fotogrammi; ++i)
        qToLittleEndian(stereo[i], b.data() + 2 * i);
    file.write(b);
    byteDati += static_cast<uint32_t>(b.size());
    intestazione();
    file.flush();
}

} // namespace audio
