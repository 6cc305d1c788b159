#include "pointer.h"

#include "client.h"
#include "eventually.h"

#include <xcb/xtest.h>

#include <cstdlib>

namespace zeigewerk::rig {

namespace {

constexpr std::chrono::seconds kTimeout{1};

} // namespace

void Pointer::send(int type, int detail, QPoint place)
{
    xcb_test_fake_input(m_client.connection(), static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME, m_client.root(),
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
}

void Pointer::fake(int type, int detail, QPoint place)
{
    send(type, detail, place);
    m_client.roundTrip();
}

bool Pointer::moveTo(QPoint place)
{
    constexpr int kAbsolute = 0;
    fake(XCB_MOTION_NOTIFY, kAbsolute, place);
    return eventually([&] { return location() == place; }, kTimeout);
}

bool Pointer::press(int button)
{
    fake(XCB_BUTTON_PRESS, button, {});
    return awaitButton(button, true);
}

bool Pointer::release(int button)
{
    fake(XCB_BUTTON_RELEASE, button, {});
    return awaitButton(button, false);
}

bool Pointer::awaitButton(int button, bool down)
{
    // X reports the state of the first five buttons only.
    if (button > WheelDown)
        return true;
    const int mask = XCB_BUTTON_MASK_1 << (button - Left);
    return eventually(
        [&] {
            const auto cookie = xcb_query_pointer(m_client.connection(), m_client.root());
            const auto reply = owned(xcb_query_pointer_reply(m_client.connection(), cookie, nullptr));
            return reply && ((reply->mask & mask) != 0) == down;
        },
        kTimeout);
}

bool Pointer::click(int button)
{
    const bool pressed = press(button);
    return release(button) && pressed;
}

void Pointer::clickAtOnce(int count)
{
    for (int i = 0; i < count; ++i) {
        send(XCB_BUTTON_PRESS, Left, {});
        send(XCB_BUTTON_RELEASE, Left, {});
    }
    m_client.roundTrip();
}

bool Pointer::clickAt(QPoint place, int button)
{
    const bool moved = moveTo(place);
    return click(button) && moved;
}

bool Pointer::drag(const QList<QPoint> &points, int button)
{
    if (points.isEmpty())
        return false;
    bool done = moveTo(points.first());
    done = press(button) && done;
    for (const QPoint &point : points.sliced(1))
        done = moveTo(point) && done;
    return release(button) && done;
}

bool Pointer::wheel(int steps)
{
    bool done = true;
    for (int step = 0; step < std::abs(steps); ++step)
        done = click(steps > 0 ? WheelUp : WheelDown) && done;
    return done;
}

QPoint Pointer::location() const
{
    const auto cookie = xcb_query_pointer(m_client.connection(), m_client.root());
    const auto reply = owned(xcb_query_pointer_reply(m_client.connection(), cookie, nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

} // namespace zeigewerk::rig
