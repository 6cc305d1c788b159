#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::noteShapeAdded(DrawingView &view)
{
    m_shapeOrder.push_back(&view);
}

void AppDelegate::undoShape() {}
void AppDelegate::clearAll() {}

} // namespace zeigewerk
