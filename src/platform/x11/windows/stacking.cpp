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

/// Raising comes in bursts; one look answers a burst.
constexpr auto kCheckAfter = 10ms;
/// A window that is being moved tells so a hundred times a second.
constexpr auto kCheckAtMostEvery = 100ms;
/// Some window managers restack once more when a new window has settled.
constexpr auto kTrailingCheckAfter = 250ms;
/// Another program that insists on the top must not draw us into an endless loop at full speed.
constexpr auto kRestackAtMostEvery = 50ms;

} // namespace

Stacking::Stacking(Connection &connection, std::function<std::vector<xcb_window_t>()> windows,
                   std::function<std::vector<QRect>()> screens)
    : m_connection(connection)
    , m_windows(std::move(windows))
    , m_screens(std::move(screens))
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
    // Our menus and tooltips come up by themselves. Restacking maps nothing, so this makes no loop.
    if (!m_connection.isOurs(window) || m_connection.isAdopted(window))
        checkSoon();
}

void Stacking::windowHidden()
{
    // With nothing to keep on top, what the others do is no concern of ours and must not wake us.
    if (m_windows().empty()) {
        m_connection.ignoreRoot(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
        m_check.stop();
        m_trailingCheck.stop();
    }
}

void Stacking::checkSoon()
{
    const bool isCheckedOften = m_sinceCheck.isValid() && !m_sinceCheck.hasExpired(kCheckAtMostEvery.count());
    if (!m_check.isActive())
        m_check.start(isCheckedOften ? kCheckAtMostEvery : kCheckAfter);
    m_trailingCheck.start(kTrailingCheckAfter);
}

void Stacking::check()
{
    if (m_windows().empty())
        return;
    m_sinceCheck.start();
    const std::vector<Child> children = childrenFromTop();
    if (isInOrder(children))
        return;
    if (m_sinceRestack.isValid() && !m_sinceRestack.hasExpired(kRestackAtMostEvery.count()))
        m_trailingCheck.start(kRestackAtMostEvery);
    else
        restackFrom(lowestPlace(children));
}

void Stacking::restack()
{
    m_connection.listenToRoot(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    restackFrom(lowestPlace(childrenFromTop()));
}

void Stacking::insert(xcb_window_t window)
{
    const std::vector<xcb_window_t> windows = m_windows();
    const auto found = std::find(windows.begin(), windows.end(), window);
    if (found == windows.begin() || found == windows.end())
        return restack();
    put(window, {*std::prev(found), XCB_STACK_MODE_ABOVE});
    m_connection.flush();
}

void Stacking::restackFrom(Place lowest)
{
    m_sinceRestack.start();
    Place place = lowest;
    for (const xcb_window_t window : m_windows()) {
        put(window, place);
        place = {window, XCB_STACK_MODE_ABOVE};
    }
    m_connection.flush();
}

void Stacking::put(xcb_window_t window, Place place)
{
    const std::array<std::uint32_t, 2> values = {place.sibling, place.mode};
    if (place.sibling == XCB_NONE)
        xcb_configure_window(m_connection.xcb(), window, XCB_CONFIG_WINDOW_STACK_MODE, &values[1]);
    else
        xcb_configure_window(m_connection.xcb(), window,
                             XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
}

std::vector<Stacking::Child> Stacking::childrenFromTop() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    const auto tree = owned(xcb_query_tree_reply(xcb, xcb_query_tree(xcb, m_connection.root()), nullptr));
    if (!tree)
        return {};
    const std::span windows(xcb_query_tree_children(tree.get()),
                            static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    // All questions first, then all answers: one round trip for the lot.
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const xcb_window_t window : windows)
        cookies.emplace_back(xcb_get_window_attributes(xcb, window), xcb_get_geometry(xcb, window));

    std::vector<Child> children;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto attributes = owned(xcb_get_window_attributes_reply(xcb, cookies[i].first, nullptr));
        const auto geometry = owned(xcb_get_geometry_reply(xcb, cookies[i].second, nullptr));
        if (!attributes || !geometry)
            continue;
        const bool isOurs = m_connection.isOurs(windows[i]);
        if (!isOurs && attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            continue; // invisible, so nothing that could cover us
        children.push_back({.window = windows[i],
                            .isOurs = isOurs,
                            .isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE,
                            .isOverrideRedirect = attributes->override_redirect != 0,
                            .frame = {geometry->x, geometry->y, geometry->width, geometry->height}});
    }
    std::reverse(children.begin(), children.end());
    return children;
}

xcb_window_t Stacking::highestForeign(const std::vector<Child> &children) const
{
    // What stands above a screen locker is the locker's own.
    const auto locker = lowestLocker(children);
    const auto found = std::find_if(locker, children.end(), [&](const Child &child) {
        return !child.isOurs && child.isViewable && !isScreenLocker(child);
    });
    return found == children.end() ? xcb_window_t{XCB_NONE} : found->window;
}

Stacking::Place Stacking::lowestPlace(const std::vector<Child> &children) const
{
    const xcb_window_t foreign = highestForeign(children);
    const auto locker = lowestLocker(children);
    if (foreign == XCB_NONE && locker != children.end() && isScreenLocker(*locker))
        return {locker->window, XCB_STACK_MODE_BELOW};
    return {foreign, XCB_STACK_MODE_ABOVE};
}

bool Stacking::isInOrder(const std::vector<Child> &children) const
{
    std::vector<xcb_window_t> expected = m_windows();
    const xcb_window_t foreign = highestForeign(children);
    if (foreign != XCB_NONE)
        expected.insert(expected.begin(), foreign);
    const auto locker = lowestLocker(children);
    if (locker != children.end() && isScreenLocker(*locker))
        expected.push_back(locker->window);
    std::vector<xcb_window_t> actual;
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (std::count(expected.begin(), expected.end(), child->window) > 0)
            actual.push_back(child->window);
    }
    return actual == expected;
}

std::vector<Stacking::Child>::const_iterator Stacking::lowestLocker(const std::vector<Child> &children) const
{
    const auto found = std::find_if(children.rbegin(), children.rend(),
                                    [this](const Child &child) { return isScreenLocker(child); });
    return found == children.rend() ? children.begin() : std::prev(found.base());
}

bool Stacking::isScreenLocker(const Child &child) const
{
    if (child.isOurs || !child.isViewable || !child.isOverrideRedirect)
        return false;
    std::vector<QRect> screens = m_screens();
    if (screens.empty())
        screens.push_back(rootFrame()); // all of them are off, and may come back in the same place
    const bool coversScreen = std::any_of(screens.begin(), screens.end(),
                                          [&](const QRect &screen) { return child.frame.contains(screen); });
    // Last, because it asks the server.
    return coversScreen && !belongsToWindowManager(child.window);
}

QRect Stacking::rootFrame() const
{
    const auto cookie = xcb_get_geometry(m_connection.xcb(), m_connection.root());
    const auto root = owned(xcb_get_geometry_reply(m_connection.xcb(), cookie, nullptr));
    return root ? QRect(0, 0, root->width, root->height) : QRect();
}

bool Stacking::belongsToWindowManager(xcb_window_t window) const
{
    // Window managers make their frames override-redirect too, and a full-screen application's frame covers a
    // screen. They name a window of their own on the root.
    const std::vector<xcb_window_t> check =
        NumbersRequest(m_connection, m_connection.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW).take();
    if (check.size() != 1)
        return false;
    const std::uint32_t mask =
        xcb_get_setup(m_connection.xcb())->resource_id_mask; // the same for every client
    return (check.front() & ~mask) == (window & ~mask);
}

} // namespace zeigewerk::platform::x11
