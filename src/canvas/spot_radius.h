#pragma once

#include "platform/events.h"

namespace zeigewerk {

/// By how many points a step of the wheel changes the spotlight's radius.
double spotRadiusChange(const platform::ScrollEvent &event);

} // namespace zeigewerk
