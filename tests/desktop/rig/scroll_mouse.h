// A mouse with a scroll axis, which XTest's mouse lacks.
#pragma once

#include "test_device.h"

namespace zeigewerk::rig {

/// Beside the axis such a device makes no buttons 4 and 5; the server adds them for older programs.
class ScrollMouse : public TestDevice
{
public:
    static constexpr char kType[] = "Pointer";
    /// What the driver takes for one notch.
    static constexpr double kNotch = 120.0;

    explicit ScrollMouse(const QString &socketPath)
        : TestDevice(socketPath)
    {
    }

    /// Moves the axis by that much, downwards positive. Comes back when the server has processed it; false if
    /// it does not.
    bool scroll(double delta)
    {
        constexpr std::size_t kVerticalScroll = 3;
        MotionMessage motion;
        motion.axes.set(kVerticalScroll, delta);
        return sendAndSync(motion);
    }
};

} // namespace zeigewerk::rig
