#include "platform/x11/windows/stacked_window.h"

#include "platform/levels.h"

#include <utility>

namespace zeigewerk::platform::x11 {

StackedWindow::StackedWindow(const WindowServices &services, WindowList::Entry entry)
    : m_services(services)
    , m_entry(std::move(entry))
{
    m_services.windows.add(m_entry);
}

StackedWindow::~StackedWindow()
{
    m_services.windows.remove(m_entry);
    m_services.focus.forget(window());
    m_services.redrawReminder.forget(window());
    if (m_entry.isShown)
        m_services.stacking.windowHidden();
}

xcb_window_t StackedWindow::window() const
{
    return m_entry.windows.empty() ? xcb_window_t{XCB_NONE} : m_entry.windows.front();
}

void StackedWindow::setWindows(std::vector<xcb_window_t> windows)
{
    m_entry.windows = std::move(windows);
}

void StackedWindow::orderFront()
{
    const bool wasShownBefore = m_entry.order != 0;
    m_services.windows.orderFront(m_entry);
    if (!m_entry.isShown) {
        if (wasShownBefore)
            m_services.redrawReminder.windowComesBack(window());
        show();
    }
    // Moves a window that was shown before. For a new one, the window directly below may be gone by now.
    m_services.stacking.checkSoon();
}

void StackedWindow::show()
{
    m_entry.isShown = true;
    prepareToShow();
    // Some compositors draw override-redirect windows in the order in which they were mapped, so the window
    // gets its place first.
    stack();
    map();
}

void StackedWindow::stack()
{
    // There may be hundreds of effects, so a new one moves no other window.
    if (m_entry.level == Levels::effects)
        m_services.stacking.insert(window());
    else
        m_services.stacking.restack();
}

void StackedWindow::hide()
{
    if (!m_entry.isShown)
        return;
    m_entry.isShown = false;
    unmap();
    m_services.focus.forget(window());
    m_services.stacking.windowHidden();
}

} // namespace zeigewerk::platform::x11
