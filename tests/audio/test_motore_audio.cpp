// The game's sound engine: the channel's rule (a new sound cuts off the one
// that plays, a missing or unreadable file is silence), decoding of sound
// files on the channel's own thread, the mixer, the capture to WAV. The
// tests read the mixer themselves: no device, no clock.

#include "AmbienteProva.h"
#include "mp3_prova.h"
#include "platform/audio/CanaleGioco.h"
#include "platform/audio/DecodificaFile.h"
#include "platform/audio/Mixer.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/audio/ScrittoreWav.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <sndfile.h>

#include <cmath>

namespace {

constexpr int kHz = 44100;

std::vector<int16_t> costante(int fotogrammi, int canali, int16_t livello)
{
    return std::vector<int16_t>(static_cast<size_t>(fotogrammi * canali), livello);
}

std::vector<int16_t> onda(int fotogrammi, int hz, int canali)
{
    std::vector<int16_t> c;
    for (int i = 0; i < fotogrammi; ++i)
        for (int k = 0; k < canali; ++k)
            c.push_back(static_cast<int16_t>(std::lround(12000 * std::sin(2 * M_PI * (k ? 550 : 440) * i / hz))));
    return c;
}

// A sound file in any of libsndfile's formats.
bool scriviFile(const QString &percorso, int formato, int hz, int canali, const std::vector<int16_t> &c)
{
    SF_INFO info{};
    info.samplerate = hz;
    info.channels = canali;
    info.format = formato;
    SNDFILE *f = sf_open(QFile::encodeName(percorso).constData(), SFM_WRITE, &info);
    if (!f)
        return false;
    sf_writef_short(f, c.data(), static_cast<sf_count_t>(c.size() / static_cast<size_t>(canali)));
    sf_close(f);
    return true;
}

std::vector<float> leggi(audio::Mixer &m, int fotogrammi)
{
    std::vector<float> b(static_cast<size_t>(2 * fotogrammi));
    m.leggi(b.data(), fotogrammi);
    return b;
}

bool tutti(const std::vector<float> &b, float valore)
{
    return std::all_of(b.begin(), b.end(), [valore](float v) { return std::abs(v - valore) < 1e-4f; });
}

} // namespace

class TestMotoreAudio : public QObject
{
    Q_OBJECT
    QTemporaryDir cartella;

    QString file(const char *nome) const { return cartella.filePath(QLatin1String(nome)); }

private slots:
    void initTestCase()
    {
        QVERIFY(scriviFile(file("alto.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, kHz, 1, costante(kHz, 1, 8192)));
        QVERIFY(scriviFile(file("basso.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, kHz, 1, costante(kHz, 1, -8192)));
        AmbienteProva::Scrivi(file("rotto.wav"), QByteArray("RIFF\x10\x00\x00\x00WAVEjunkjunkjunk", 24));
    }

    void aNewSoundCutsOffTheOneThatPlays()
    {
        audio::Mixer m;
        auto c = std::make_shared<audio::CanaleGioco>();
        m.aggiungi(c);
        c->suona(file("alto.wav"));
        c->attendiDecodifica();
        QVERIFY(tutti(leggi(m, 500), 0.25f));
        c->suona(file("basso.wav"));
        // at once, before the new sound is even decoded: the old one is gone
        const auto b = leggi(m, 500);
        QVERIFY(std::none_of(b.begin(), b.end(), [](float v) { return v > 0; }));
        c->attendiDecodifica();
        QVERIFY(tutti(leggi(m, 500), -0.25f));
        QCOMPARE(c->inCorso(), file("basso.wav"));
    }

    void thereIsNoQueueOnlyTheLastRequestIsHeard()
    {
        audio::Mixer m;
        auto c = std::make_shared<audio::CanaleGioco>();
        m.aggiungi(c);
        for (int i = 0; i < 50; ++i)
            c->suona(file(i % 2 ? "alto.wav" : "basso.wav"));
        c->suona(file("basso.wav"));
        c->attendiDecodifica();
        QVERIFY(tutti(leggi(m, 2000), -0.25f));
        const auto s = c->stato();
        QCOMPARE(s.richiesta, uint64_t(51));
        QCOMPARE(s.voce, uint64_t(51));
    }

    void aMissingAnEmptyOrAnUnreadableFileIsSilenceNotAFailure()
    {
        audio::Mixer m;
        auto c = std::make_shared<audio::CanaleGioco>();
        m.aggiungi(c);
        AmbienteProva::Scrivi(file("vuoto.wav"), QByteArray());
        for (const QString &p : {file("manca.wav"), file("vuoto.wav"), QString(), file("rotto.wav")}) {
            c->suona(file("alto.wav"));
            c->attendiDecodifica();
            c->suona(p);
            c->attendiDecodifica();
            QVERIFY2(tutti(leggi(m, 300), 0.0f), qPrintable(p));
            QCOMPARE(c->inCorso(), QString());
            QVERIFY(!c->stato().suona);
        }
    }

    void filesAreDecodedOnTheChannelsOwnThread()
    {
        audio::CanaleGioco c;
        c.suona(file("alto.wav"));
        c.attendiDecodifica();
        QVERIFY(c.stato().decodificatoDa != std::thread::id());
        QVERIFY(c.stato().decodificatoDa != std::this_thread::get_id());
    }

    void aSoundEndsAndTheChannelFallsSilent()
    {
        audio::Mixer m;
        auto c = std::make_shared<audio::CanaleGioco>();
        m.aggiungi(c);
        c->suona(file("alto.wav"));  // one second
        c->attendiDecodifica();
        leggi(m, kHz - 10);
        const auto b = leggi(m, 20);
        QVERIFY(std::abs(b[0] - 0.25f) < 1e-4f);
        QCOMPARE(b[39], 0.0f);
        QVERIFY(!c->stato().suona);
    }

    void soundFilesOfEveryCommonEncodingAreRead_data()
    {
        QTest::addColumn<int>("formato");
        QTest::addColumn<int>("hz");
        QTest::addColumn<int>("canali");
        QTest::addColumn<double>("errore");  // largest difference, in full scales
        QTest::newRow("wav 8 bit") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_U8) << 11025 << 1 << 0.01;
        QTest::newRow("wav 16 bit stereo") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16) << 22050 << 2 << 0.0001;
        QTest::newRow("wav 24 bit") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_24) << 48000 << 1 << 0.0001;
        QTest::newRow("wav 32 bit") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_32) << 44100 << 2 << 0.0001;
        QTest::newRow("wav float") << int(SF_FORMAT_WAV | SF_FORMAT_FLOAT) << 44100 << 1 << 0.0001;
        QTest::newRow("wav IMA ADPCM") << int(SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM) << 22050 << 1 << 0.05;
        QTest::newRow("wav MS ADPCM") << int(SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM) << 22050 << 2 << 0.05;
        QTest::newRow("wav u-law") << int(SF_FORMAT_WAV | SF_FORMAT_ULAW) << 8000 << 1 << 0.02;
        QTest::newRow("wav a-law") << int(SF_FORMAT_WAV | SF_FORMAT_ALAW) << 8000 << 1 << 0.02;
        QTest::newRow("aiff 16 bit") << int(SF_FORMAT_AIFF | SF_FORMAT_PCM_16) << 44100 << 1 << 0.0001;
        QTest::newRow("flac") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16) << 44100 << 2 << 0.0001;
        QTest::newRow("ogg vorbis") << int(SF_FORMAT_OGG | SF_FORMAT_VORBIS) << 44100 << 1 << 0.1;
    }
    void soundFilesOfEveryCommonEncodingAreRead()
    {
        QFETCH(int, formato);
        QFETCH(int, hz);
        QFETCH(int, canali);
        QFETCH(double, errore);
        const auto c = onda(hz / 2, hz, canali);
        const QString p = file("prova.suono");
        QVERIFY(scriviFile(p, formato, hz, canali, c));
        const auto pcm = audio::DecodificaFile(p);
        QVERIFY(pcm);
        QCOMPARE(pcm->frequenza, hz);
        QCOMPARE(pcm->canali, canali);
        QVERIFY(pcm->campioni.size() >= c.size() - 1024);
        double massimo = 0;
        // the middle, away from the codecs' edges
        for (size_t i = c.size() / 4; i < c.size() * 3 / 4 && i < pcm->campioni.size(); ++i)
            massimo = std::max(massimo, std::abs(c[i] - pcm->campioni[i]) / 32768.0);
        QVERIFY2(massimo <= errore, qPrintable(QString::number(massimo)));
    }

    void anMp3FileIsRead()
    {
        const auto c = onda(22050, 22050, 1);
        const swftest::Mp3 m = swftest::codificaMp3(c, 1, 22050, 64);
        AmbienteProva::Scrivi(file("parola.mp3"), m.dati);
        const auto pcm = audio::DecodificaFile(file("parola.mp3"));
        if (!pcm)
            QSKIP("this libsndfile reads no MP3");
        QCOMPARE(pcm->frequenza, 22050);
        QVERIFY(pcm->fotogrammi() >= 22050);
        double picco = 0;
        for (int16_t v : pcm->campioni)
            picco = std::max(picco, std::abs(v) / 32768.0);
        QVERIFY(picco > 0.3 && picco < 0.45);
    }

    void theChannelPlaysAnySoundAtTheMixersRate()
    {
        // one second at 22 kHz lasts one second at 44.1 kHz
        QVERIFY(scriviFile(file("lento.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 2, costante(22050, 2, 4096)));
        audio::Mixer m;
        auto c = std::make_shared<audio::CanaleGioco>();
        m.aggiungi(c);
        c->suona(file("lento.wav"));
        c->attendiDecodifica();
        QVERIFY(tutti(leggi(m, kHz - 2), 0.125f));
        leggi(m, 4);
        QVERIFY(tutti(leggi(m, 100), 0.0f));
    }

    void theMixerAddsItsSourcesAndClipsAtFullScale()
    {
        audio::Mixer m;
        auto uno = std::make_shared<audio::SorgenteFunzione>([](float *s, int n, int) {
            for (int i = 0; i < 2 * n; ++i)
                s[i] += 0.75f;
        });
        m.aggiungi(uno);
        m.aggiungi(uno);
        std::vector<int16_t> b(20);
        m.leggi(b.data(), 10);
        QCOMPARE(b[0], int16_t(32767));
        m.togli(uno.get());
        QCOMPARE(m.numeroSorgenti(), size_t(0));
        m.leggi(b.data(), 10);
        QCOMPARE(b[5], int16_t(0));
        QCOMPARE(m.fotogrammiLetti(), uint64_t(20));
    }

    void theCaptureIsAWavFileOfWhatWasMixed()
    {
        audio::ScrittoreWav w;
        QVERIFY(w.apri(file("presa.wav"), kHz));
        const auto c = onda(1000, kHz, 2);
        w.scrivi(c.data(), 500);
        w.scrivi(c.data() + 1000, 500);
        const auto letto = audio::DecodificaFile(file("presa.wav"));
        QVERIFY(letto);
        QCOMPARE(letto->canali, 2);
        QCOMPARE(letto->frequenza, kHz);
        QCOMPARE(letto->campioni, c);
    }

    void theGamesSoundFunctionsGoThroughTheEnginesChannel()
    {
        AmbienteProva a;
        ImpostaCanaleSuoni(nullptr);
        audio::MotoreAudio &motore = audio::MotoreAudio::istanza();
        QVERIFY(!motore.dispositivoAperto());
        SuonaFile(file("alto.wav"));
        motore.canale().attendiDecodifica();
        QCOMPARE(SorgenteSuonoInCorso(), file("alto.wav"));
        QVERIFY(tutti(leggi(motore.mixer(), 100), 0.25f));
        SuonaFile(file("manca.wav"));
        QCOMPARE(SorgenteSuonoInCorso(), QString());
        QVERIFY(tutti(leggi(motore.mixer(), 100), 0.0f));
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    audio::MotoreAudio::SenzaDispositivo();
    TestMotoreAudio t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_motore_audio.moc"
