#include "toolbar/toolbar_placement.h"

#include "toolbar/toolbar_frame.h"

#include <algorithm>

namespace zeigewerk {

ToolbarPlacement::ToolbarPlacement(platform::Desktop &desktop, platform::WidgetWindow &window,
                                   UserDefaults &defaults)
    : m_desktop(desktop)
    , m_window(window)
    , m_defaults(defaults)
{
}

void ToolbarPlacement::place()
{
    if (const auto text = m_defaults.stringForKey(kToolbarFrameKey)) {
        if (const auto saved = SavedFrame::fromString(*text))
            return placeSaved(saved->frame.topLeft(), saved->screenName);
    }
    if (const auto screen = homeScreen())
        m_window.setFrameOrigin(firstPlace(m_desktop.visibleFrame(*screen), m_window.frame().size()));
}

void ToolbarPlacement::placeSaved(QPointF origin, const QString &screenName)
{
    // Only the saved corner counts; the toolbar has its own size.
    const QRectF frame(origin, m_window.frame().size());
    if (isReachable(frame, m_desktop.screens())) {
        m_window.setFrameOrigin(origin);
        return;
    }
    auto screen = screenNamed(screenName);
    if (!screen)
        screen = homeScreen();
    if (screen)
        m_window.setFrameOrigin(broughtIntoView(frame, m_desktop.visibleFrame(*screen)));
}

std::optional<platform::Screen> ToolbarPlacement::homeScreen()
{
    if (auto screen = screenNamed(m_homeScreen))
        return screen;
    auto screen = m_desktop.mainScreen();
    // While its home screen is disconnected, another screen does not become its home.
    if (screen && m_homeScreen.isEmpty())
        m_homeScreen = screen->name;
    return screen;
}

std::optional<platform::Screen> ToolbarPlacement::screenNamed(const QString &name) const
{
    const std::vector<platform::Screen> screens = m_desktop.screens();
    const auto found = std::find_if(screens.begin(), screens.end(),
                                    [&](const platform::Screen &screen) { return screen.name == name; });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

void ToolbarPlacement::dragBegan(QPointF grip)
{
    m_grip = grip;
    m_isMoved = false;
}

void ToolbarPlacement::dragMoved(QPointF position)
{
    const QPointF before = m_window.frame().topLeft();
    m_window.drag(m_grip, position);
    m_isMoved = m_isMoved || m_window.frame().topLeft() != before;
}

void ToolbarPlacement::dragEnded()
{
    if (!m_isMoved)
        return;
    const QRectF frame = m_window.frame();
    m_defaults.setString(kToolbarFrameKey,
                         SavedFrame{.frame = frame, .screenName = screenUnder(frame)}.toString());
}

QString ToolbarPlacement::screenUnder(const QRectF &frame) const
{
    QString name;
    double largest = 0.0;
    for (const platform::Screen &screen : m_desktop.screens()) {
        const QRectF shown = screen.frame & frame;
        if (shown.width() * shown.height() > largest) {
            largest = shown.width() * shown.height();
            name = screen.name;
        }
    }
    return name;
}

} // namespace zeigewerk
