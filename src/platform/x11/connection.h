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

/// Mask of the event type. The high bit marks an event that was sent by a client.
inline constexpr std::uint8_t kEventType = 0x7F;
inline constexpr std::uint32_t kLeftButton = 1;

/// Our own connection to the X server, besides Qt's. The main thread reads its events directly, without a
/// thread switch.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// Connects to $DISPLAY and prepares the extensions that the program needs. If this fails, returns none
    /// and sets `problem` to one line that says why.
    static std::unique_ptr<Connection> open(QString *problem);
    ~Connection() override;

    /// Calls `handler` for every event, from the event loop. Calls `beforeBlocking` at the end of each turn
    /// of the loop, when all events read so far are handled. Needs the application object.
    void start(std::function<void(const xcb_generic_event_t &)> handler,
               std::function<void()> beforeBlocking);

    /// While paused, incoming events are not handled.
    void pause();
    void resume();
    /// Handles all events that have happened so far, unless paused.
    void catchUp();

    xcb_connection_t *xcb() const { return m_xcb; }
    xcb_window_t root() const { return m_screen->root; }
    /// The number of the X screen: 1 for the display ":0.1".
    int screenNumber() const { return m_screenNumber; }
    /// The depth of windows with an alpha channel, and the visual and colormap that they need.
    static constexpr std::uint8_t kArgbDepth = 32;
    xcb_visualid_t argbVisual() const { return m_argbVisual; }
    xcb_colormap_t argbColormap() const { return m_argbColormap; }
    /// The arrow of the cursor theme.
    xcb_cursor_t arrowCursor() const { return m_arrowCursor; }
    bool hasSharedMemory() const { return m_hasSharedMemory; }

    std::uint8_t xinputOpcode() const { return m_xinputOpcode; }
    std::uint8_t xkbEvent() const { return m_xkbEvent; }

    xcb_atom_t atom(const char *name);
    bool isOurs(xcb_window_t window) const;
    /// Also treats the windows of `other` (Qt's connection) as ours, and flushes it at the end of each turn
    /// of the loop. It must outlive this connection.
    void adoptWindowsOf(xcb_connection_t *other);
    bool isAdopted(xcb_window_t window) const;

    /// Selects those events of the root window, or deselects them. Only one listener may use each event.
    void listenToRoot(std::uint32_t eventMask);
    void ignoreRoot(std::uint32_t eventMask);

    void flush() { xcb_flush(m_xcb); }
    /// Waits until the server has processed all requests.
    void roundTrip();
    /// The same for the adopted connection. The server may process requests of the two connections in any
    /// order, so wait between requests that depend on each other.
    void roundTripOfAdopted();

Q_SIGNALS:
    /// The connection to the server is broken.
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
