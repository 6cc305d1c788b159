#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"
#include "platform/paint_target.h"

#include <cstddef>

namespace zeigewerk {

/// Draws what of a shape lies in the target, with its opacity replaced by `fade` (0 to 1). A point that is
/// not finite or beyond every desktop, or a stroke without a positive width, paints nothing.
void renderShape(platform::PaintTarget &target, const Shape &shape, double fade);

/// Every place that `renderShape` may paint.
platform::Damage paintedArea(const Shape &shape);

/// The part of `paintedArea` that depends on the points from `firstPoint` on, the segment that leads to it
/// included: what changes when those points are appended. For the tools that are not freehand it is the
/// whole area.
platform::Damage paintedArea(const Shape &shape, std::size_t firstPoint);

/// A rectangle around `paintedArea`, found at once however long the stroke is.
Box paintedBounds(const Shape &shape);

} // namespace zeigewerk
