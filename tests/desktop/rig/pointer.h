// The mouse of a virtual display.
#pragma once

#include <QList>
#include <QPoint>

namespace zeigewerk::rig {

class Client;

/// Real events through XTest: grabs, raw events and the pointer's position behave as with a real mouse.
/// Places are native root pixels.
///
/// Each operation returns once the pointer has done it, which takes more than a round trip: a window manager
/// that focuses windows on clicks freezes the pointer until it has handled the click, and meanwhile the
/// server queues buttons and drops motions. An operation returns false if it is not done within a second.
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

    /// Also false if the pointer is stopped by the edge of the screens.
    bool moveTo(QPoint place);
    bool press(int button = Left);
    bool release(int button = Left);
    /// A press and a release where the pointer is.
    bool click(int button = Left);
    /// That many clicks where the pointer is, faster than any person. Returns once the server has them all,
    /// whether or not clients have received them.
    void clickAtOnce(int count);
    /// A press and a release at a place.
    bool clickAt(QPoint place, int button = Left);
    /// Moves to the first point, presses, makes one motion to each other point, and releases at the last.
    bool drag(const QList<QPoint> &points, int button = Left);
    /// Wheel steps at the pointer: up if positive, down if negative. XTest's mouse has no scroll axis, so
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
