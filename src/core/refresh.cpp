// Derives from the mode flags what is on the screen.

#include "base/stop.h"
#include "core/app_delegate.h"

#include <algorithm>

namespace zeigewerk {

namespace {

constexpr std::chrono::nanoseconds kFollowInterval(1'000'000'000 / 60);

} // namespace

void AppDelegate::refreshAll()
{
    const bool interactive = interactionOn();
    const bool visible = interactive || m_spotlightOn || m_pinnedOn;

    if (!interactive && !m_pinnedOn)
        discardDrawings();
    showOverlays(interactive, visible);
    if (interactive)
        raiseToolbar();
    updateCursorRing();
    updateFollowTimer();
    updateFadeTimer();
    updateEscHotKey();
    updateEventMonitor();
    refreshToolbar();
    rebuildMenu();
}

void AppDelegate::discardDrawings()
{
    for (const auto &overlay : m_overlays) {
        overlay->view().commitTextField();
        overlay->view().discardShapes();
    }
    m_shapeOrder.clear();
}

void AppDelegate::showOverlays(bool interactive, bool visible)
{
    for (const auto &overlay : m_overlays)
        overlay->window().setIgnoresMouseEvents(!interactive);
    // After the mouse: the application that gets the keyboard back must also get the next click. Before a
    // window is hidden: only a window that still has the keyboard can return it.
    if (!interactive)
        m_desktop.deactivate();
    Overlay *key = interactive ? overlayUnderPointer() : nullptr;
    for (const auto &overlay : m_overlays) {
        if (overlay.get() == key)
            continue;
        OverlayWindow &window = overlay->window();
        if (visible)
            window.orderFrontRegardless();
        else
            window.orderOut();
        overlay->view().modesChanged();
    }
    if (interactive)
        m_desktop.activate();
    if (key) {
        key->window().makeKeyAndOrderFront();
        key->view().modesChanged();
    }
}

Overlay *AppDelegate::overlayUnderPointer() const
{
    if (m_overlays.empty())
        return nullptr;
    const std::optional<QPointF> mouse = m_desktop.mouseLocation();
    const auto found = std::find_if(m_overlays.begin(), m_overlays.end(), [&](const auto &overlay) {
        return mouse && platform::contains(overlay->window().frame(), *mouse);
    });
    return (found == m_overlays.end() ? m_overlays.front() : *found).get();
}

void AppDelegate::raiseToolbar()
{
    if (!m_toolbarVisible)
        return;
    mustHold(m_toolbar != nullptr, "the toolbar is built before interaction can begin");
    m_toolbar->window->orderFrontRegardless();
}

void AppDelegate::updateFollowTimer()
{
    const bool follows = m_spotlightOn || m_cursorRingOn;
    m_desktop.setFollowsPointer(follows);
    if (!follows) {
        m_spotTimer.reset();
        return;
    }
    if (!m_spotTimer)
        m_spotTimer = std::make_unique<RepeatingTimer>(kFollowInterval, [this] { followPointer(); });
    // At once, so that nothing shows at the pointer's old place first.
    followPointer();
}

void AppDelegate::followPointer()
{
    const std::optional<QPointF> mouse = m_desktop.mouseLocation();
    if (m_spotlightOn) {
        for (const auto &overlay : m_overlays) {
            const QPointF origin = overlay->window().frame().topLeft();
            overlay->view().setCursorPoint(mouse ? std::optional(*mouse - origin) : std::nullopt);
        }
    }
    if (m_cursorRingOn && m_ringWindow && mouse) {
        m_ringWindow->moveTo(*mouse);
        if (!m_ringWindow->isVisible())
            m_ringWindow->orderFrontRegardless();
    }
}

void AppDelegate::updateCursorRing()
{
    if (m_cursorRingOn) {
        if (!m_ringWindow)
            m_ringWindow = std::make_unique<CursorRing>(m_desktop);
        // A hidden one is shown once its place is known: followPointer().
        if (m_ringWindow->isVisible())
            m_ringWindow->orderFrontRegardless();
    } else if (m_ringWindow) {
        m_ringWindow->orderOut();
    }
}

} // namespace zeigewerk
