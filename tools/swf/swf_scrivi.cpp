// Writes small SWF animations for trying the renderer and the film faces:
// a bouncing ball with an outline over a coloured background.
//
// usage: swf_scrivi OUT.swf [--fws|--cws|--zws] [--frames N] [--size WxH]

#include "costruttore.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cmath>
#include <cstdio>

using namespace swftest;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() < 2) {
        std::fprintf(stderr, "usage: %s OUT.swf [--fws|--cws|--zws] [--frames N] [--size WxH]\n", argv[0]);
        return 2;
    }
    QString modo = "--cws";
    int fotogrammi = 24, w = 200, h = 200;
    for (int i = 2; i < a.size(); ++i) {
        if (a[i] == "--fws" || a[i] == "--cws" || a[i] == "--zws")
            modo = a[i];
        else if (a[i] == "--frames" && i + 1 < a.size())
            fotogrammi = std::clamp(a[++i].toInt(), 1, 1000);
        else if (a[i] == "--size" && i + 1 < a.size()) {
            const QStringList p = a[++i].split('x');
            if (p.size() == 2) {
                w = std::clamp(p[0].toInt(), 1, 2000);
                h = std::clamp(p[1].toInt(), 1, 2000);
            }
        }
    }
    const int r = std::min(w, h) * 20 / 8;
    QByteArray t = sfondo(255, 244, 214);
    t += rettangolo(1, 0, h * 20 * 4 / 5, w * 20, h * 20, 0x7cb342ff);  // grass
    t += blob(2, 0, 0, r, 16, 0xe53935ff, 60);
    t += piazza(1, 1);
    for (int f = 0; f < fotogrammi; ++f) {
        const double fase = static_cast<double>(f) / fotogrammi;
        const int x = static_cast<int>((w * 20 - 4 * r) * fase) + 2 * r;
        const int y = h * 20 * 4 / 5 - r - static_cast<int>(std::abs(std::sin(fase * 2 * M_PI)) * (h * 20 / 2));
        if (f == 0) {
            t += piazza(2, 2, x, y);
        } else {
            Bit m;
            m.u8(0x05);
            m.u16(2);
            matrice(m, x, y);
            t += tag(26, m.fine());
        }
        t += mostra();
    }
    QByteArray file = film(t, fotogrammi, w, h);
    if (modo == "--cws")
        file = comprimiCws(file);
    else if (modo == "--zws")
        file = comprimiZws(file);
    QFile out(a[1]);
    if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(a[1]));
        return 1;
    }
    std::printf("%s: %lld bytes, %d frames, %dx%d\n", qPrintable(a[1]), static_cast<long long>(file.size()), fotogrammi, w, h);
    return 0;
}
