#include "accessibility_bus.h"

#include "eventually.h"
#include "rig_error.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QUuid>

namespace zeigewerk::rig {

namespace {

/// Longer than a busy program takes to answer, shorter than a test waits.
constexpr int kTimeoutMilliseconds = 3000;

} // namespace

QString accessibilityBusAddress(const QString &sessionBusAddress)
{
    const AccessibilityBus::Object launcher = {QStringLiteral("org.a11y.Bus"),
                                               QStringLiteral("/org/a11y/bus")};
    QString address;
    // The bus creates its socket a moment before it listens on it.
    const bool isFound = eventually([&] {
        AccessibilityBus session(sessionBusAddress);
        if (const auto reply = session.call(launcher, launcher.service, QStringLiteral("GetAddress")))
            address = reply->toString();
        return !address.isEmpty();
    });
    if (!isFound)
        failRig(QStringLiteral("the accessibility bus did not start; is at-spi2-core installed?"));
    return address;
}

AccessibilityBus::AccessibilityBus(const QString &address)
    : m_name(QUuid::createUuid().toString())
    , m_connection(QDBusConnection::connectToBus(address, m_name))
{
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(m_name);
}

std::optional<QVariant> AccessibilityBus::call(const Object &object, const QString &interface,
                                               const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = m_connection.call(message, QDBus::Block, kTimeoutMilliseconds);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return reply.arguments().value(0);
}

QVariant AccessibilityBus::property(const Object &object, const QString &interface, const QString &name)
{
    const auto reply = call(object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                            {interface, name});
    return reply ? reply->value<QDBusVariant>().variant() : QVariant();
}

qint64 AccessibilityBus::processOf(const QString &service)
{
    const Object bus = {QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus")};
    return call(bus, bus.service, QStringLiteral("GetConnectionUnixProcessID"), {service})
        .value_or(QVariant())
        .toLongLong();
}

} // namespace zeigewerk::rig
