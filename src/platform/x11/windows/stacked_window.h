#pragma once

#include "platform/x11/windows/window_list.h"
#include "platform/x11/windows/window_services.h"

namespace zeigewerk::platform::x11 {

/// What surfaces and widget windows have in common: each is shown or hidden, and has its place among our
/// windows.
class StackedWindow
{
public:
    StackedWindow(const StackedWindow &) = delete;
    StackedWindow &operator=(const StackedWindow &) = delete;

protected:
    /// `entry` gives the level. It has no windows yet and is hidden.
    StackedWindow(const WindowServices &services, WindowList::Entry entry);
    ~StackedWindow();

    const WindowServices &services() const { return m_services; }
    /// The window that shows the picture; none before `setWindows`.
    xcb_window_t window() const;
    /// All windows that belong to this one, the lowest first; `window` is the first of them.
    void setWindows(std::vector<xcb_window_t> windows);

    bool isShown() const { return m_entry.isShown; }
    /// Brings the window to the front of its level, and shows it if it is hidden.
    void orderFront();
    /// Hides the window if it is shown.
    void hide();

private:
    void show();
    void stack();

    /// Does what must be done before the window is mapped. Creates the window if there is none yet.
    virtual void prepareToShow() = 0;
    virtual void map() = 0;
    virtual void unmap() = 0;

    const WindowServices &m_services;
    WindowList::Entry m_entry;
};

} // namespace zeigewerk::platform::x11
