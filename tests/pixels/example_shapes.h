#pragma once

#include "drawing/shape.h"
#include "pixels/picture.h"

#include <limits>
#include <vector>

namespace zeigewerk::test {

inline const QColor kInk(0xF2, 0x9A, 0x00);
inline const QColor kTransparent(0, 0, 0, 0);
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

using Points = std::vector<QPointF>;

// Shapes in the colour of `kInk`.
Shape freehandShape(Tool tool, const Points &points, double width = 5.0);
Shape shapeBetween(Tool tool, QPointF start, QPointF end, double width = 5.0);
Shape textShape(const QString &text, QPointF start, double width = 5.0);
/// A line nine points wide.
Shape thickLine(QPointF from, QPointF to, const Color &color = kOrange);

/// A picture of 160 x 120 points with the shapes on it, the first one at the bottom.
Picture pictureOf(const std::vector<Shape> &shapes, double scale = 1.0, double fade = 1.0);

} // namespace zeigewerk::test
