#include "platform/x11/windows/stacking.h"

#include "platform/x11/properties.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <span>
#include <utility>

namespace zeigewerk::platform::x11 {

using namespace std::chrono_literals;

namespace {

/// Windows are raised in bursts. One check covers a burst.
constexpr auto kCheckDelay = 10ms;
/// A window that is being moved sends a hundred events a second.
constexpr auto kMinCheckInterval = 100ms;
/// Some window managers restack a new window a second time.
constexpr auto kTrailingCheckDelay = 250ms;
/// Limits the load if another program also keeps raising its window.
constexpr auto kMinRestackInterval = 50ms;

QRect frameOf(const xcb_get_geometry_reply_t &geometry)
{
    return {geometry.x, geometry.y, geometry.width, geometry.height};
}

bool areOfOneClient(xcb_connection_t *xcb, xcb_window_t one, xcb_window_t other)
{
    // The server gives every client a range of ids, all of the same size.
    const std::uint32_t mask = xcb_get_setup(xcb)->resource_id_mask;
    return (one & ~mask) == (other & ~mask);
}

} // namespace

Stacking::Stacking(Connection &connection, const Screens &screens, const WindowList &ours)
    : m_connection(connection)
    , m_screens(screens)
    , m_ours(ours)
{
    for (QTimer *timer : {&m_check, &m_trailingCheck}) {
        timer->setSingleShot(true);
        timer->callOnTimeout(this, &Stacking::check);
    }
}

void Stacking::structureChanged(xcb_window_t window)
{
    if (!m_connection.isOurs(window))
        checkSoon();
}

void Stacking::windowMapped(xcb_window_t window)
{
    // Our menus and tooltips map themselves. Restacking maps no window, so this does not loop.
    if (!m_connection.isOurs(window) || m_connection.isAdopted(window))
        checkSoon();
}

void Stacking::windowHidden()
{
    // With no window to keep on top, changes of other windows must not wake the program.
    if (!m_ours.isAnyShown()) {
        m_connection.ignoreRoot(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
        m_check.stop();
        m_trailingCheck.stop();
    }
}

void Stacking::checkSoon()
{
    const bool isCheckedRecently =
        m_sinceCheck.isValid() && !m_sinceCheck.hasExpired(kMinCheckInterval.count());
    if (!m_check.isActive())
        m_check.start(isCheckedRecently ? kMinCheckInterval : kCheckDelay);
    m_trailingCheck.start(kTrailingCheckDelay);
}

void Stacking::check()
{
    if (!m_ours.isAnyShown())
        return;
    m_sinceCheck.start();
    const WindowStack stack = windowStack();
    if (isInOrder(stack, m_ours.shownFromBottom()))
        return;
    if (m_sinceRestack.isValid() && !m_sinceRestack.hasExpired(kMinRestackInterval.count()))
        m_trailingCheck.start(kMinRestackInterval);
    else
        restackFrom(placeOfLowest(stack));
}

void Stacking::restack()
{
    m_connection.listenToRoot(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    restackFrom(placeOfLowest(windowStack()));
}

void Stacking::insert(xcb_window_t window)
{
    const std::vector<xcb_window_t> windows = m_ours.shownFromBottom();
    const auto found = std::find(windows.begin(), windows.end(), window);
    if (found == windows.begin() || found == windows.end())
        return restack();
    put(window, {StackPlace::Relation::DirectlyAbove, *std::prev(found)});
    m_connection.flush();
}

void Stacking::restackFrom(StackPlace lowest)
{
    m_sinceRestack.start();
    StackPlace place = lowest;
    for (const xcb_window_t window : m_ours.shownFromBottom()) {
        put(window, place);
        place = {StackPlace::Relation::DirectlyAbove, window};
    }
    m_connection.flush();
}

void Stacking::put(xcb_window_t window, StackPlace place)
{
    const bool isBelow = place.relation == StackPlace::Relation::DirectlyBelow;
    const std::array<std::uint32_t, 2> values = {place.sibling,
                                                 isBelow ? XCB_STACK_MODE_BELOW : XCB_STACK_MODE_ABOVE};
    if (place.relation == StackPlace::Relation::OnTop)
        xcb_configure_window(m_connection.xcb(), window, XCB_CONFIG_WINDOW_STACK_MODE, &values[1]);
    else
        xcb_configure_window(m_connection.xcb(), window,
                             XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
}

WindowStack Stacking::windowStack() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    // All requests are sent before the first reply is read: one round trip for all.
    const auto desktopCookie = xcb_get_geometry(xcb, m_connection.root());
    NumbersRequest managerRequest(m_connection, m_connection.root(), "_NET_SUPPORTING_WM_CHECK",
                                  XCB_ATOM_WINDOW);
    const auto treeCookie = xcb_query_tree(xcb, m_connection.root());
    const auto desktop = owned(xcb_get_geometry_reply(xcb, desktopCookie, nullptr));
    const std::vector<xcb_window_t> manager = managerRequest.take();
    const auto tree = owned(xcb_query_tree_reply(xcb, treeCookie, nullptr));
    if (!desktop || !tree)
        return {};
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    return {.children =
                rootChildren(children, manager.size() == 1 ? manager.front() : xcb_window_t{XCB_NONE}),
            .screens = nativeScreens(),
            .desktop = frameOf(*desktop)};
}

std::vector<QRect> Stacking::nativeScreens() const
{
    std::vector<QRect> frames;
    for (const Screen &screen : m_screens.layout().screens())
        frames.push_back(screen.nativeFrame);
    return frames;
}

std::vector<RootChild> Stacking::rootChildren(std::span<const xcb_window_t> windows,
                                              xcb_window_t manager) const
{
    xcb_connection_t *xcb = m_connection.xcb();
    // One round trip for all, as above.
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const xcb_window_t window : windows)
        cookies.emplace_back(xcb_get_window_attributes(xcb, window), xcb_get_geometry(xcb, window));

    std::vector<RootChild> children;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto attributes = owned(xcb_get_window_attributes_reply(xcb, cookies[i].first, nullptr));
        const auto geometry = owned(xcb_get_geometry_reply(xcb, cookies[i].second, nullptr));
        if (!attributes || !geometry)
            continue;
        children.push_back(
            {.window = windows[i],
             .isOurs = m_connection.isOurs(windows[i]),
             .isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE,
             .isInputOnly = attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY,
             .isOverrideRedirect = attributes->override_redirect != 0,
             .isWindowManagers = manager != XCB_NONE && areOfOneClient(xcb, windows[i], manager),
             .frame = frameOf(*geometry)});
    }
    return children;
}

} // namespace zeigewerk::platform::x11
