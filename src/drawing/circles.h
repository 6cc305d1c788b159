#pragma once

#include "drawing/blend.h"

#include <QPointF>

namespace zeigewerk {

// Coordinates are pixels, x to the right, y down; pixel (x, y) has its centre at (x + 0.5, y + 0.5). Its
// coverage is how far the centre lies inside the edge.

/// Blends the colour over everything outside a circle. The radius may be any positive number, or infinity.
void coverOutside(platform::PaintTarget &target, QPointF center, double radius, Premultiplied color);

/// Blends the colour along a circle, `halfWidth` to either side of it.
void strokeCircle(platform::PaintTarget &target, QPointF center, double radius, double halfWidth,
                  Premultiplied color);

} // namespace zeigewerk
