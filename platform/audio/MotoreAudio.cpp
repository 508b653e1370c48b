#include "platform/audio/MotoreAudio.h"

#include "platform/audio/ScrittoreWav.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QIODevice>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <limits>
#include <mutex>

namespace audio {

namespace {
bool senzaDispositivo = false;
constexpr int kMillisecondiBuffer = 40;

// What Qt Multimedia says while the device is opened: kept for the one line
// the engine writes, instead of being printed on its own. The interface
// thread waits for the opening meanwhile, so nothing else is lost.
QString detto;
void tieniMessaggio(QtMsgType, const QMessageLogContext &, const QString &m)
{
    if (detto.isEmpty())
        detto = m;
}
} // namespace

// Lives in the engine's thread: the sink pulls the mixer through this device.
class Dispositivo final : public QIODevice
{
public:
    explicit Dispositivo(Mixer &m) : mixer(m) {}

    // In the engine's thread.
    void avvia()
    {
        if (const QByteArray tee = qgetenv("COPPIE_AUDIO_WAV"); !tee.isEmpty()) {
            if (!wav.apri(QString::fromLocal8Bit(tee), mixer.frequenza()))
                avvisa(QStringLiteral("cannot write %1").arg(QString::fromLocal8Bit(tee)));
        }
        apriSink();
        if (!sink && wav.aperto())
            avviaOrologio();
    }

    void ferma()
    {
        if (sink) {
            sink->stop();
            delete sink;
            sink = nullptr;
        }
        delete orologio;
        orologio = nullptr;
        aperto = false;
        close();
    }

    bool aperto = false;
    QString descrizione;
    std::atomic<int> inAttesa{0};
    std::mutex mOsservatore;
    std::function<void(const int16_t *, int)> osservatore;

protected:
    qint64 readData(char *data, qint64 massimo) override
    {
        const qint64 perFotogramma = formato.bytesPerFrame();
        if (perFotogramma <= 0)
            return 0;
        const int fotogrammi = static_cast<int>(std::min<qint64>(massimo / perFotogramma, 1 << 16));
        if (fotogrammi <= 0)
            return 0;
        leggiMixer(fotogrammi);
        scriviFormato(data, fotogrammi);
        if (sink)
            inAttesa = static_cast<int>((sink->bufferSize() - sink->bytesFree()) / perFotogramma);
        return fotogrammi * perFotogramma;
    }
    qint64 writeData(const char *, qint64) override { return -1; }
    qint64 bytesAvailable() const override { return std::numeric_limits<qint32>::max() + QIODevice::bytesAvailable(); }
    bool isSequential() const override { return true; }

private:
    void avvisa(const QString &perche)
    {
        if (avvisato)
            return;
        avvisato = true;
        std::fprintf(stderr, "Coppie vivaci: %s; the game goes on without sound\n", qPrintable(perche));
    }

    void apriSink()
    {
        detto.clear();
        const QtMessageHandler prima = qInstallMessageHandler(tieniMessaggio);
        apriSinkQt();
        qInstallMessageHandler(prima);
    }

    void apriSinkQt()
    {
        const QAudioDevice uscita = QMediaDevices::defaultAudioOutput();
        if (uscita.isNull()) {
            descrizione = detto.isEmpty() ? QStringLiteral("no sound output") : QStringLiteral("no sound output (%1)").arg(detto);
            avvisa(descrizione);
            return;
        }
        QAudioFormat f;
        f.setSampleRate(44100);
        f.setChannelCount(2);
        f.setSampleFormat(QAudioFormat::Int16);
        if (!uscita.isFormatSupported(f)) {
            f = uscita.preferredFormat();
            if (f.sampleFormat() != QAudioFormat::Int16 && f.sampleFormat() != QAudioFormat::Float)
                f.setSampleFormat(QAudioFormat::Int16);
            if (f.channelCount() < 1)
                f.setChannelCount(2);
        }
        formato = f;
        mixer.impostaFrequenza(f.sampleRate());
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        sink = new QAudioSink(uscita, f);
        sink->setBufferSize(f.bytesForDuration(kMillisecondiBuffer * 1000));
        QObject::connect(sink, &QAudioSink::stateChanged, sink, [this](QAudio::State s) {
            if (s == QAudio::StoppedState && sink && sink->error() != QAudio::NoError && aperto) {
                avvisa(QStringLiteral("the sound output stopped (error %1)").arg(int(sink->error())));
                aperto = false;
            }
        });
        sink->start(this);
        if (sink->error() != QAudio::NoError) {
            avvisa(QStringLiteral("cannot open %1 (error %2)").arg(uscita.description()).arg(int(sink->error())));
            delete sink;
            sink = nullptr;
            close();
            return;
        }
        aperto = true;
        descrizione = QStringLiteral("%1, %2 Hz, %3 channels, buffer %4 ms")
                          .arg(uscita.description())
                          .arg(f.sampleRate())
                          .arg(f.channelCount())
                          .arg(f.durationForBytes(sink->bufferSize()) / 1000);
    }

    // No device, but a capture: the mixer is read as a device would read it.
    void avviaOrologio()
    {
        formato.setSampleRate(mixer.frequenza());
        formato.setChannelCount(2);
        formato.setSampleFormat(QAudioFormat::Int16);
        orologio = new QTimer;
        orologio->setTimerType(Qt::PreciseTimer);
        orologio->setInterval(10);
        tempo.start();
        QObject::connect(orologio, &QTimer::timeout, orologio, [this] {
            const auto dovuti = static_cast<int64_t>(tempo.nsecsElapsed() / 1000 * mixer.frequenza() / 1000000);
            const int n = static_cast<int>(std::min<int64_t>(dovuti - letti, mixer.frequenza()));
            if (n <= 0)
                return;
            letti = dovuti;
            leggiMixer(n);
        });
        orologio->start();
        descrizione += QStringLiteral("; captured at the pace of a device");
    }

    void leggiMixer(int fotogrammi)
    {
        stereo.resize(static_cast<size_t>(2 * fotogrammi));
        mixer.leggi(stereo.data(), fotogrammi);
        wav.scrivi(stereo.data(), fotogrammi);
        std::lock_guard l(mOsservatore);
        if (osservatore)
            osservatore(stereo.data(), fotogrammi);
    }

    void scriviFormato(char *data, int fotogrammi)
    {
        const int canali = formato.channelCount();
        const bool virgola = formato.sampleFormat() == QAudioFormat::Float;
        for (int i = 0; i < fotogrammi; ++i)
            for (int c = 0; c < canali; ++c) {
                const int16_t v = canali == 1 ? static_cast<int16_t>((stereo[2 * i] + stereo[2 * i + 1]) / 2)
                                              : c < 2 ? stereo[2 * i + c] : 0;
                if (virgola)
                    reinterpret_cast<float *>(data)[i * canali + c] = v / 32768.0f;
                else
                    reinterpret_cast<int16_t *>(data)[i * canali + c] = v;
            }
    }

    Mixer &mixer;
    QAudioFormat formato;
    QAudioSink *sink = nullptr;
    QTimer *orologio = nullptr;
    QElapsedTimer tempo;
    int64_t letti = 0;
    std::vector<int16_t> stereo;
    ScrittoreWav wav;
    bool avvisato = false;
};

MotoreAudio &MotoreAudio::istanza()
{
    // Never destroyed: sounds may be asked for until the very end.
    static auto *motore = new MotoreAudio(!senzaDispositivo && QCoreApplication::instance());
    return *motore;
}

void MotoreAudio::SenzaDispositivo() { senzaDispositivo = true; }

MotoreAudio::MotoreAudio(bool conDispositivo) : canale_(std::make_shared<CanaleGioco>())
{
    mixer_.aggiungi(canale_);
    if (!conDispositivo)
        return;
    auto *filo = new QThread;
    filo->setObjectName(QStringLiteral("audio"));
    dispositivo = new Dispositivo(mixer_);
    dispositivo->moveToThread(filo);
    filo->start();
    // the device is opened in its own thread, and the caller waits for it: so
    // the format is known before the first sound is mixed
    QMetaObject::invokeMethod(dispositivo, [d = dispositivo] { d->avvia(); }, Qt::BlockingQueuedConnection);
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, QCoreApplication::instance(), [this] { chiudi(); });
}

void MotoreAudio::chiudi()
{
    if (!dispositivo || chiuso)
        return;
    chiuso = true;
    QThread *filo = dispositivo->thread();
    QMetaObject::invokeMethod(dispositivo, [d = dispositivo] { d->ferma(); }, Qt::BlockingQueuedConnection);
    filo->quit();
    filo->wait();
}

bool MotoreAudio::dispositivoAperto() const { return dispositivo && !chiuso && dispositivo->aperto; }

QString MotoreAudio::descrizione() const
{
    return dispositivo ? dispositivo->descrizione : QStringLiteral("no device (the mixer is read by its caller)");
}

int MotoreAudio::fotogrammiInAttesa() const { return dispositivo ? dispositivo->inAttesa.load() : 0; }

void MotoreAudio::impostaOsservatore(std::function<void(const int16_t *, int)> osservatore)
{
    if (!dispositivo)
        return;
    std::lock_guard l(dispositivo->mOsservatore);
    dispositivo->osservatore = std::move(osservatore);
}

} // namespace audio
