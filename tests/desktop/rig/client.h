// The test's own eyes and hands on a display.
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

/// What the server knows of a window. Places are root coordinates in native pixels, without the X border.
struct WindowInfo
{
    xcb_window_t id = XCB_WINDOW_NONE;
    QRect geometry;
    /// Mapped, and so are all its ancestors: it is on the screen unless something covers it.
    bool viewable = false;
    bool overrideRedirect = false;
    bool inputOnly = false;
    std::uint8_t depth = 0;
    /// The class part of WM_CLASS; empty where a program set none.
    QString windowClass;
};

/// One xcb connection. All its questions are answered by the server at the moment they are asked.
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

    /// The id of an atom, made if it did not exist.
    xcb_atom_t atom(const QByteArray &name);
    /// A window property of 32-bit values; empty if it does not exist.
    QList<quint32> property(xcb_window_t window, const QByteArray &name);
    bool selectionHasOwner(const QByteArray &name);
    /// Asks the window manager, as a pager or a task bar does.
    void sendToRoot(xcb_window_t about, const QByteArray &message, const QList<quint32> &values);

    /// Sends everything and comes back when the server has done it; drops events nobody reads.
    void roundTrip();

    /// The window whose keys these are now, or XCB_INPUT_FOCUS_NONE or XCB_INPUT_FOCUS_POINTER_ROOT.
    xcb_window_t inputFocus();
    /// Gives the keyboard to a window past the window manager, as some programs do.
    void setInputFocus(xcb_window_t window);
    /// Nothing if there is no such window (any more).
    std::optional<WindowInfo> window(xcb_window_t id);
    /// The children of a window from the bottom to the top. Those of the root are the stacking order;
    /// a managed window's place there is that of its frame.
    QList<xcb_window_t> stackedChildren(xcb_window_t parent);
    /// The root's child that holds the window: its frame, or itself.
    xcb_window_t topLevelOf(xcb_window_t window);
    /// Whether the first window is stacked above the second, or false if one of them is gone.
    bool isAbove(xcb_window_t upper, xcb_window_t lower);
    /// Windows made on any of the process's connections, from the bottom to the top, children of such windows
    /// not included.
    QList<WindowInfo> windowsOfProcess(qint64 processId);
    /// Whether the id belongs to one of the process's connections; it need not be that of a living window.
    bool isOfProcess(xcb_window_t window, qint64 processId);
    /// Windows of that WM_CLASS class, from the bottom to the top.
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
