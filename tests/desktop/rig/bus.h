// Questions over D-Bus to programs of the session.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantList>

#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// A connection of its own to the session's bus, closed with the object.
class Bus
{
public:
    /// Throws RigError if the bus does not answer.
    explicit Bus(const DesktopSession &session);
    ~Bus();
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    QDBusConnection &connection() { return m_connection; }

    /// Calls a method and comes back with what it returned; nothing if it failed or did not answer in time.
    /// The event loop runs meanwhile, because the one who answers, or whom it asks first, may live in this
    /// process.
    std::optional<QVariantList> call(const QString &service, const QString &path, const QString &interface,
                                     const QString &method, const QVariantList &arguments = {});
    /// The name of the error with which such a call fails; empty if it succeeds, or nobody answers in time.
    QString errorOf(const QString &service, const QString &path, const QString &interface,
                    const QString &method, const QVariantList &arguments = {});
    /// All properties of an interface; empty if they cannot be read.
    QVariantMap properties(const QString &service, const QString &path, const QString &interface);

private:
    /// None if nobody answers in time.
    std::optional<QDBusMessage> replyTo(const QDBusMessage &message);

    QString m_name;
    QDBusConnection m_connection;
};

} // namespace zeigewerk::rig
