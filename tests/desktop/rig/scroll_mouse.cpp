#include "scroll_mouse.h"

#include "eventually.h"
#include "rig_error.h"

#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace zeigewerk::rig {

namespace {

// The driver's protocol, version 1.1: each message begins with its length in bytes and its kind.

enum MessageKind : std::uint32_t { ClientVersion = 0, WaitForSync = 1, Motion = 2 };

struct Header
{
    std::uint32_t length;
    std::uint32_t kind;
};

struct VersionMessage
{
    Header header;
    std::uint16_t major;
    std::uint16_t minor;
};

constexpr std::size_t kMaxAxes = 64;

struct Axes
{
    std::uint32_t hasUnaccelerated;
    std::array<std::uint8_t, kMaxAxes / 8> moved; // one bit each
    std::array<double, kMaxAxes> values;
    std::array<double, kMaxAxes> unaccelerated;
};

struct MotionMessage
{
    Header header;
    std::uint32_t isAbsolute;
    Axes axes;
};

constexpr std::size_t kVerticalScroll = 3;
constexpr timeval kReceiveTimeout = {5, 0};

} // namespace

QByteArray ScrollMouse::configuration(const QString &socketPath)
{
    return R"(
Section "InputDevice"
    Identifier "scroll mouse"
    Driver "inputtest"
    Option "DeviceType" "Pointer"
    Option "SocketPath" ")" +
           QFile::encodeName(socketPath) + R"("
EndSection
Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
    InputDevice "scroll mouse"
EndSection
)";
}

bool ScrollMouse::isAvailable()
{
    return QFile::exists(QStringLiteral("/usr/lib/xorg/modules/input/inputtest_drv.so")) ||
           QFile::exists(QStringLiteral("/usr/lib64/xorg/modules/input/inputtest_drv.so"));
}

ScrollMouse::ScrollMouse(const QString &socketPath)
    : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(socketPath);
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        failRig(QStringLiteral("the path of the scroll mouse is too long"));
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &kReceiveTimeout, sizeof kReceiveTimeout);
    const bool isConnected = eventually(
        [&] { return connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0; });
    const VersionMessage version = {{sizeof(VersionMessage), ClientVersion}, 1, 1};
    if (!isConnected || !send(&version, sizeof version) || !receive(sizeof version)) {
        close(m_socket);
        failRig(QStringLiteral("the server has no scroll mouse"));
    }
}

ScrollMouse::~ScrollMouse()
{
    close(m_socket);
}

bool ScrollMouse::scroll(double way)
{
    MotionMessage motion = {};
    motion.header = {sizeof motion, Motion};
    motion.axes.moved[0] = 1U << kVerticalScroll;
    motion.axes.values[kVerticalScroll] = way;
    const Header sync = {sizeof sync, WaitForSync};
    return send(&motion, sizeof motion) && send(&sync, sizeof sync) && receive(sizeof sync);
}

bool ScrollMouse::send(const void *message, std::size_t size)
{
    return ::send(m_socket, message, size, MSG_NOSIGNAL) == static_cast<ssize_t>(size);
}

bool ScrollMouse::receive(std::size_t size)
{
    std::array<char, 64> answer;
    return size <= answer.size() &&
           recv(m_socket, answer.data(), size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

} // namespace zeigewerk::rig
