#include "client.h"

#include "rig_error.h"

#include <xcb/res.h>

namespace zeigewerk::rig {

Client::Client(const QString &displayName)
{
    int screenNumber = 0;
    m_connection = xcb_connect(displayName.toLatin1().constData(), &screenNumber);
    if (xcb_connection_has_error(m_connection) != 0) {
        xcb_disconnect(m_connection);
        failRig(QStringLiteral("no connection to display %1").arg(displayName));
    }
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

Client::~Client()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t Client::atom(const QByteArray &name)
{
    if (const auto known = m_atoms.constFind(name); known != m_atoms.cend())
        return *known;
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    m_atoms.insert(name, reply->atom);
    return reply->atom;
}

QList<quint32> Client::property(xcb_window_t window, const QByteArray &name)
{
    constexpr std::uint32_t kMaxWords = 4096;
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, kMaxWords);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QList<quint32>(values, values + reply->value_len);
}

bool Client::selectionHasOwner(const QByteArray &name)
{
    const auto cookie = xcb_get_selection_owner(m_connection, atom(name));
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void Client::sendToRoot(xcb_window_t about, const QByteArray &message, const QList<quint32> &values)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = about;
    event.type = atom(message);
    for (qsizetype i = 0; i < values.size() && i < 5; ++i)
        event.data.data32[i] = values.at(i);
    xcb_send_event(m_connection, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    roundTrip();
}

void Client::roundTrip()
{
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    while (owned(xcb_poll_for_event(m_connection))) {
    }
}

xcb_window_t Client::inputFocus()
{
    const auto cookie = xcb_get_input_focus(m_connection);
    const auto reply = owned(xcb_get_input_focus_reply(m_connection, cookie, nullptr));
    return reply ? reply->focus : xcb_window_t(XCB_INPUT_FOCUS_NONE);
}

void Client::setInputFocus(xcb_window_t window)
{
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    roundTrip();
}

std::optional<WindowInfo> Client::window(xcb_window_t id)
{
    const auto classCookie =
        xcb_get_property(m_connection, 0, id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256);
    const auto attributesCookie = xcb_get_window_attributes(m_connection, id);
    const auto geometryCookie = xcb_get_geometry(m_connection, id);
    const auto originCookie = xcb_translate_coordinates(m_connection, id, root(), 0, 0);
    const auto name = owned(xcb_get_property_reply(m_connection, classCookie, nullptr));
    const auto attributes = owned(xcb_get_window_attributes_reply(m_connection, attributesCookie, nullptr));
    const auto geometry = owned(xcb_get_geometry_reply(m_connection, geometryCookie, nullptr));
    const auto origin = owned(xcb_translate_coordinates_reply(m_connection, originCookie, nullptr));
    if (!name || !attributes || !geometry || !origin)
        return std::nullopt;

    WindowInfo info;
    info.id = id;
    info.geometry = QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    info.viewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    info.overrideRedirect = attributes->override_redirect != 0;
    info.inputOnly = attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY;
    info.depth = geometry->depth;
    // "instance\0class\0"
    const QByteArray names(static_cast<const char *>(xcb_get_property_value(name.get())),
                           xcb_get_property_value_length(name.get()));
    info.windowClass = QString::fromLatin1(names.split('\0').value(1));
    return info;
}

QList<xcb_window_t> Client::stackedChildren(xcb_window_t parent)
{
    const auto reply =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, parent), nullptr));
    if (!reply)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(reply.get());
    return QList<xcb_window_t>(children, children + xcb_query_tree_children_length(reply.get()));
}

xcb_window_t Client::topLevelOf(xcb_window_t window)
{
    while (true) {
        const auto reply =
            owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (!reply)
            return XCB_WINDOW_NONE;
        if (reply->parent == root() || reply->parent == XCB_WINDOW_NONE)
            return window;
        window = reply->parent;
    }
}

bool Client::isAbove(xcb_window_t upper, xcb_window_t lower)
{
    const xcb_window_t upperTop = topLevelOf(upper);
    const xcb_window_t lowerTop = topLevelOf(lower);
    const QList<xcb_window_t> stack = stackedChildren(root());
    const qsizetype lowerPlace = stack.indexOf(lowerTop);
    return lowerPlace >= 0 && stack.indexOf(upperTop) > lowerPlace;
}

QList<WindowInfo> Client::windowsOfProcess(qint64 processId)
{
    const QList<quint32> bases = resourceBasesOf(processId);
    const quint32 baseMask = ~xcb_get_setup(m_connection)->resource_id_mask;
    QList<WindowInfo> found;
    collectWindows(
        root(), [&](const WindowInfo &info) { return bases.contains(info.id & baseMask); }, found);
    return found;
}

bool Client::isOfProcess(xcb_window_t window, qint64 processId)
{
    return resourceBasesOf(processId).contains(window & ~xcb_get_setup(m_connection)->resource_id_mask);
}

QList<WindowInfo> Client::windowsOfClass(const QString &windowClass)
{
    QList<WindowInfo> found;
    collectWindows(
        root(), [&](const WindowInfo &info) { return info.windowClass == windowClass; }, found);
    return found;
}

template <typename Accepts>
void Client::collectWindows(xcb_window_t parent, const Accepts &accepts, QList<WindowInfo> &found)
{
    for (const xcb_window_t child : stackedChildren(parent)) {
        const std::optional<WindowInfo> info = window(child);
        if (!info)
            continue;
        if (accepts(*info))
            found.append(*info);
        else
            collectWindows(child, accepts, found);
    }
}

QList<quint32> Client::resourceBasesOf(qint64 processId)
{
    // The server knows the process behind each socket. _NET_WM_PID is set by the program itself, and
    // override-redirect windows rarely have it.
    const xcb_res_client_id_spec_t everyClient = {0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(m_connection, 1, &everyClient);
    const auto reply = owned(xcb_res_query_client_ids_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    const quint32 baseMask = ~xcb_get_setup(m_connection)->resource_id_mask;
    QList<quint32> bases;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if (xcb_res_client_id_value_value_length(ids.data) > 0 &&
            *xcb_res_client_id_value_value(ids.data) == static_cast<quint32>(processId))
            bases.append(ids.data->spec.client & baseMask);
    }
    return bases;
}

} // namespace zeigewerk::rig
