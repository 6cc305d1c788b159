#pragma once

#include <QMenu>
#include <QObject>

#include <vector>

class QAction;
class QPoint;

namespace zeigewerk {

class AppDelegate;

/// The menu of the status item. It exists twice with the same actions: once for the tray, whose process shows
/// it, and once to pop up in our own.
class StatusMenu : public QObject
{
    Q_OBJECT

public:
    /// `app` must outlive the menu.
    explicit StatusMenu(AppDelegate &app);

    /// Has the actions show the controller's state as it is now. They stay the same objects, and one that is
    /// right already is not touched: the tray is told only what changed.
    void rebuild();
    /// Does what a click on the entry of that name does: "draw", "spotlight", "whiteboard", "clicks", "pin",
    /// "cursor-ring", "auto-fade", "dark-toolbar", "clear", "toolbar", "check-for-updates" or "quit". False
    /// if there is none.
    bool trigger(const QString &name);
    /// Opens our own menu at that place in Qt's coordinates, moved as far as the screen demands. It takes the
    /// keyboard for as long as it is open, without moving the focus.
    void popUp(const QPoint &place);

    /// The one that the tray shows.
    QMenu &trayMenu() { return m_trayMenu; }
    /// The one that pops up here.
    QMenu &popupMenu() { return m_popupMenu; }

protected:
    /// Watches the open menus for the key equivalent of quitting.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildActions();
    void buildMenu(QMenu &menu);

    AppDelegate &m_app;
    /// One for each row of the table, null for one that is not there; children of this object.
    std::vector<QAction *> m_actions;
    QAction *m_quit = nullptr;
    QMenu m_trayMenu;
    QMenu m_popupMenu;
};

} // namespace zeigewerk
