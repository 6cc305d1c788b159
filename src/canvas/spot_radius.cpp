// The wheel changes the radius of the spotlight.

#include "canvas/spot_radius.h"

#include "canvas/drawing_view.h"
#include "core/app_delegate.h"

#include <algorithm>

namespace zeigewerk {

namespace {

/// Points per notch of the wheel.
constexpr double kRadiusPerNotch = 8.0;
/// Points per point of precise scrolling. Fingers on a touchpad scroll many points at a time.
constexpr double kRadiusPerPoint = 1.2;

} // namespace

double spotRadiusChange(const platform::ScrollEvent &event)
{
    return event.distance * (event.isPrecise ? kRadiusPerPoint : kRadiusPerNotch);
}

void DrawingView::scrollWheel(const platform::ScrollEvent &event)
{
    if (app && app->spotlightOn())
        app->adjustSpotRadius(spotRadiusChange(event));
}

void AppDelegate::adjustSpotRadius(double delta)
{
    const double radius = std::min(std::max(m_spotRadius + delta, kSmallestSpotRadius), kLargestSpotRadius);
    if (radius == m_spotRadius)
        return; // at a bound, the wheel writes no settings
    m_spotRadius = radius;
    m_defaults.setDouble(kSpotRadiusKey, m_spotRadius);
    // Nothing is repainted here: the next step of the follow timer notices the new radius.
}

} // namespace zeigewerk
