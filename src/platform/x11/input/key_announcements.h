#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// From now on the connection is told of each key that is pressed, whoever gets it, or no longer: by a raw
/// event, in order with all else that it is told.
void announceKeys(Connection &connection, bool on);

} // namespace zeigewerk::platform::x11
