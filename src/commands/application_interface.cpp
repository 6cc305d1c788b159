#include "commands/application_interface.h"

#include "commands/status_menu.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>

namespace zeigewerk {

namespace {

/// As the interface defines it: the name with slashes for dots.
QString objectPath()
{
    return u'/' + QString::fromLatin1(kApplicationId).replace(u'.', u'/');
}

/// Does not wait for the name. A process that has it already, say on another display, keeps it until it ends.
void requestName(const QDBusConnection &bus)
{
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage request = QDBusMessage::createMethodCall(daemon, QStringLiteral("/org/freedesktop/DBus"),
                                                          daemon, QStringLiteral("RequestName"));
    constexpr uint kNoFlags = 0;
    request << QString::fromLatin1(kApplicationId) << kNoFlags;
    bus.asyncCall(request);
}

} // namespace

ApplicationInterface::ApplicationInterface(StatusMenu &menu)
    : m_menu(menu)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // In this order: if the bus started us, a call is waiting for the name.
    bus.registerObject(objectPath(), this, QDBusConnection::ExportAllSlots);
    requestName(bus);
}

void ApplicationInterface::Activate(const QVariantMap &) {}

void ApplicationInterface::Open(const QStringList &, const QVariantMap &)
{
    sendErrorReply(QDBusError::NotSupported, QStringLiteral("Zeigewerk opens no files"));
}

void ApplicationInterface::ActivateAction(const QString &name, const QVariantList &parameter,
                                          const QVariantMap &)
{
    if (!parameter.isEmpty())
        refuse(QStringLiteral("the action takes no parameter: ") + name);
    else if (!m_menu.trigger(name))
        refuse(QStringLiteral("there is no such action: ") + name);
}

void ApplicationInterface::refuse(const QString &reason)
{
    sendErrorReply(QDBusError::InvalidArgs, reason);
}

} // namespace zeigewerk
