#include "platform/clsResize.h"

#include "platform/Controlli.h"
#include "platform/Twips.h"

#include <cmath>

namespace {
int blocchi = 0;

// Which of left, top, width and height a control lets the resizer set.
struct Permessi {
    bool L = true, T = true, W = true, H = true;
};

Permessi permessiDaTag(const QString &tag)
{
    const QString t = tag.toUpper();
    if (t.isEmpty() || !t.startsWith(u'@'))
        return {};
    const QString resto = t.mid(1);
    return {resto.contains(u'L'), resto.contains(u'T'), resto.contains(u'W'), resto.contains(u'H')};
}

qint32 arrotonda32(double v) { return qint32(std::lround(v)); }
} // namespace

QList<QWidget *> ControlliDelForm(QWidget *form)
{
    QList<QWidget *> r;
    if (!form)
        return r;
    for (QWidget *w : form->findChildren<QWidget *>()) {
        const QString nome = w->objectName();
        if (!nome.isEmpty() && !nome.startsWith(QLatin1String("qt_")) && !w->isWindow())
            r << w;
    }
    return r;
}

void CreaResizeCondiviso(QWidget *form, quint8 percent)
{
    ResizeCondiviso = std::make_unique<clsResize>();
    ResizeCondiviso->setSourceForm(form);
    ResizeCondiviso->SizeFormToScreen(percent);
}

int clsResize::BlocchiFinestra() { return blocchi; }

void clsResize::StoreControlSizes()
{
    if (!form)
        return;
    larghezza = arrotonda32(TwipsDaPixel(form->width()));
    altezza = arrotonda32(TwipsDaPixel(form->height()));
    tabella.clear();
    const QList<QWidget *> controlli = ControlliDelForm(form);
    tabella.resize(controlli.size());
    for (qsizetype i = 0; i < controlli.size(); ++i) {
        Controllo &c = tabella[i];
        c.control = controlli[i];
        if (auto *linea = qobject_cast<Linea *>(controlli[i])) {
            c.Left = arrotonda32(linea->X1);
            c.Top = arrotonda32(linea->Y1);
            c.Width = arrotonda32(linea->X2);
            c.Height = arrotonda32(linea->Y2);
        } else {
            const GeometriaTwips g = LeggiGeometria(controlli[i]);
            c.Left = arrotonda32(g.Left);
            c.Top = arrotonda32(g.Top);
            c.Width = arrotonda32(g.Width);
            c.Height = arrotonda32(g.Height);
        }
    }
    primoUso = false;
}

void clsResize::SizeFormToScreen(quint8 percent)
{
    if (!form)
        return;
    if (primoUso)
        StoreControlSizes();
    const qint32 H = arrotonda32(percent / 100.0 * AltezzaSchermoTwips());
    const qint32 W = arrotonda32(percent / 100.0 * LarghezzaSchermoTwips());
    const QRect schermo = RettangoloSchermo();
    form->setGeometry(schermo.x() + PixelDaTwips((LarghezzaSchermoTwips() - W) / 2.0),
                      schermo.y() + PixelDaTwips((AltezzaSchermoTwips() - H) / 2.0), PixelDaTwips(W),
                      PixelDaTwips(H));
    ResizeControls();
}

void clsResize::ResizeControls()
{
    if (!form || ControlliDelForm(form).isEmpty() || form->isMinimized())
        return;
    if (primoUso) {
        StoreControlSizes();
        return;
    }
    if (larghezza <= 0 || altezza <= 0)
        return;
    ++blocchi;
    const bool aggiornamenti = form->updatesEnabled();
    form->setUpdatesEnabled(false);
    const double rapportoV = double(TwipsDaPixel(form->height())) / altezza;
    const double rapportoO = double(TwipsDaPixel(form->width())) / larghezza;
    for (const Controllo &c : tabella) {
        QWidget *w = c.control;
        if (!w)
            continue;
        const Permessi p = permessiDaTag(TagDi(w));
        if (auto *linea = qobject_cast<Linea *>(w)) {
            linea->imposta(p.L ? c.Left * rapportoO : linea->X1, p.T ? c.Top * rapportoV : linea->Y1,
                           p.W ? c.Width * rapportoO : linea->X2, p.H ? c.Height * rapportoV : linea->Y2);
            continue;
        }
        GeometriaTwips g = LeggiGeometria(w);
        if (p.L)
            g.Left = c.Left * rapportoO;
        if (p.T)
            g.Top = c.Top * rapportoV;
        if (p.W)
            g.Width = c.Width * rapportoO;
        if (p.H)
            g.Height = c.Height * rapportoV;
        ScriviGeometria(w, g);
    }
    form->setUpdatesEnabled(aggiornamenti);
}
