#pragma once

#include <QRect>

class QWidget;

// Geometry is kept in twips, as the forms were designed: 15 twips to a logical pixel.
constexpr int TwipsPerPixel = 15;

inline int PixelDaTwips(double twips) { return qRound(twips / TwipsPerPixel); }
inline int TwipsDaPixel(int pixel) { return pixel * TwipsPerPixel; }

// The primary screen's logical size, in twips. Tests can pretend another screen.
int LarghezzaSchermoTwips();
int AltezzaSchermoTwips();
QRect RettangoloSchermo(); // in pixels
void ImpostaSchermoPerProve(const QRect &pixel); // an empty rectangle goes back to the real screen

// A control's geometry in twips, relative to its parent, as Left/Top/Width/Height.
struct GeometriaTwips {
    double Left = 0, Top = 0, Width = 0, Height = 0;
};
GeometriaTwips LeggiGeometria(const QWidget *w);
void ScriviGeometria(QWidget *w, const GeometriaTwips &g);
