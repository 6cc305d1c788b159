#pragma once

#include "platform/geometry.h"
#include "platform/x11/connection.h"

#include <QDeadlineTimer>
#include <QTimer>

class QScreen;

namespace zeigewerk::platform::x11 {

/// The screens as the server has them, each with the scale that Qt gives it.
class Screens : public QObject
{
    Q_OBJECT

public:
    /// Reads them, and watches them from then on.
    explicit Screens(Connection &connection);

    const ScreenLayout &layout() const { return m_layout; }
    bool isChangeEvent(std::uint8_t eventType) const;
    /// The server or Qt says that something changed; many such news are one change.
    void changeAnnounced();

Q_SIGNALS:
    /// Places, scales or the order changed; once per change.
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
    /// Until when the news of the server wait for Qt, which reads them on a connection of its own.
    std::optional<QDeadlineTimer> m_waitForQt;
};

} // namespace zeigewerk::platform::x11
