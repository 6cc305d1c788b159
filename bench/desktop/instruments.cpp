#include "instruments.h"

namespace zeigewerk::bench {

using namespace std::chrono_literals;

void beginDrawing(rig::Presentation &show)
{
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.hasKeyboard(); }))
        throw rig::RigError("drawing does not start");
}

Costs Costs::of(rig::DesktopSession &session, qint64 programId)
{
    const qint64 compositor = session.compositorProcessId();
    return {rig::cpuTime(programId), rig::cpuTime(session.display().serverProcessId()),
            compositor ? rig::cpuTime(compositor) : Milliseconds::zero()};
}

Costs Costs::operator-(const Costs &earlier) const
{
    return {program - earlier.program, server - earlier.server, compositor - earlier.compositor};
}

Costs Costs::operator*(double factor) const
{
    return {program * factor, server * factor, compositor * factor};
}

void awaitIdle(rig::DesktopSession &session, qint64 programId)
{
    // Longer than a frame of the compositor, and longer than the quarter of a second after which the program
    // checks the stacking order once more when windows have come or gone.
    constexpr std::chrono::milliseconds kIdleTime = 300ms;
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (std::chrono::steady_clock::now() < deadline) {
        const Costs before = Costs::of(session, programId);
        QTest::qSleep(static_cast<int>(kIdleTime.count()));
        const Costs spent = Costs::of(session, programId) - before;
        if (spent.program + spent.server + spent.compositor == Milliseconds::zero())
            return;
    }
    throw rig::RigError("the desktop does not become idle");
}

PixelWatch::PixelWatch(rig::Client &client, QPoint place)
    : m_client(client)
    , m_place(place)
    , m_before(look())
{
}

QRgb PixelWatch::look()
{
    xcb_connection_t *xcb = m_client.connection();
    const auto cookie =
        xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, m_client.root(), static_cast<std::int16_t>(m_place.x()),
                      static_cast<std::int16_t>(m_place.y()), 1, 1, ~0U);
    const auto reply = rig::owned(xcb_get_image_reply(xcb, cookie, nullptr));
    if (!reply)
        throw rig::RigError("cannot read the screen");
    return *reinterpret_cast<const QRgb *>(xcb_get_image_data(reply.get()));
}

Milliseconds PixelWatch::untilChanged(std::chrono::steady_clock::time_point start)
{
    while (look() == m_before) {
        if (std::chrono::steady_clock::now() - start > 5s)
            throw rig::RigError("the expected pixel does not change");
    }
    return std::chrono::steady_clock::now() - start;
}

std::vector<double> motionToPixel(rig::DesktopSession &session, const Path &path, int samples)
{
    constexpr double kRate = 60.0;
    Mouse mouse(session.client());
    std::vector<double> times;
    Pace pace(kRate);
    for (int sample = 1; sample <= samples; ++sample) {
        pace.awaitNext();
        PixelWatch watch(session.client(), path(sample));
        const auto start = std::chrono::steady_clock::now();
        mouse.moveTo(path(sample));
        times.push_back(watch.untilChanged(start).count());
    }
    return times;
}

} // namespace zeigewerk::bench
