// From the mode flags to what is on the screen.

#include "base/stop.h"
#include "commands/hot_key_table.h"
#include "core/app_delegate.h"

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
    if (interactive) {
        m_desktop.activate();
        makeOverlayUnderPointerKey();
        raiseToolbar();
    }
    updateFollowTimer();
    updateCursorRing();
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
    // After the mouse, so that whoever gets the keyboard back gets the very next click, too; and before a
    // window is hidden, as only one that still has the keyboard can hand it back.
    if (!interactive)
        m_desktop.deactivate();
    for (const auto &overlay : m_overlays) {
        OverlayWindow &window = overlay->window();
        if (visible)
            window.orderFrontRegardless();
        else
            window.orderOut();
        overlay->view().modesChanged();
    }
}

void AppDelegate::makeOverlayUnderPointerKey()
{
    if (m_overlays.empty())
        return;
    const QPointF mouse = m_desktop.mouseLocation();
    Overlay *underPointer = m_overlays.front().get();
    for (const auto &overlay : m_overlays) {
        if (platform::contains(overlay->window().frame(), mouse)) {
            underPointer = overlay.get();
            break;
        }
    }
    underPointer->window().makeKeyAndOrderFront();
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
    if (!follows) {
        m_spotTimer.reset();
        return;
    }
    if (!m_spotTimer)
        m_spotTimer = std::make_unique<RepeatingTimer>(kFollowInterval, [this] { followPointer(); });
    // At once, so that what was just switched on, or built anew, never shows at the pointer's old place.
    followPointer();
}

void AppDelegate::followPointer()
{
    const QPointF mouse = m_desktop.mouseLocation();
    if (m_spotlightOn) {
        for (const auto &overlay : m_overlays)
            overlay->view().setCursorPoint(mouse - overlay->window().frame().topLeft());
    }
    if (m_cursorRingOn && m_ringWindow)
        m_ringWindow->moveTo(mouse);
}

void AppDelegate::updateCursorRing()
{
    if (m_cursorRingOn) {
        if (!m_ringWindow)
            m_ringWindow = std::make_unique<CursorRing>(m_desktop);
        m_ringWindow->moveTo(m_desktop.mouseLocation());
        m_ringWindow->orderFrontRegardless();
    } else if (m_ringWindow) {
        m_ringWindow->orderOut();
    }
}

void AppDelegate::updateEscHotKey()
{
    if (!m_spotlightOn)
        m_escHotKeyRef.reset();
    else if (!m_escHotKeyRef)
        m_escHotKeyRef =
            m_desktop.hotKeys().registerHotKey(kEscHotKey.key, kEscHotKey.modifiers, kEscHotKey.id());
}

} // namespace zeigewerk
