// The test's own X connection to a display.
#pragma once

#include "xcb_reply.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <optional>

namespace zeigewerk::rig {

/// What the server knows about a window. Places are root coordinates in native pixels, without the X border.
struct WindowInfo
{
    xcb_window_t id = XCB_WINDOW_NONE;
    QRect geometry;
    /// It and all its ancestors are mapped: it is on the screen unless something covers it.
    bool viewable = false;
    bool overrideRedirect = false;
    bool inputOnly = false;
    std::uint8_t depth = 0;
    /// The class part of WM_CLASS; empty if not set.
    QString windowClass;
};

/// An xcb connection. Every query reflects the server's state at the time of the call.
class Client
{
public:
    /// Throws RigError if there is no such display.
    explicit Client(const QString &displayName);
    ~Client();
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    xcb_connection_t *connection() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }
    const xcb_screen_t &screen() const { return *m_screen; }

    /// The id of an atom, which is created if it does not exist.
    xcb_atom_t atom(const QByteArray &name);
    /// A window property of 32-bit values; empty if it does not exist.
    QList<quint32> property(xcb_window_t window, const QByteArray &name);
    bool selectionHasOwner(const QByteArray &name);
    /// Sends a request to the window manager, as a pager or a task bar does.
    void sendToRoot(xcb_window_t about, const QByteArray &message, const QList<quint32> &values);

    /// Flushes, waits until the server has processed everything, and drops pending events.
    void roundTrip();

    /// The focused window, or XCB_INPUT_FOCUS_NONE or XCB_INPUT_FOCUS_POINTER_ROOT.
    xcb_window_t inputFocus();
    /// Sets the focus directly, bypassing the window manager, as some programs do.
    void setInputFocus(xcb_window_t window);
    /// Nothing if there is no such window, or not any more.
    std::optional<WindowInfo> window(xcb_window_t id);
    /// The children of a window from bottom to top. For the root this is the stacking order; a managed window
    /// is represented by its frame.
    QList<xcb_window_t> stackedChildren(xcb_window_t parent);
    /// The root's child that contains the window: its frame, or the window itself.
    xcb_window_t topLevelOf(xcb_window_t window);
    /// Whether the first window is stacked above the second; false if one of them is gone.
    bool isAbove(xcb_window_t upper, xcb_window_t lower);
    /// The windows created on any connection of the process, from bottom to top, without children of such
    /// windows.
    QList<WindowInfo> windowsOfProcess(qint64 processId);
    /// Whether the id belongs to a connection of the process; the window need not exist any more.
    bool isOfProcess(xcb_window_t window, qint64 processId);
    /// The windows with that WM_CLASS class, from bottom to top.
    QList<WindowInfo> windowsOfClass(const QString &windowClass);

private:
    template <typename Accepts>
    void collectWindows(xcb_window_t parent, const Accepts &accepts, QList<WindowInfo> &found);
    QList<quint32> resourceBasesOf(qint64 processId);

    xcb_connection_t *m_connection = nullptr;
    xcb_screen_t *m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace zeigewerk::rig
