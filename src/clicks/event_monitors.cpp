// What the pointer does in other applications: rings show the clicks, and the wheel resizes the spotlight.

#include "canvas/spot_radius.h"
#include "clicks/click_ring.h"
#include "core/app_delegate.h"

namespace zeigewerk {

using platform::Modifier;
using platform::Monitored;
using platform::MonitoredEvents;
using platform::MonitoredScroll;

void AppDelegate::installClickMonitors()
{
    platform::EventMonitor &monitor = m_desktop.eventMonitor();
    const QPointer<AppDelegate> app(this);
    // Events that were already on their way when a mode ended arrive afterwards.
    monitor.setLeftPressHandler([app](QPointF position) {
        if (app && app->clicksOn())
            ClickRing::show(app->m_desktop, position, app->color(), app->m_clock);
    });
    monitor.setScrollHandler([app](const MonitoredScroll &scroll) {
        // A canvas that takes the pointer gets the wheel itself, and needs no Alt.
        const bool isMeant = scroll.event.modifiers.testFlag(Modifier::Alt) && !scroll.isOverOurs;
        if (app && app->spotlightOn() && isMeant)
            app->adjustSpotRadius(spotRadiusChange(scroll.event));
    });
}

void AppDelegate::updateEventMonitor()
{
    MonitoredEvents events;
    events.setFlag(Monitored::LeftPresses, m_clicksOn);
    events.setFlag(Monitored::WheelWithAlt, m_spotlightOn);
    m_desktop.eventMonitor().setListening(events);
}

} // namespace zeigewerk
