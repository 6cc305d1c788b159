#include "window_manager_probe.h"

namespace zeigewerk::rig {

WindowManagerProbe::WindowManagerProbe(Client &client)
    : m_client(client)
    , m_id(xcb_generate_id(client.connection()))
{
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_id, m_client.root(), 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

WindowManagerProbe::~WindowManagerProbe()
{
    if (!m_isDestroyed)
        xcb_destroy_window(m_client.connection(), m_id);
    m_client.roundTrip();
}

bool WindowManagerProbe::isManaged()
{
    // It need not be on the screen: some managers do not show windows beneath a full-screen one.
    if (isListed())
        return true;
    xcb_map_window(m_client.connection(), m_id);
    m_client.roundTrip();
    return false;
}

bool WindowManagerProbe::isForgotten()
{
    if (!m_isDestroyed)
        xcb_destroy_window(m_client.connection(), m_id);
    m_isDestroyed = true;
    return !isListed();
}

bool WindowManagerProbe::isListed()
{
    return m_client.property(m_client.root(), "_NET_CLIENT_LIST").contains(m_id);
}

} // namespace zeigewerk::rig
