// The message bus on which programs describe themselves to screen readers.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariant>

#include <optional>

namespace zeigewerk::rig {

/// The address of the accessibility bus that belongs to a session bus; asking for it starts that bus. Throws
/// RigError if there is none.
QString accessibilityBusAddress(const QString &sessionBusAddress);

/// A connection to a bus that is nobody else's, closed with the object. Every question waits for its answer,
/// but not for long: whoever is asked is another process.
class AccessibilityBus
{
public:
    explicit AccessibilityBus(const QString &address);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    bool isConnected() const { return m_connection.isConnected(); }

    /// An object on the bus: who has it, and where.
    struct Object
    {
        QString service;
        QString path;
    };

    /// The first value that the object's method answers, or an invalid one if it answers none. Nothing if it
    /// answers with an error, or not in time.
    std::optional<QVariant> call(const Object &object, const QString &interface, const QString &method,
                                 const QVariantList &arguments = {});
    /// An object's property; invalid if it cannot be had.
    QVariant property(const Object &object, const QString &interface, const QString &name);
    /// The process behind a name on the bus, or 0.
    qint64 processOf(const QString &service);

private:
    QString m_name;
    QDBusConnection m_connection;
};

} // namespace zeigewerk::rig
