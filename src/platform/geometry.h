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
    /// In the pixels of the display server: origin at the top left of the desktop, y down. It identifies the
    /// screen, since mixed scales leave gaps between the frames.
    QRect nativeFrame;
    /// Pixels per point; may be fractional, such as 1.25.
    double scale = 1.0;
    /// In points, global coordinates: origin at the bottom left of the primary screen, y up.
    QRectF frame;

    friend bool operator==(const Screen &, const Screen &) = default;
};

/// Whether a y-up rectangle contains the point. It includes its left and lower edges, not its right and upper
/// ones.
inline bool contains(const QRectF &rect, QPointF point)
{
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

/// The screens of the display server, and the conversion between its pixels and our points. Above the
/// backends, only this class and `ViewGeometry` flip y.
class ScreenLayout
{
public:
    ScreenLayout() = default;
    /// `screens` need name, native frame and scale, the primary first; their frames are filled in. As Qt
    /// places its windows, a frame has the origin of the native frame, and only its size is divided by the
    /// scale. Mirrored screens (same native frame) become one.
    explicit ScreenLayout(std::vector<Screen> screens);

    const std::vector<Screen> &screens() const { return m_screens; }
    /// The lower left corner of the primary screen, the origin of global coordinates: its native x, and its
    /// native top plus its height in points, y down.
    QPointF origin() const { return m_origin; }

    /// The point of a pointer position. The position is a pixel, the point its centre.
    QPointF pointOfPixel(QPointF nativePosition) const;
    /// The pixels that a rectangle in points covers, at the scale of the screen under its centre.
    QRect nativeRect(const QRectF &frame) const;
    /// The same at the scale of that screen, wherever the rectangle lies.
    static QRect nativeRectOn(const Screen &screen, const QRectF &frame);
    /// The screen that holds the largest part of the rectangle, which is in pixels. If no screen holds any of
    /// it, the primary one; nothing if there are no screens.
    std::optional<Screen> screenHolding(const QRect &nativeRect) const;
    /// The screen that holds the point, else the nearest; nothing if there are no screens.
    std::optional<Screen> screenAt(QPointF point) const;
    /// The frame of a part of the screen, which is given in pixels; empty if the part is empty.
    static QRectF frameOfPart(const Screen &screen, const QRect &nativePart);
    /// The scale of the screen that holds the point, else of the nearest; 1 if there are no screens.
    double scaleAt(QPointF point) const;

private:
    std::vector<Screen> m_screens;
    QPointF m_origin;
};

/// Converts between the pixels of one surface (origin top left, y down) and its view coordinates (points,
/// origin bottom left, y up).
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
    /// The whole pixels that contain the view rectangle, and one more on every side for antialiasing; clipped
    /// to the surface.
    QRect damagedPixels(const QRectF &viewRect) const;
    QRectF toView(const QRect &pixels) const;
    /// Maps view coordinates to pixels, for painters on the surface's image.
    QTransform painterTransform() const;

private:
    QSize m_pixels;
    double m_scale;
};

} // namespace zeigewerk::platform
