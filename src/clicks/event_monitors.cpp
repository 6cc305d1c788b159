// What the pointer does in other applications: clicks are shown, and the wheel reaches the spotlight there
// too.

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
    // The flags are looked at again: what was under way when a mode ended arrives afterwards.
    monitor.setLeftPressHandler([app] {
        if (app && app->clicksOn())
            ClickRing::show(app->m_desktop, app->m_desktop.mouseLocation(), app->color(), app->m_clock);
    });
    monitor.setScrollHandler([app](const MonitoredScroll &scroll) {
        // Over a canvas that takes the pointer the wheel needs no Alt, and the canvas hears of it by itself.
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
