#include "ping_probe.h"

#include "desktop_session.h"
#include "eventually.h"
#include "program.h"

namespace zeigewerk::rig {

PingProbe::PingProbe(DesktopSession &session)
    : m_client(session.display().name())
{
    // Qt sends its replies to the root window, to clients that select one of two event masks; this is one of
    // them.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_client.connection(), m_client.root(), XCB_CW_EVENT_MASK, &events);
    m_client.roundTrip();
}

bool PingProbe::isResponding(const Program &program, std::chrono::milliseconds deadline)
{
    return respondsOnce(program, deadline) && respondsOnce(program, deadline);
}

bool PingProbe::respondsOnce(const Program &program, std::chrono::milliseconds deadline)
{
    xcb_window_t pinged = XCB_WINDOW_NONE;
    bool isReplied = false;
    const auto isSettled = [&] {
        // A text field's window may be destroyed before it handles the ping; then there is no reply, and the
        // next window is tried.
        if (const xcb_window_t window = windowOf(program); window != pinged) {
            pinged = window;
            ping(window);
        }
        isReplied = hasReply();
        return isReplied || pinged == XCB_WINDOW_NONE || !program.isRunning();
    };
    eventually(isSettled, deadline);
    return isReplied;
}

xcb_window_t PingProbe::windowOf(const Program &program)
{
    if (m_client.isOfProcess(m_window, program.processId()) && m_client.window(m_window))
        return m_window;
    m_window = XCB_WINDOW_NONE;
    for (const WindowInfo &info : m_client.windowsOfProcess(program.processId())) {
        if (m_client.property(info.id, "WM_PROTOCOLS").contains(m_client.atom("_NET_WM_PING")))
            m_window = info.id;
    }
    return m_window;
}

void PingProbe::ping(xcb_window_t window)
{
    if (window == XCB_WINDOW_NONE)
        return;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_client.atom("WM_PROTOCOLS");
    event.data.data32[0] = m_client.atom("_NET_WM_PING");
    // Sent in place of the timestamp; the reply contains it unchanged.
    event.data.data32[1] = ++m_serial;
    event.data.data32[2] = window;
    xcb_send_event(m_client.connection(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_client.connection());
}

bool PingProbe::hasReply()
{
    constexpr int kSentFlag = 0x80;
    while (const auto event = owned(xcb_poll_for_event(m_client.connection()))) {
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(*event);
        if ((event->response_type & ~kSentFlag) == XCB_CLIENT_MESSAGE &&
            message.type == m_client.atom("WM_PROTOCOLS") && message.data.data32[1] == m_serial)
            return true;
    }
    return false;
}

} // namespace zeigewerk::rig
