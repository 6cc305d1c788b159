#pragma once

#include "platform/event_monitor.h"

#include <utility>

namespace zeigewerk::platform {

class RecordingDesktop;

/// A monitor that reports the events that a test sends.
class RecordingEventMonitor : public EventMonitor
{
public:
    explicit RecordingEventMonitor(const RecordingDesktop &desktop)
        : m_desktop(desktop)
    {
    }

    void setListening(MonitoredEvents events) override { m_listening = events; }
    void setLeftPressHandler(std::function<void(QPointF)> handler) override
    {
        m_leftPress = std::move(handler);
    }
    void setScrollHandler(std::function<void(const MonitoredScroll &)> handler) override
    {
        m_scroll = std::move(handler);
    }

    MonitoredEvents listening() const { return m_listening; }
    /// Press the left button or turn the wheel. As on a real desktop, the handler is called only if the
    /// monitor listens for that.
    void pressLeft() const;
    void scroll(const MonitoredScroll &scroll) const;
    /// The same for an event that was on its way when listening ended: the handler is called anyway.
    void pressLeftLate() const;
    void scrollLate(const MonitoredScroll &scroll) const;

private:
    MonitoredEvents m_listening;
    const RecordingDesktop &m_desktop;
    std::function<void(QPointF)> m_leftPress;
    std::function<void(const MonitoredScroll &)> m_scroll;
};

} // namespace zeigewerk::platform
