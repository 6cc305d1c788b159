#include "drawing/render_shape.h"
#include "drawing/stroke_geometry.h"
#include "drawing/text_line.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace zeigewerk {

namespace {

using platform::Damage;

/// How far a stroke may leave its exact outline, in points: a dot is a short dash, curves are drawn as lines,
/// and lines end on a grid of 1/64 pixel.
constexpr double kOutlineTolerance = 0.25;

double outerHalfWidth(const Shape &shape)
{
    return strokeWidth(shape) / 2.0 + kOutlineTolerance;
}

Damage areaOfFreehand(const Shape &shape, std::size_t firstPoint)
{
    const Polyline &points = shape.points;
    const double halfWidth = outerHalfWidth(shape);
    const std::size_t firstChanged = std::min(firstPoint, points.size());
    // Includes the segment that leads to the first changed point, and so the round cap that ended there.
    std::optional<QPointF> last = points.lastDrawableOf(firstChanged);
    Damage area;
    for (std::size_t i = firstChanged; i < points.size(); ++i) {
        if (!isDrawablePoint(points[i]))
            continue;
        area.addStroke(last.value_or(points[i]), points[i], halfWidth);
        last = points[i];
    }
    return area;
}

Damage areaOfLine(const Shape &shape)
{
    Damage area;
    const double halfWidth = outerHalfWidth(shape);
    area.addStroke(shape.start, shape.end, halfWidth);
    if (shape.tool == Tool::arrow) {
        const auto [barb, tip, otherBarb] = arrowHead(shape);
        area.addStroke(barb, tip, halfWidth);
        area.addStroke(tip, otherBarb, halfWidth);
    }
    return area;
}

Damage areaOfRect(const Shape &shape)
{
    const QRectF rect = spannedRect(shape);
    const double halfWidth = outerHalfWidth(shape);
    Damage area;
    area.addStroke(rect.topLeft(), rect.topRight(), halfWidth);
    area.addStroke(rect.topRight(), rect.bottomRight(), halfWidth);
    area.addStroke(rect.bottomRight(), rect.bottomLeft(), halfWidth);
    area.addStroke(rect.bottomLeft(), rect.topLeft(), halfWidth);
    return area;
}

Damage areaOfEllipse(const Shape &shape)
{
    const QRectF rect = spannedRect(shape);
    const double rx = rect.width() / 2.0;
    const double ry = rect.height() / 2.0;
    constexpr int kChords = 32;
    constexpr double kStep = 2.0 * std::numbers::pi / kChords;
    // The largest distance between an arc and its chord.
    const double sagitta = std::max(rx, ry) * (1.0 - std::cos(kStep / 2.0));
    const auto at = [&](int chord) {
        return rect.center() + QPointF(rx * std::cos(chord * kStep), ry * std::sin(chord * kStep));
    };
    Damage area;
    for (int chord = 0; chord < kChords; ++chord)
        area.addStroke(at(chord), at(chord + 1), outerHalfWidth(shape) + sagitta);
    return area;
}

} // namespace

Damage paintedArea(const Shape &shape)
{
    return paintedArea(shape, 0);
}

Damage paintedArea(const Shape &shape, std::size_t firstPoint)
{
    if (shape.tool == Tool::text) {
        if (shape.text.isEmpty() || !isDrawablePoint(shape.start))
            return {};
        return Damage::of(textLineArea(shape.start, shape.text));
    }
    if (!isDrawableWidth(shape.width))
        return {};
    if (shape.tool.isFreehand())
        return areaOfFreehand(shape, firstPoint);
    if (!isDrawablePoint(shape.start) || !isDrawablePoint(shape.end))
        return {};
    switch (shape.tool) {
    case Tool::rect:
        return areaOfRect(shape);
    case Tool::ellipse:
        return areaOfEllipse(shape);
    default:
        return areaOfLine(shape);
    }
}

Box paintedBounds(const Shape &shape)
{
    Box bounds;
    if (shape.tool == Tool::text) {
        if (!shape.text.isEmpty() && isDrawablePoint(shape.start))
            bounds = Box::of(textLineArea(shape.start, shape.text));
        return bounds;
    }
    if (!isDrawableWidth(shape.width))
        return bounds;
    if (shape.tool.isFreehand()) {
        bounds = shape.points.bounds();
    } else if (isDrawablePoint(shape.start) && isDrawablePoint(shape.end)) {
        bounds.add(shape.start);
        bounds.add(shape.end);
        if (shape.tool == Tool::arrow) {
            for (const QPointF &end : arrowHead(shape))
                bounds.add(end);
        }
    }
    return bounds.grown(outerHalfWidth(shape));
}

} // namespace zeigewerk
