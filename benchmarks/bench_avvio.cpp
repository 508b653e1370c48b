// From process start to the splash on screen, and the memory the game holds
// then. Runs the real executable several times under the X display in DISPLAY
// (Xvfb on a headless machine), on a prepared home so that no question stops
// the start, and watches the X server for the splash's window being mapped
// and first exposed. Prints figures; it asserts nothing.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <X11/Xlib.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
void scrivi(const QString &percorso, const QByteArray &byte)
{
    QDir().mkpath(QFileInfo(percorso).absolutePath());
    QFile f(percorso);
    f.open(QIODevice::WriteOnly);
    f.write(byte);
}

long rssKb(qint64 pid)
{
    QFile f(QStringLiteral("/proc/%1/status").arg(pid));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &riga : f.readAll().split('\n'))
        if (riga.startsWith("VmRSS:"))
            return riga.mid(6).trimmed().split(' ').value(0).toLong();
    return -1;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    Display *d = XOpenDisplay(nullptr);
    if (!d) {
        std::printf("bench_avvio: no X display (start Xvfb and set DISPLAY)\n");
        return 1;
    }
    const int prove = argc > 1 ? std::max(1, atoi(argv[1])) : 10;

    QTemporaryDir casa;
    const QString radice = casa.path() + QStringLiteral("/ImpostazioniProgrammiLorea/");
    for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                          "tesselo/dati/gif", "tesselo/dati/swf"})
        QDir().mkpath(radice + QLatin1String(c));
    scrivi(radice + QStringLiteral("leggimi.txt"), "x\r\n");
    scrivi(casa.path() + QStringLiteral("/.local/share/fonts/penna1.ttf"), QByteArray());
    scrivi(radice + QStringLiteral("tesselo/utenti/_predefinito.ini"),
           "Arial\r\nArial\r\n 2 \r\n 12 \r\n-2147483640 \r\n 16777215 \r\n-2147483640 \r\n 16777215 \r\n"
           " 65535 \r\n 255 \r\n 16777152 \r\nTrue\r\nFalse\r\n 0 \r\n 4 \r\nFalse\r\nFalse\r\n 9 \r\n"
           "False\r\nFalse\r\nTrue\r\n");

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), casa.path());
    env.insert(QStringLiteral("XDG_DATA_HOME"), casa.path() + QStringLiteral("/.local/share"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), casa.path());
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));

    std::vector<double> tempi;
    std::vector<long> memorie;
    const Window radiceX = DefaultRootWindow(d);
    XSelectInput(d, radiceX, SubstructureNotifyMask);
    for (int i = 0; i < prove; ++i) {
        XSync(d, True);
        QProcess gioco;
        gioco.setProcessEnvironment(env);
        QElapsedTimer t;
        t.start();
        gioco.start(QStringLiteral(COPPIE_ESEGUIBILE), {});
        gioco.waitForStarted(10000);
        // Wait for a top-level window of the game to be mapped, then for its first expose.
        Window finestra = 0;
        double mappata = -1, esposta = -1;
        while (t.elapsed() < 20000 && esposta < 0) {
            while (XPending(d)) {
                XEvent e;
                XNextEvent(d, &e);
                if (e.type == MapNotify && finestra == 0) {
                    finestra = e.xmap.window;
                    mappata = t.nsecsElapsed() / 1e6;
                    XSelectInput(d, finestra, ExposureMask);
                } else if (e.type == Expose && e.xexpose.window == finestra) {
                    esposta = t.nsecsElapsed() / 1e6;
                }
            }
            if (esposta < 0)
                QThread::usleep(200);
        }
        if (esposta < 0)
            esposta = mappata;
        QThread::msleep(500);
        const long rss = rssKb(gioco.processId());
        gioco.kill();
        gioco.waitForFinished(5000);
        if (esposta < 0) {
            std::printf("run %d: the splash never appeared\n", i + 1);
            continue;
        }
        tempi.push_back(esposta);
        memorie.push_back(rss);
        std::printf("run %2d: splash on screen after %7.1f ms (mapped %7.1f ms), resident %6.1f MB\n", i + 1,
                    esposta, mappata, rss / 1024.0);
        std::fflush(stdout);
    }
    XCloseDisplay(d);
    if (tempi.empty())
        return 1;
    std::vector<double> ordinati = tempi;
    std::sort(ordinati.begin(), ordinati.end());
    std::printf("splash on screen: median %.1f ms, best %.1f ms, worst %.1f ms over %zu runs (target < 300 ms)\n",
                ordinati[ordinati.size() / 2], ordinati.front(), ordinati.back(), ordinati.size());
    std::printf("resident memory at the splash: max %.1f MB (target < 60 MB)\n",
                *std::max_element(memorie.begin(), memorie.end()) / 1024.0);
    return 0;
}
