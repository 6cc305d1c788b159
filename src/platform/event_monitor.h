#pragma once

#include "platform/events.h"

#include <functional>

namespace zeigewerk::platform {

/// What an event monitor can report.
enum class Monitored {
    LeftPresses = 1 << 0,
    WheelWithAlt = 1 << 1,
};
Q_DECLARE_FLAGS(MonitoredEvents, Monitored)
Q_DECLARE_OPERATORS_FOR_FLAGS(MonitoredEvents)

/// A step of the wheel anywhere on the desktop.
struct MonitoredScroll
{
    ScrollEvent event;
    /// Whether the pointer is over a surface or window of ours, which also gets the step itself.
    bool isOverOurs = false;
};

/// Sees pointer events anywhere on the desktop: over other applications, over our own windows, and while any
/// menu is open. It consumes none of them.
///
/// It reports nothing until asked to, because every event wakes the program. `Desktop::limitation` tells
/// which events a desktop does not report over other applications.
class EventMonitor
{
public:
    virtual ~EventMonitor() = default;

    /// Reports these events from now on, and no others.
    virtual void setListening(MonitoredEvents events) = 0;
    /// Called once for each press of the left button, with the pointer's place when the press is reported:
    /// points, global coordinates, y up. For users with swapped buttons it is the one they press as left.
    virtual void setLeftPressHandler(std::function<void(QPointF position)> handler) = 0;
    /// Called once for each step of the wheel made while Alt is held. It may also report other steps.
    virtual void setScrollHandler(std::function<void(const MonitoredScroll &)> handler) = 0;
};

} // namespace zeigewerk::platform
