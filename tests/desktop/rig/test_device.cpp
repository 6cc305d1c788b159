#include "test_device.h"

#include "eventually.h"
#include "rig_error.h"

#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace zeigewerk::rig {

namespace {

constexpr timeval kReceiveTimeout = {5, 0};

} // namespace

QByteArray TestDevice::configuration(const char *type, const QString &socketPath)
{
    return QByteArray(R"(
Section "InputDevice"
    Identifier "test device"
    Driver "inputtest"
    Option "DeviceType" ")") +
           type + R"("
    Option "SocketPath" ")" +
           QFile::encodeName(socketPath) + R"("
EndSection
Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
    InputDevice "test device"
EndSection
)";
}

bool TestDevice::isAvailable()
{
    return QFile::exists(QStringLiteral("/usr/lib/xorg/modules/input/inputtest_drv.so")) ||
           QFile::exists(QStringLiteral("/usr/lib64/xorg/modules/input/inputtest_drv.so"));
}

void TestDevice::Axes::set(std::size_t axis, double value)
{
    moved[axis / 8] = static_cast<std::uint8_t>(moved[axis / 8] | 1U << (axis % 8));
    values[axis] = value;
}

TestDevice::TestDevice(const QString &socketPath)
    : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    struct VersionMessage
    {
        Header header;
        std::uint16_t major;
        std::uint16_t minor;
    };
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(socketPath);
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        failRig(QStringLiteral("the path of the test device is too long"));
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &kReceiveTimeout, sizeof kReceiveTimeout);
    const bool isConnected = eventually(
        [&] { return connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0; });
    const VersionMessage version = {{sizeof(VersionMessage), ClientVersion}, 1, 1};
    if (!isConnected || !send(&version, sizeof version) || !receive(sizeof version)) {
        close(m_socket);
        failRig(QStringLiteral("the server has no test device"));
    }
}

TestDevice::~TestDevice()
{
    close(m_socket);
}

bool TestDevice::sync()
{
    const Header sync = {sizeof sync, WaitForSync};
    return send(&sync, sizeof sync) && receive(sizeof sync);
}

bool TestDevice::send(const void *message, std::size_t size)
{
    return ::send(m_socket, message, size, MSG_NOSIGNAL) == static_cast<ssize_t>(size);
}

bool TestDevice::receive(std::size_t size)
{
    std::array<char, 64> answer;
    return size <= answer.size() &&
           recv(m_socket, answer.data(), size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

} // namespace zeigewerk::rig
