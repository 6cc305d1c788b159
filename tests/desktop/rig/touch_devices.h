// Devices that say where on the screen something is: a touch screen and a tablet's pen.
#pragma once

#include "test_device.h"

#include <QList>
#include <QPoint>
#include <QSize>

namespace zeigewerk::rig {

/// What both have in common: places are native root pixels, on a root window of that size.
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

    /// One finger along these places; a tap if it is only one. False if the server does not process it.
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

    /// The pen's tip along these places. False if the server does not process it.
    bool stroke(const QList<QPoint> &places);

private:
    bool move(QPoint place);
    bool tip(bool isDown, QPoint place);
};

} // namespace zeigewerk::rig
