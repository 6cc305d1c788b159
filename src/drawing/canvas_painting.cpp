// How a canvas is painted, and which damage each change causes.

#include "canvas/drawing_view.h"
#include "core/app_delegate.h"
#include "drawing/circles.h"
#include "drawing/fade.h"
#include "drawing/render_shape.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

using platform::Damage;

namespace {

constexpr double kDimmingAlpha = 0.55;
/// How far antialiasing may paint beyond an outline, in points.
constexpr double kEdge = 1.0;

QRectF withEdge(const QRectF &rect)
{
    return rect.adjusted(-kEdge, -kEdge, kEdge, kEdge);
}

QRectF square(QPointF center, double radius)
{
    return {center - QPointF(radius, radius), center + QPointF(radius, radius)};
}

double distanceToFarthestCorner(const QRectF &rect, QPointF point)
{
    const double dx = std::max(point.x() - rect.left(), rect.right() - point.x());
    const double dy = std::max(point.y() - rect.top(), rect.bottom() - point.y());
    return std::hypot(dx, dy);
}

/// The part of `outer` that is not in `inner`, which lies inside it.
Damage frameAround(const QRectF &inner, const QRectF &outer)
{
    Damage frame;
    frame.add(QRectF(outer.topLeft(), QPointF(outer.right(), inner.top())));
    frame.add(QRectF(QPointF(outer.left(), inner.top()), inner.bottomLeft()));
    frame.add(QRectF(inner.topRight(), QPointF(outer.right(), inner.bottom())));
    frame.add(QRectF(QPointF(outer.left(), inner.bottom()), outer.bottomRight()));
    return frame;
}

} // namespace

void DrawingView::setCursorPoint(std::optional<QPointF> point)
{
    m_cursorPoint = point;
    needsDisplay({});
}

void DrawingView::modesChanged()
{
    needsDisplay({});
}

void DrawingView::discardShapes()
{
    const Damage damage = shapesArea();
    m_shapes.clear();
    m_current.reset();
    needsDisplay(damage);
}

void DrawingView::surfaceIsBlank()
{
    m_shown = {};
    needsDisplay(shapesArea());
}

int DrawingView::fullRepaints(FullRepaint reason) const
{
    const auto found = m_fullRepaints.find(reason);
    return found == m_fullRepaints.end() ? 0 : found->second;
}

void DrawingView::willDisplay()
{
    const Scene next = sceneNow();
    if (next.whiteboard != m_shown.whiteboard)
        repaintAll(FullRepaint::Whiteboard);
    if (next.spotlight.has_value() != m_shown.spotlight.has_value())
        repaintAll(FullRepaint::Spotlight);
    else if (next.spotlight != m_shown.spotlight)
        needsDisplay(holesArea(*m_shown.spotlight, *next.spotlight));
    damageFadedShapes(next);
    m_shown = next;
}

void DrawingView::draw(platform::PaintTarget &target)
{
    if (!app)
        return;
    if (m_shown.whiteboard)
        target.fill(premultiplied(kWhite));
    // Antialiasing may paint the pixel beyond an outline.
    const Box area = Box::of(target.area()).grown(1.0 / target.geometry().scale());
    m_shapes.forEachNear(area, [&](const Shape &shape) {
        renderShape(target, shape, fadeAlpha(shape, m_shown.fading, m_shown.time));
    });
    if (m_current)
        renderShape(target, *m_current, 1.0);
    if (m_shown.spotlight)
        drawSpotlight(target, *m_shown.spotlight);
}

DrawingView::Scene DrawingView::sceneNow() const
{
    Scene scene;
    if (!app)
        return scene;
    scene.whiteboard = app->whiteboardOn();
    scene.fading = app->autoFadeOn() && !scene.whiteboard;
    if (app->spotlightOn() && m_cursorPoint)
        scene.spotlight = Hole{*m_cursorPoint, app->spotRadius()};
    scene.time = app->now();
    return scene;
}

void DrawingView::needsDisplay(const Damage &damage)
{
    if (m_surface)
        m_surface->setNeedsDisplay(damage);
}

void DrawingView::repaintAll(FullRepaint reason)
{
    ++m_fullRepaints[reason];
    needsDisplay(Damage::everything());
}

void DrawingView::damageFadedShapes(const Scene &next)
{
    if (!m_shown.fading && !next.fading)
        return;
    Damage damage;
    for (const Shape &shape : shapes()) {
        if (fadeAlpha(shape, m_shown.fading, m_shown.time) != fadeAlpha(shape, next.fading, next.time))
            damage.add(paintedArea(shape));
    }
    needsDisplay(damage);
}

Damage DrawingView::shapesArea() const
{
    Damage damage;
    for (const Shape &shape : shapes())
        damage.add(paintedArea(shape));
    if (m_current)
        damage.add(paintedArea(*m_current));
    return damage;
}

Damage DrawingView::holesArea(const Hole &before, const Hole &after) const
{
    std::vector<QRectF> areas;
    // The area that is clear before and after does not change. Only a square of it is left out: more
    // rectangles along the circle would cost the X server more than the pixels they save.
    QRectF core = m_bounds;
    for (const Hole &hole : {before, after}) {
        // The radius may be infinite, but nothing shows beyond the bounds.
        const double radius = std::min(distanceToFarthestCorner(m_bounds, hole.center), hole.radius);
        const QRectF area = withEdge(square(hole.center, radius)) & m_bounds;
        if (!area.isEmpty())
            areas.push_back(area);
        core &= square(hole.center, std::max(radius - kEdge, 0.0) * M_SQRT1_2);
    }
    if (!core.isEmpty())
        return frameAround(core, areas.front() | areas.back());
    Damage damage;
    for (const QRectF &area : areas)
        damage.add(area);
    return damage;
}

void DrawingView::drawSpotlight(platform::PaintTarget &target, const Hole &hole) const
{
    const platform::ViewGeometry &geometry = target.geometry();
    coverOutside(target, geometry.toPixels(hole.center), hole.radius * geometry.scale(),
                 premultiplied(kBlack.withAlpha(kDimmingAlpha)));
}

} // namespace zeigewerk
