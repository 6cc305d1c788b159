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
/// soon as there is a tray to show it, and again when the tray comes back. A desktop without a tray, or
/// without a session bus, is nothing unusual: the menu still opens elsewhere.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the item.
    StatusItem(platform::Desktop &desktop, AppDelegate &app);
    ~StatusItem() override;

    StatusMenu &menu() { return m_menu; }
    /// Whether there has been a tray to show the icon. It may be gone by now, and the icon waits for the
    /// next.
    bool hasIcon() const { return m_icon != nullptr; }

private:
    void trayStateChanged();
    bool isTrayThere() const;
    void showIconIfPossible();
    void registerAgain();
    void activated(QSystemTrayIcon::ActivationReason reason);

    platform::Desktop &m_desktop;
    AppDelegate &m_app;
    StatusMenu m_menu;
    NotifierWatch m_notifiers;
    /// While a watcher is alone, its host may be on its way.
    QTimer m_waitForHost;
    /// Made late, because Qt decides only once, when the first one is made, which kind of tray there is.
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace zeigewerk
