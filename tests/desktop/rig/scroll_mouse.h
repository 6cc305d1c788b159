// A mouse with a scroll axis, which XTest's mouse lacks.
#pragma once

#include <QString>

namespace zeigewerk::rig {

/// The server's own test driver for input devices, told through a socket what the device does. Beside the
/// axis such a device makes no buttons 4 and 5; the server adds them for older programs.
class ScrollMouse
{
public:
    /// What the driver takes for one notch.
    static constexpr double kNotch = 120.0;

    /// The lines of the server's configuration that make the device, talked to at that path. The section
    /// with the screen must be called "screen".
    static QByteArray configuration(const QString &socketPath);
    /// Whether the server has that driver.
    static bool isAvailable();

    /// Talks to the device of a running server. Throws RigError if there is none.
    explicit ScrollMouse(const QString &socketPath);
    ~ScrollMouse();
    ScrollMouse(const ScrollMouse &) = delete;
    ScrollMouse &operator=(const ScrollMouse &) = delete;

    /// Moves the axis by that much, downwards positive. Comes back when the server has processed it; false if
    /// it does not.
    bool scroll(double way);

private:
    bool send(const void *message, std::size_t size);
    bool receive(std::size_t size);

    int m_socket = -1;
};

} // namespace zeigewerk::rig
