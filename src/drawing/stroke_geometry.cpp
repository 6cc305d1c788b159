#include "drawing/stroke_geometry.h"

#include <algorithm>

namespace zeigewerk {

namespace {

/// The angle from shaft to barb, in radians: 0.82 pi. The barbs point backwards, 32.4 degrees off the shaft.
constexpr double kBarbAngle = 2.57610597594363;
constexpr double kBarbWidthFactor = 4.0;
/// The length of the barbs on thin arrows, in points.
constexpr double kMinBarbLength = 16.0;

} // namespace

std::array<QPointF, 3> arrowHead(const Shape &shape)
{
    const QPointF delta = shape.end - shape.start;
    const double direction = std::atan2(delta.y(), delta.x());
    const double length = std::max(kBarbWidthFactor * shape.width, kMinBarbLength);
    const auto barbEnd = [&](double angle) {
        return shape.end + length * QPointF(std::cos(angle), std::sin(angle));
    };
    return {barbEnd(direction + kBarbAngle), shape.end, barbEnd(direction - kBarbAngle)};
}

} // namespace zeigewerk
