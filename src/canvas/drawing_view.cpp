#include "canvas/drawing_view.h"

#include "canvas/text_entry.h"
#include "core/app_delegate.h"

namespace zeigewerk {

DrawingView::DrawingView(QSizeF size)
    : m_bounds(QPointF(0, 0), size)
{
}

DrawingView::~DrawingView() = default;

void DrawingView::setSurface(platform::Surface *surface)
{
    m_surface = surface;
}

} // namespace zeigewerk
