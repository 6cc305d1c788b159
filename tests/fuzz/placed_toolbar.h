#pragma once

#include "recording/recording_desktop.h"
#include "toolbar/toolbar_placement.h"

#include <QWidget>

namespace zeigewerk::fuzz {

inline std::vector<platform::Screen> twoScreens()
{
    return {{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}},
            {.name = QStringLiteral("B"), .nativeFrame = {1000, 0, 1600, 1200}, .scale = 2, .frame = {}}};
}

/// A window of the toolbar's size, placed the way the toolbar is.
class PlacedToolbar
{
public:
    PlacedToolbar(std::vector<platform::Screen> screens, UserDefaults &defaults)
        : m_desktop(std::move(screens))
    {
        constexpr QSize kSize(151, 477);
        m_panel.setFixedSize(kSize);
        m_window = m_desktop.makeWindow(platform::WidgetRole::Toolbar, m_panel, {});
        ToolbarPlacement(m_desktop, *m_window, defaults).place();
    }

    QRectF frame() const { return m_window->frame(); }
    std::vector<platform::Screen> screens() const { return m_desktop.screens(); }

private:
    platform::RecordingDesktop m_desktop;
    QWidget m_panel;
    // Shows the panel, so it is destroyed first.
    std::unique_ptr<platform::WidgetWindow> m_window;
};

} // namespace zeigewerk::fuzz
