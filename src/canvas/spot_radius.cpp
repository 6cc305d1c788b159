// The wheel chooses how wide the spotlight is.

#include "canvas/spot_radius.h"

#include "canvas/drawing_view.h"
#include "core/app_delegate.h"

#include <algorithm>

namespace zeigewerk {

namespace {

/// How many points the radius changes by a notch of the wheel …
constexpr double kRadiusPerNotch = 8.0;
/// … and by a point of fine scrolling, of which a finger's way over a touchpad has many.
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
        return; // a wheel that turns on at a bound writes nothing
    m_spotRadius = radius;
    m_defaults.setDouble(kSpotRadiusKey, m_spotRadius);
    // Nothing is repainted here: the next step of what follows the pointer finds the hole changed.
}

} // namespace zeigewerk
