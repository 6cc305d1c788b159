// The part of a tray that keeps the list of its items.
#pragma once

#include "bus.h"

#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QStringList>

namespace zeigewerk::rig {

/// A StatusNotifierWatcher: items and hosts register with it, and are removed when they leave the bus. While
/// another process owns the name on the bus, this one queues for it.
class TrayWatcher : public QDBusVirtualObject
{
public:
    static const QString kService;
    static const QString kPath;

    /// Not started yet.
    explicit TrayWatcher(const DesktopSession &session);
    /// Stops it.
    ~TrayWatcher() override;

    /// Requests the name, with no items and no hosts. Throws RigError if the bus refuses the request.
    void start();
    /// Releases the name and forgets all items and hosts.
    void stop();

    /// The services of the registered items, without duplicates, oldest first.
    QStringList items() const { return m_items; }
    /// How often items have registered since the last start, including repeated registrations.
    int registrations() const { return m_registrations; }

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void registerItem(const QDBusMessage &message);
    void registerHost(const QDBusMessage &message);
    void forget(const QString &service);
    void emitSignal(const QString &signal, const QVariantList &arguments = {});
    QVariantMap properties() const;

    Bus m_bus;
    QDBusServiceWatcher m_departures;
    QStringList m_items;
    QStringList m_hosts;
    int m_registrations = 0;
    bool m_isStarted = false;
};

} // namespace zeigewerk::rig
