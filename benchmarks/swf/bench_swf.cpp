// A 550x400 vector cartoon (blobs of curves with outlines, moving over 24
// frames) drawn as a 200x200 face, a board of 24 faces, memory per film.

#include "costruttore.h"

#include "swf/filmato.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <ctime>
#include <fstream>
#include <string>

using namespace swftest;

namespace {

QByteArray cartone()
{
    QByteArray t = sfondo(250, 240, 200);
    const uint32_t colori[] = {0xe63946ff, 0xf4a261ff, 0x2a9d8fff, 0x264653ff, 0xe9c46aff, 0x8ab17dff};
    for (int i = 0; i < 30; ++i) {
        int cx = 800 + (i * 3371) % 9400, cy = 800 + (i * 1931) % 6400;
        t += blob(1 + i, 0, 0, 300 + (i * 97) % 700, 12 + i % 8, colori[i % 6], 20 + (i % 3) * 30);
        t += piazza(1 + i, 1 + i, cx, cy);
    }
    t += mostra();
    for (int f = 1; f < 24; ++f) {
        for (int i = 0; i < 30; i += 2) {
            int cx = 800 + (i * 3371 + f * 120) % 9400, cy = 800 + (i * 1931 + f * 60) % 6400;
            Bit m;
            m.u8(0x05); m.u16(1 + i); matrice(m, cx, cy);
            t += tag(26, m.fine());
        }
        t += mostra();
    }
    return film(t, 24, 550, 400);
}

long rssKb()
{
    std::ifstream f("/proc/self/status");
    std::string riga;
    while (std::getline(f, riga))
        if (riga.rfind("VmRSS:", 0) == 0)
            return std::stol(riga.substr(6));
    return 0;
}

// One face of 200x200 px, frame after frame. With the picture cache (the
// default) a looping film costs a copy per frame once its first loop is drawn;
// without it, every frame is drawn anew: the first loop's cost.
void faccia200(benchmark::State &s, bool cache)
{
    swf::Filmato film;
    film.caricaDati(cartone());
    film.impostaCacheQuadri(cache);
    QImage img(200, 200, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : s) {
        film.avanza();
        QPainter p(&img);
        film.disegna(p, QRectF(0, 0, 200, 200), true);
    }
}
BENCHMARK_CAPTURE(faccia200, con_cache, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(faccia200, senza_cache, false)->Unit(benchmark::kMillisecond);

// One simulated second of a board: 24 faces, each ticking and redrawing at its
// frame rate. CPU time per iteration / 1 s = the share of one core used.
// With the cache, the faces have played a loop before the count starts, as on a
// board where found pairs go on playing; without it, every second costs as
// much as the first loop.
void tabellone24(benchmark::State &s, bool cache)
{
    std::vector<swf::Filmato> facce(24);
    const QByteArray dati = cartone();
    QImage img(160, 160, QImage::Format_ARGB32_Premultiplied);
    auto unSecondo = [&] {
        for (auto &f : facce) {
            const int fotogrammi = static_cast<int>(f.fotogrammiAlSecondo());
            for (int k = 0; k < fotogrammi; ++k) {
                f.avanza();
                QPainter p(&img);
                f.disegna(p, QRectF(0, 0, 160, 160), true);
            }
        }
    };
    for (auto &f : facce) {
        f.caricaDati(dati);
        f.impostaCacheQuadri(cache);
    }
    if (cache)
        unSecondo();
    const std::clock_t inizio = std::clock();
    for (auto _ : s)
        unSecondo();
    const double cpu = static_cast<double>(std::clock() - inizio) / CLOCKS_PER_SEC;
    s.counters["core_share_pct"] = 100.0 * cpu / static_cast<double>(s.iterations());
}
BENCHMARK_CAPTURE(tabellone24, con_cache, true)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK_CAPTURE(tabellone24, senza_cache, false)->Unit(benchmark::kMillisecond)->MinTime(2);

void memoriaPerFilm(benchmark::State &s)
{
    const QByteArray dati = cartone();
    double stimata = 0;
    for (auto _ : s) {
        std::vector<swf::Filmato> film(20);
        QImage img(200, 200, QImage::Format_ARGB32_Premultiplied);
        // one whole loop drawn: the picture cache holds every frame
        for (auto &f : film) {
            f.caricaDati(dati);
            for (int k = 0; k < f.numeroFotogrammi(); ++k) {
                f.avanza();
                QPainter p(&img);
                f.disegna(p, QRectF(0, 0, 200, 200), true);
            }
        }
        stimata = static_cast<double>(film[0].memoriaUsata());
        benchmark::DoNotOptimize(film.data());
    }
    s.counters["film_bytes"] = static_cast<double>(dati.size());
    s.counters["estimated_bytes_per_film"] = stimata;
    s.counters["process_rss_bytes"] = rssKb() * 1024.0;
}
BENCHMARK(memoriaPerFilm)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
