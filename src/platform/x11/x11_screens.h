#pragma once

#include "platform/geometry.h"
#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// The screens as the server has them now, the primary first, each with the scale that Qt gives it.
ScreenLayout readScreens(Connection &connection);

} // namespace zeigewerk::platform::x11
