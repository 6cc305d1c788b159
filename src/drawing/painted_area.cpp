#include "drawing/render_shape.h"
#include "drawing/stroke_geometry.h"
#include "drawing/text_line.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace zeigewerk {

namespace {

using platform::Damage;

/// What the dash of a dot, curves drawn as lines and lines ending on a grid of 1/64 pixel may add to the
/// exact outline, in points.
constexpr double kOutlineTolerance = 0.25;

double outerHalfWidth(const Shape &shape)
{
    return strokeWidth(shape) / 2.0 + kOutlineTolerance;
}

Damage areaOfFreehand(const Shape &shape, std::size_t firstPoint)
{
    const auto &points = shape.points;
    const double halfWidth = outerHalfWidth(shape);
    const auto firstChanged =
        points.begin() + static_cast<std::ptrdiff_t>(std::min(firstPoint, points.size()));
    // The segment that leads to the first changed point belongs to it, and with it the cap that was there.
    const auto before =
        std::find_if(std::make_reverse_iterator(firstChanged), points.rend(), &isDrawablePoint);
    const QPointF *last = before == points.rend() ? nullptr : &*before;
    Damage area;
    std::for_each(firstChanged, points.end(), [&](const QPointF &point) {
        if (!isDrawablePoint(point))
            return;
        area.addStroke(last ? *last : point, point, halfWidth);
        last = &point;
    });
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
    // Each arc leaves its chord by at most this.
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

} // namespace zeigewerk
