// The mouse of a virtual display.
#pragma once

#include <QList>
#include <QPoint>

namespace zeigewerk::rig {

class Client;

/// Real events through XTest: grabs, raw events and the pointer's place are those of a hand. Places are
/// native root pixels.
///
/// Each operation comes back when the pointer has done it. That is more than a round trip: a window manager
/// that looks at clicks to move the focus holds the pointer until it has looked, and meanwhile the server
/// queues what the hand does and drops motions. An operation returns false if it is not done within a second.
class Pointer
{
public:
    enum Button {
        Left = 1,
        Middle = 2,
        Right = 3,
        WheelUp = 4,
        WheelDown = 5,
        WheelLeft = 6,
        WheelRight = 7
    };

    explicit Pointer(Client &client)
        : m_client(client)
    {
    }

    /// False also if the edge of the screens kept the pointer from going there.
    bool moveTo(QPoint place);
    bool press(int button = Left);
    bool release(int button = Left);
    /// A press and a release where the pointer is.
    bool click(int button = Left);
    /// So many of them where the pointer is, as close together as no hand makes them; comes back when the
    /// server has them all, whoever has been told of them.
    void clickAtOnce(int count);
    /// A press and a release at a place.
    bool clickAt(QPoint place, int button = Left);
    /// Goes to the first point, presses, makes one motion for each other point, and releases at the last.
    bool drag(const QList<QPoint> &points, int button = Left);
    /// Wheel steps at the pointer: up if positive, down if negative. XTest's mouse has no fine scrolling, so
    /// these are the classic buttons 4 and 5.
    bool wheel(int steps);

    QPoint location() const;

private:
    void send(int type, int detail, QPoint place);
    void fake(int type, int detail, QPoint place);
    bool awaitButton(int button, bool down);

    Client &m_client;
};

} // namespace zeigewerk::rig
