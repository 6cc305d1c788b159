#include "clipboard_user.h"

#include "desktop_session.h"
#include "eventually.h"
#include "rig_error.h"

#include <array>

namespace zeigewerk::rig {

namespace {

constexpr std::chrono::milliseconds kPollInterval(2);
constexpr std::uint8_t kTypeMask = 0x7F;

} // namespace

ClipboardUser::ClipboardUser(DesktopSession &session)
    : m_client(session.display().name())
    , m_window(xcb_generate_id(m_client.connection()))
{
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_window, m_client.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    m_timer.callOnTimeout([this] { handleEvents(); });
    m_timer.start(kPollInterval);
}

void ClipboardUser::copy(const QString &text)
{
    m_text = text.toUtf8();
    xcb_set_selection_owner(m_client.connection(), m_window, m_client.atom("CLIPBOARD"), XCB_CURRENT_TIME);
    const auto cookie = xcb_get_selection_owner(m_client.connection(), m_client.atom("CLIPBOARD"));
    const auto reply = owned(xcb_get_selection_owner_reply(m_client.connection(), cookie, nullptr));
    if (!reply || reply->owner != m_window)
        failRig(QStringLiteral("another program keeps the clipboard"));
}

std::optional<QString> ClipboardUser::paste()
{
    m_reply.reset();
    const xcb_atom_t property = m_client.atom("PASTED");
    xcb_convert_selection(m_client.connection(), m_window, m_client.atom("CLIPBOARD"),
                          m_client.atom("UTF8_STRING"), property, XCB_CURRENT_TIME);
    xcb_flush(m_client.connection());
    if (!eventually([this] { return m_reply.has_value(); }) || *m_reply == XCB_ATOM_NONE)
        return std::nullopt;
    constexpr std::uint32_t kMaxWords = 1 << 16;
    const auto cookie = xcb_get_property(m_client.connection(), 1, m_window, property,
                                         m_client.atom("UTF8_STRING"), 0, kMaxWords);
    const auto reply = owned(xcb_get_property_reply(m_client.connection(), cookie, nullptr));
    if (!reply || reply->format != 8)
        return std::nullopt;
    return QString::fromUtf8(static_cast<const char *>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()));
}

void ClipboardUser::handleEvents()
{
    while (const auto event = owned(xcb_poll_for_event(m_client.connection()))) {
        const int type = event->response_type & kTypeMask;
        if (type == XCB_SELECTION_REQUEST)
            answer(reinterpret_cast<const xcb_selection_request_event_t &>(*event));
        else if (type == XCB_SELECTION_NOTIFY)
            m_reply = reinterpret_cast<const xcb_selection_notify_event_t &>(*event).property;
    }
}

void ClipboardUser::answer(const xcb_selection_request_event_t &request)
{
    xcb_selection_notify_event_t notify = {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = provide(request) ? request.property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(m_client.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&notify));
    xcb_flush(m_client.connection());
}

bool ClipboardUser::provide(const xcb_selection_request_event_t &request)
{
    const xcb_atom_t text = m_client.atom("UTF8_STRING");
    const xcb_atom_t targets = m_client.atom("TARGETS");
    if (request.target == targets) {
        const std::array offered = {targets, text};
        xcb_change_property(m_client.connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(offered.size()), offered.data());
        return true;
    }
    if (request.target != text)
        return false;
    xcb_change_property(m_client.connection(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        text, 8, static_cast<std::uint32_t>(m_text.size()), m_text.constData());
    return true;
}

} // namespace zeigewerk::rig
