#pragma once

#include "drawing/shape.h"

#include <QRectF>

#include <array>
#include <cmath>

namespace zeigewerk {

/// A highlighter's stroke is this many times the chosen width …
inline constexpr double kHighlighterWidthFactor = 4.0;
/// … and this opaque.
inline constexpr double kHighlighterAlpha = 0.4;

/// A stroke of zero length is drawn this long, in points, so that it leaves a dot.
inline constexpr double kDotLength = 0.1;

/// The width of the shape's stroke, in points.
inline double strokeWidth(const Shape &shape)
{
    return shape.tool == Tool::highlighter ? kHighlighterWidthFactor * shape.width : shape.width;
}

/// Whether a stroke of that width can be drawn.
inline bool isDrawableWidth(double width)
{
    return width > 0.0 && width <= kFarthest;
}

/// The rectangle between `start` and `end`, in whichever direction it was dragged.
inline QRectF spannedRect(const Shape &shape)
{
    return QRectF(shape.start, shape.end).normalized();
}

/// The open head of an arrow: the end of one barb, the tip, the end of the other.
std::array<QPointF, 3> arrowHead(const Shape &shape);

} // namespace zeigewerk
