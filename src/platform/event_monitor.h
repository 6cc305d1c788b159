#pragma once

#include "platform/events.h"

#include <functional>

namespace zeigewerk::platform {

/// What an event monitor can be asked to tell of.
enum class Monitored {
    LeftPresses = 1 << 0,
    WheelWithAlt = 1 << 1,
};
Q_DECLARE_FLAGS(MonitoredEvents, Monitored)
Q_DECLARE_OPERATORS_FOR_FLAGS(MonitoredEvents)

/// A step of the wheel, made while Alt was held, anywhere on the desktop.
struct MonitoredScroll
{
    ScrollEvent event;
    /// Whether the pointer is over a surface or window of ours, which gets the step itself.
    bool isOverOurs = false;
};

/// Sees what the pointer does anywhere on the desktop: over other applications, over our own windows, and
/// while somebody's menu is open. Nothing is taken from whom it is meant for.
///
/// It hears of nothing until it is asked to, since what it hears wakes the program: what is done in other
/// applications must cost nothing where nothing is to be done about it.
class EventMonitor
{
public:
    virtual ~EventMonitor() = default;

    /// Tells of these events from now on, and of no others.
    virtual void setListening(MonitoredEvents events) = 0;
    /// Called once for each press of the left button; who has swapped the buttons has it elsewhere. Where the
    /// pointer is, the desktop tells.
    virtual void setLeftPressHandler(std::function<void()> handler) = 0;
    /// Called once for each step of the wheel that was made while Alt was held, and perhaps for others.
    virtual void setScrollHandler(std::function<void(const MonitoredScroll &)> handler) = 0;
};

} // namespace zeigewerk::platform
