// The windows that the desktop has made, and what of them lies above what.

#include "platform/x11/windows/x11_surface.h"
#include "platform/x11/windows/x11_widget_window.h"
#include "platform/x11/x11_desktop.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <tuple>

namespace zeigewerk::platform::x11 {

namespace {

/// Our menus, then our tooltips, each in the order in which they were made: so do they cover each other.
void appendPopups(std::vector<xcb_window_t> &windows)
{
    for (const Qt::WindowType type : {Qt::Popup, Qt::ToolTip}) {
        for (const QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->type() == type && window->isVisible() && window->handle())
                windows.push_back(static_cast<xcb_window_t>(window->winId()));
        }
    }
}

} // namespace

void X11Desktop::surfaceGone(X11Surface &surface)
{
    m_surfaces.erase(std::remove(m_surfaces.begin(), m_surfaces.end(), &surface), m_surfaces.end());
}

void X11Desktop::windowGone(X11WidgetWindow &window)
{
    m_widgetWindows.erase(std::remove(m_widgetWindows.begin(), m_widgetWindows.end(), &window),
                          m_widgetWindows.end());
}

X11Surface *X11Desktop::surfaceOf(xcb_window_t window) const
{
    const auto isThat = [window](const X11Surface *surface) { return surface->owns(window); };
    const auto found = std::find_if(m_surfaces.begin(), m_surfaces.end(), isThat);
    return found == m_surfaces.end() ? nullptr : *found;
}

std::vector<xcb_window_t> X11Desktop::windowsFromBottom() const
{
    struct Shown
    {
        int level;
        bool isOnOverlay;
        quint64 order;
        std::vector<xcb_window_t> windows;
    };
    std::vector<Shown> shown;
    for (const X11Surface *surface : m_surfaces) {
        if (surface->isVisible())
            shown.push_back(
                {levelOf(surface->role()), false, surface->orderedFront(), surface->shownWindows()});
    }
    for (const X11WidgetWindow *window : m_widgetWindows) {
        if (window->isVisible() && window->window() != XCB_NONE)
            shown.push_back({levelOf(window->role()),
                             window->role() == WidgetRole::TextField,
                             window->orderedFront(),
                             {window->window()}});
    }
    std::sort(shown.begin(), shown.end(), [](const Shown &a, const Shown &b) {
        return std::tuple(a.level, a.isOnOverlay, a.order) < std::tuple(b.level, b.isOnOverlay, b.order);
    });
    std::vector<xcb_window_t> windows;
    for (const Shown &one : shown)
        windows.insert(windows.end(), one.windows.begin(), one.windows.end());
    // They come up by themselves: only what may cover them needs them kept on top.
    if (!windows.empty())
        appendPopups(windows);
    return windows;
}

std::vector<QRect> X11Desktop::nativeScreens() const
{
    std::vector<QRect> frames;
    for (const Screen &screen : layout().screens())
        frames.push_back(screen.nativeFrame);
    return frames;
}

} // namespace zeigewerk::platform::x11
