#include "canvas/constraint.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zeigewerk {

namespace {

QPointF squared(QPointF start, QPointF point)
{
    const QPointF delta = point - start;
    const double side = std::max(std::abs(delta.x()), std::abs(delta.y()));
    return start + QPointF(delta.x() < 0 ? -side : side, delta.y() < 0 ? -side : side);
}

QPointF snappedToEighthTurn(QPointF start, QPointF point)
{
    constexpr double kEighthTurn = std::numbers::pi / 4;
    const QPointF delta = point - start;
    // std::round takes halves away from zero.
    const double angle = std::round(std::atan2(delta.y(), delta.x()) / kEighthTurn) * kEighthTurn;
    const double length = std::hypot(delta.x(), delta.y());
    return start + QPointF(length * std::cos(angle), length * std::sin(angle));
}

} // namespace

QPointF constrained(Tool tool, QPointF start, QPointF point)
{
    switch (tool) {
    case Tool::rect:
    case Tool::ellipse:
        return squared(start, point);
    case Tool::pen:
    case Tool::highlighter:
    case Tool::line:
    case Tool::arrow:
        return snappedToEighthTurn(start, point);
    case Tool::text:
        break;
    }
    return point;
}

} // namespace zeigewerk
