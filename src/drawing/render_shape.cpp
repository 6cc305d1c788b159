#include "drawing/render_shape.h"

#include "drawing/freehand_path.h"
#include "drawing/qt_color.h"
#include "drawing/stroke_geometry.h"
#include "drawing/text_line.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace zeigewerk {

namespace {

using platform::Damage;

/// Antialiasing may touch the pixel beyond an outline.
constexpr double kEdge = 1.0;

QRectF withEdge(const QRectF &rect)
{
    return rect.adjusted(-kEdge, -kEdge, kEdge, kEdge);
}

QPen roundPen(const Color &color, double width)
{
    return {toQColor(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Whether any part of the shape may lie in the damage. A freehand stroke is asked segment by segment when
/// its path is built.
bool mayTouch(const Shape &shape, const Damage &damage)
{
    if (damage.isEverything() || shape.tool.isFreehand())
        return true;
    const Damage area = paintedArea(shape);
    return area.isEverything() ||
           std::any_of(area.rects().begin(), area.rects().end(),
                       [&](const QRectF &rect) { return damage.touches(withEdge(rect)); });
}

void strokeFreehand(QPainter &painter, const Shape &shape, const Color &color, const Damage &damage)
{
    const double width = strokeWidth(shape);
    const Color ink =
        shape.tool == Tool::highlighter ? color.withAlpha(kHighlighterAlpha * color.alpha) : color;
    // One path and one stroke: where a see-through stroke crosses itself there is still one coat of it.
    const QPainterPath path =
        damage.isEverything() ? freehandPath(shape.points) : freehandPath(shape.points, width / 2.0, damage);
    painter.strokePath(path, roundPen(ink, width));
}

void strokeLine(QPainter &painter, const Shape &shape, const Color &color)
{
    if (!isDrawablePoint(shape.start) || !isDrawablePoint(shape.end))
        return;
    const QPen pen = roundPen(color, shape.width);
    QPainterPath shaft = dotPath(shape.start);
    if (shape.start != shape.end) {
        shaft = QPainterPath(shape.start);
        shaft.lineTo(shape.end);
    }
    painter.strokePath(shaft, pen);
    if (shape.tool != Tool::arrow)
        return;
    const auto [barb, tip, otherBarb] = arrowHead(shape);
    QPainterPath head(barb);
    head.lineTo(tip);
    head.lineTo(otherBarb);
    painter.strokePath(head, pen);
}

void strokeBox(QPainter &painter, const Shape &shape, const Color &color)
{
    if (!isDrawablePoint(shape.start) || !isDrawablePoint(shape.end))
        return;
    QPainterPath outline;
    if (shape.tool == Tool::rect)
        outline.addRect(spannedRect(shape));
    else
        outline.addEllipse(spannedRect(shape));
    painter.strokePath(outline, {toQColor(color), shape.width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin});
}

void drawText(QPainter &painter, const Shape &shape, const Color &color)
{
    if (shape.text.isEmpty() || !isDrawablePoint(shape.start))
        return;
    painter.setPen(toQColor(color));
    drawTextLine(painter, shape.start, shape.text);
}

} // namespace

void renderShape(QPainter &painter, const Shape &shape, double fade)
{
    renderShape(painter, shape, fade, Damage::everything());
}

void renderShape(QPainter &painter, const Shape &shape, double fade, const Damage &damage)
{
    // Comparing this way round refuses what is no number, too.
    if (!(fade > 0.0) || (shape.tool != Tool::text && !isDrawableWidth(shape.width)))
        return;
    const Color color = shape.color.withAlpha(std::min(fade, 1.0));
    if (!mayTouch(shape, damage))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    switch (shape.tool) {
    case Tool::pen:
    case Tool::highlighter:
        strokeFreehand(painter, shape, color, damage);
        break;
    case Tool::line:
    case Tool::arrow:
        strokeLine(painter, shape, color);
        break;
    case Tool::rect:
    case Tool::ellipse:
        strokeBox(painter, shape, color);
        break;
    case Tool::text:
        drawText(painter, shape, color);
        break;
    }
}

} // namespace zeigewerk
