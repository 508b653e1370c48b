#include "platform/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {
QRect schermoDiProva;
}

QRect RettangoloSchermo()
{
    if (!schermoDiProva.isEmpty())
        return schermoDiProva;
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        if (QScreen *s = app->primaryScreen())
            return s->geometry();
    }
    return QRect(0, 0, 1024, 768);
}

void ImpostaSchermoPerProve(const QRect &pixel) { schermoDiProva = pixel; }

int LarghezzaSchermoTwips() { return TwipsDaPixel(RettangoloSchermo().width()); }
int AltezzaSchermoTwips() { return TwipsDaPixel(RettangoloSchermo().height()); }

GeometriaTwips LeggiGeometria(const QWidget *w)
{
    const QRect r = w->geometry();
    return {double(TwipsDaPixel(r.x())), double(TwipsDaPixel(r.y())), double(TwipsDaPixel(r.width())),
            double(TwipsDaPixel(r.height()))};
}

void ScriviGeometria(QWidget *w, const GeometriaTwips &g)
{
    w->setGeometry(PixelDaTwips(g.Left), PixelDaTwips(g.Top), PixelDaTwips(g.Width), PixelDaTwips(g.Height));
}
