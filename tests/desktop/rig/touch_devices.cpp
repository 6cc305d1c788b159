#include "touch_devices.h"

namespace zeigewerk::rig {

namespace {

/// The driver's axes run from 0 to this across the root window.
constexpr double kAxisMax = 0xFFFF;

} // namespace

TestDevice::Axes AbsoluteDevice::at(QPoint place) const
{
    // The middle of the pixel.
    Axes axes;
    axes.set(0, (place.x() + 0.5) * (kAxisMax + 1.0) / m_root.width());
    axes.set(1, (place.y() + 0.5) * (kAxisMax + 1.0) / m_root.height());
    return axes;
}

bool TouchScreen::stroke(const QList<QPoint> &places)
{
    constexpr std::uint32_t kBegin = 18;
    constexpr std::uint32_t kUpdate = 19;
    constexpr std::uint32_t kEnd = 20;
    bool done = touch(kBegin, places.first());
    for (const QPoint place : places.mid(1))
        done = touch(kUpdate, place) && done;
    done = touch(kEnd, places.last()) && done;
    ++m_touches;
    return done;
}

bool TouchScreen::touch(std::uint32_t type, QPoint place)
{
    return sendAndSync(TouchMessage{.touch = m_touches, .type = type, .axes = at(place)});
}

bool Tablet::stroke(const QList<QPoint> &places)
{
    bool done = move(places.first()) && tip(true, places.first());
    for (const QPoint place : places.mid(1))
        done = move(place) && done;
    return tip(false, places.last()) && done;
}

bool Tablet::move(QPoint place)
{
    return sendAndSync(MotionMessage{.isAbsolute = 1, .axes = at(place)});
}

bool Tablet::tip(bool isDown, QPoint place)
{
    return sendAndSync(ButtonMessage{.isAbsolute = 1, .button = 1, .isPress = isDown, .axes = at(place)});
}

} // namespace zeigewerk::rig
