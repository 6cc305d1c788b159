#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"
#include "platform/paint_target.h"

#include <cstddef>

namespace zeigewerk {

/// Draws the part of a shape that lies in the target, with its opacity replaced by `fade` (0 to 1). A point
/// that is not finite or farther away than kFarthest paints nothing; neither does a stroke without a positive
/// width.
void renderShape(platform::PaintTarget &target, const Shape &shape, double fade);

/// The area that `renderShape` may paint, in view coordinates.
platform::Damage paintedArea(const Shape &shape);

/// The part of `paintedArea` that changes when the points from `firstPoint` on are appended, including the
/// segment that leads to it. For tools that are not freehand it is the whole area.
platform::Damage paintedArea(const Shape &shape, std::size_t firstPoint);

/// A rectangle around `paintedArea`. Its cost does not depend on the length of the stroke.
Box paintedBounds(const Shape &shape);

} // namespace zeigewerk
