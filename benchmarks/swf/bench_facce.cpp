// A board of 24 film faces as the game shows them: Filmato widgets with the
// game's own films, all playing at their frame rates in the event loop.
// Prints the share of one core the process used, for the first seconds (every
// frame drawn anew) and once the loops have been drawn (pictures kept).
//
// usage: bench_facce [SECONDS] [FACE_PX]

#include "animazioni.h"
#include "platform/media/Filmato.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/resource.h>

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
    QApplication app(argc, argv);
    const int secondi = argc > 1 ? std::max(4, std::atoi(argv[1])) : 8;
    const int lato = argc > 2 ? std::clamp(std::atoi(argv[2]), 40, 400) : 150;

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
            if (!f.open(QIODevice::WriteOnly) || f.write(swfanim::creaFilm(nome)) <= 0)
                return 1;
        }
        auto *f = new Filmato(&tavola);
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
    std::printf("24 faces of %dx%d px, films of 12 fps\n", lato, lato);
    std::printf("resting on frame 1:          %5.1f%% of one core\n", ferme);
    std::printf("playing, first loop (2 s):   %5.1f%% of one core\n", primoGiro);
    std::printf("playing, later loops (%d s):  %5.1f%% of one core\n", secondi - 3, dopo);
    std::printf("memory: %ld KB at rest, %ld KB with every loop drawn: %ld KB a face\n", rssFerme, rssKb(), (rssKb() - rssFerme) / 24);
    return 0;
}
