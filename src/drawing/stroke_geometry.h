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

inline bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

inline bool isFreehand(Tool tool)
{
    return tool == Tool::pen || tool == Tool::highlighter;
}

/// How wide the shape is stroked, in points.
inline double strokeWidth(const Shape &shape)
{
    return shape.tool == Tool::highlighter ? kHighlighterWidthFactor * shape.width : shape.width;
}

/// Whether a stroke of that width can be painted at all; a shape that was not made by the user's hand may
/// hold anything.
inline bool isStrokeWidth(double width)
{
    return std::isfinite(width) && width > 0.0;
}

/// The rectangle that `start` and `end` span, whichever way it was dragged out.
inline QRectF spannedRect(const Shape &shape)
{
    return QRectF(shape.start, shape.end).normalized();
}

/// The open head of an arrow: the end of one barb, the tip, the end of the other.
std::array<QPointF, 3> arrowHead(const Shape &shape);

} // namespace zeigewerk
