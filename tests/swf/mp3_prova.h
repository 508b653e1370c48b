#pragma once

// MP3 data for the sound tests, made while the tests run with LAME from
// Debian, so that no encoded file is kept in the repository.

#include "costruttore.h"

#include <QByteArray>

#include <lame/lame.h>

#include <cstdint>
#include <vector>

namespace swftest {

struct Mp3 {
    QByteArray dati;
    int ritardo = 0;               // samples before the source's first, once decoded
    int campioniPerFrame = 1152;
    std::vector<int> inizi;        // byte offset of each MP3 frame
};

// The length in bytes of the Layer III frame whose header starts at p; 0 when none does.
inline int lunghezzaFrameMp3(const uint8_t *p, size_t resto, int *campioni = nullptr)
{
    if (resto < 4 || p[0] != 0xff || (p[1] & 0xe0) != 0xe0 || ((p[1] >> 1) & 3) != 1)
        return 0;
    const int versione = (p[1] >> 3) & 3;  // 0 MPEG 2.5, 2 MPEG 2, 3 MPEG 1
    const int indiceBitrate = p[2] >> 4, indiceFrequenza = (p[2] >> 2) & 3, riempimento = (p[2] >> 1) & 1;
    static const int bitrate1[16] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
    static const int bitrate2[16] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};
    static const int frequenze[3][3] = {{11025, 12000, 8000}, {22050, 24000, 16000}, {44100, 48000, 32000}};
    if (versione == 1 || indiceFrequenza == 3 || indiceBitrate == 0 || indiceBitrate == 15)
        return 0;
    const int sr = frequenze[versione == 0 ? 0 : versione == 2 ? 1 : 2][indiceFrequenza];
    const bool mpeg1 = versione == 3;
    const int kbps = (mpeg1 ? bitrate1 : bitrate2)[indiceBitrate];
    if (campioni)
        *campioni = mpeg1 ? 1152 : 576;
    return (mpeg1 ? 144 : 72) * kbps * 1000 / sr + riempimento;
}

// Interleaved samples to MP3 at the same rate, constant bit rate, no info frame.
inline Mp3 codificaMp3(const std::vector<int16_t> &c, int canali, int hz, int kbps)
{
    Mp3 r;
    lame_global_flags *g = lame_init();
    lame_set_in_samplerate(g, hz);
    lame_set_out_samplerate(g, hz);
    lame_set_num_channels(g, canali);
    lame_set_mode(g, canali == 2 ? JOINT_STEREO : MONO);
    lame_set_brate(g, kbps);
    lame_set_bWriteVbrTag(g, 0);
    lame_set_quality(g, 5);
    if (lame_init_params(g) < 0) {
        lame_close(g);
        return r;
    }
    const int n = static_cast<int>(c.size()) / canali;
    std::vector<unsigned char> out(static_cast<size_t>(n) * 5 / 4 + 7200 + 16384);
    int k = canali == 2 ? lame_encode_buffer_interleaved(g, const_cast<short *>(c.data()), n, out.data(), static_cast<int>(out.size()))
                        : lame_encode_buffer(g, c.data(), c.data(), n, out.data(), static_cast<int>(out.size()));
    if (k >= 0)
        r.dati.append(reinterpret_cast<const char *>(out.data()), k);
    k = lame_encode_flush(g, out.data(), static_cast<int>(out.size()));
    if (k >= 0)
        r.dati.append(reinterpret_cast<const char *>(out.data()), k);
    // the encoder's delay and the decoder's synthesis filter
    r.ritardo = lame_get_encoder_delay(g) + 529;
    lame_close(g);
    const auto *d = reinterpret_cast<const uint8_t *>(r.dati.constData());
    for (size_t p = 0; p < static_cast<size_t>(r.dati.size());) {
        int campioni = 0;
        const int l = lunghezzaFrameMp3(d + p, static_cast<size_t>(r.dati.size()) - p, &campioni);
        if (l <= 0)
            break;
        r.inizi.push_back(static_cast<int>(p));
        r.campioniPerFrame = campioni;
        p += static_cast<size_t>(l);
    }
    return r;
}

// A soundtrack in MP3: each block carries the MP3 frames that begin before
// the end of its SWF frame's sound; its seek field says where in them the
// SWF frame begins.
inline QByteArray fotogrammiConFlussoMp3(const Mp3 &m, int canali, int hz, double fps, int fotogrammi)
{
    QByteArray o = testaFlusso(2, hz, canali == 2, static_cast<int>(std::lround(hz / fps)), m.ritardo);
    const size_t nf = m.inizi.size();
    size_t j = 0;
    for (int k = 0; k < fotogrammi; ++k) {
        const int64_t fine = inizioFotogramma(k + 1, hz, fps) + m.ritardo;
        const size_t primo = j;
        while (j < nf && static_cast<int64_t>(j) * m.campioniPerFrame < fine)
            ++j;
        if (k == fotogrammi - 1)
            j = nf;
        if (j > primo) {
            Bit b;
            b.u16(static_cast<int>((j - primo) * static_cast<size_t>(m.campioniPerFrame)));
            const int64_t salto = inizioFotogramma(k, hz, fps) + m.ritardo - static_cast<int64_t>(primo) * m.campioniPerFrame;
            b.u16(static_cast<int>(salto) & 0xffff);
            const int da = m.inizi[primo];
            const int a = j < nf ? m.inizi[j] : static_cast<int>(m.dati.size());
            o += bloccoFlusso(b.fine() + m.dati.mid(da, a - da));
        }
        o += mostra();
    }
    return o;
}

// DefineSound data of an MP3 event sound: the samples to skip, then the frames.
inline QByteArray datiSuonoMp3(const Mp3 &m)
{
    Bit b;
    b.u16(m.ritardo);
    return b.fine() + m.dati;
}

} // namespace swftest
