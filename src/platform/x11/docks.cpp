#include "platform/x11/docks.h"

#include "platform/x11/properties.h"

namespace zeigewerk::platform::x11 {

QSize desktopSize(Connection &connection)
{
    // The size in the connection's setup is outdated once a screen is added or removed.
    const auto cookie = xcb_get_geometry(connection.xcb(), connection.root());
    const auto reply = owned(xcb_get_geometry_reply(connection.xcb(), cookie, nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

std::vector<Strut> strutsOfDocks(Connection &connection, const QSize &desktop)
{
    const std::vector<xcb_window_t> clients =
        NumbersRequest(connection, connection.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW).take();
    // All requests are sent before the first reply is read: one round trip for all.
    std::vector<std::pair<NumbersRequest, NumbersRequest>> requests;
    requests.reserve(clients.size());
    for (const xcb_window_t client : clients)
        requests.emplace_back(NumbersRequest(connection, client, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL),
                              NumbersRequest(connection, client, "_NET_WM_STRUT", XCB_ATOM_CARDINAL));

    std::vector<Strut> struts;
    for (auto &[withRanges, depthsOnly] : requests) {
        const std::vector<std::uint32_t> precise = withRanges.take();
        const std::vector<std::uint32_t> simple = depthsOnly.take();
        const std::vector<Strut> ofClient = strutsOf(precise.empty() ? simple : precise, desktop);
        struts.insert(struts.end(), ofClient.begin(), ofClient.end());
    }
    return struts;
}

} // namespace zeigewerk::platform::x11
