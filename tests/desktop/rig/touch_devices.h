// Devices with absolute coordinates: a touch screen and a tablet with a pen.
#pragma once

#include "test_device.h"

#include <QList>
#include <QPoint>
#include <QSize>

namespace zeigewerk::rig {

/// Places are native root pixels on a root window of that size.
class AbsoluteDevice : public TestDevice
{
protected:
    AbsoluteDevice(const QString &socketPath, QSize root)
        : TestDevice(socketPath)
        , m_root(root)
    {
    }

    Axes at(QPoint place) const;

private:
    QSize m_root;
};

class TouchScreen : public AbsoluteDevice
{
public:
    static constexpr char kType[] = "Touch";

    TouchScreen(const QString &socketPath, QSize root)
        : AbsoluteDevice(socketPath, root)
    {
    }

    /// Moves one finger along these places; a single place is a tap. False if the server does not process it.
    bool stroke(const QList<QPoint> &places);

private:
    bool touch(std::uint32_t type, QPoint place);

    std::uint32_t m_touches = 0;
};

class Tablet : public AbsoluteDevice
{
public:
    static constexpr char kType[] = "PointerAbsolute";

    Tablet(const QString &socketPath, QSize root)
        : AbsoluteDevice(socketPath, root)
    {
    }

    /// Moves the pen's tip along these places. False if the server does not process it.
    bool stroke(const QList<QPoint> &places);

private:
    bool move(QPoint place);
    bool tip(bool isDown, QPoint place);
};

} // namespace zeigewerk::rig
