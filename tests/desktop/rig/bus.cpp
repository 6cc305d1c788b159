#include "bus.h"

#include "desktop_session.h"
#include "eventually.h"
#include "rig_error.h"

#include <QDBusArgument>
#include <QDBusPendingCall>
#include <QUuid>

namespace zeigewerk::rig {

Bus::Bus(const DesktopSession &session)
    : m_name(QUuid::createUuid().toString())
    , m_connection(QDBusConnection::connectToBus(session.busAddress(), m_name))
{
    if (!m_connection.isConnected())
        failRig(QStringLiteral("the session bus does not answer"));
}

Bus::~Bus()
{
    QDBusConnection::disconnectFromBus(m_name);
}

std::optional<QDBusMessage> Bus::replyTo(const QDBusMessage &message)
{
    const QDBusPendingCall call = m_connection.asyncCall(message);
    if (!eventually([&] { return call.isFinished(); }))
        return std::nullopt;
    return call.reply();
}

std::optional<QVariantList> Bus::call(const QString &service, const QString &path, const QString &interface,
                                      const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const std::optional<QDBusMessage> reply = replyTo(message);
    if (!reply || reply->type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return reply->arguments();
}

QString Bus::errorOf(const QString &service, const QString &path, const QString &interface,
                     const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const std::optional<QDBusMessage> reply = replyTo(message);
    return reply && reply->type() == QDBusMessage::ErrorMessage ? reply->errorName() : QString();
}

QVariantMap Bus::properties(const QString &service, const QString &path, const QString &interface)
{
    const auto reply = call(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("GetAll"), {interface});
    return reply && !reply->isEmpty() ? qdbus_cast<QVariantMap>(reply->first()) : QVariantMap();
}

} // namespace zeigewerk::rig
