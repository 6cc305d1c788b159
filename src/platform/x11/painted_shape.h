#pragma once

#include "platform/x11/connection.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform::x11 {

// Without a compositor a transparent pixel is black. A window then only is where it is painted on, so that
// the desktop shows through everywhere else.

/// Makes the window the whole rectangle again.
void showWhole(Connection &connection, xcb_window_t window);
/// Makes the window nothing at all.
void showNothing(Connection &connection, xcb_window_t window);
/// Within `region`, makes the window what can be seen in the picture.
void showPainted(Connection &connection, xcb_window_t window, const QImage &picture, const QRegion &region);

} // namespace zeigewerk::platform::x11
