#include "tray_watcher.h"

#include "rig_error.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace zeigewerk::rig {

const QString TrayWatcher::kService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString TrayWatcher::kPath = QStringLiteral("/StatusNotifierWatcher");

TrayWatcher::TrayWatcher(const DesktopSession &session)
    : m_bus(session)
{
    m_departures.setConnection(m_bus.connection());
    m_departures.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_departures, &QDBusServiceWatcher::serviceUnregistered, this, &TrayWatcher::forget);
}

TrayWatcher::~TrayWatcher()
{
    stop();
}

void TrayWatcher::start()
{
    m_bus.connection().registerVirtualObject(kPath, this);
    const auto answer = m_bus.connection().interface()->registerService(
        kService, QDBusConnectionInterface::QueueService, QDBusConnectionInterface::DontAllowReplacement);
    if (!answer.isValid() || answer.value() == QDBusConnectionInterface::ServiceNotRegistered)
        failRig(QStringLiteral("the bus refuses the watcher's name"));
    m_isStarted = true;
}

void TrayWatcher::stop()
{
    if (!m_isStarted)
        return;
    m_isStarted = false;
    m_bus.connection().interface()->unregisterService(kService);
    m_bus.connection().unregisterObject(kPath);
    m_departures.setWatchedServices({});
    m_items.clear();
    m_hosts.clear();
    m_registrations = 0;
}

QString TrayWatcher::introspect(const QString &path) const
{
    if (path != kPath)
        return {};
    // Qt only uses properties that are listed here.
    return QStringLiteral(R"(
        <interface name="org.kde.StatusNotifierWatcher">
            <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
            <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
            <property name="ProtocolVersion" type="i" access="read"/>
            <method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
            <method name="RegisterStatusNotifierHost"><arg name="service" type="s" direction="in"/></method>
            <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
            <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
            <signal name="StatusNotifierHostRegistered"/>
            <signal name="StatusNotifierHostUnregistered"/>
        </interface>)");
}

bool TrayWatcher::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QString member = message.member();
    if (member == QLatin1String("RegisterStatusNotifierItem")) {
        registerItem(message);
    } else if (member == QLatin1String("RegisterStatusNotifierHost")) {
        registerHost(message);
    } else if (member == QLatin1String("Get")) {
        const QVariant value = properties().value(message.arguments().value(1).toString());
        connection.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
    } else if (member == QLatin1String("GetAll")) {
        connection.send(message.createReply(properties()));
    } else {
        return false;
    }
    return true;
}

void TrayWatcher::registerItem(const QDBusMessage &message)
{
    // An item that passes a path instead of a service means its own service.
    const QString argument = message.arguments().value(0).toString();
    const QString service = argument.startsWith(u'/') ? message.service() : argument;
    ++m_registrations;
    if (!m_items.contains(service))
        m_items.append(service);
    m_departures.addWatchedService(service);
    m_bus.connection().send(message.createReply());
    emitSignal(QStringLiteral("StatusNotifierItemRegistered"), {service});
}

void TrayWatcher::registerHost(const QDBusMessage &message)
{
    const QString service = message.arguments().value(0).toString();
    if (!m_hosts.contains(service))
        m_hosts.append(service);
    m_departures.addWatchedService(service);
    m_bus.connection().send(message.createReply());
    emitSignal(QStringLiteral("StatusNotifierHostRegistered"));
}

void TrayWatcher::forget(const QString &service)
{
    m_departures.removeWatchedService(service);
    if (m_items.removeOne(service))
        emitSignal(QStringLiteral("StatusNotifierItemUnregistered"), {service});
    if (m_hosts.removeOne(service))
        emitSignal(QStringLiteral("StatusNotifierHostUnregistered"));
}

void TrayWatcher::emitSignal(const QString &signal, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createSignal(kPath, kService, signal);
    message.setArguments(arguments);
    m_bus.connection().send(message);
}

QVariantMap TrayWatcher::properties() const
{
    return {{QStringLiteral("RegisteredStatusNotifierItems"), m_items},
            {QStringLiteral("IsStatusNotifierHostRegistered"), !m_hosts.isEmpty()},
            {QStringLiteral("ProtocolVersion"), 0}};
}

} // namespace zeigewerk::rig
