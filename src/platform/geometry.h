#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QTransform>

#include <optional>
#include <vector>

namespace zeigewerk::platform {

/// One screen of the desktop.
struct Screen
{
    QString name;
    /// In the pixels of the display server: origin at the top left of the desktop, y down. Screens are told
    /// apart by it, since mixed scales leave gaps between the frames.
    QRect nativeFrame;
    /// Pixels per point; 1.25 and the like are possible.
    double scale = 1.0;
    /// In points, global coordinates: origin at the bottom left of the primary screen, y up.
    QRectF frame;

    friend bool operator==(const Screen &, const Screen &) = default;
};

/// Whether a y-up rectangle holds the point. It holds its left and lower edges, not its right and upper ones.
inline bool contains(const QRectF &rect, QPointF point)
{
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

/// The screens as the display server has them, and the way between its pixels and our points. This and
/// `ViewGeometry` are the only places where y is turned over.
class ScreenLayout
{
public:
    ScreenLayout() = default;
    /// `screens` as native frames with name and scale, the primary first; their frames are filled in. The
    /// origin of a screen's frame is its native origin, only its size is divided by the scale: so does Qt
    /// place its windows. Screens of the same native frame (mirrored) become one.
    explicit ScreenLayout(std::vector<Screen> screens);

    const std::vector<Screen> &screens() const { return m_screens; }
    /// The lower left corner of the primary screen, the origin of global coordinates: its native x, and its
    /// native top plus its height in points, y down.
    QPointF origin() const { return m_origin; }

    /// A pointer position names a pixel; its point is the middle of that pixel.
    QPointF pointOfPixel(QPointF nativePosition) const;
    /// The pixels that a rectangle in points covers, at the scale of the screen under its middle.
    QRect nativeRect(const QRectF &frame) const;
    /// The same at the scale of that screen, wherever the rectangle lies.
    static QRect nativeRectOn(const Screen &screen, const QRectF &frame);
    /// The screen that holds the largest part of the rectangle in pixels; the primary one if none holds any
    /// of it, none without screens.
    std::optional<Screen> screenHolding(const QRect &nativeRect) const;
    /// The screen that holds the point, else the nearest; none without screens.
    std::optional<Screen> screenAt(QPointF point) const;
    /// The frame of a part of the screen that is given in pixels; empty if that is.
    static QRectF frameOfPart(const Screen &screen, const QRect &nativePart);
    /// The scale of the screen that holds the point, else of the nearest.
    double scaleAt(QPointF point) const;

private:
    std::vector<Screen> m_screens;
    QPointF m_origin;
};

/// Between the pixels of one surface (origin top left, y down) and its view coordinates (points, origin
/// bottom left, y up).
class ViewGeometry
{
public:
    ViewGeometry(QSize pixels, double scale)
        : m_pixels(pixels)
        , m_scale(scale)
    {
    }

    QSize pixels() const { return m_pixels; }
    double scale() const { return m_scale; }
    QSizeF points() const { return QSizeF(m_pixels) / m_scale; }
    QRectF bounds() const { return {QPointF(0, 0), points()}; }

    QPointF toView(QPointF pixel) const;
    QPointF toPixels(QPointF viewPoint) const;
    /// The whole pixels that contain the view rectangle, and one more on every side for what antialiasing
    /// may touch; clipped to the surface.
    QRect damagedPixels(const QRectF &viewRect) const;
    QRectF toView(const QRect &pixels) const;
    /// Maps view coordinates to pixels: what a painter of the surface's image is given.
    QTransform painterTransform() const;

private:
    QSize m_pixels;
    double m_scale;
};

} // namespace zeigewerk::platform
