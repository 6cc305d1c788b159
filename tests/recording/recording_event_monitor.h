#pragma once

#include "platform/event_monitor.h"

#include <utility>

namespace zeigewerk::platform {

class RecordingDesktop;

/// A monitor that tells of what the test says has happened.
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
    /// Somebody presses the left button or turns the wheel; nothing is told of it unless it was asked for, as
    /// on a real desktop.
    void pressLeft() const;
    void scroll(const MonitoredScroll &scroll) const;
    /// Tells of it although that is no longer wanted: it was under way.
    void pressLeftLate() const;
    void scrollLate(const MonitoredScroll &scroll) const;

private:
    MonitoredEvents m_listening;
    const RecordingDesktop &m_desktop;
    std::function<void(QPointF)> m_leftPress;
    std::function<void(const MonitoredScroll &)> m_scroll;
};

} // namespace zeigewerk::platform
