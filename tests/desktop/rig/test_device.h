// Input devices that XTest does not offer.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace zeigewerk::rig {

/// The X server's own test driver for input devices, controlled through a socket.
class TestDevice
{
public:
    /// The lines of the server's configuration for a device with that socket. `type` is the driver's name for
    /// the kind of device. The configuration's section with the screen must be called "screen".
    static QByteArray configuration(const char *type, const QString &socketPath);
    /// Whether the server has that driver.
    static bool isAvailable();

    TestDevice(const TestDevice &) = delete;
    TestDevice &operator=(const TestDevice &) = delete;

protected:
    // The driver's protocol, version 1.1: each message begins with its length in bytes and its kind.

    enum Kind : std::uint32_t { ClientVersion = 0, WaitForSync = 1, Motion = 2, Button = 4, Touch = 6 };

    struct Header
    {
        std::uint32_t length;
        std::uint32_t kind;
    };
    struct Axes
    {
        static constexpr std::size_t kMax = 64;

        void set(std::size_t axis, double value);

        std::uint32_t hasUnaccelerated = 0;
        std::array<std::uint8_t, kMax / 8> moved = {}; // one bit each
        std::array<double, kMax> values = {};
        std::array<double, kMax> unaccelerated = {};
    };
    struct MotionMessage
    {
        Header header = {sizeof(MotionMessage), Motion};
        std::uint32_t isAbsolute = 0;
        Axes axes = {};
    };
    struct ButtonMessage
    {
        Header header = {sizeof(ButtonMessage), Button};
        std::int32_t isAbsolute = 0;
        std::int32_t button = 0;
        std::uint32_t isPress = 0;
        Axes axes = {};
    };
    struct TouchMessage
    {
        Header header = {sizeof(TouchMessage), Touch};
        std::uint32_t touch = 0;
        std::uint32_t type = 0; // event types as in the X Input extension
        Axes axes = {};
    };

    /// Connects to the device of a running server. Throws RigError if there is none.
    explicit TestDevice(const QString &socketPath);
    ~TestDevice();

    /// Returns once the server has processed the message; false if it does not.
    template <typename Message>
    bool sendAndSync(const Message &message)
    {
        return send(&message, sizeof message) && sync();
    }

private:
    bool send(const void *message, std::size_t size);
    bool receive(std::size_t size);
    bool sync();

    int m_socket = -1;
};

} // namespace zeigewerk::rig
