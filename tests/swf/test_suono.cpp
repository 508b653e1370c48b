// Sound in films: every format the films use, event sounds with their whole
// sound info, soundtracks that follow the timeline. The film's mixed sound is
// pulled through its output, as the game's mixer does, one frame's worth of
// samples for each tick of the timeline, so the tests know at which frame
// each sample is heard.

#include "costruttore.h"
#include "mp3_prova.h"
#include "swf/filmato.h"
#include "swf/suono.h"

#include <QtTest>

#include <cmath>

using namespace swftest;

namespace {

constexpr int kUscita = 44100;

// Two tones a channel, the right one different from the left.
std::vector<int16_t> tono(int fotogrammi, int hz, int canali, double ampiezza = 0.45)
{
    std::vector<int16_t> c;
    for (int i = 0; i < fotogrammi; ++i)
        for (int k = 0; k < canali; ++k) {
            const double t = static_cast<double>(i) / hz;
            const double f1 = k == 0 ? 330 : 495, f2 = k == 0 ? 700 : 910;
            const double v = ampiezza * (0.7 * std::sin(2 * M_PI * f1 * t) + 0.3 * std::sin(2 * M_PI * f2 * t));
            c.push_back(static_cast<int16_t>(std::lround(v * 32767)));
        }
    return c;
}

// What the mixer should give at a position in the source, in frames of the
// source: between two samples a straight line.
double atteso(const std::vector<int16_t> &c, int canali, double pos, int k)
{
    const int64_t n = static_cast<int64_t>(c.size()) / canali;
    const auto a = static_cast<int64_t>(pos);
    if (a >= n || a < 0)
        return 0;
    const int64_t b = std::min(a + 1, n - 1);
    const double t = pos - static_cast<double>(a);
    return (c[a * canali + k] + (c[b * canali + k] - c[a * canali + k]) * t) / 32768.0;
}

// A film whose sound is pulled one frame of the timeline at a time.
struct Banco {
    swf::Filmato f;
    double fps = 24;
    int64_t tick = 0;
    std::vector<float> uscita;  // every frame pulled, stereo

    bool carica(const QByteArray &dati)
    {
        if (!f.caricaDati(dati))
            return false;
        fps = f.fotogrammiAlSecondo();
        return true;
    }
    void suona()
    {
        f.impostaSuono(true);
        f.riprendi();
    }
    void tira(int64_t n)
    {
        std::vector<float> b(static_cast<size_t>(2 * n), 0.0f);
        f.uscitaSuono()->mescola(b.data(), static_cast<int>(n), kUscita);
        uscita.insert(uscita.end(), b.begin(), b.end());
    }
    int64_t qui() const { return static_cast<int64_t>(uscita.size() / 2); }
    // the frame shown now is heard, then the timeline moves on
    void fotogramma(int volte = 1)
    {
        for (int i = 0; i < volte; ++i) {
            tira(inizioFotogramma(static_cast<int>(tick + 1), kUscita, fps) - inizioFotogramma(static_cast<int>(tick), kUscita, fps));
            ++tick;
            f.avanza();
        }
    }
    float campione(int64_t i, int k) const { return uscita[static_cast<size_t>(2 * i + k)]; }
    bool muto(int64_t da, int64_t a) const
    {
        for (int64_t i = std::max<int64_t>(da, 0); i < std::min(a, qui()); ++i)
            if (campione(i, 0) != 0 || campione(i, 1) != 0)
                return false;
        return true;
    }
    // signal to noise of the output from `da` against the source read from
    // source frame `sorgenteDa`, over n output frames, in dB
    double snr(int64_t da, const std::vector<int16_t> &c, int canali, int hz, double sorgenteDa, int64_t n) const
    {
        double segnale = 0, rumore = 0;
        for (int64_t i = 0; i < n && da + i < qui(); ++i)
            for (int k = 0; k < 2; ++k) {
                const double r = atteso(c, canali, sorgenteDa + static_cast<double>(i) * hz / kUscita, canali == 2 ? k : 0);
                const double e = campione(da + i, k) - r;
                segnale += r * r;
                rumore += e * e;
            }
        return rumore == 0 ? 200 : 10 * std::log10(segnale / rumore);
    }
    double picco(int64_t da, int64_t a) const
    {
        double m = 0;
        for (int64_t i = std::max<int64_t>(da, 0); i < std::min(a, qui()); ++i)
            m = std::max({m, std::abs(double(campione(i, 0))), std::abs(double(campione(i, 1)))});
        return m;
    }
};

struct Sorgente {
    int formato = 3;
    int hz = 44100;
    int canali = 1;
    int bit = 4;           // ADPCM
    bool bigEndian = false;
    bool otto = false;     // 8-bit PCM
    int kbps = 64;         // MP3
};

// The DefineSound body for a source; the MP3 of an event sound is aligned by its seek field.
QByteArray datiSuono(const Sorgente &s, const std::vector<int16_t> &c)
{
    switch (s.formato) {
    case 1:
        return adpcm(c, s.canali, s.bit);
    case 2:
        return datiSuonoMp3(codificaMp3(c, s.canali, s.hz, s.kbps));
    default:
        return s.otto ? pcm8(c) : pcm16(c, s.bigEndian);
    }
}

void righeFormati()
{
    QTest::addColumn<int>("formato");
    QTest::addColumn<int>("hz");
    QTest::addColumn<int>("canali");
    QTest::addColumn<int>("bit");
    QTest::addColumn<bool>("bigEndian");
    QTest::addColumn<double>("snrMinimo");
    // uncompressed: the very samples
    QTest::newRow("pcm little-endian 44 kHz mono") << 3 << 44100 << 1 << 16 << false << 90.0;
    QTest::newRow("pcm little-endian 22 kHz stereo") << 3 << 22050 << 2 << 16 << false << 90.0;
    QTest::newRow("pcm native, written little-endian") << 0 << 44100 << 1 << 16 << false << 90.0;
    QTest::newRow("pcm native, written big-endian") << 0 << 22050 << 2 << 16 << true << 90.0;
    QTest::newRow("pcm 8 bit 11 kHz") << 3 << 11025 << 1 << 8 << false << 30.0;
    // ADPCM: each bit more, about 6 dB more
    QTest::newRow("adpcm 2 bit 22 kHz mono") << 1 << 22050 << 1 << 2 << false << 6.0;
    QTest::newRow("adpcm 3 bit 22 kHz mono") << 1 << 22050 << 1 << 3 << false << 12.0;
    QTest::newRow("adpcm 4 bit 22 kHz mono") << 1 << 22050 << 1 << 4 << false << 18.0;
    QTest::newRow("adpcm 5 bit 22 kHz mono") << 1 << 22050 << 1 << 5 << false << 24.0;
    QTest::newRow("adpcm 4 bit 44 kHz stereo") << 1 << 44100 << 2 << 4 << false << 18.0;
    QTest::newRow("adpcm 5 bit 11 kHz stereo") << 1 << 11025 << 2 << 5 << false << 24.0;
    QTest::newRow("adpcm 3 bit 5.5 kHz mono") << 1 << 5512 << 1 << 3 << false << 10.0;
    // MP3 from LAME at the three rates films use
    QTest::newRow("mp3 11 kHz mono") << 2 << 11025 << 1 << 0 << false << 12.0;
    QTest::newRow("mp3 11 kHz stereo") << 2 << 11025 << 2 << 0 << false << 12.0;
    QTest::newRow("mp3 22 kHz mono") << 2 << 22050 << 1 << 0 << false << 12.0;
    QTest::newRow("mp3 22 kHz stereo") << 2 << 22050 << 2 << 0 << false << 12.0;
    QTest::newRow("mp3 44 kHz mono") << 2 << 44100 << 1 << 0 << false << 12.0;
    QTest::newRow("mp3 44 kHz stereo") << 2 << 44100 << 2 << 0 << false << 12.0;
}

Sorgente sorgenteDaRiga()
{
    QFETCH(int, formato);
    QFETCH(int, hz);
    QFETCH(int, canali);
    QFETCH(int, bit);
    QFETCH(bool, bigEndian);
    Sorgente s;
    s.formato = formato;
    s.hz = hz;
    s.canali = canali;
    s.bit = formato == 1 ? bit : 4;
    s.otto = formato != 1 && bit == 8;
    s.bigEndian = bigEndian;
    s.kbps = hz >= 44100 ? 128 : hz >= 22050 ? 64 : 32;
    return s;
}

QByteArray filmConSuono(const QByteArray &definizione, const QByteArray &dopo, int fotogrammiPrima, int fotogrammi)
{
    QByteArray t = definizione;
    for (int i = 0; i < fotogrammiPrima; ++i)
        t += mostra();
    t += dopo + mostra();
    return film(t, fotogrammi);
}

} // namespace

class TestSuono : public QObject
{
    Q_OBJECT
private slots:
    void anEventSoundOfEachFormatIsHeardFromItsFrame_data() { righeFormati(); }
    void anEventSoundOfEachFormatIsHeardFromItsFrame()
    {
        QFETCH(double, snrMinimo);
        const Sorgente s = sorgenteDaRiga();
        const int n = s.hz / 2;  // half a second
        const auto c = tono(n, s.hz, s.canali);
        Banco b;
        // started by frame 3 of 12
        QVERIFY(b.carica(filmConSuono(defineSound(7, s.formato, s.hz, !s.otto, s.canali == 2, static_cast<uint32_t>(n), datiSuono(s, c)),
                                      startSound(7), 2, 24)));
        b.suona();
        b.fotogramma(20);
        const int64_t da = inizioFotogramma(2, kUscita, b.fps);
        QVERIFY(b.muto(0, da));
        const int64_t lunghi = static_cast<int64_t>(n) * kUscita / s.hz;
        const double snr = b.snr(da, c, s.canali, s.hz, 0, lunghi);
        QVERIFY2(snr >= snrMinimo, qPrintable(QStringLiteral("%1 dB").arg(snr)));
        // and nothing after its end
        QVERIFY(b.muto(da + lunghi + 2, b.qui()));
    }

    void aSoundtrackOfEachFormatFollowsTheFrames_data() { righeFormati(); }
    void aSoundtrackOfEachFormatFollowsTheFrames()
    {
        QFETCH(double, snrMinimo);
        const Sorgente s = sorgenteDaRiga();
        const int fotogrammi = 48;
        const double fps = 24;
        const auto c = tono(static_cast<int>(inizioFotogramma(fotogrammi, s.hz, fps)), s.hz, s.canali);
        const QByteArray tags = s.formato == 2
                                    ? fotogrammiConFlussoMp3(codificaMp3(c, s.canali, s.hz, s.kbps), s.canali, s.hz, fps, fotogrammi)
                                    : fotogrammiConFlusso(s.formato, c, s.canali, s.hz, fps, fotogrammi, s.bit, s.bigEndian, s.otto);
        Banco b;
        QVERIFY(b.carica(film(tags, fotogrammi)));
        b.suona();
        b.fotogramma(30);
        // frames 2 to 30 against the source: played on from the start of frame 1
        const int64_t da = inizioFotogramma(1, kUscita, fps), a = b.qui();
        const double snr = b.snr(da, c, s.canali, s.hz, static_cast<double>(da) * s.hz / kUscita, a - da);
        QVERIFY2(snr >= snrMinimo, qPrintable(QStringLiteral("%1 dB").arg(snr)));
    }

    void aLoadedFilmIsSilentUntilLetSound()
    {
        const auto c = tono(4410, 44100, 1);
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 3, 44100, true, false, 4410, pcm16(c)), startSound(1), 0, 4)));
        b.f.riprendi();
        b.fotogramma(3);
        QVERIFY(b.muto(0, b.qui()));
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 0);
    }

    void theFrameItRestsOnSoundsAtOnceWhenLetSound()
    {
        const auto c = tono(4410, 44100, 1);
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 3, 44100, true, false, 4410, pcm16(c)), startSound(1), 0, 4)));
        // resting on frame 1, as a face is before its pair is found
        b.f.impostaSuono(true);
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.tira(4410);
        QVERIFY(b.snr(0, c, 1, 44100, 0, 4410) > 90);
    }

    void turningSoundOffStopsEverySoundAtOnce()
    {
        const auto c = tono(44100, 44100, 1);
        const int fotogrammi = 24;
        QByteArray tags = defineSound(1, 3, 44100, true, false, 44100, pcm16(c)) + startSound(1) +
                          fotogrammiConFlusso(3, c, 1, 44100, 24, fotogrammi);
        Banco b;
        QVERIFY(b.carica(film(tags, fotogrammi)));
        b.suona();
        b.fotogramma(2);
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 2);
        b.f.impostaSuono(false);
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 0);
        const int64_t da = b.qui();
        b.fotogramma(3);
        QVERIFY(b.muto(da, b.qui()));
    }

    void loopsPlayTheSoundAgainAndAgain()
    {
        const auto c = tono(2000, 44100, 1);
        InfoAvvio i;
        i.ripetizioni = 3;
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 3, 44100, true, false, 2000, pcm16(c)), startSound(1, i), 0, 12)));
        b.suona();
        b.fotogramma(8);
        for (int k = 0; k < 3; ++k)
            QVERIFY2(b.snr(k * 2000, c, 1, 44100, 0, 2000) > 90, qPrintable(QString::number(k)));
        QVERIFY(b.muto(6000, b.qui()));
    }

    void inAndOutPointsCutTheSound()
    {
        // points count samples at 44.1 kHz whatever the sound's rate
        const auto c = tono(11025, 22050, 1);
        InfoAvvio i;
        i.inizio = 4410;
        i.fine = 13230;
        i.ripetizioni = 2;
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 3, 22050, true, false, 11025, pcm16(c)), startSound(1, i), 0, 24)));
        b.suona();
        b.fotogramma(12);
        // 2205 to 6615 of the source, twice: 8820 output frames each pass
        QVERIFY(b.snr(0, c, 1, 22050, 2205, 8820) > 80);
        QVERIFY(b.snr(8820, c, 1, 22050, 2205, 8820) > 80);
        QVERIFY(b.muto(17642, b.qui()));
    }

    void anEnvelopeShapesEachChannel()
    {
        const std::vector<int16_t> c(8820, 16384);  // a steady level of one half
        InfoAvvio i;
        // the left fades in over the first 4410 samples, the right is silent
        i.inviluppo = {{0, 0, 0}, {4410, 32768, 0}};
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 3, 44100, true, false, 8820, pcm16(c)), startSound(1, i), 0, 12)));
        b.suona();
        b.fotogramma(6);
        for (int64_t k : {0, 1000, 2205, 3000, 4410, 8000})
            QVERIFY2(std::abs(b.campione(k, 0) - 0.5 * std::min(1.0, k / 4410.0)) < 1e-3, qPrintable(QString::number(k)));
        QVERIFY(b.picco(0, 8820) <= 0.5 + 1e-6);
        for (int64_t k = 0; k < 8820; ++k)
            QCOMPARE(b.campione(k, 1), 0.0f);
    }

    void theStopFlagStopsTheSound()
    {
        const auto c = tono(44100, 44100, 1);
        InfoAvvio ferma;
        ferma.ferma = true;
        QByteArray t = defineSound(1, 3, 44100, true, false, 44100, pcm16(c)) + startSound(1) + mostra() + mostra() +
                       startSound(1, ferma) + mostra();
        Banco b;
        QVERIFY(b.carica(film(t, 6)));
        b.suona();
        b.fotogramma(5);
        const int64_t fine = inizioFotogramma(2, kUscita, b.fps);
        QVERIFY(b.snr(0, c, 1, 44100, 0, fine) > 90);
        QVERIFY(b.muto(fine, b.qui()));
    }

    void noMultipleLeavesOneCopyPlaying()
    {
        const auto c = tono(44100, 44100, 1);
        InfoAvvio solo;
        solo.nonMultiplo = true;
        QByteArray t = defineSound(1, 3, 44100, true, false, 44100, pcm16(c)) + startSound(1, solo) + mostra() +
                       startSound(1, solo) + mostra() + startSound(1) + mostra();
        Banco b;
        QVERIFY(b.carica(film(t, 10)));
        b.suona();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.fotogramma();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.fotogramma();
        // without the flag a second copy joins
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 2);
    }

    void startSound2FindsTheSoundByItsExportedName()
    {
        const auto c = tono(4410, 44100, 1);
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(5, 3, 44100, true, false, 4410, pcm16(c)) + esporta(5, "Abbaio"),
                                      startSound2("Abbaio") + startSound2("Nessuno"), 0, 4)));
        b.suona();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.fotogramma(3);
        QVERIFY(b.snr(0, c, 1, 44100, 0, 4410) > 90);
    }

    void theSoundtrackStopsWithTheTimelineAndGoesOnFromWhereItStands()
    {
        const double fps = 24;
        const int fotogrammi = 48;
        const auto c = tono(static_cast<int>(inizioFotogramma(fotogrammi, 44100, fps)), 44100, 1);
        Banco b;
        QVERIFY(b.carica(film(fotogrammiConFlusso(3, c, 1, 44100, fps, fotogrammi), fotogrammi)));
        b.suona();
        b.fotogramma(10);
        b.f.ferma();
        const int64_t fermo = b.qui();
        b.fotogramma(5);  // stopped: the timeline stays on frame 11
        QCOMPARE(b.f.fotogrammaCorrente(), 11);
        QVERIFY(b.muto(fermo, b.qui()));
        b.f.riprendi();
        const int64_t ripresa = b.qui();
        b.fotogramma(4);
        // frame 11's sound, then 12, 13, 14
        QVERIFY(b.snr(ripresa, c, 1, 44100, static_cast<double>(inizioFotogramma(10, 44100, fps)), b.qui() - ripresa) > 90);
    }

    void aGotoTakesTheSoundtrackWithIt()
    {
        const double fps = 24;
        const int fotogrammi = 48;
        const auto c = tono(static_cast<int>(inizioFotogramma(fotogrammi, 44100, fps)), 44100, 2);
        Banco b;
        QVERIFY(b.carica(film(fotogrammiConFlusso(3, c, 2, 44100, fps, fotogrammi), fotogrammi)));
        b.suona();
        b.fotogramma(5);
        b.f.vaiAlFotogramma(30);
        int64_t da = b.qui();
        b.fotogramma(4);
        QVERIFY(b.snr(da, c, 2, 44100, static_cast<double>(inizioFotogramma(29, 44100, fps)), b.qui() - da) > 90);
        // and back
        b.f.vaiAlFotogramma(3);
        da = b.qui();
        b.fotogramma(4);
        QVERIFY(b.snr(da, c, 2, 44100, static_cast<double>(inizioFotogramma(2, 44100, fps)), b.qui() - da) > 90);
    }

    void theSoundtrackStartsAgainWhenTheTimelineLoops()
    {
        const double fps = 24;
        const int fotogrammi = 12;
        const auto c = tono(static_cast<int>(inizioFotogramma(fotogrammi, 44100, fps)), 44100, 1);
        Banco b;
        QVERIFY(b.carica(film(fotogrammiConFlusso(3, c, 1, 44100, fps, fotogrammi), fotogrammi)));
        b.suona();
        b.fotogramma(fotogrammi);
        QCOMPARE(b.f.fotogrammaCorrente(), 1);
        const int64_t giro = b.qui();
        b.fotogramma(fotogrammi);
        QVERIFY(b.snr(0, c, 1, 44100, 0, giro) > 90);
        QVERIFY(b.snr(giro, c, 1, 44100, 0, giro) > 90);
    }

    void aSoundtrackThatStartsLateIsSilentBefore()
    {
        const double fps = 24;
        const auto c = tono(static_cast<int>(inizioFotogramma(10, 44100, fps)), 44100, 1);
        // five empty frames, then ten with sound
        QByteArray t;
        for (int i = 0; i < 5; ++i)
            t += mostra();
        QByteArray flusso = fotogrammiConFlusso(3, c, 1, 44100, fps, 10);
        // the head goes first, before the empty frames
        const QByteArray testa = flusso.left(testaFlusso(3, 44100, false, 1838).size());
        Banco b;
        QVERIFY(b.carica(film(testa + t + flusso.mid(testa.size()), 15)));
        b.suona();
        b.fotogramma(12);
        const int64_t da = inizioFotogramma(5, kUscita, fps);
        QVERIFY(b.muto(0, da));
        QVERIFY(b.snr(da, c, 1, 44100, 0, b.qui() - da) > 90);
    }

    void takingLeaveEndsTheSoundtrackAndLetsEventSoundsEndTheirPass()
    {
        const double fps = 24;
        const int fotogrammi = 24;
        const auto c = tono(static_cast<int>(inizioFotogramma(fotogrammi, 44100, fps)), 44100, 1);
        const auto e = tono(3000, 44100, 1);
        InfoAvvio i;
        i.ripetizioni = 100;
        QByteArray t = defineSound(2, 3, 44100, true, false, 3000, pcm16(e)) + startSound(2, i) +
                       fotogrammiConFlusso(3, c, 1, 44100, fps, fotogrammi);
        Banco b;
        QVERIFY(b.carica(film(t, fotogrammi)));
        b.suona();
        b.tira(1000);
        b.f.congedaSuoni();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.tira(4000);
        // the event sound ends at 3000, its 99 further passes are dropped
        QVERIFY(b.snr(1000, e, 1, 44100, 1000, 2000) > 90);
        QVERIFY(b.muto(3000, b.qui()));
        b.fotogramma(fotogrammi + 2);
        QVERIFY(b.muto(3000, b.qui()));
        // rewinding lets it sound again
        b.f.riavvolgi();
        b.f.impostaSuono(true);
        b.f.riprendi();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 2);
    }

    void theStopSoundsActionSilencesTheFilm()
    {
        const auto c = tono(44100, 44100, 1);
        QByteArray t = defineSound(1, 3, 44100, true, false, 44100, pcm16(c)) + startSound(1) + mostra() + mostra() +
                       azione(QByteArray(1, '\x09')) + mostra();
        Banco b;
        QVERIFY(b.carica(film(t, 6)));
        b.suona();
        b.fotogramma();
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 1);
        b.fotogramma();  // the frame with the action
        QCOMPARE(b.f.uscitaSuono()->vociAttive(), 0);
    }

    void nellymoserAndSpeexAreSilentWithoutError()
    {
        for (int formato : {4, 5, 6, 11}) {
            Banco b;
            QVERIFY(b.carica(filmConSuono(defineSound(1, formato, 22050, true, false, 1000, QByteArray(600, '\x5a')), startSound(1), 0, 4)));
            b.suona();
            b.fotogramma(3);
            QVERIFY(b.muto(0, b.qui()));
        }
    }

    void aSoundThatPromisesHoursCostsOnlyWhatItHolds()
    {
        Banco b;
        // four billion samples promised, a few bytes given
        QVERIFY(b.carica(filmConSuono(defineSound(1, 1, 44100, true, true, 0xffffffffu, QByteArray(64, '\x11')), startSound(1), 0, 4)));
        QVERIFY(b.f.memoriaUsata() < 4 * 1024 * 1024);
        b.suona();
        b.fotogramma(3);
    }

    void aFilmWithManySoundsKeepsItsVoicesBounded()
    {
        const auto c = tono(44100, 44100, 1);
        QByteArray t = defineSound(1, 3, 44100, true, false, 44100, pcm16(c));
        for (int i = 0; i < 100; ++i)
            t += startSound(1) + mostra();
        Banco b;
        QVERIFY(b.carica(film(t, 100)));
        b.suona();
        b.fotogramma(99);
        QVERIFY(b.f.uscitaSuono()->vociAttive() <= 32);
    }

    void broken16BitDataOfOddLengthDecodesWhatIsWhole()
    {
        Banco b;
        QVERIFY(b.carica(filmConSuono(defineSound(1, 0, 44100, true, false, 100, QByteArray(201, '\x01')), startSound(1), 0, 4)));
        b.suona();
        b.fotogramma(2);
    }
};

QTEST_APPLESS_MAIN(TestSuono)
#include "test_suono.moc"
