// The sound engine's load: the share of one core the process uses while the
// engine plays, with no sound and with four films sounding at once, each a
// sound of its own format looping (PCM 44 kHz stereo, ADPCM 22 kHz, ADPCM
// 11 kHz stereo, PCM 8-bit 22 kHz). The engine plays on the real device
// when there is one; with none it is read every 10 ms at a device's pace.
//
// usage: bench_mixer [SECONDS]

#include "costruttore.h"
#include "platform/audio/MotoreAudio.h"
#include "swf/filmato.h"
#include "swf/suono.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <sys/resource.h>

#include <cmath>
#include <cstdio>

using namespace swftest;

namespace {

double cpuSecondi()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_utime.tv_sec + u.ru_stime.tv_sec + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

double quota(int millisecondi)
{
    QElapsedTimer orologio;
    orologio.start();
    const double inizio = cpuSecondi();
    QEventLoop ciclo;
    QTimer::singleShot(millisecondi, &ciclo, &QEventLoop::quit);
    ciclo.exec();
    return 100.0 * (cpuSecondi() - inizio) / (orologio.elapsed() / 1000.0);
}

std::vector<int16_t> tono(int n, int hz, int canali, double f)
{
    std::vector<int16_t> c;
    for (int i = 0; i < n; ++i)
        for (int k = 0; k < canali; ++k)
            c.push_back(static_cast<int16_t>(std::lround(8000 * std::sin(2 * M_PI * (f + 110 * k) * i / hz))));
    return c;
}

// One frame that starts a looping sound of a second.
QByteArray filmCon(int formato, int hz, int canali, bool otto)
{
    const auto c = tono(hz, hz, canali, 330);
    const QByteArray dati = formato == 1 ? adpcm(c, canali, 4) : otto ? pcm8(c) : pcm16(c);
    InfoAvvio i;
    i.ripetizioni = 65535;
    return film(defineSound(1, formato, hz, !otto, canali == 2, static_cast<uint32_t>(hz), dati) + startSound(1, i) + mostra(), 1);
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("COPPIE_AUDIO_OROLOGIO"))
        qputenv("COPPIE_AUDIO_OROLOGIO", "1");
    QCoreApplication app(argc, argv);
    const int secondi = argc > 1 ? std::max(2, std::atoi(argv[1])) : 6;
    audio::MotoreAudio &motore = audio::MotoreAudio::istanza();
    motore.attendiAvvio();
    std::printf("device: %s\n", qPrintable(motore.descrizione()));

    const double muto = quota(secondi * 1000);
    std::vector<std::unique_ptr<swf::Filmato>> film;
    const QByteArray dati[4] = {filmCon(3, 44100, 2, false), filmCon(1, 22050, 1, false), filmCon(1, 11025, 2, false),
                                filmCon(3, 22050, 1, true)};
    for (const QByteArray &d : dati) {
        auto f = std::make_unique<swf::Filmato>();
        if (!f->caricaDati(d))
            return 1;
        std::shared_ptr<swf::UscitaSuono> u = f->uscitaSuono();
        motore.mixer().aggiungi(std::make_shared<audio::SorgenteFunzione>([u](float *s, int n, int hz) { u->mescola(s, n, hz); }));
        f->impostaSuono(true);
        film.push_back(std::move(f));
    }
    int voci = 0;
    for (auto &f : film)
        voci += f->uscitaSuono()->vociAttive();
    const double quattro = quota(secondi * 1000);
    std::printf("engine playing nothing:      %5.2f%% of one core\n", muto);
    std::printf("engine playing %d sounds:     %5.2f%% of one core\n", voci, quattro);
    std::printf("the mixing of the %d sounds:  %5.2f%% of one core (target under 2%%)\n", voci, quattro - muto);
    motore.chiudi();
    return 0;
}
