// The program's modes and the controls that turn them off.
#pragma once

#include "desktop_changes.h"
#include "random_choice.h"

#include <QStringList>

namespace zeigewerk::rig {

class Controls
{
public:
    Controls(DesktopSession &session, DesktopChanges &desktop)
        : m_session(session)
        , m_desktop(desktop)
    {
    }

    /// Closes the menus of the program and of the window manager.
    void closeMenus();
    /// Turns off every mode that is on, each by its own control: its hot key or its menu entry. Returns what
    /// went wrong, if anything.
    QStringList switchAllOff(RandomChoice &random);
    bool isInTray() { return m_desktop.tray().host.items().size() == 1; }
    /// Whether the menu offers to hide the toolbar.
    bool isToolbarOn();
    bool click(const QString &label);

private:
    bool isMenuOpen();
    std::optional<TrayItem> item();
    QStringList modesOn(const TrayItem &item);
    void switchOff(const QString &mode, RandomChoice &random);

    DesktopSession &m_session;
    DesktopChanges &m_desktop;
};

} // namespace zeigewerk::rig
