#include "drawing/render_shape.h"

#include "drawing/coverage.h"
#include "drawing/qt_color.h"
#include "drawing/stroke_geometry.h"
#include "drawing/text_line.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace zeigewerk {

namespace {

using platform::PaintTarget;

/// A stroke of a round pen along any number of lines in view coordinates, blended once.
class Stroke
{
public:
    Stroke(PaintTarget &target, double width)
        : m_target(target)
        , m_halfWidth(width / 2.0)
        , m_reach(m_halfWidth + kEdge / target.geometry().scale())
        , m_near(Box::of(target.area()).grown(m_reach))
    {
    }

    /// The area in which a line can touch the target.
    const Box &near() const { return m_near; }

    void addLine(QPointF from, QPointF to)
    {
        Box span;
        span.add(from);
        span.add(to);
        if (!span.touches(m_near))
            return;
        const platform::ViewGeometry &geometry = m_target.geometry();
        if (!m_coverage)
            m_coverage.emplace(m_target);
        m_coverage->addLine(geometry.toPixels(from), geometry.toPixels(to), m_halfWidth * geometry.scale());
    }

    void paint(const Color &color)
    {
        if (m_coverage)
            m_coverage->blend(premultiplied(color));
    }

private:
    /// In pixels. A partly covered pixel has its centre within half a pixel of the edge.
    static constexpr double kEdge = 1.0;

    PaintTarget &m_target;
    double m_halfWidth;
    double m_reach;
    Box m_near;
    std::optional<Coverage> m_coverage;
};

void addDot(Stroke &stroke, QPointF point)
{
    stroke.addLine(point, point + QPointF(kDotLength, 0.0));
}

void drawFreehand(PaintTarget &target, const Shape &shape, const Color &color)
{
    Stroke stroke(target, strokeWidth(shape));
    const Box &bounds = shape.points.bounds();
    const bool isDot = bounds.left == bounds.right && bounds.bottom == bounds.top;
    if (isDot)
        addDot(stroke, {bounds.left, bounds.bottom});
    else
        shape.points.forEachLineNear(stroke.near(),
                                     [&](QPointF from, QPointF to) { stroke.addLine(from, to); });
    stroke.paint(shape.tool == Tool::highlighter ? color.withAlpha(kHighlighterAlpha * color.alpha) : color);
}

void drawLine(PaintTarget &target, const Shape &shape, const Color &color)
{
    Stroke shaft(target, shape.width);
    if (shape.start == shape.end)
        addDot(shaft, shape.start);
    else
        shaft.addLine(shape.start, shape.end);
    shaft.paint(color);
    if (shape.tool != Tool::arrow)
        return;
    const auto [barb, tip, otherBarb] = arrowHead(shape);
    Stroke head(target, shape.width);
    head.addLine(barb, tip);
    head.addLine(tip, otherBarb);
    head.paint(color);
}

void drawRect(PaintTarget &target, const Shape &shape, const Color &color)
{
    const QRectF rect = spannedRect(shape);
    Stroke stroke(target, shape.width);
    stroke.addLine(rect.topLeft(), rect.topRight());
    stroke.addLine(rect.topRight(), rect.bottomRight());
    stroke.addLine(rect.bottomRight(), rect.bottomLeft());
    stroke.addLine(rect.bottomLeft(), rect.topLeft());
    stroke.paint(color);
}

void drawEllipse(PaintTarget &target, const Shape &shape, const Color &color)
{
    const QRectF rect = spannedRect(shape);
    const QPointF radii(rect.width() / 2.0, rect.height() / 2.0);
    // The largest distance between a chord and its arc, in points. It does not depend on the scale, so the
    // shape is the same on every screen.
    constexpr double kSagitta = 0.02;
    constexpr int kMinChords = 16;
    const double largerRadius = std::max(radii.x(), radii.y());
    const double ratio = std::clamp(1.0 - kSagitta / std::max(largerRadius, kSagitta), -1.0, 1.0);
    const int chords = std::max(kMinChords, static_cast<int>(std::ceil(std::numbers::pi / std::acos(ratio))));
    const double step = 2.0 * std::numbers::pi / chords;
    const QPointF rotation(std::cos(step), std::sin(step));
    // The end of each chord on a unit circle, rotated from the one before; the last equals the first.
    QPointF unit(1.0, 0.0);
    const auto onEllipse = [&] {
        return rect.center() + QPointF(radii.x() * unit.x(), radii.y() * unit.y());
    };
    Stroke stroke(target, shape.width);
    QPointF from = onEllipse();
    for (int chord = 1; chord <= chords; ++chord) {
        unit = chord == chords ? QPointF(1.0, 0.0)
                               : QPointF(unit.x() * rotation.x() - unit.y() * rotation.y(),
                                         unit.x() * rotation.y() + unit.y() * rotation.x());
        const QPointF to = onEllipse();
        stroke.addLine(from, to);
        from = to;
    }
    stroke.paint(color);
}

/// The text on a transparent background. `rect` is its area, in pixels of the surface.
QImage renderedText(const platform::ViewGeometry &geometry, const QRect &rect, const Shape &shape,
                    const Color &color)
{
    QImage picture(rect.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setTransform(geometry.painterTransform() * QTransform::fromTranslate(-rect.x(), -rect.y()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(toQColor(color));
    drawTextLine(painter, shape.start, shape.text);
    return picture;
}

void drawText(PaintTarget &target, const Shape &shape, const Color &color)
{
    if (shape.text.isEmpty() || !isDrawablePoint(shape.start))
        return;
    const platform::ViewGeometry &geometry = target.geometry();
    const QRect rect = geometry.damagedPixels(textLineArea(shape.start, shape.text));
    const QRect part = rect & target.rect();
    if (part.isEmpty())
        return;
    // The whole text is painted, whatever the part: Qt rounds the edges of a glyph differently if the glyph
    // begins outside the painted area.
    const QImage picture = renderedText(geometry, rect, shape, color);
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto *from = reinterpret_cast<const Premultiplied *>(picture.constScanLine(y - rect.top())) +
                           (part.left() - rect.left());
        blendSpan(target.row(y) + (part.left() - target.rect().left()), from, part.width());
    }
}

} // namespace

void renderShape(PaintTarget &target, const Shape &shape, double fade)
{
    // This comparison refuses NaN, too.
    if (!(fade > 0.0))
        return;
    const Color color = shape.color.withAlpha(std::min(fade, 1.0));
    if (shape.tool == Tool::text)
        return drawText(target, shape, color);
    if (!isDrawableWidth(shape.width))
        return;
    if (shape.tool.isFreehand())
        return drawFreehand(target, shape, color);
    if (!isDrawablePoint(shape.start) || !isDrawablePoint(shape.end))
        return;
    if (shape.tool == Tool::rect)
        drawRect(target, shape, color);
    else if (shape.tool == Tool::ellipse)
        drawEllipse(target, shape, color);
    else
        drawLine(target, shape, color);
}

} // namespace zeigewerk
