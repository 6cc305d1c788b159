#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/struts.h"

namespace zeigewerk::platform::x11 {

/// The size of the whole desktop, a rectangle around all screens, in pixels.
QSize desktopSize(Connection &connection);

/// The current struts of all docks. Empty without a window manager that lists its windows.
std::vector<Strut> strutsOfDocks(Connection &connection, const QSize &desktop);

} // namespace zeigewerk::platform::x11
