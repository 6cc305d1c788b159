#pragma once

#include <QObject>
#include <QTimer>

namespace zeigewerk::platform::x11 {

/// Grabs keyboard and pointer for our open menus until it succeeds, so that Esc or a click outside closes
/// them.
///
/// Qt tries only once, when the menu opens. That fails while another program has a grab, such as a tray that
/// opens the menu at a press and keeps the pointer until the release.
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
