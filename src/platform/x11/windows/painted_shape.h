#pragma once

#include "platform/x11/connection.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform::x11 {

// Without a compositor a transparent pixel is black. So the window is shaped: it covers only painted pixels,
// and where they are translucent only every second row. Copying and dimming the desktop beneath instead would
// freeze it.

/// Makes the window a whole rectangle again.
void showWhole(Connection &connection, xcb_window_t window);
/// Makes the window's shape empty.
void showNothing(Connection &connection, xcb_window_t window);
/// Divides the colours in `region` by their alpha, because no compositor blends them. The alpha stays.
void showColors(QImage &picture, const QRegion &region);
/// Within `region`, shapes the window after the painted pixels of the picture.
void showPainted(Connection &connection, xcb_window_t window, const QImage &picture, const QRegion &region);

} // namespace zeigewerk::platform::x11
