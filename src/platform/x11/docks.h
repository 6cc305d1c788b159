#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/struts.h"

namespace zeigewerk::platform::x11 {

/// The size of the whole desktop in pixels: a rectangle around all screens.
QSize desktopSize(Connection &connection);

/// What the docks keep for themselves now. Without a window manager that lists its windows there are none.
std::vector<Strut> strutsOfDocks(Connection &connection, const QSize &desktop);

} // namespace zeigewerk::platform::x11
