#include "platform/choose_desktop.h"

#include "platform/x11/only_instance.h"
#include "platform/x11/x11_desktop.h"

namespace zeigewerk::platform {

namespace {

class X11DesktopConnection : public DesktopConnection
{
public:
    explicit X11DesktopConnection(std::unique_ptr<x11::Connection> connection)
        : m_connection(std::move(connection))
    {
    }

    bool becomeOnlyInstance() override { return x11::becomeOnlyInstance(*m_connection); }
    QString limits() const override
    {
        // In a Wayland session, the X display knows neither the other programs nor their keys and clicks.
        if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
            return {};
        return QStringLiteral(
            "in this Wayland session hot keys, click rings and what follows the pointer work "
            "over X11 programs only");
    }
    QByteArray qtPlatform() const override { return QByteArrayLiteral("xcb"); }
    std::unique_ptr<Desktop> makeDesktop() override
    {
        return std::make_unique<x11::X11Desktop>(std::move(m_connection));
    }

private:
    std::unique_ptr<x11::Connection> m_connection;
};

} // namespace

std::unique_ptr<DesktopConnection> connectToDesktop(QString *problem)
{
    auto connection = x11::Connection::open(problem);
    return connection ? std::make_unique<X11DesktopConnection>(std::move(connection)) : nullptr;
}

} // namespace zeigewerk::platform
