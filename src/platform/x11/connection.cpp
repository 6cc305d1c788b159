#include "platform/x11/connection.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xcb_cursor.h>
#include <xcb/xinput.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <cstring>
#include <string>
#include <utility>

namespace zeigewerk::platform::x11 {

Q_LOGGING_CATEGORY(logX11, "zeigewerk.x11", QtWarningMsg)

std::unique_ptr<Connection> Connection::open(QString *problem)
{
    int screenNumber = 0;
    xcb_connection_t *xcb = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(xcb)) {
        const QByteArray display = qgetenv("DISPLAY");
        *problem =
            display.isEmpty()
                ? QStringLiteral("no X11 display: DISPLAY is not set")
                : QStringLiteral("cannot reach the X11 display %1").arg(QString::fromLocal8Bit(display));
        xcb_disconnect(xcb);
        return nullptr;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    std::unique_ptr<Connection> connection(new Connection(xcb, screens.data, screenNumber));
    *problem = connection->prepareExtensions();
    return problem->isEmpty() ? std::move(connection) : nullptr;
}

Connection::Connection(xcb_connection_t *xcb, xcb_screen_t *screen, int screenNumber)
    : m_xcb(xcb)
    , m_screen(screen)
    , m_screenNumber(screenNumber)
    , m_own(rangeOf(xcb))
{
}

Connection::~Connection()
{
    m_notifier.reset();
    xcb_disconnect(m_xcb);
}

QString Connection::prepareExtensions()
{
    if (!findArgbVisual())
        return QStringLiteral("the X11 display has no visual with transparency");

    xcb_prefetch_extension_data(m_xcb, &xcb_input_id);
    xcb_prefetch_extension_data(m_xcb, &xcb_shm_id);
    xcb_prefetch_extension_data(m_xcb, &xcb_shape_id);
    xcb_prefetch_extension_data(m_xcb, &xcb_randr_id);

    const auto *input = xcb_get_extension_data(m_xcb, &xcb_input_id);
    if (!input->present)
        return QStringLiteral("the X11 display lacks the X Input extension");
    m_xinputOpcode = input->major_opcode;
    // A client that announces a version below 2.1 gets no raw events while another program has a grab.
    const auto version =
        owned(xcb_input_xi_query_version_reply(m_xcb, xcb_input_xi_query_version(m_xcb, 2, 3), nullptr));
    if (!version || version->major_version < 2)
        return QStringLiteral("the X11 display lacks X Input 2");
    if (!xcb_get_extension_data(m_xcb, &xcb_shape_id)->present)
        return QStringLiteral("the X11 display lacks the Shape extension");

    if (!xcb_get_extension_data(m_xcb, &xcb_randr_id)->present)
        return QStringLiteral("the X11 display lacks the RandR extension");

    if (!xkb_x11_setup_xkb_extension(m_xcb, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                     XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_xkbEvent,
                                     nullptr))
        return QStringLiteral("the X11 display lacks the XKB extension");

    const auto *shm = xcb_get_extension_data(m_xcb, &xcb_shm_id);
    if (shm->present) {
        const auto shmVersion =
            owned(xcb_shm_query_version_reply(m_xcb, xcb_shm_query_version(m_xcb), nullptr));
        // File descriptors can be passed since 1.2.
        m_hasSharedMemory = shmVersion && (shmVersion->major_version > 1 || shmVersion->minor_version >= 2);
    }
    loadArrow();
    return {};
}

bool Connection::findArgbVisual()
{
    for (auto depth = xcb_screen_allowed_depths_iterator(m_screen); depth.rem; xcb_depth_next(&depth)) {
        if (depth.data->depth != kArgbDepth)
            continue;
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual)) {
            if (visual.data->_class != XCB_VISUAL_CLASS_TRUE_COLOR)
                continue;
            m_argbVisual = visual.data->visual_id;
            m_argbColormap = xcb_generate_id(m_xcb);
            xcb_create_colormap(m_xcb, XCB_COLORMAP_ALLOC_NONE, m_argbColormap, root(), m_argbVisual);
            return true;
        }
    }
    return false;
}

void Connection::loadArrow()
{
    xcb_cursor_context_t *context = nullptr;
    if (xcb_cursor_context_new(m_xcb, m_screen, &context) < 0)
        return; // the surfaces then inherit the root window's cursor
    m_arrowCursor = xcb_cursor_load_cursor(context, "left_ptr");
    xcb_cursor_context_free(context);
}

void Connection::start(std::function<void(const xcb_generic_event_t &)> handler,
                       std::function<void()> beforeBlocking)
{
    m_handler = std::move(handler);
    m_beforeBlocking = std::move(beforeBlocking);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_xcb), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &Connection::readEvents);
    // While waiting for a reply, xcb queues events, and the socket does not report them.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &Connection::endTurn);
}

void Connection::pause()
{
    m_isPaused = true;
    m_notifier->setEnabled(false);
}

void Connection::resume()
{
    m_isPaused = false;
    m_notifier->setEnabled(true);
    readEvents();
}

void Connection::catchUp()
{
    roundTrip();
    handleQueuedEvents();
}

void Connection::readEvents()
{
    if (m_isPaused)
        return;
    // Read the socket once and handle what was read. Later events wake the event loop again.
    if (const auto event = owned(xcb_poll_for_event(m_xcb)))
        m_handler(*event);
    handleQueuedEvents();
    if (xcb_connection_has_error(m_xcb)) {
        m_notifier->setEnabled(false);
        Q_EMIT lost();
    }
}

void Connection::endTurn()
{
    // Painting and flushing may read events into the queue, which would stay there until the next event.
    do {
        handleQueuedEvents();
        m_beforeBlocking();
        flush();
        // Qt flushes its connection only after its own events.
        if (m_adopted)
            xcb_flush(m_adopted);
    } while (handleQueuedEvents());
}

bool Connection::handleQueuedEvents()
{
    bool hasHandled = false;
    while (!m_isPaused) {
        const auto event = owned(xcb_poll_for_queued_event(m_xcb));
        if (!event)
            break;
        m_handler(*event);
        hasHandled = true;
    }
    return hasHandled;
}

void Connection::listenToRoot(std::uint32_t eventMask)
{
    selectRootEvents(m_rootEventMask | eventMask);
}

void Connection::ignoreRoot(std::uint32_t eventMask)
{
    selectRootEvents(m_rootEventMask & ~eventMask);
}

void Connection::selectRootEvents(std::uint32_t eventMask)
{
    if (eventMask == m_rootEventMask)
        return;
    m_rootEventMask = eventMask;
    xcb_change_window_attributes(m_xcb, root(), XCB_CW_EVENT_MASK, &m_rootEventMask);
}

xcb_atom_t Connection::atom(const char *name)
{
    const auto known = m_atoms.find(std::string_view(name));
    if (known != m_atoms.end())
        return known->second;
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto reply = owned(xcb_intern_atom_reply(m_xcb, xcb_intern_atom(m_xcb, 0, length, name), nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    m_atoms.emplace(name, atom);
    return atom;
}

Connection::ResourceRange Connection::rangeOf(xcb_connection_t *connection)
{
    const xcb_setup_t *setup = xcb_get_setup(connection);
    return {setup->resource_id_base, setup->resource_id_mask};
}

bool Connection::isOurs(xcb_window_t window) const
{
    return m_own.holds(window) || isAdopted(window);
}

bool Connection::isAdopted(xcb_window_t window) const
{
    return m_adopted && m_adoptedRange.holds(window);
}

void Connection::adoptWindowsOf(xcb_connection_t *other)
{
    m_adopted = other;
    m_adoptedRange = rangeOf(other);
}

void Connection::roundTrip()
{
    owned(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
}

void Connection::roundTripOfAdopted()
{
    if (m_adopted)
        owned(xcb_get_input_focus_reply(m_adopted, xcb_get_input_focus(m_adopted), nullptr));
}

} // namespace zeigewerk::platform::x11
