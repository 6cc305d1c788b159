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

/// The farthest that anything is drawn from a canvas's origin, in points: beyond every desktop, and near
/// enough that stroking what lies there costs little.
inline constexpr double kFarthest = 32768.0;

/// Whether the point can be drawn. A shape that was not made by the user's hand may hold anything; what is no
/// number is not drawable either.
inline bool isDrawablePoint(QPointF point)
{
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest;
}

/// How wide the shape is stroked, in points.
inline double strokeWidth(const Shape &shape)
{
    return shape.tool == Tool::highlighter ? kHighlighterWidthFactor * shape.width : shape.width;
}

/// Whether a stroke of that width can be drawn.
inline bool isDrawableWidth(double width)
{
    return width > 0.0 && width <= kFarthest;
}

/// The rectangle that `start` and `end` span, whichever way it was dragged out.
inline QRectF spannedRect(const Shape &shape)
{
    return QRectF(shape.start, shape.end).normalized();
}

/// The open head of an arrow: the end of one barb, the tip, the end of the other.
std::array<QPointF, 3> arrowHead(const Shape &shape);

} // namespace zeigewerk
