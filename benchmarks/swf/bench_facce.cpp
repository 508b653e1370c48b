// A board of 24 film faces as the game shows them: Filmato widgets with the
// game's own films, all playing at their frame rates in the event loop.
// Prints the share of one core the process used, for the first seconds (every
// frame drawn anew) and once the loops have been drawn (pictures kept).
// With "suono" each film carries a soundtrack and the faces are heard as on
// the board, for their first run through, through the game's sound engine
// (the real device when there is one, else read at a device's pace).
//
// usage: bench_facce [SECONDS] [FACE_PX] [suono]

#include "animazioni.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/media/Filmato.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/resource.h>

#include <cmath>
#include <cstdio>

namespace {

long rssKb()
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &riga : f.readAll().split('\n'))
        if (riga.startsWith("VmRSS:"))
            return riga.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

double cpuSecondi()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_utime.tv_sec + u.ru_stime.tv_sec + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// CPU share of one core over a stretch of the event loop
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

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    const bool conSuono = argc > 3 && QByteArray(argv[3]) == "suono";
    if (conSuono && !qEnvironmentVariableIsSet("COPPIE_AUDIO_OROLOGIO"))
        qputenv("COPPIE_AUDIO_OROLOGIO", "1");
    QApplication app(argc, argv);
    const int secondi = argc > 1 ? std::max(4, std::atoi(argv[1])) : 8;
    const int lato = argc > 2 ? std::clamp(std::atoi(argv[2]), 40, 400) : 150;
    swfanim::Opzioni opzioni;
    if (conSuono) {
        // two seconds of a little tune, as long as a film's loop
        for (int i = 0; i < 44100; ++i)
            opzioni.suono.campioni.push_back(static_cast<int16_t>(
                std::lround(6000 * std::sin(2 * M_PI * (440 + 110 * (i / 5512)) * i / 22050.0))));
        audio::MotoreAudio::istanza().attendiAvvio();
        std::printf("sound: %s\n", qPrintable(audio::MotoreAudio::istanza().descrizione()));
    }

    QTemporaryDir cartella;
    const QStringList soggetti = swfanim::soggetti();
    QWidget tavola;
    tavola.resize(6 * (lato + 10), 4 * (lato + 10));
    std::vector<Filmato *> facce;
    for (int i = 0; i < 24; ++i) {
        const QString nome = soggetti[i % 12];
        const QString percorso = cartella.filePath(nome + ".swf");
        if (!QFile::exists(percorso)) {
            QFile f(percorso);
            if (!f.open(QIODevice::WriteOnly) || f.write(swfanim::creaFilm(nome, opzioni)) <= 0)
                return 1;
        }
        auto *f = new Filmato(&tavola);
        f->ImpostaSonoro(Sonoro::PrimoGiro);
        f->setGeometry((i % 6) * (lato + 10), (i / 6) * (lato + 10), lato, lato);
        f->setMovie(percorso);
        f->StopPlay();
        facce.push_back(f);
    }
    tavola.show();
    const double ferme = quota(1000);
    const long rssFerme = rssKb();
    for (Filmato *f : facce)
        f->Play();
    const double primoGiro = quota(2000);  // the films' loops last 2 s: every frame drawn once
    const double dopo = quota((secondi - 3) * 1000);
    std::printf("24 faces of %dx%d px, films of 12 fps%s\n", lato, lato, conSuono ? ", each with a soundtrack heard in its first loop" : "");
    std::printf("resting on frame 1:          %5.1f%% of one core\n", ferme);
    std::printf("playing, first loop (2 s):   %5.1f%% of one core\n", primoGiro);
    std::printf("playing, later loops (%d s):  %5.1f%% of one core\n", secondi - 3, dopo);
    std::printf("memory: %ld KB at rest, %ld KB with every loop drawn: %ld KB a face\n", rssFerme, rssKb(), (rssKb() - rssFerme) / 24);
    return 0;
}
