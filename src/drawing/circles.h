#pragma once

#include "drawing/blend.h"

#include <QPointF>

namespace zeigewerk {

// Coordinates are pixels, x to the right, y down; pixel (x, y) has its middle at (x + 0.5, y + 0.5), and is
// covered by how far that lies inside the edge.

/// Lays a coat of the colour on everything but a round hole. The radius may be anything above zero, infinity
/// included.
void coverOutside(platform::PaintTarget &target, QPointF middle, double radius, Premultiplied color);

/// Strokes a circle.
void strokeCircle(platform::PaintTarget &target, QPointF middle, double radius, double halfWidth,
                  Premultiplied color);

} // namespace zeigewerk
