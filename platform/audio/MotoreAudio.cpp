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
constexpr int kMillisecondiPasso = 10;

// What Qt Multimedia says while the device is looked for: kept for the one
// line the engine writes, instead of being printed on its own.
QString detto;
void tieniMessaggio(QtMsgType, const QMessageLogContext &, const QString &m)
{
    if (detto.isEmpty())
        detto = m;
}

MotoreAudio *motoreCreato = nullptr;
} // namespace

// Lives in the engine's thread. Every few milliseconds it tops the sink's
// short buffer up with what the mixer gives: the game writes to the device,
// so a sound asked for is heard within the buffer's length.
class Dispositivo final : public QObject
{
public:
    explicit Dispositivo(Mixer &m) : mixer(m) {}

    // In the engine's thread, with the device and format the interface
    // thread found, or the reason there is none.
    void avvia(const QAudioDevice &uscita, const QAudioFormat &f, const QString &perche)
    {
        if (const QByteArray tee = qgetenv("COPPIE_AUDIO_WAV"); !tee.isEmpty()) {
            if (!wav.apri(QString::fromLocal8Bit(tee), mixer.frequenza()))
                avvisa(QStringLiteral("cannot write %1").arg(QString::fromLocal8Bit(tee)));
        }
        if (uscita.isNull()) {
            descrivi(perche);
            avvisa(perche);
        } else {
            apriSink(uscita, f);
        }
        // no device: a capture, or a benchmark, still wants the mixer read as one would
        if (!sink && (wav.aperto() || qEnvironmentVariableIsSet("COPPIE_AUDIO_OROLOGIO")))
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
    }

    std::atomic<bool> aperto{false};
    QString descrizioneDi() const
    {
        std::lock_guard l(mOsservatore);
        return descrizione;
    }
    std::atomic<int> inAttesa{0};
    mutable std::mutex mOsservatore;  // the observer and the description
    std::function<void(const int16_t *, int)> osservatore;

private:
    void descrivi(const QString &d)
    {
        std::lock_guard l(mOsservatore);
        descrizione = d;
    }
    void avvisa(const QString &perche)
    {
        if (avvisato)
            return;
        avvisato = true;
        std::fprintf(stderr, "Coppie vivaci: %s; the game goes on without sound\n", qPrintable(perche));
    }

    void apriSink(const QAudioDevice &uscita, const QAudioFormat &f)
    {
        formato = f;
        sink = new QAudioSink(uscita, f);
        sink->setBufferSize(f.bytesForDuration(kMillisecondiBuffer * 1000));
        QObject::connect(sink, &QAudioSink::stateChanged, sink, [this](QAudio::State s) {
            if (s == QAudio::StoppedState && sink && sink->error() != QAudio::NoError && aperto) {
                avvisa(QStringLiteral("the sound output stopped (error %1)").arg(int(sink->error())));
                aperto = false;
            }
        });
        scrittura = sink->start();
        if (!scrittura || sink->error() != QAudio::NoError) {
            avvisa(QStringLiteral("cannot open %1 (error %2)").arg(uscita.description()).arg(int(sink->error())));
            delete sink;
            sink = nullptr;
            scrittura = nullptr;
            return;
        }
        aperto = true;
        QThread::currentThread()->setPriority(QThread::TimeCriticalPriority);
        orologio = new QTimer;
        orologio->setTimerType(Qt::PreciseTimer);
        orologio->setInterval(kMillisecondiPasso);
        QObject::connect(orologio, &QTimer::timeout, orologio, [this] { riempi(); });
        riempi();
        orologio->start();
        descrivi(QStringLiteral("%1, %2 Hz, %3 channels, buffer %4 ms")
                     .arg(uscita.description())
                     .arg(f.sampleRate())
                     .arg(f.channelCount())
                     .arg(f.durationForBytes(sink->bufferSize()) / 1000));
    }

    // As much as the sink has room for: what it holds plays first.
    void riempi()
    {
        const qint64 perFotogramma = formato.bytesPerFrame();
        const int fotogrammi = static_cast<int>(std::min<qint64>(sink->bytesFree() / perFotogramma, 1 << 15));
        if (fotogrammi <= 0)
            return;
        inAttesa = static_cast<int>((sink->bufferSize() - sink->bytesFree()) / perFotogramma);
        leggiMixer(fotogrammi);
        uscitaFormato.resize(static_cast<size_t>(fotogrammi * perFotogramma));
        scriviFormato(uscitaFormato.data(), fotogrammi);
        scrittura->write(uscitaFormato.data(), fotogrammi * perFotogramma);
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
        descrivi(descrizioneDi() + QStringLiteral("; read every 10 ms at the pace of a device"));
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
    QIODevice *scrittura = nullptr;
    std::vector<char> uscitaFormato;
    QTimer *orologio = nullptr;
    QElapsedTimer tempo;
    int64_t letti = 0;
    std::vector<int16_t> stereo;
    ScrittoreWav wav;
    bool avvisato = false;
    QString descrizione;
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
    // Qt Multimedia is asked for the device here, on the interface thread, as
    // it expects; the sink is then opened and fed in the engine's own thread,
    // and nobody waits for it.
    detto.clear();
    const QtMessageHandler prima = qInstallMessageHandler(tieniMessaggio);
    const QAudioDevice uscita = QMediaDevices::defaultAudioOutput();
    qInstallMessageHandler(prima);
    QAudioFormat f;
    f.setSampleRate(44100);
    f.setChannelCount(2);
    f.setSampleFormat(QAudioFormat::Int16);
    if (!uscita.isNull() && !uscita.isFormatSupported(f)) {
        f = uscita.preferredFormat();
        if (f.sampleFormat() != QAudioFormat::Int16 && f.sampleFormat() != QAudioFormat::Float)
            f.setSampleFormat(QAudioFormat::Int16);
        if (f.channelCount() < 1)
            f.setChannelCount(2);
    }
    if (!uscita.isNull())
        mixer_.impostaFrequenza(f.sampleRate());
    const QString perche = detto.isEmpty() ? QStringLiteral("no sound output") : QStringLiteral("no sound output (%1)").arg(detto);
    auto *filo = new QThread;
    filo->setObjectName(QStringLiteral("audio"));
    dispositivo = new Dispositivo(mixer_);
    dispositivo->moveToThread(filo);
    filo->start();
    QMetaObject::invokeMethod(dispositivo, [d = dispositivo, uscita, f, perche] { d->avvia(uscita, f, perche); }, Qt::QueuedConnection);
    // the sink stops before Qt Multimedia goes away at the end of the program
    motoreCreato = this;
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, QCoreApplication::instance(), [this] { chiudi(); });
    qAddPostRoutine([] {
        if (motoreCreato)
            motoreCreato->chiudi();
    });
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

void MotoreAudio::attendiAvvio()
{
    // the opening was queued first: a call queued after it returns once it is done
    if (dispositivo && !chiuso)
        QMetaObject::invokeMethod(dispositivo, [] {}, Qt::BlockingQueuedConnection);
}

bool MotoreAudio::dispositivoAperto() const { return dispositivo && !chiuso && dispositivo->aperto; }

QString MotoreAudio::descrizione() const
{
    return dispositivo ? dispositivo->descrizioneDi() : QStringLiteral("no device (the mixer is read by its caller)");
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
