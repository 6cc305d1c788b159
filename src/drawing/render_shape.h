#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"

#include <cstddef>

class QPainter;

namespace zeigewerk {

/// Draws one shape with its opacity replaced by `fade` (0 to 1). The painter's world transform maps view
/// coordinates (points, y up) to the target; nothing else of the painter's state is assumed, and it is left
/// with another pen, brush and antialiasing. A point that is not finite or beyond every
/// desktop, or a stroke without a positive width, paints nothing.
void renderShape(QPainter &painter, const Shape &shape, double fade);

/// The same, leaving out what cannot touch `damage`. Inside the damage the pixels are exactly those of the
/// whole shape, so the painter must be clipped to it.
void renderShape(QPainter &painter, const Shape &shape, double fade, const platform::Damage &damage);

/// Every place that `renderShape` may paint.
platform::Damage paintedArea(const Shape &shape);

/// The part of `paintedArea` that depends on the points from `firstPoint` on, the segment that leads to it
/// included: what changes when those points are appended. For the tools that are not freehand it is the
/// whole area.
platform::Damage paintedArea(const Shape &shape, std::size_t firstPoint);

} // namespace zeigewerk
