#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Has the server send the connection a raw event for each key press, whichever window gets it. It arrives in
/// order with the connection's other events.
void startAnnouncingKeys(Connection &connection);
void stopAnnouncingKeys(Connection &connection);

} // namespace zeigewerk::platform::x11
