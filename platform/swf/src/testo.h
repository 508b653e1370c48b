#pragma once

// Text drawn with fonts: the characters of static text whose font is a device
// font (the film names it and carries no outlines), and edit fields, with
// their embedded glyphs or a system font.

#include "modello.h"

class QPainter;

namespace swf {

// A system font of the film's name where one is installed, else a sans font.
QFont fontDiSistema(const QByteArray &nome, bool grassetto, bool corsivo, double pixel);

// One character of a device font at the glyph's place: `m` maps the glyph's
// em square (1024 units) to the device.
void disegnaCarattereDispositivo(QPainter &p, const Carattere &c, uint32_t glifo, const QTransform &m, const QColor &colore);

// An edit field; `lavoro` is the picture's work budget, paid per glyph.
void disegnaCampoTesto(QPainter &p, const Film &film, const CampoTesto &c, const QTransform &m, const ColorTransform &cx,
                       int64_t *lavoro);

} // namespace swf
