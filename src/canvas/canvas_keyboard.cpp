#include "canvas/drawing_view.h"
#include "core/app_delegate.h"

namespace zeigewerk {

void DrawingView::keyDown(const platform::KeyEvent &event)
{
    if (app && event.isEscape)
        app->escapePressed();
}

void AppDelegate::adjustSpotRadius(double) {}

} // namespace zeigewerk
