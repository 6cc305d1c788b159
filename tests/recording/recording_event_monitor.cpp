#include "recording/recording_event_monitor.h"

#include "recording/recording_desktop.h"

namespace zeigewerk::platform {

void RecordingEventMonitor::pressLeft() const
{
    if (m_listening.testFlag(Monitored::LeftPresses))
        pressLeftLate();
}

void RecordingEventMonitor::scroll(const MonitoredScroll &scroll) const
{
    if (m_listening.testFlag(Monitored::WheelWithAlt))
        scrollLate(scroll);
}

void RecordingEventMonitor::pressLeftLate() const
{
    if (m_leftPress)
        m_leftPress(m_desktop.mouseLocation().value_or(QPointF()));
}

void RecordingEventMonitor::scrollLate(const MonitoredScroll &scroll) const
{
    if (m_scroll)
        m_scroll(scroll);
}

} // namespace zeigewerk::platform
