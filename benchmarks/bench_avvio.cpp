// From process start to the splash on screen, and the memory the game holds
// then. Runs the real executable several times under the X display in DISPLAY
// (Xvfb on a headless machine), on a prepared home so that no question stops
// the start. It watches the X server: the first top-level window mapped is
// the first window; from then on the DAMAGE extension reports each drawing
// into that window, and after each report the window's pixels are read back
// until they hold a picture (many colours, not a blank or one-colour
// background): that moment is the splash painted. Prints figures; it asserts
// nothing.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QThread>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>

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

// Whether the window shows a picture: its pixels, read back from the server
// on a grid, hold many colours. A window that is only cleared shows one.
int coloriVisibili(Display *d, Window w)
{
    XWindowAttributes a;
    if (!XGetWindowAttributes(d, w, &a) || a.map_state != IsViewable || a.width < 2 || a.height < 2)
        return 0;
    XImage *img = XGetImage(d, w, 0, 0, unsigned(a.width), unsigned(a.height), AllPlanes, ZPixmap);
    if (!img)
        return 0;
    QSet<unsigned long> colori;
    for (int y = 0; y < a.height; y += 4)
        for (int x = 0; x < a.width; x += 4)
            colori.insert(XGetPixel(img, x, y));
    XDestroyImage(img);
    return int(colori.size());
}

int erroreIgnorato(Display *, XErrorEvent *) { return 0; } // a window gone while read back
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    Display *d = XOpenDisplay(nullptr);
    if (!d) {
        std::printf("bench_avvio: no X display (start Xvfb and set DISPLAY)\n");
        return 1;
    }
    int eventoDanno = 0, erroreDanno = 0;
    if (!XDamageQueryExtension(d, &eventoDanno, &erroreDanno)) {
        std::printf("bench_avvio: the X server has no DAMAGE extension\n");
        return 1;
    }
    XSetErrorHandler(erroreIgnorato);
    const int prove = argc > 1 ? std::max(1, atoi(argv[1])) : 10;
    // A picture, as opposed to a cleared window: the splash shows far more.
    const int coloriMinimi = 16;

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

    std::vector<double> finestre, dipinte;
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
        // The first top-level window mapped, then each report of drawing into it.
        Window finestra = 0;
        Damage danno = 0;
        double mappata = -1, dipinta = -1;
        int colori = 0;
        while (t.elapsed() < 20000 && dipinta < 0) {
            bool daGuardare = false;
            while (XPending(d)) {
                XEvent e;
                XNextEvent(d, &e);
                if (e.type == MapNotify && finestra == 0 && e.xmap.event == radiceX) {
                    finestra = e.xmap.window;
                    mappata = t.nsecsElapsed() / 1e6;
                    danno = XDamageCreate(d, finestra, XDamageReportNonEmpty);
                    daGuardare = true; // drawn before the damage object existed
                } else if (e.type == eventoDanno + XDamageNotify
                           && reinterpret_cast<XDamageNotifyEvent *>(&e)->drawable == finestra) {
                    daGuardare = true;
                }
            }
            if (daGuardare && finestra) {
                XDamageSubtract(d, danno, None, None);
                colori = coloriVisibili(d, finestra);
                if (colori >= coloriMinimi)
                    dipinta = t.nsecsElapsed() / 1e6;
            }
            if (dipinta < 0)
                QThread::usleep(200);
        }
        if (danno)
            XDamageDestroy(d, danno);
        QThread::msleep(500);
        const long rss = rssKb(gioco.processId());
        gioco.kill();
        gioco.waitForFinished(5000);
        if (mappata < 0) {
            std::printf("run %2d: no window within 20 s\n", i + 1);
            continue;
        }
        if (dipinta < 0) {
            std::printf("run %2d: first window after %7.1f ms, but no picture in it within 20 s (%d colours)\n",
                        i + 1, mappata, colori);
            continue;
        }
        finestre.push_back(mappata);
        dipinte.push_back(dipinta);
        memorie.push_back(rss);
        std::printf("run %2d: first window %7.1f ms, splash painted %7.1f ms (%d colours), resident %6.1f MB\n",
                    i + 1, mappata, dipinta, colori, rss / 1024.0);
        std::fflush(stdout);
    }
    XCloseDisplay(d);
    if (dipinte.empty())
        return 1;
    auto riassunto = [](const char *cosa, std::vector<double> v) {
        std::sort(v.begin(), v.end());
        std::printf("%s: median %.1f ms, best %.1f ms, worst %.1f ms over %zu runs\n", cosa, v[v.size() / 2],
                    v.front(), v.back(), v.size());
    };
    riassunto("process start to first window", finestre);
    riassunto("process start to splash painted", dipinte);
    std::printf("target: splash painted < 300 ms\n");
    std::printf("resident memory at the splash: max %.1f MB (target < 60 MB)\n",
                *std::max_element(memorie.begin(), memorie.end()) / 1024.0);
    return 0;
}
