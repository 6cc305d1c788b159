#pragma once

#include "platform/x11/reply.h"

#include <QLoggingCategory>
#include <QObject>
#include <QString>

#include <functional>
#include <map>

class QSocketNotifier;

namespace zeigewerk::platform::x11 {

Q_DECLARE_LOGGING_CATEGORY(logX11)

/// Of the type that an event gives; the high bit says that a client sent it.
inline constexpr std::uint8_t kEventType = 0x7F;
inline constexpr std::uint32_t kLeftButton = 1;

/// Our own connection to the X server, beside that of Qt: events come straight from its socket to the main
/// thread, without a thread switch each.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// Connects to $DISPLAY and prepares the extensions that the program needs. `problem` says in one line
    /// why there is no connection when none is returned.
    static std::unique_ptr<Connection> open(QString *problem);
    ~Connection() override;

    /// Calls `handler` for every event from the event loop, and `beforeBlocking` at the end of each turn of
    /// the loop, after the events that have been read by then. Needs the application object.
    void start(std::function<void(const xcb_generic_event_t &)> handler,
               std::function<void()> beforeBlocking);

    /// Leaves the events that come alone, until it is told to go on.
    void pause();
    void resume();
    /// Handles what has happened by now, unless it is paused.
    void catchUp();

    xcb_connection_t *xcb() const { return m_xcb; }
    xcb_window_t root() const { return m_screen->root; }
    /// Which of the server's screens, in the sense of ":0.1", this is.
    int screenNumber() const { return m_screenNumber; }
    /// The visual with an alpha channel.
    static constexpr std::uint8_t kArgbDepth = 32;
    xcb_visualid_t argbVisual() const { return m_argbVisual; }
    xcb_colormap_t argbColormap() const { return m_argbColormap; }
    /// The theme's arrow.
    xcb_cursor_t arrowCursor() const { return m_arrowCursor; }
    bool hasSharedMemory() const { return m_hasSharedMemory; }

    std::uint8_t xinputOpcode() const { return m_xinputOpcode; }
    std::uint8_t xkbEvent() const { return m_xkbEvent; }

    xcb_atom_t atom(const char *name);
    bool isOurs(xcb_window_t window) const;
    /// Marks the windows of another connection of this process (Qt's), which outlives this one, as ours too,
    /// and sends its requests at the end of each turn of the loop.
    void adoptWindowsOf(xcb_connection_t *other);
    bool isAdopted(xcb_window_t window) const;

    /// Has the server tell of those events of the root window, or no longer. Each kind has one listener.
    void listenToRoot(std::uint32_t eventMask);
    void ignoreRoot(std::uint32_t eventMask);

    void flush() { xcb_flush(m_xcb); }
    /// Waits until the server has done everything that was asked of it.
    void roundTrip();
    /// The same for the adopted connection. Requests on the two are not ordered: between one on this and one
    /// on that which must come after it, wait.
    void roundTripOfAdopted();

Q_SIGNALS:
    /// The server has gone away.
    void lost();

private:
    Connection(xcb_connection_t *xcb, xcb_screen_t *screen, int screenNumber);

    QString prepareExtensions();
    bool findArgbVisual();
    void loadArrow();
    void readEvents();
    void endTurn();
    bool handleQueuedEvents();
    void selectRootEvents(std::uint32_t eventMask);

    struct ResourceRange
    {
        std::uint32_t base = 0;
        std::uint32_t mask = 0;
        bool holds(std::uint32_t id) const { return (id & ~mask) == base; }
    };
    static ResourceRange rangeOf(xcb_connection_t *connection);

    xcb_connection_t *m_xcb;
    xcb_screen_t *m_screen;
    int m_screenNumber;
    xcb_visualid_t m_argbVisual = 0;
    xcb_colormap_t m_argbColormap = 0;
    xcb_cursor_t m_arrowCursor = 0;
    bool m_hasSharedMemory = false;
    std::uint8_t m_xinputOpcode = 0;
    std::uint8_t m_xkbEvent = 0;
    std::uint32_t m_rootEventMask = 0;
    ResourceRange m_own;
    xcb_connection_t *m_adopted = nullptr;
    ResourceRange m_adoptedRange;
    std::map<std::string, xcb_atom_t, std::less<>> m_atoms;
    std::function<void(const xcb_generic_event_t &)> m_handler;
    std::function<void()> m_beforeBlocking;
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_isPaused = false;
};

} // namespace zeigewerk::platform::x11
