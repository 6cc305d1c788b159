#include "canvas/drawing_view.h"

#include "core/app_delegate.h"

namespace zeigewerk {

DrawingView::DrawingView(QSizeF size)
    : m_bounds(QPointF(0, 0), size)
{
}

} // namespace zeigewerk
