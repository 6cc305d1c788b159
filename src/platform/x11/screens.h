#pragma once

#include "platform/geometry.h"
#include "platform/x11/connection.h"

#include <QDeadlineTimer>
#include <QTimer>

class QScreen;

namespace zeigewerk::platform::x11 {

/// The server's screens, with the scale that Qt uses for each.
class Screens : public QObject
{
    Q_OBJECT

public:
    /// Reads the screens and starts watching them.
    explicit Screens(Connection &connection);

    const ScreenLayout &layout() const { return m_layout; }
    bool isChangeEvent(std::uint8_t eventType) const;
    /// The server or Qt reports a change. A series of such calls makes one `changed`.
    void changeAnnounced();

Q_SIGNALS:
    /// Positions, scales or the order of the screens changed.
    void changed();

private:
    std::vector<Screen> read();
    void readAgain();
    void watch(QScreen *screen);
    QString atomName(xcb_atom_t atom);

    Connection &m_connection;
    ScreenLayout m_layout;
    std::uint8_t m_firstEvent = 0;
    QTimer m_readAgain;
    /// Until then a change waits for Qt, which reads it on its own connection.
    std::optional<QDeadlineTimer> m_waitForQt;
};

} // namespace zeigewerk::platform::x11
