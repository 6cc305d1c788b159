// Undo, newest shape first across all screens, and clear.

#include "canvas/drawing_view.h"
#include "core/app_delegate.h"
#include "drawing/render_shape.h"

namespace zeigewerk {

void AppDelegate::noteShapeAdded(DrawingView &view)
{
    m_shapeOrder.push_back(&view);
    updateFadeTimer();
}

void AppDelegate::undoShape()
{
    while (!m_shapeOrder.empty()) {
        DrawingView *view = m_shapeOrder.back();
        m_shapeOrder.pop_back();
        // If the canvas is empty, the shape has faded away, and the user would not see it undone.
        if (view->removeNewestShape())
            return;
    }
}

void AppDelegate::clearAll()
{
    // The fade timer ends itself when it finds nothing to fade.
    discardDrawings();
}

bool DrawingView::removeNewestShape()
{
    if (m_shapes.isEmpty())
        return false;
    const platform::Damage damage = paintedArea(m_shapes.shapes().back());
    m_shapes.removeLast();
    needsDisplay(damage);
    return true;
}

} // namespace zeigewerk
