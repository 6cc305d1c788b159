// The D-Bus bus of AT-SPI, on which programs describe themselves to screen readers.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariant>

#include <optional>

namespace zeigewerk::rig {

/// The address of the accessibility bus of a session bus. Asking for it starts that bus. Throws RigError if
/// there is none.
QString accessibilityBusAddress(const QString &sessionBusAddress);

/// A private connection to the bus, closed with the object. Calls block until the reply arrives, with a short
/// timeout: the other side is a different process.
class AccessibilityBus
{
public:
    explicit AccessibilityBus(const QString &address);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    bool isConnected() const { return m_connection.isConnected(); }

    /// An object on the bus: its service and its path.
    struct Object
    {
        QString service;
        QString path;
    };

    /// The first value that the method returns; an invalid one if it returns none. Nothing on an error or a
    /// timeout.
    std::optional<QVariant> call(const Object &object, const QString &interface, const QString &method,
                                 const QVariantList &arguments = {});
    /// A property of the object; invalid if it cannot be read.
    QVariant property(const Object &object, const QString &interface, const QString &name);
    /// The process that owns a bus name, or 0.
    qint64 processOf(const QString &service);

private:
    QString m_name;
    QDBusConnection m_connection;
};

} // namespace zeigewerk::rig
