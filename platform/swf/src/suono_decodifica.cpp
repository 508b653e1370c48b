// Decoding film sounds: uncompressed PCM, the films' own ADPCM, MP3 through
// libmpg123. Each decoder stops at a number of samples, so a file that
// promises hours of sound costs no more than the budget.

#include "modello.h"

#include <mpg123.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace swf {

namespace {

const int kPassiAdpcm[89] = {
    7,     8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,    28,
    31,    34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,   118,
    130,   143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,   494,
    544,   598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878,  2066,
    2272,  2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845,  8630,
    9493,  10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};

// How the step index moves, by code size, for each magnitude.
const int kIndici2[2] = {-1, 2};
const int kIndici3[4] = {-1, -1, 2, 4};
const int kIndici4[8] = {-1, -1, -1, -1, 2, 4, 6, 8};
const int kIndici5[16] = {-1, -1, -1, -1, -1, -1, -1, -1, 1, 2, 4, 6, 8, 10, 13, 16};

class BitMsb {
public:
    BitMsb(const uint8_t *d, size_t n) : d_(d), n_(n) {}
    size_t restanti() const { return n_ * 8 - bit_; }
    uint32_t ub(int k)
    {
        uint32_t v = 0;
        for (int i = 0; i < k; ++i, ++bit_)
            v = (v << 1) | ((d_[bit_ >> 3] >> (7 - (bit_ & 7))) & 1u);
        return v;
    }

private:
    const uint8_t *d_;
    size_t n_;
    size_t bit_ = 0;
};

struct CanaleAdpcm {
    int valore = 0;
    int indice = 0;
    void passo(uint32_t codice, int bit, const int *indici)
    {
        const uint32_t segno = 1u << (bit - 1);
        int passo = kPassiAdpcm[indice];
        int diff = 0;
        for (uint32_t k = segno >> 1; k; k >>= 1) {
            if (codice & k)
                diff += passo;
            passo >>= 1;
        }
        diff += passo;
        valore = std::clamp(codice & segno ? valore - diff : valore + diff, -32768, 32767);
        indice = std::clamp(indice + indici[codice & (segno - 1)], 0, 88);
    }
};

// 16-bit samples of unknown byte order: real sound changes little from one
// sample to the next, read the wrong way round it turns to noise.
bool sembraBigEndian(const uint8_t *d, size_t n)
{
    const size_t campioni = std::min<size_t>(n / 2, 65536);
    int64_t le = 0, be = 0;
    int16_t pl = 0, pb = 0;
    for (size_t i = 0; i < campioni; ++i) {
        const auto l = static_cast<int16_t>(d[2 * i] | (d[2 * i + 1] << 8));
        const auto b = static_cast<int16_t>((d[2 * i] << 8) | d[2 * i + 1]);
        le += std::abs(l - pl);
        be += std::abs(b - pb);
        pl = l;
        pb = b;
    }
    return be < le;
}

} // namespace

std::vector<int16_t> decodificaAdpcm(const uint8_t *dati, size_t n, int canali, size_t limite)
{
    std::vector<int16_t> out;
    BitMsb r(dati, n);
    if (r.restanti() < 2 || canali < 1 || canali > 2)
        return out;
    const int bit = static_cast<int>(r.ub(2)) + 2;
    const int *indici = bit == 2 ? kIndici2 : bit == 3 ? kIndici3 : bit == 4 ? kIndici4 : kIndici5;
    CanaleAdpcm c[2];
    const size_t testa = 22u * static_cast<size_t>(canali);
    const size_t codici = static_cast<size_t>(bit) * static_cast<size_t>(canali);
    out.reserve(std::min(limite, n * 8 / static_cast<size_t>(bit)));
    while (r.restanti() >= testa && out.size() < limite) {
        for (int k = 0; k < canali; ++k) {
            c[k].valore = static_cast<int16_t>(r.ub(16));
            c[k].indice = std::min<int>(static_cast<int>(r.ub(6)), 88);
            out.push_back(static_cast<int16_t>(c[k].valore));
        }
        for (int i = 1; i < 4096 && r.restanti() >= codici && out.size() < limite; ++i)
            for (int k = 0; k < canali; ++k) {
                c[k].passo(r.ub(bit), bit, indici);
                out.push_back(static_cast<int16_t>(c[k].valore));
            }
    }
    out.resize(std::min(out.size(), limite) / static_cast<size_t>(canali) * static_cast<size_t>(canali));
    return out;
}

std::vector<int16_t> decodificaPcm(const uint8_t *dati, size_t n, int formato, bool sedicibit, size_t limite)
{
    std::vector<int16_t> out;
    if (!sedicibit) {
        const size_t k = std::min(n, limite);
        out.resize(k);
        for (size_t i = 0; i < k; ++i)
            out[i] = static_cast<int16_t>((dati[i] - 128) * 256);
        return out;
    }
    const bool be = formato == PcmNativo && sembraBigEndian(dati, n);
    const size_t k = std::min(n / 2, limite);
    out.resize(k);
    for (size_t i = 0; i < k; ++i)
        out[i] = be ? static_cast<int16_t>((dati[2 * i] << 8) | dati[2 * i + 1])
                    : static_cast<int16_t>(dati[2 * i] | (dati[2 * i + 1] << 8));
    return out;
}

DecoderMp3::DecoderMp3()
{
    int errore = 0;
    auto *m = mpg123_new(nullptr, &errore);
    if (!m)
        return;
    mpg123_param(m, MPG123_FLAGS, MPG123_QUIET, 0);
    mpg123_format_none(m);
    for (const long f : {8000L, 11025L, 12000L, 16000L, 22050L, 24000L, 32000L, 44100L, 48000L})
        mpg123_format(m, f, MPG123_MONO | MPG123_STEREO, MPG123_ENC_SIGNED_16);
    if (mpg123_open_feed(m) != MPG123_OK) {
        mpg123_delete(m);
        return;
    }
    h = m;
}

DecoderMp3::~DecoderMp3()
{
    if (h)
        mpg123_delete(static_cast<mpg123_handle *>(h));
}

void DecoderMp3::alimenta(const uint8_t *dati, size_t n, size_t limite)
{
    auto *m = static_cast<mpg123_handle *>(h);
    if (!m || campioni.size() >= limite)
        return;
    if (n > 0 && mpg123_feed(m, dati, n) != MPG123_OK)
        return;
    int16_t buf[4608];
    for (;;) {
        size_t fatti = 0;
        const int esito = mpg123_read(m, buf, sizeof buf, &fatti);
        if (esito == MPG123_NEW_FORMAT) {
            long f = 0;
            int c = 0, enc = 0;
            mpg123_getformat(m, &f, &c, &enc);
            if (canali == 0) {
                frequenza = static_cast<int>(f);
                canali = std::clamp(c, 1, 2);
            }
            formatoCorrente = std::clamp(c, 1, 2);
            continue;
        }
        const size_t k = fatti / sizeof(int16_t);
        // a stream that changes its channels half way keeps the first ones
        if (formatoCorrente == canali) {
            campioni.insert(campioni.end(), buf, buf + k);
        } else if (canali == 1) {
            for (size_t i = 0; i + 1 < k; i += 2)
                campioni.push_back(static_cast<int16_t>((buf[i] + buf[i + 1]) / 2));
        } else {
            for (size_t i = 0; i < k; ++i) {
                campioni.push_back(buf[i]);
                campioni.push_back(buf[i]);
            }
        }
        if (campioni.size() >= limite) {
            campioni.resize(limite / static_cast<size_t>(std::max(canali, 1)) * static_cast<size_t>(std::max(canali, 1)));
            return;
        }
        if (esito != MPG123_OK)
            return;  // needs more, or gave up on the data
    }
}

namespace {

// Whether `campioni` samples a channel of ADPCM fill n bytes, up to the
// padding of the last one.
bool adpcmPossibile(size_t n, int codiceBit, int canali, size_t campioni)
{
    const size_t bit = static_cast<size_t>(codiceBit) + 2, ch = static_cast<size_t>(canali);
    const size_t pacchetti = (campioni + 4095) / 4096;
    const size_t usati = 2 + pacchetti * 22 * ch + (campioni - pacchetti) * bit * ch;
    return usati <= n * 8 && n * 8 - usati < 8;
}

std::shared_ptr<const Pcm> decodificaSuono(const Suono &s, size_t &budget)
{
    auto p = std::make_shared<Pcm>();
    p->frequenza = s.frequenza;
    p->canali = s.stereo ? 2 : 1;
    const auto *d = reinterpret_cast<const uint8_t *>(s.dati.constData());
    const auto n = static_cast<size_t>(s.dati.size());
    const size_t dichiarati = static_cast<size_t>(s.campioni) * static_cast<size_t>(p->canali);
    size_t limite = s.campioni ? std::min(budget, dichiarati) : budget;
    switch (s.formato) {
    case PcmNativo:
    case PcmLittleEndian:
        p->campioni = decodificaPcm(d, n, s.formato, s.sedicibit, limite);
        break;
    case Adpcm:
        p->campioni = decodificaAdpcm(d, n, p->canali, limite);
        break;
    case Mp3: {
        if (n < 2)
            return nullptr;
        // the samples the encoder put before the sound
        const int salto = std::max(0, static_cast<int>(static_cast<int16_t>(d[0] | (d[1] << 8))));
        DecoderMp3 mp3;
        const size_t tetto = s.campioni ? std::min(budget, (dichiarati / static_cast<size_t>(p->canali) + static_cast<size_t>(salto)) * 2) : budget;
        mp3.alimenta(d + 2, n - 2, tetto);
        if (mp3.canali == 0)
            return nullptr;
        p->frequenza = mp3.frequenza;
        p->canali = mp3.canali;
        const size_t via = std::min(mp3.campioni.size(), static_cast<size_t>(salto) * static_cast<size_t>(p->canali));
        p->campioni.assign(mp3.campioni.begin() + static_cast<std::ptrdiff_t>(via), mp3.campioni.end());
        if (s.campioni)
            p->campioni.resize(std::min(p->campioni.size(), static_cast<size_t>(s.campioni) * static_cast<size_t>(p->canali)));
        break;
    }
    default:
        return nullptr;  // Nellymoser and Speex are not played
    }
    budget -= std::min(budget, p->campioni.size());
    if (p->campioni.empty())
        return nullptr;
    return p;
}

void preparaFlusso(Flusso &f, int numeroFotogrammi, double fps, size_t &budget)
{
    auto p = std::make_shared<Pcm>();
    p->frequenza = f.frequenza;
    p->canali = f.stereo ? 2 : 1;
    std::map<int, int64_t> inizi;  // frame -> where its first block begins
    std::unique_ptr<DecoderMp3> mp3;
    int64_t dichiarati = 0;        // MP3: the samples the blocks say they hold
    int primo = -1;                // the frame of the first block
    for (const Flusso::Blocco &b : f.blocchi) {
        if (budget <= p->campioni.size())
            break;
        const size_t limite = budget - p->campioni.size();
        const auto *d = reinterpret_cast<const uint8_t *>(b.dati.constData());
        const auto n = static_cast<size_t>(b.dati.size());
        const int64_t qui = static_cast<int64_t>(p->campioni.size() / static_cast<size_t>(p->canali));
        switch (f.formato) {
        case PcmNativo:
        case PcmLittleEndian: {
            inizi.emplace(b.fotogramma, qui);
            const auto v = decodificaPcm(d, n, f.formato, f.sedicibit, limite);
            p->campioni.insert(p->campioni.end(), v.begin(), v.begin() + static_cast<std::ptrdiff_t>(v.size() / static_cast<size_t>(p->canali) * static_cast<size_t>(p->canali)));
            break;
        }
        case Adpcm: {
            inizi.emplace(b.fotogramma, qui);
            auto v = decodificaAdpcm(d, n, p->canali, limite);
            if (primo < 0)
                primo = b.fotogramma;
            // The padding of the last byte can hold a code or two that are no
            // samples. Of the counts the bits allow, the one that brings the
            // soundtrack nearest to where its frames say it should be is kept.
            const double ideale = std::floor((b.fotogramma - primo + 1) * p->frequenza / std::max(fps, 0.01)) - static_cast<double>(qui);
            const size_t decodificati = v.size() / static_cast<size_t>(p->canali);
            size_t scelta = decodificati;
            for (size_t c = decodificati; c >= 1 && v.size() < limite && adpcmPossibile(n, d[0] >> 6, p->canali, c); --c)
                if (std::abs(static_cast<double>(c) - ideale) < std::abs(static_cast<double>(scelta) - ideale))
                    scelta = c;
            v.resize(scelta * static_cast<size_t>(p->canali));
            p->campioni.insert(p->campioni.end(), v.begin(), v.end());
            break;
        }
        case Mp3: {
            if (n < 4)
                break;
            if (!mp3)
                mp3 = std::make_unique<DecoderMp3>();
            const int campioniBlocco = d[0] | (d[1] << 8);
            const int salto = static_cast<int16_t>(d[2] | (d[3] << 8));
            inizi.emplace(b.fotogramma, dichiarati + salto);
            dichiarati += campioniBlocco;
            mp3->alimenta(d + 4, n - 4, budget);
            break;
        }
        default:
            return;
        }
    }
    if (mp3) {
        if (mp3->canali == 0)
            return;
        p->frequenza = mp3->frequenza;
        p->canali = mp3->canali;
        p->campioni = std::move(mp3->campioni);
    }
    budget -= std::min(budget, p->campioni.size());
    if (p->campioni.empty())
        return;
    const auto totale = static_cast<int64_t>(p->fotogrammi());
    const double perFotogramma = f.campioniPerFotogramma > 0 ? f.campioniPerFotogramma : p->frequenza / std::max(fps, 0.01);
    f.posizioni.assign(static_cast<size_t>(std::max(numeroFotogrammi, 1)), -1);
    int64_t ultimo = -1;
    int ultimoF = -1;
    for (int k = 0; k < static_cast<int>(f.posizioni.size()); ++k) {
        int64_t pos = -1;
        if (auto it = inizi.find(k); it != inizi.end()) {
            pos = std::max<int64_t>(0, it->second);
            ultimo = pos;
            ultimoF = k;
        } else if (ultimoF >= 0) {
            pos = ultimo + static_cast<int64_t>((k - ultimoF) * perFotogramma);
        }
        f.posizioni[static_cast<size_t>(k)] = pos < 0 ? -1 : std::min(pos, totale);
    }
    f.pcm = std::move(p);
}

} // namespace

void preparaSuoni(Film &film)
{
    size_t budget = kMaxCampioniFilm;
    if (film.principale.flusso)
        preparaFlusso(*film.principale.flusso, film.principale.numeroFotogrammi, film.fps, budget);
    for (auto &[id, s] : film.suoni)
        s->pcm = decodificaSuono(*s, budget);
    for (auto &[id, def] : film.definizioni)
        if (def.sprite && def.sprite->flusso)
            preparaFlusso(*def.sprite->flusso, def.sprite->numeroFotogrammi, film.fps, budget);
}

} // namespace swf
