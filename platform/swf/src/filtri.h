#pragma once

// The filters a placement carries, applied to the device-size layer its
// object was drawn into: blur, drop shadow and glow (outer or inner, with
// knockout and hidden object), bevel, gradient glow and gradient bevel,
// colour matrix.

#include "modello.h"

#include <QImage>

namespace swf {

// scala: device pixels per stage pixel. lavoro: the picture's work left,
// paid by every pass over the layer's pixels; a filter it cannot pay for is
// skipped.
void applicaFiltri(QImage &strato, const std::vector<Filtro> &filtri, double scala, int64_t *lavoro);

} // namespace swf
