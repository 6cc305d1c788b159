#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Whether no other of our programs runs on the display's screen: then this one does, until its connection
/// ends, however it ends. Of two that ask at the same time one is told so.
bool becomeOnlyInstance(Connection &connection);

} // namespace zeigewerk::platform::x11
