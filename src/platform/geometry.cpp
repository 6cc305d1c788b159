#include "platform/geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeigewerk::platform {

namespace {

QRectF scaledFrame(const Screen &screen)
{
    return {QPointF(screen.nativeFrame.topLeft()), QSizeF(screen.nativeFrame.size()) / screen.scale};
}

/// The distance of the point from the rectangle; 0 inside.
double distance(const QRectF &rect, QPointF point)
{
    const double dx = std::max({rect.left() - point.x(), 0.0, point.x() - rect.right()});
    const double dy = std::max({rect.top() - point.y(), 0.0, point.y() - rect.bottom()});
    return std::hypot(dx, dy);
}

template <typename FrameOf>
const Screen *nearest(const std::vector<Screen> &screens, QPointF point, FrameOf frameOf)
{
    const auto closer = [&](const Screen &a, const Screen &b) {
        return distance(frameOf(a), point) < distance(frameOf(b), point);
    };
    const auto found = std::min_element(screens.begin(), screens.end(), closer);
    return found == screens.end() ? nullptr : &*found;
}

} // namespace

ScreenLayout::ScreenLayout(std::vector<Screen> screens)
{
    for (Screen &screen : screens) {
        const auto isMirror = [&](const Screen &other) { return other.nativeFrame == screen.nativeFrame; };
        if (std::none_of(m_screens.begin(), m_screens.end(), isMirror))
            m_screens.push_back(std::move(screen));
    }
    if (m_screens.empty())
        return;
    const QRectF primary = scaledFrame(m_screens.front());
    m_origin = primary.bottomLeft();
    for (Screen &screen : m_screens) {
        const QRectF below = scaledFrame(screen);
        screen.frame = {QPointF(below.left() - m_origin.x(), m_origin.y() - below.bottom()), below.size()};
    }
}

QPointF ScreenLayout::pointOfPixel(QPointF nativePosition) const
{
    const QPointF center = nativePosition + QPointF(0.5, 0.5);
    const Screen *screen = nearest(m_screens, center, [](const Screen &s) { return QRectF(s.nativeFrame); });
    if (!screen)
        return nativePosition;
    const QPointF within = (center - QPointF(screen->nativeFrame.topLeft())) / screen->scale;
    return {screen->frame.left() + within.x(), screen->frame.bottom() - within.y()};
}

QRect ScreenLayout::nativeRect(const QRectF &frame) const
{
    const Screen *screen = nearest(m_screens, frame.center(), [](const Screen &s) { return s.frame; });
    return screen ? nativeRectOn(*screen, frame) : frame.toAlignedRect();
}

QRect ScreenLayout::nativeRectOn(const Screen &screen, const QRectF &frame)
{
    const double scale = screen.scale;
    const QPointF center((frame.center().x() - screen.frame.left()) * scale,
                         (screen.frame.bottom() - frame.center().y()) * scale);
    // A tiny excess over a whole pixel is rounding noise of the division that made the frame.
    constexpr double kNoise = 1e-6;
    const QSize size(static_cast<int>(std::ceil(frame.width() * scale - kNoise)),
                     static_cast<int>(std::ceil(frame.height() * scale - kNoise)));
    const QPointF corner = center - QPointF(size.width(), size.height()) / 2;
    return {screen.nativeFrame.topLeft() + QPoint(qRound(corner.x()), qRound(corner.y())), size};
}

std::optional<Screen> ScreenLayout::screenHolding(const QRect &nativeRect) const
{
    const auto held = [&](const Screen &screen) {
        const QRect part = screen.nativeFrame & nativeRect;
        return static_cast<double>(part.width()) * part.height();
    };
    // If several hold equally much, the first.
    const auto found = std::max_element(m_screens.begin(), m_screens.end(),
                                        [&](const Screen &a, const Screen &b) { return held(a) < held(b); });
    return found == m_screens.end() ? std::nullopt : std::optional(*found);
}

std::optional<Screen> ScreenLayout::screenAt(QPointF point) const
{
    const Screen *screen = nearest(m_screens, point, [](const Screen &s) { return s.frame; });
    return screen ? std::optional(*screen) : std::nullopt;
}

QRectF ScreenLayout::frameOfPart(const Screen &screen, const QRect &nativePart)
{
    if (nativePart.isEmpty())
        return {};
    const ViewGeometry geometry(screen.nativeFrame.size(), screen.scale);
    const QRect within = nativePart.translated(-screen.nativeFrame.topLeft());
    return geometry.toView(within).translated(screen.frame.topLeft());
}

double ScreenLayout::scaleAt(QPointF point) const
{
    const std::optional<Screen> screen = screenAt(point);
    return screen ? screen->scale : 1.0;
}

QPointF ViewGeometry::toView(QPointF pixel) const
{
    return {pixel.x() / m_scale, (m_pixels.height() - pixel.y()) / m_scale};
}

QPointF ViewGeometry::toPixels(QPointF viewPoint) const
{
    return {viewPoint.x() * m_scale, m_pixels.height() - viewPoint.y() * m_scale};
}

QRect ViewGeometry::damagedPixels(const QRectF &viewRect) const
{
    // Clamped before the conversion: an int cannot hold every coordinate that a drag can reach.
    const auto pixel = [](double value, int limit) {
        return static_cast<int>(std::clamp(value, -2.0, limit + 2.0));
    };
    const QPointF topLeft = toPixels({viewRect.left(), viewRect.bottom()});
    const QPointF bottomRight = toPixels({viewRect.right(), viewRect.top()});
    const int left = pixel(std::floor(topLeft.x()), m_pixels.width()) - 1;
    const int top = pixel(std::floor(topLeft.y()), m_pixels.height()) - 1;
    const int right = pixel(std::ceil(bottomRight.x()), m_pixels.width()) + 1;
    const int bottom = pixel(std::ceil(bottomRight.y()), m_pixels.height()) + 1;
    return QRect(left, top, right - left, bottom - top) & QRect(QPoint(0, 0), m_pixels);
}

QRectF ViewGeometry::toView(const QRect &pixels) const
{
    const QPointF bottomLeft = toView(QPointF(pixels.left(), pixels.top() + pixels.height()));
    return {bottomLeft, QSizeF(pixels.size()) / m_scale};
}

QTransform ViewGeometry::painterTransform() const
{
    return {m_scale, 0, 0, -m_scale, 0, static_cast<double>(m_pixels.height())};
}

} // namespace zeigewerk::platform
