#include "commands/status_item.h"

#include "commands/status_icon.h"
#include "core/app_delegate.h"

#include <chrono>

namespace zeigewerk {

using namespace std::chrono_literals;

namespace {

/// When a session starts, the parts of its tray come one after the other. After this time a watcher without a
/// host counts as a leftover.
constexpr auto kWaitForHost = 3s;

} // namespace

StatusItem::StatusItem(platform::Desktop &desktop, AppDelegate &app)
    : m_desktop(desktop)
    , m_app(app)
    , m_menu(app)
{
    m_waitForHost.setSingleShot(true);
    m_waitForHost.callOnTimeout(this, &StatusItem::showIconIfPossible);
    connect(&m_notifiers, &NotifierWatch::stateChanged, this, &StatusItem::trayStateChanged);
    connect(&m_notifiers, &NotifierWatch::watcherReplaced, this, &StatusItem::registerAgain);
    connect(&m_desktop, &platform::Desktop::trayChanged, this, &StatusItem::showIconIfPossible);
    showIconIfPossible();
}

StatusItem::~StatusItem() = default;

void StatusItem::trayStateChanged()
{
    if (m_notifiers.state() == NotifierWatch::State::NoHost && !m_icon)
        m_waitForHost.start(kWaitForHost);
    else
        m_waitForHost.stop();
    showIconIfPossible();
}

bool StatusItem::hasTray() const
{
    switch (m_notifiers.state()) {
    case NotifierWatch::State::HostRegistered:
        return true;
    case NotifierWatch::State::NoWatcher:
        return m_desktop.showsTrayIcons();
    case NotifierWatch::State::NoHost:
        return !m_waitForHost.isActive() && m_desktop.showsTrayIcons();
    case NotifierWatch::State::Unknown:
        return false;
    }
    return false;
}

void StatusItem::showIconIfPossible()
{
    if (m_icon || !hasTray())
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(statusIcon());
    m_icon->setToolTip(QStringLiteral("Zeigewerk"));
    m_icon->setContextMenu(&m_menu.trayMenu());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, &StatusItem::activated);
    m_icon->show();
}

void StatusItem::registerAgain()
{
    // Qt registers again if the watcher's name was free for a moment, but not if it was handed over.
    if (!m_icon)
        return;
    m_icon->hide();
    m_icon->show();
}

void StatusItem::activated(QSystemTrayIcon::ActivationReason reason)
{
    // A tray that cannot show the menu itself reports a right click. Qt may have opened the tray's menu by
    // then; a second one is not needed.
    const bool wantsMenu = reason == QSystemTrayIcon::Trigger ||
                           (reason == QSystemTrayIcon::Context && !m_menu.trayMenu().isVisible());
    if (wantsMenu)
        m_app.openStatusMenu();
}

} // namespace zeigewerk
