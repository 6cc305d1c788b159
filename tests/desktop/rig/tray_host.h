// The part of a tray that shows the items, as a task bar does, and receives clicks.
#pragma once

#include "bus.h"
#include "tray_menu.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QPoint>
#include <QSize>

namespace zeigewerk::rig {

/// An item as it describes itself.
struct TrayItem
{
    /// The connection that registered it.
    QString service;
    QString id;
    QString title;
    QString status;
    /// The first line of its tooltip.
    QString toolTip;
    /// A name in the icon theme; empty if the item provides images.
    QString iconName;
    QList<QSize> iconSizes;
    QString menuPath;
};

/// A StatusNotifierHost. It registers with the current watcher and with each one that appears later; a
/// session may have several hosts.
class TrayHost : public QObject
{
    Q_OBJECT

public:
    /// Not started yet.
    explicit TrayHost(const DesktopSession &session);
    /// Stops it.
    ~TrayHost() override;

    void start();
    /// Leaves the bus, as far as the watcher can tell.
    void stop();

    /// The items that the watcher knows, as they describe themselves now, without those that do not answer.
    /// Empty without a watcher.
    QList<TrayItem> items();
    /// The item's menu without its root; empty if it cannot be read.
    QList<TrayMenuItem> menu(const TrayItem &item);
    /// Clicks on an entry of its menu. False if the item does not accept it.
    bool click(const TrayItem &item, int entry);
    /// A plain click on the item at that place, in native root pixels. False if the item does not accept it.
    bool activate(const TrayItem &item, QPoint place);
    /// What a host calls on a right click if it does not show menus itself.
    bool openContextMenu(const TrayItem &item, QPoint place);

    /// How often a menu has announced new entries since forget().
    int layoutUpdates() const { return m_layoutUpdates; }
    /// The states that menus have reported for an entry's check mark since forget(), in order.
    QList<int> reportedToggleStates(int entry) const { return m_toggleStates.value(entry); }
    void forget();

private Q_SLOTS:
    void noteLayoutUpdated() { ++m_layoutUpdates; }
    void notePropertiesUpdated(const QDBusMessage &message);

private:
    void registerWithWatcher();
    bool callItem(const TrayItem &item, const QString &method, QPoint place);

    Bus m_bus;
    QString m_service;
    QDBusServiceWatcher m_watcher;
    bool m_isStarted = false;
    int m_layoutUpdates = 0;
    QMap<int, QList<int>> m_toggleStates;
};

} // namespace zeigewerk::rig
