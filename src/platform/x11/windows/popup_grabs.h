#pragma once

#include <QObject>
#include <QTimer>

namespace zeigewerk::platform::x11 {

/// Sees to it that our open menus have keyboard and pointer. Qt asks for both once, when a menu opens; while
/// another program has one of them it gets none, and such a menu could be closed neither by Esc nor by a
/// click beside it. A tray that opens the menu at a press has the pointer until the release.
class PopupGrabs : public QObject
{
    Q_OBJECT

public:
    /// Needs the application object.
    PopupGrabs();

protected:
    /// Watches the application for menus that open.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void grab();

    QTimer m_grabbing;
};

} // namespace zeigewerk::platform::x11
