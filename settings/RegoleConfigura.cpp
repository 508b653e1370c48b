#include "settings/RegoleConfigura.h"

#include "platform/Percorsi.h"
#include "platform/Twips.h"

#include <QCollator>
#include <QDir>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

QString TestoVelocita(qint16 velocitaScansione)
{
    return QStringLiteral("Velocità scansione: ") + QString::number(velocitaScansione / 4.0, 'f', 2)
           + QStringLiteral(" secondi");
}

QStringList ElencoGiocatori(const QString &cartellaUtenti)
{
    const QDir cartella(PercorsoLocale(cartellaUtenti));
    // Hidden files too: a player saved with an empty name is the file ".ini".
    const QStringList file = cartella.entryList({QStringLiteral("*.ini")}, QDir::Files | QDir::Hidden,
                                                QDir::Name | QDir::IgnoreCase);
    QStringList r;
    for (const QString &f : file) {
        if (f == u"." || f == u".." || f.toLower() == u"_predefinito.ini")
            continue;
        r << f.left(f.size() - 4).toUpper();
    }
    // In the order of a dictionary, so that "ÉLODIE" stands among the E's.
    QCollator ordine{QLocale(QLocale::Italian, QLocale::Italy)};
    ordine.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(r.begin(), r.end(), ordine);
    return r;
}

ControlliModo ControlliPerModo(qint16 modoInput, bool riquadro)
{
    ControlliModo c;
    switch (modoInput) {
    case 0:
        c.CheckDisabilitaMousePersonalizzato = true;
        break;
    case 1:
    case 2:
        c.CheckRiparti = true;
        c.CheckRiquadro = true;
        c.lineaShapeRiquadro = riquadro;
        c.HScrollRiquadro = riquadro;
        c.HScroll3 = c.Label7 = modoInput == 2;
        break;
    case 3:
        c.CheckRiquadro = true;
        c.lineaShapeRiquadro = riquadro;
        c.HScrollRiquadro = riquadro;
        break;
    default:
        break;
    }
    return c;
}

double CresciCampione(QFont font, const QString &testo, double punti, double larghezzaTwips)
{
    // A self-sizing label is as wide as its text, to the pixel.
    auto larghezza = [&](double p) {
        font.setPointSizeF(p);
        return double(TwipsDaPixel(int(std::ceil(QFontMetricsF(font).horizontalAdvance(testo)))));
    };
    // Past this no font grows, and a picture of no width cannot stop the loop otherwise.
    constexpr double PuntiMassimi = 1638;
    while (larghezza(punti) < larghezzaTwips && punti < PuntiMassimi)
        punti += 1;
    return punti;
}
