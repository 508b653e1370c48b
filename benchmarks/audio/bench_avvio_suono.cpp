// How soon a film's sound starts after Play: a film face rests on frame 1,
// whose sound starts with the frame, as a found pair's face does; Play, and
// the time until the first sample of that sound leaves the mixer for the
// device, and until it is heard (what the device still held then played
// first). Twenty times; the engine plays on the real device when there is
// one, else it is read every 10 ms at a device's pace.
//
// usage: bench_avvio_suono [TIMES]

#include "costruttore.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/media/Filmato.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>

using namespace swftest;

namespace {

void attendi(int millisecondi)
{
    QEventLoop ciclo;
    QTimer::singleShot(millisecondi, &ciclo, &QEventLoop::quit);
    ciclo.exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (qgetenv("QT_QPA_PLATFORM").isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("COPPIE_AUDIO_OROLOGIO"))
        qputenv("COPPIE_AUDIO_OROLOGIO", "1");
    QApplication app(argc, argv);
    const int volte = argc > 1 ? std::clamp(std::atoi(argv[1]), 1, 1000) : 20;
    audio::MotoreAudio &motore = audio::MotoreAudio::istanza();
    motore.attendiAvvio();
    std::printf("device: %s\n", qPrintable(motore.descrizione()));

    // 24 frames at 12 fps; frame 1 starts half a second of tone
    std::vector<int16_t> c;
    for (int i = 0; i < 22050; ++i)
        c.push_back(static_cast<int16_t>(std::lround(10000 * std::sin(2 * M_PI * 440 * i / 44100.0))));
    QByteArray t = defineSound(1, 3, 44100, true, false, static_cast<uint32_t>(c.size()), pcm16(c)) + startSound(1);
    for (int i = 0; i < 24; ++i)
        t += mostra();
    QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("cane.swf"));
    {
        QFile f(percorso);
        if (!f.open(QIODevice::WriteOnly) || f.write(film(t, 24, 100, 100, 10, 12)) <= 0)
            return 1;
    }

    QElapsedTimer tempo;
    tempo.start();
    std::atomic<bool> armato{false};
    std::atomic<int64_t> primo{-1}, inAttesa{0};
    std::atomic<int64_t> letti{0};
    motore.impostaOsservatore([&](const int16_t *s, int n) {
        letti += n;
        if (!armato)
            return;
        for (int i = 0; i < 2 * n; ++i)
            if (s[i] != 0) {
                primo = tempo.nsecsElapsed();
                inAttesa = motore.fotogrammiInAttesa();
                armato = false;
                return;
            }
    });

    Filmato faccia;
    faccia.resize(150, 150);
    faccia.show();
    faccia.ImpostaSonoro(Sonoro::PrimoGiro);
    faccia.setMovie(percorso);
    faccia.StopPlay();
    while (faccia.InCaricamento())
        attendi(5);
    std::vector<double> alDispositivo, udito;
    for (int k = 0; k < volte; ++k) {
        attendi(150);
        primo = -1;
        armato = true;
        const int64_t t0 = tempo.nsecsElapsed();
        faccia.Play();
        while (primo < 0 && tempo.nsecsElapsed() - t0 < 1000000000LL)
            attendi(1);
        armato = false;
        faccia.StopPlay();
        if (primo < 0) {
            std::printf("no sound within a second (%lld frames went to the device in all)\n", static_cast<long long>(letti));
            return 1;
        }
        const double ms = (primo - t0) / 1e6;
        alDispositivo.push_back(ms);
        udito.push_back(ms + 1000.0 * static_cast<double>(inAttesa) / motore.mixer().frequenza());
    }
    auto riga = [](const char *nome, std::vector<double> v) {
        std::sort(v.begin(), v.end());
        std::printf("%-36s median %5.1f ms, worst %5.1f ms\n", nome, v[v.size() / 2], v.back());
    };
    std::printf("%d Play of a face whose frame 1 starts a sound (target under 50 ms):\n", volte);
    riga("first sample to the device", alDispositivo);
    riga("first sample heard", udito);
    motore.chiudi();
    return 0;
}
