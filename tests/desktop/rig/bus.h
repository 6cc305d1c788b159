// D-Bus calls to the programs of the session.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantList>

#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// A private connection to the session bus, closed with the object.
class Bus
{
public:
    /// Throws RigError if the bus does not answer.
    explicit Bus(const DesktopSession &session);
    ~Bus();
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    QDBusConnection &connection() { return m_connection; }

    /// Calls a method and returns its results; nothing if it failed or timed out. The event loop runs
    /// meanwhile, because the service, or one that it calls, may live in this process.
    std::optional<QVariantList> call(const QString &service, const QString &path, const QString &interface,
                                     const QString &method, const QVariantList &arguments = {});
    /// The name of the error that such a call returns; empty if it succeeds or times out.
    QString errorOf(const QString &service, const QString &path, const QString &interface,
                    const QString &method, const QVariantList &arguments = {});
    /// All properties of an interface; empty if they cannot be read.
    QVariantMap properties(const QString &service, const QString &path, const QString &interface);

private:
    /// Nothing on a timeout.
    std::optional<QDBusMessage> replyTo(const QDBusMessage &message);

    QString m_name;
    QDBusConnection m_connection;
};

} // namespace zeigewerk::rig
