#pragma once

#include <QPoint>
#include <QRect>

// The pointer: confinement to a rectangle of the screen and moves. Real
// confinement where the platform has one (ClipCursor on Windows, pointer
// barriers on X11); everywhere the pointer is also moved back inside when it
// leaves. Releasing always works.
void ConfinaPuntatore(const QRect &pixel);
void LiberaPuntatore();
bool PuntatoreConfinato();
QRect RettangoloConfinamento();
void SpostaPuntatore(const QPoint &pixel);
