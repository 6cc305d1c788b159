#include "mouse.h"

#include "pen_path.h"

#include <xcb/xtest.h>

#include <cerrno>
#include <cmath>
#include <ctime>

namespace zeigewerk::bench {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr int kLeftButton = 1;

std::int64_t now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * kSecond + time.tv_nsec;
}

void sleepUntil(std::int64_t when)
{
    const timespec time = {when / kSecond, when % kSecond};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &time, nullptr) == EINTR) {
    }
}

} // namespace

Path penPath(QSize screen)
{
    return [screen](int sample) { return penPosition(screen, sample).toPoint(); };
}

Path horizontalPath(QPoint start)
{
    constexpr int kStep = 12;
    return [start](int sample) { return start + QPoint(kStep * sample, 0); };
}

Pace::Pace(double rate)
    : m_start(now())
    , m_rate(rate)
{
}

void Pace::awaitNext()
{
    sleepUntil(m_start + std::llround(static_cast<double>(++m_sent) * static_cast<double>(kSecond) / m_rate));
}

void Mouse::fake(int type, int detail, QPoint place)
{
    xcb_connection_t *xcb = m_client.connection();
    xcb_test_fake_input(xcb, static_cast<std::uint8_t>(type), static_cast<std::uint8_t>(detail),
                        XCB_CURRENT_TIME, m_client.root(), static_cast<std::int16_t>(place.x()),
                        static_cast<std::int16_t>(place.y()), 0);
    xcb_flush(xcb);
}

void Mouse::moveTo(QPoint place)
{
    constexpr int kAbsolute = 0;
    fake(XCB_MOTION_NOTIFY, kAbsolute, place);
}

void Mouse::press()
{
    fake(XCB_BUTTON_PRESS, kLeftButton, {});
}

void Mouse::release()
{
    fake(XCB_BUTTON_RELEASE, kLeftButton, {});
}

void Mouse::follow(const Path &path, int first, int count, double rate)
{
    Pace pace(rate);
    for (int sample = first; sample < first + count; ++sample) {
        pace.awaitNext();
        moveTo(path(sample));
    }
}

void Mouse::scribble(QPoint start)
{
    constexpr int kSamples = 4;
    constexpr double kRate = 1000.0;
    moveTo(start);
    press();
    follow([start](int sample) { return start + QPoint(20 * sample, sample % 2 == 0 ? 0 : 15); }, 1, kSamples,
           kRate);
    release();
}

} // namespace zeigewerk::bench
