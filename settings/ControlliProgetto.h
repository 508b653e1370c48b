#pragma once

// What the settings dialog and the switch panel share in making their
// controls: the design's Arial at a size that grows with the form (see their
// resizeEvent), and a control named, indexed and placed at its design
// rectangle in twips.

#include "platform/Caratteri.h"
#include "platform/Controlli.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"

#include <QFont>
#include <QString>
#include <QVariant>
#include <QWidget>

namespace ControlliProgetto {

// The text of the controls at design size.
inline constexpr double PuntiControlli = 10;

inline void FontProgetto(QWidget *w, double punti, bool grassetto = false)
{
    w->setFont(FontGioco(QStringLiteral("Arial"), punti, grassetto));
    w->setProperty("PuntiProgetto", punti);
}

template <typename W>
W *Nominato(W *w, const QString &nome, const GeometriaTwips &g, int indice = -1)
{
    w->setObjectName(nome);
    if (indice >= 0)
        ImpostaIndice(w, indice);
    FontProgetto(w, PuntiControlli);
    ScriviGeometria(w, g);
    return w;
}

// Every control of a form made with FontProgetto takes its design size
// times the form's scale.
inline void ScalaFontProgetto(QWidget *form, double scala)
{
    for (QWidget *w : ControlliDelForm(form)) {
        const QVariant punti = w->property("PuntiProgetto");
        if (!punti.isValid())
            continue;
        QFont f = w->font();
        f.setPointSizeF(punti.toDouble() * scala);
        w->setFont(f);
    }
}

} // namespace ControlliProgetto
