#pragma once

#include "commands/notifier_watch.h"
#include "commands/status_menu.h"
#include "platform/desktop.h"

#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <memory>

namespace zeigewerk {

class AppDelegate;

/// The program's item in the desktop's tray, with its menu. It exists from launch on; its icon appears as
/// soon as there is a tray to show it, and again when the tray comes back. A desktop may have no tray or no
/// session bus: the menu still opens elsewhere.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the item.
    StatusItem(platform::Desktop &desktop, AppDelegate &app);
    ~StatusItem() override;

    StatusMenu &menu() { return m_menu; }
    /// Whether there has been a tray to show the icon. If the tray has gone, the icon waits for the next one.
    bool hasIcon() const { return m_icon != nullptr; }

private:
    void trayStateChanged();
    bool hasTray() const;
    void showIconIfPossible();
    void registerAgain();
    void activated(QSystemTrayIcon::ActivationReason reason);

    platform::Desktop &m_desktop;
    AppDelegate &m_app;
    StatusMenu m_menu;
    NotifierWatch m_notifiers;
    /// Runs while a watcher has no host, which may still come.
    QTimer m_waitForHost;
    /// Created late: Qt decides which kind of tray there is only once, when the first icon is created.
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace zeigewerk
