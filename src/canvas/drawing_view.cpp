#include "canvas/drawing_view.h"

#include "core/app_delegate.h"

namespace zeigewerk {

DrawingView::DrawingView(QSizeF size)
    : m_bounds(QPointF(0, 0), size)
{
}

void DrawingView::setSurface(platform::Surface *surface)
{
    m_surface = surface;
}

void DrawingView::commitTextField()
{
    // There is no text field yet to commit.
}

} // namespace zeigewerk
