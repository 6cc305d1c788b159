#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Makes the server send the connection a raw event for each key press, whoever gets the key. It arrives in
/// order with the connection's other events.
void startAnnouncingKeys(Connection &connection);
void stopAnnouncingKeys(Connection &connection);

} // namespace zeigewerk::platform::x11
