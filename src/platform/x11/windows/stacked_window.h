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
    /// `entry` says at which level the window stands.
    StackedWindow(const WindowServices &services, WindowList::Entry entry);
    ~StackedWindow();

    const WindowServices &services() const { return m_services; }
    /// The window that shows the picture; none before `setWindows`.
    xcb_window_t window() const;
    /// All windows that belong to this one, the lowest first; `window` is the first of them.
    void setWindows(std::vector<xcb_window_t> windows);

    bool isShown() const { return m_entry.isShown; }
    /// Shows the window in front of its level. Brings it there if it is shown already.
    void orderFront();
    /// Hides the window if it is shown.
    void hide();

private:
    void show();
    void stack();

    /// Makes the windows if there are none yet, and all that must be done before they are mapped.
    virtual void prepareToShow() = 0;
    virtual void map() = 0;
    virtual void unmap() = 0;

    const WindowServices &m_services;
    WindowList::Entry m_entry;
};

} // namespace zeigewerk::platform::x11
