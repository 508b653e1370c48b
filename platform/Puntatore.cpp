#include "platform/Puntatore.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#ifdef COPPIE_CON_XFIXES
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <vector>
#endif

namespace {
QRect confine;
bool attivo = false;

// Brings the pointer back whenever it gets out; the safety net under the
// platform's own confinement, and the whole of it where there is none.
class Guardiano final : public QObject
{
public:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (attivo && e->type() == QEvent::MouseMove) {
            const QPoint p = static_cast<QMouseEvent *>(e)->globalPosition().toPoint();
            if (!confine.contains(p)) {
                QCursor::setPos(std::clamp(p.x(), confine.left(), confine.right()),
                                std::clamp(p.y(), confine.top(), confine.bottom()));
            }
        }
        return QObject::eventFilter(o, e);
    }
};
Guardiano *guardiano = nullptr;

#ifdef COPPIE_CON_XFIXES
std::vector<unsigned long> barriere;

Display *displayX11()
{
    auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (!app || QGuiApplication::platformName() != QLatin1String("xcb"))
        return nullptr;
    auto *x11 = app->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->display() : nullptr;
}

void togliBarriere()
{
    Display *d = displayX11();
    if (!d)
        return;
    for (unsigned long b : barriere)
        XFixesDestroyPointerBarrier(d, b);
    barriere.clear();
    XFlush(d);
}

void mettiBarriere(const QRect &r)
{
    Display *d = displayX11();
    if (!d)
        return;
    int evento = 0, errore = 0, maggiore = 0, minore = 0;
    if (!XFixesQueryExtension(d, &evento, &errore) || !XFixesQueryVersion(d, &maggiore, &minore) || maggiore < 5)
        return;
    const Window radice = DefaultRootWindow(d);
    const int x1 = r.left(), y1 = r.top(), x2 = r.right() + 1, y2 = r.bottom() + 1;
    barriere.push_back(XFixesCreatePointerBarrier(d, radice, x1, y1, x1, y2, BarrierPositiveX, 0, nullptr));
    barriere.push_back(XFixesCreatePointerBarrier(d, radice, x2, y1, x2, y2, BarrierNegativeX, 0, nullptr));
    barriere.push_back(XFixesCreatePointerBarrier(d, radice, x1, y1, x2, y1, BarrierPositiveY, 0, nullptr));
    barriere.push_back(XFixesCreatePointerBarrier(d, radice, x1, y2, x2, y2, BarrierNegativeY, 0, nullptr));
    XFlush(d);
}
#endif
} // namespace

void ConfinaPuntatore(const QRect &pixel)
{
    LiberaPuntatore();
    confine = pixel.normalized();
    attivo = true;
    if (!guardiano && QCoreApplication::instance()) {
        guardiano = new Guardiano;
        QCoreApplication::instance()->installEventFilter(guardiano);
    }
    const QPoint p = QCursor::pos();
    if (!confine.contains(p))
        QCursor::setPos(std::clamp(p.x(), confine.left(), confine.right()),
                        std::clamp(p.y(), confine.top(), confine.bottom()));
#ifdef Q_OS_WIN
    RECT r{confine.left(), confine.top(), confine.right() + 1, confine.bottom() + 1};
    ClipCursor(&r);
#endif
#ifdef COPPIE_CON_XFIXES
    mettiBarriere(confine);
#endif
}

void LiberaPuntatore()
{
    attivo = false;
#ifdef Q_OS_WIN
    ClipCursor(nullptr);
#endif
#ifdef COPPIE_CON_XFIXES
    togliBarriere();
#endif
}

bool PuntatoreConfinato() { return attivo; }
QRect RettangoloConfinamento() { return attivo ? confine : QRect(); }

void SpostaPuntatore(const QPoint &pixel) { QCursor::setPos(pixel); }
