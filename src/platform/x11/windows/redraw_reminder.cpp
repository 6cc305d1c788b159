#include "platform/x11/windows/redraw_reminder.h"

#include <array>
#include <chrono>
#include <utility>

namespace zeigewerk::platform::x11 {

using namespace std::chrono_literals;

namespace {

/// Long enough for a busy compositor to catch up, and short enough for a presenter.
constexpr auto kRemindAfter = 500ms;

} // namespace

RedrawReminder::RedrawReminder(Connection &connection)
    : m_connection(connection)
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout(this, &RedrawReminder::remind);
}

void RedrawReminder::windowComesBack(xcb_window_t window)
{
    m_windows.insert(window);
    m_timer.start(kRemindAfter);
}

void RedrawReminder::remind()
{
    for (const xcb_window_t window : std::exchange(m_windows, {}))
        touch(window);
    m_connection.flush();
}

void RedrawReminder::touch(xcb_window_t window)
{
    // Copies a pixel onto itself. The picture stays the same, but it counts as damage.
    xcb_connection_t *xcb = m_connection.xcb();
    const xcb_gcontext_t context = xcb_generate_id(xcb);
    constexpr std::array<std::uint32_t, 1> kNoExposures = {0};
    xcb_create_gc(xcb, context, window, XCB_GC_GRAPHICS_EXPOSURES, kNoExposures.data());
    xcb_copy_area(xcb, window, window, context, 0, 0, 0, 0, 1, 1);
    xcb_free_gc(xcb, context);
}

} // namespace zeigewerk::platform::x11
