// Writes the game's films: one named animation, or the bouncing ball the
// renderer was first tried with.
//
// usage: swf_scrivi OUT.swf [NAME] [--fws|--cws|--zws] [--frames N] [--size WxH] [--sound FILE.wav]
//        swf_scrivi --list            names of subjects, then of reward scenes
//        swf_scrivi --word NAME       the Italian word of a subject
//        swf_scrivi --phrase NAME     the word with its article

#include "animazioni.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() >= 2 && a[1] == "--list") {
        for (const QString &n : swfanim::soggetti())
            std::printf("soggetto %s\n", qPrintable(n));
        for (const QString &n : swfanim::scenePremio())
            std::printf("premio %s\n", qPrintable(n));
        return 0;
    }
    if (a.size() >= 3 && a[1] == "--word") {
        const QString p = swfanim::parolaDi(a[2]);
        if (p.isEmpty())
            return 1;
        std::printf("%s\n", qPrintable(p));
        return 0;
    }
    if (a.size() >= 3 && a[1] == "--phrase") {
        const QString p = swfanim::fraseDi(a[2]);
        if (p.isEmpty())
            return 1;
        std::printf("%s\n", p.toUtf8().constData());
        return 0;
    }
    if (a.size() < 2) {
        std::fprintf(stderr, "usage: %s OUT.swf [NAME] [--fws|--cws|--zws] [--frames N] [--size WxH] [--sound FILE.wav]\n", argv[0]);
        return 2;
    }
    swfanim::Opzioni o;
    QString nome = QStringLiteral("palla-che-rimbalza");
    for (int i = 2; i < a.size(); ++i) {
        if (a[i] == "--fws")
            o.compressione = swfanim::Compressione::Nessuna;
        else if (a[i] == "--cws")
            o.compressione = swfanim::Compressione::Zlib;
        else if (a[i] == "--zws")
            o.compressione = swfanim::Compressione::Lzma;
        else if (a[i] == "--frames" && i + 1 < a.size())
            o.fotogrammi = std::clamp(a[++i].toInt(), 1, 1000);
        else if (a[i] == "--size" && i + 1 < a.size()) {
            const QStringList p = a[++i].split('x');
            if (p.size() == 2) {
                o.larghezza = std::clamp(p[0].toInt(), 1, 2000);
                o.altezza = std::clamp(p[1].toInt(), 1, 2000);
            }
        } else if (a[i] == "--sound" && i + 1 < a.size()) {
            // the film's soundtrack: a 16-bit WAV, as sox makes it
            QFile w(a[++i]);
            if (!w.open(QIODevice::ReadOnly) || !swfanim::leggiWav(w.readAll(), o.suono)) {
                std::fprintf(stderr, "not a 16-bit PCM WAV file: %s\n", qPrintable(a[i]));
                return 2;
            }
        } else if (!a[i].startsWith("--"))
            nome = a[i];
    }
    const QByteArray file = swfanim::creaFilm(nome, o);
    if (file.isEmpty()) {
        std::fprintf(stderr, "unknown film %s\n", qPrintable(nome));
        return 2;
    }
    QFile out(a[1]);
    if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(a[1]));
        return 1;
    }
    std::printf("%s: %s, %lld bytes\n", qPrintable(a[1]), qPrintable(nome), static_cast<long long>(file.size()));
    return 0;
}
