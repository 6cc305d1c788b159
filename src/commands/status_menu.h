#pragma once

#include <QMenu>
#include <QObject>

#include <vector>

class QAction;
class QPoint;

namespace zeigewerk {

class AppDelegate;

/// The menu of the status item. It exists twice with the same actions: one menu is shown by the tray's
/// process, the other by ours.
class StatusMenu : public QObject
{
    Q_OBJECT

public:
    /// `app` must outlive the menu.
    explicit StatusMenu(AppDelegate &app);

    /// Updates the actions to the controller's current state. They stay the same objects, and the tray is
    /// told only about those that changed.
    void rebuild();
    /// Triggers the entry of that name, as a click does: "draw", "spotlight", "whiteboard", "clicks", "pin",
    /// "cursor-ring", "auto-fade", "dark-toolbar", "clear", "toolbar", "check-for-updates" or "quit". False
    /// if there is no such entry. A disabled entry does nothing.
    bool trigger(const QString &name);
    /// Opens our own menu at that place in Qt's coordinates, moved so that it fits the screen. It takes the
    /// keyboard while it is open, and does not move the focus.
    void popUp(const QPoint &place);

    /// The menu that the tray shows.
    QMenu &trayMenu() { return m_trayMenu; }
    /// The menu that our process shows.
    QMenu &popupMenu() { return m_popupMenu; }

protected:
    /// Handles Ctrl+Q in the open menus.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildActions();
    void buildMenu(QMenu &menu);

    AppDelegate &m_app;
    /// One per row of the table, null for an entry that does not exist; children of this object.
    std::vector<QAction *> m_actions;
    QAction *m_quit = nullptr;
    QMenu m_trayMenu;
    QMenu m_popupMenu;
};

} // namespace zeigewerk
