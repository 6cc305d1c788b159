// Auto-fade. A shape's opacity follows from its age each time it is painted; the code here keeps the repaints
// coming and removes dissolved shapes.

#include "core/app_delegate.h"
#include "drawing/fade.h"
#include "drawing/render_shape.h"

#include <algorithm>

namespace zeigewerk {

namespace {

constexpr std::chrono::nanoseconds kFadeInterval(1'000'000'000 / 30);

} // namespace

void AppDelegate::toggleFade()
{
    m_autoFadeOn = !m_autoFadeOn;
    m_defaults.setBool(kAutoFadeKey, m_autoFadeOn);
    refreshAll();
}

void AppDelegate::updateFadeTimer()
{
    const bool hasShapes = std::any_of(m_overlays.begin(), m_overlays.end(),
                                       [](const auto &overlay) { return !overlay->view().shapes().empty(); });
    if (!m_autoFadeOn || m_whiteboardOn || !hasShapes)
        m_fadeTimer.reset();
    else if (!m_fadeTimer) // a running timer is not restarted, so new shapes never delay it
        m_fadeTimer = std::make_unique<RepeatingTimer>(kFadeInterval, [this] { tickFade(); });
}

void AppDelegate::tickFade()
{
    bool isAnyLeft = false;
    for (const auto &overlay : m_overlays) {
        DrawingView &view = overlay->view();
        if (view.shapes().empty())
            continue;
        view.removeDissolvedShapes();
        isAnyLeft = isAnyLeft || !view.shapes().empty();
    }
    if (!isAnyLeft)
        updateFadeTimer();
}

void DrawingView::removeDissolvedShapes()
{
    const Scene now = sceneNow();
    platform::Damage damage;
    m_shapes.removeIf([&](const Shape &shape) {
        if (fadeAlpha(shape, now.fading, now.time) > 0.0)
            return false;
        if (fadeAlpha(shape, m_shown.fading, m_shown.time) > 0.0)
            damage.add(paintedArea(shape));
        return true;
    });
    // Also without damage: willDisplay() then adds the shapes that are still dissolving.
    needsDisplay(damage);
}

} // namespace zeigewerk
