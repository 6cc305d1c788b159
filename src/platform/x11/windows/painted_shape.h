#pragma once

#include "platform/x11/connection.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform::x11 {

// Without a compositor nothing mixes a window with what lies beneath: a transparent pixel is black. A window
// then only is where it is painted on, so that the desktop shows through everywhere else; and where it is
// painted see-through it is only every second row, which is the nearest thing to seeing through it. That
// costs the X server a rectangle for each such row, and what lies beneath goes on moving, as it would not if
// it were copied and dimmed.

/// Makes the window the whole rectangle again.
void showWhole(Connection &connection, xcb_window_t window);
/// Makes the window nothing at all.
void showNothing(Connection &connection, xcb_window_t window);
/// Makes the pixels of `region` what they show without being mixed: with their colours no longer multiplied
/// by their alpha, which they keep.
void showColors(QImage &picture, const QRegion &region);
/// Within `region`, makes the window what can be seen in the picture.
void showPainted(Connection &connection, xcb_window_t window, const QImage &picture, const QRegion &region);

} // namespace zeigewerk::platform::x11
