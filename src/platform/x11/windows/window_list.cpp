#include "platform/x11/windows/window_list.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <tuple>

namespace zeigewerk::platform::x11 {

namespace {

/// Appends our menus, then our tooltips, each in the order in which they were made. They cover each other in
/// that order.
void appendPopups(std::vector<xcb_window_t> &windows)
{
    for (const Qt::WindowType type : {Qt::Popup, Qt::ToolTip}) {
        for (const QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->type() == type && window->isVisible() && window->handle())
                windows.push_back(static_cast<xcb_window_t>(window->winId()));
        }
    }
}

/// A widget window has no window of the server's before Qt has made one.
bool isOnDisplay(const WindowList::Entry *entry)
{
    return entry->isShown && !entry->windows.empty();
}

bool isBelow(const WindowList::Entry *a, const WindowList::Entry *b)
{
    return std::tuple(a->level, a->isTextField, a->order) < std::tuple(b->level, b->isTextField, b->order);
}

} // namespace

void WindowList::remove(const Entry &entry)
{
    std::erase(m_entries, &entry);
}

bool WindowList::isAnyShown() const
{
    return std::any_of(m_entries.begin(), m_entries.end(), &isOnDisplay);
}

std::vector<xcb_window_t> WindowList::shownFromBottom() const
{
    std::vector<const Entry *> shown;
    std::copy_if(m_entries.begin(), m_entries.end(), std::back_inserter(shown), &isOnDisplay);
    std::sort(shown.begin(), shown.end(), &isBelow);
    std::vector<xcb_window_t> windows;
    for (const Entry *entry : shown)
        windows.insert(windows.end(), entry->windows.begin(), entry->windows.end());
    // Popups open on top by themselves. They are listed because restacking the others may cover them.
    if (!windows.empty())
        appendPopups(windows);
    return windows;
}

} // namespace zeigewerk::platform::x11
