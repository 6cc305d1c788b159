#pragma once

#include "platform/events.h"

namespace zeigewerk {

/// The change of the spotlight's radius, in points, for a step of the wheel.
double spotRadiusChange(const platform::ScrollEvent &event);

} // namespace zeigewerk
