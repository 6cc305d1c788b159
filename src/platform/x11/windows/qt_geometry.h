#pragma once

#include "platform/geometry.h"

namespace zeigewerk::platform::x11 {

/// The frame in our global coordinates (points, y up) of a rectangle in Qt's (points, y down).
QRectF frameOfQtRect(const ScreenLayout &layout, const QRect &qtRect);
/// The inverse, to the nearest whole point.
QRect qtRectOf(const ScreenLayout &layout, const QRectF &frame);

/// The part of a rectangle in that screen's pixels that Qt can show at that screen's scale: Qt gives a window
/// the scale of the screen under its middle, else of one that it touches.
QRect cutToScale(const ScreenLayout &layout, const Screen &screen, const QRect &nativeRect);

} // namespace zeigewerk::platform::x11
