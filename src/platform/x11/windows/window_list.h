#pragma once

#include <QtGlobal>

#include <xcb/xcb.h>

#include <vector>

namespace zeigewerk::platform::x11 {

/// Our windows, which of them are shown, and which of them covers which.
class WindowList
{
public:
    /// One surface or widget window.
    struct Entry
    {
        /// Of `Levels`: a window covers all windows of lower levels.
        int level = 0;
        /// A text field covers every overlay, although it has their level.
        bool isTextField = false;
        bool isShown = false;
        /// The number of its last order-front, 0 before the first. Within a level the highest number is in
        /// front.
        quint64 order = 0;
        /// The server's windows that belong to the entry, the lowest first.
        std::vector<xcb_window_t> windows = {};
    };

    /// The list keeps a reference until the entry is removed.
    void add(const Entry &entry) { m_entries.push_back(&entry); }
    void remove(const Entry &entry);

    /// Puts the entry in front of its level.
    void orderFront(Entry &entry) { entry.order = ++m_lastOrder; }

    bool isAnyShown() const;
    /// The windows of all shown entries, the lowest first, with our menus and tooltips on top of them. Empty
    /// if no entry is shown.
    std::vector<xcb_window_t> shownFromBottom() const;

private:
    std::vector<const Entry *> m_entries;
    quint64 m_lastOrder = 0;
};

} // namespace zeigewerk::platform::x11
