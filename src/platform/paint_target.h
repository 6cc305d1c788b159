#pragma once

#include "platform/geometry.h"

#include <QImage>
#include <QPainter>
#include <QRect>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zeigewerk::platform {

/// A part of a surface while it is painted: first transparent, then whatever its content paints there.
/// Pixels are those of the surface, origin at its top left, y down; a pixel is 0xAARRGGBB, premultiplied by
/// its alpha. What is painted must not depend on where the part begins and ends, since any part may be
/// painted again by itself.
class PaintTarget
{
public:
    /// The largest width and height that a part has: few enough pixels to stay in a processor's cache while
    /// one shape after the other is painted on them.
    static constexpr int kMaxSide = 256;
    static constexpr int kMargin = 4;

    /// The surface of that geometry; `select` chooses the part.
    explicit PaintTarget(const ViewGeometry &geometry)
        : m_geometry(geometry)
    {
    }

    /// Begins another part, which is transparent. Neither side may be longer than `kMaxSide`.
    void select(const QRect &rect);

    const ViewGeometry &geometry() const { return m_geometry; }
    const QRect &rect() const { return m_rect; }
    /// The part in view coordinates (points, y up).
    QRectF area() const { return m_geometry.toView(m_rect); }
    /// The part's pixels in one of the surface's rows, which must be one of the part's.
    std::uint32_t *row(int y) { return m_pixels.data() + std::ptrdiff_t{y - m_rect.top()} * m_rect.width(); }
    /// Sets every pixel.
    void fill(std::uint32_t premultiplied);
    /// Working memory: as many zeros as the part has pixels, and `kMargin` more for each row. Whoever writes
    /// there leaves zeros behind, so that nobody has to clear it.
    float *workingMemory();

    /// Paints in view coordinates on the part, for what is not worth painting pixel by pixel.
    QPainter &painter();

    /// Copies the part to where it belongs in the surface's image.
    void copyTo(QImage &image);

private:
    /// The image must outlive the painter.
    struct Painting
    {
        QImage image;
        QPainter painter;
    };

    ViewGeometry m_geometry;
    QRect m_rect;
    std::vector<std::uint32_t> m_pixels;
    std::vector<float> m_workingMemory;
    std::optional<Painting> m_painting;
};

} // namespace zeigewerk::platform
