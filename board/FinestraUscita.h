#pragma once

#include <QPoint>
#include <QSizeF>
#include <QString>

#include <functional>
#include <limits>

// The rules of the exit question, apart from its widgets.
namespace FinestraUscita {

inline constexpr double ColoreRiposo = 14737632; // 0xE0E0E0
inline constexpr double ColoreIndicato = 255;

// The state of the two buttons' colours and of their faces.
struct Colori {
    double CommandSi = ColoreRiposo, CommandNo = ColoreRiposo;
    double PictureSi = ColoreRiposo, PictureNo = ColoreRiposo;

    void MouseMoveSi();
    void MouseMoveNo();
    void MouseMoveCornice();
};

// The longer caption by characters; on equal length that of LabelNo.
QString CaptionPiuLunga(const QString &si, const QString &no);

// Raises the font size from `partenza` by 1 while the text's width stays
// below `larghezza` (twips); the first size that reaches it. A step that
// would make the text taller than `altezza` (twips, as `misura` gives it) is
// not taken: the answer is then read whole, if narrower than the label.
double AdattaCarattere(const QString &testo, double partenza, double larghezza,
                       const std::function<QSizeF(const QString &, double)> &misura,
                       double altezza = std::numeric_limits<double>::infinity());

// Where PortaMousePosizione puts the pointer: the box's Top and Left in
// twips taken as pixels, vertical into x, with truncated halves.
QPoint PosizionePortaMouse(int top, int left, int width, int height);

} // namespace FinestraUscita
