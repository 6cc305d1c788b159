// A mouse with a scroll axis, which XTest's mouse lacks.
#pragma once

#include "test_device.h"

namespace zeigewerk::rig {

/// The device reports only the axis; the server adds buttons 4 and 5 for older programs.
class ScrollMouse : public TestDevice
{
public:
    static constexpr char kType[] = "Pointer";
    /// The driver's value for one notch.
    static constexpr double kNotch = 120.0;

    explicit ScrollMouse(const QString &socketPath)
        : TestDevice(socketPath)
    {
    }

    /// Moves the axis, downwards if positive. Returns once the server has processed it; false if it does not.
    bool scroll(double delta)
    {
        constexpr std::size_t kVerticalScroll = 3;
        MotionMessage motion;
        motion.axes.set(kVerticalScroll, delta);
        return sendAndSync(motion);
    }
};

} // namespace zeigewerk::rig
