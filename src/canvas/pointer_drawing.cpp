// How a press, a drag and a release become a shape.

#include "canvas/constraint.h"
#include "canvas/drawing_view.h"
#include "core/app_delegate.h"
#include "drawing/render_shape.h"

namespace zeigewerk {

using platform::Modifier;
using platform::PointerEvent;

template <typename Change>
void DrawingView::changeCurrent(std::size_t firstPoint, Change change)
{
    platform::Damage damage;
    if (m_current)
        damage.add(paintedArea(*m_current, firstPoint));
    change();
    if (m_current)
        damage.add(paintedArea(*m_current, firstPoint));
    needsDisplay(damage);
}

void DrawingView::mouseDown(const PointerEvent &event)
{
    if (!app || !app->interactionOn())
        return;
    if (m_surface)
        m_surface->makeKey();
    const Tool tool = app->tool();
    commitTextField();
    if (tool == Tool::text)
        return openTextField(event.position);
    changeCurrent(0, [&] {
        m_current = Shape{.tool = tool,
                          .points = {event.position},
                          .start = event.position,
                          .end = event.position,
                          .color = app->color(),
                          .width = app->lineWidth(),
                          .text = {},
                          .created = app->now()};
    });
}

void DrawingView::mouseDragged(const PointerEvent &event)
{
    if (!m_current)
        return;
    const bool isConstrained = event.modifiers.testFlag(Modifier::Shift);
    const QPointF point =
        isConstrained ? constrained(m_current->tool, m_current->start, event.position) : event.position;
    if (isConstrained && m_current->tool.isFreehand()) {
        // The whole path becomes a straight line. Releasing Shift does not bring the path back.
        changeCurrent(0, [&] {
            m_current->points = {m_current->start, point};
            m_current->end = point;
        });
        return;
    }
    changeCurrent(m_current->points.size(), [&] {
        m_current->points.push_back(point);
        m_current->end = point;
    });
}

void DrawingView::mouseUp(const PointerEvent &)
{
    if (!m_current)
        return;
    // No repaint: the shape in progress was painted above all finished ones, and is now the last of them.
    m_current->created = app ? app->now() : WallClock::now();
    m_shapes.append(std::move(*m_current));
    m_current.reset();
    if (app)
        app->noteShapeAdded(*this);
}

} // namespace zeigewerk
