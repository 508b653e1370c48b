#include "menu/MisuraTesto.h"

#include "platform/Twips.h"

#include <QFontMetrics>

namespace {
// A hidden label cannot grow past what the old fonts offered.
constexpr int PuntiMassimi = 1638;
} // namespace

QSize MisuraTwips(const QFont &font, const QString &testo)
{
    const QFontMetrics m(font);
    return {TwipsDaPixel(m.horizontalAdvance(testo)), TwipsDaPixel(m.height())};
}

int CresciFont(QFont font, const QString &testo, int daPunti,
               const std::function<bool(int, int)> &condizione)
{
    int punti = daPunti;
    font.setPointSize(punti);
    QSize s = MisuraTwips(font, testo);
    while (condizione(s.width(), s.height()) && punti < PuntiMassimi) {
        ++punti;
        font.setPointSize(punti);
        s = MisuraTwips(font, testo);
    }
    return punti;
}
