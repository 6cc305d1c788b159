#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Makes this process the only instance on the X screen until its connection ends, however it ends. Returns
/// false if another instance is running. Of two that ask at the same time, exactly one gets true.
bool becomeOnlyInstance(Connection &connection);

} // namespace zeigewerk::platform::x11
