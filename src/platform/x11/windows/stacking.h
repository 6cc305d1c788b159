#pragma once

#include "platform/x11/connection.h"

#include <QElapsedTimer>
#include <QRect>
#include <QTimer>

#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps our windows in their order among themselves and above whatever other programs raise, save a screen
/// locker.
class Stacking : public QObject
{
    Q_OBJECT

public:
    /// `windows` tells which of our windows are to be shown, the lowest first; `screens` the screens in
    /// pixels.
    Stacking(Connection &connection, std::function<std::vector<xcb_window_t>()> windows,
             std::function<std::vector<QRect>()> screens);

    /// Puts our windows, mapped or not, in their order above the others.
    void restack();
    /// Puts one of our windows, which is not mapped yet, in its place among the others. They keep theirs:
    /// with hundreds of them, each new one would else move all.
    void insert(xcb_window_t window);
    /// Something was raised or mapped: looks a little later whether our order still holds.
    void checkSoon();
    /// One of our windows was hidden.
    void windowHidden();
    /// A structure event of the root window, other than that one of its children was mapped.
    void structureChanged(xcb_window_t window);
    /// A child of the root window was mapped.
    void windowMapped(xcb_window_t window);

private:
    /// A child of the root window, as much of it as matters here.
    struct Child
    {
        xcb_window_t window;
        bool isOurs;
        bool isViewable;
        bool isOverrideRedirect;
        QRect frame;
    };

    /// Where the lowest of our windows belongs: right above or below another one, or on top of everything.
    struct Place
    {
        xcb_window_t sibling;
        std::uint32_t mode;
    };

    std::vector<Child> childrenFromTop() const;
    /// The highest window of another program that is to be below ours.
    xcb_window_t highestForeign(const std::vector<Child> &children) const;
    Place lowestPlace(const std::vector<Child> &children) const;
    /// The lowest screen locker, or the first child when there is none.
    std::vector<Child>::const_iterator lowestLocker(const std::vector<Child> &children) const;
    bool isInOrder(const std::vector<Child> &children) const;
    bool isScreenLocker(const Child &child) const;
    QRect rootFrame() const;
    bool belongsToWindowManager(xcb_window_t window) const;
    void restackFrom(Place lowest);
    void put(xcb_window_t window, Place place);
    void check();

    Connection &m_connection;
    std::function<std::vector<xcb_window_t>()> m_windows;
    std::function<std::vector<QRect>()> m_screens;
    QTimer m_check;
    QTimer m_trailingCheck;
    QElapsedTimer m_sinceCheck;
    QElapsedTimer m_sinceRestack;
};

} // namespace zeigewerk::platform::x11
