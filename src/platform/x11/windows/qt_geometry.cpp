#include "platform/x11/windows/qt_geometry.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk::platform::x11 {

QRectF frameOfQtRect(const ScreenLayout &layout, const QRect &qtRect)
{
    const QRectF rect(qtRect);
    const QPointF origin = layout.origin();
    return {QPointF(rect.left() - origin.x(), origin.y() - rect.bottom()), rect.size()};
}

QRect qtRectOf(const ScreenLayout &layout, const QRectF &frame)
{
    const QPointF origin = layout.origin();
    const QPointF topLeft(frame.left() + origin.x(), origin.y() - frame.bottom());
    return {topLeft.toPoint(), frame.size().toSize()};
}

QRect cutToScale(const ScreenLayout &layout, const Screen &screen, const QRect &nativeRect)
{
    const auto wouldScale = [&](const Screen &other) {
        return other.scale != screen.scale && other.nativeFrame.intersects(nativeRect);
    };
    const std::vector<Screen> &screens = layout.screens();
    if (screen.nativeFrame.contains(nativeRect.center()) ||
        std::none_of(screens.begin(), screens.end(), wouldScale))
        return nativeRect;
    // A window is at least a point wide and high.
    const int point = static_cast<int>(std::ceil(screen.scale));
    const QPoint last = screen.nativeFrame.bottomRight();
    const QPoint corner(std::min(nativeRect.left(), last.x() - point + 1),
                        std::min(nativeRect.top(), last.y() - point + 1));
    return {corner, QPoint(std::min(nativeRect.right(), last.x()), std::min(nativeRect.bottom(), last.y()))};
}

} // namespace zeigewerk::platform::x11
