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

/// A part of a surface that is being painted; transparent at first. Coordinates are pixels of the surface,
/// origin at its top left, y down; a pixel is 0xAARRGGBB, premultiplied by its alpha. What is painted must
/// not depend on where the part begins and ends, since any part may be repainted by itself.
class PaintTarget
{
public:
    /// The maximum width and height of a part: few enough pixels to stay in a processor's cache while shape
    /// after shape is painted on them.
    static constexpr int kMaxSide = 256;
    /// The extra values at the end of each row of the working memory.
    static constexpr int kMargin = 4;

    /// Paints on a surface of that geometry; `select` chooses the part.
    explicit PaintTarget(const ViewGeometry &geometry)
        : m_geometry(geometry)
    {
    }

    /// Starts another part, which is transparent. Neither side may be longer than `kMaxSide`.
    void select(const QRect &rect);

    const ViewGeometry &geometry() const { return m_geometry; }
    const QRect &rect() const { return m_rect; }
    /// The part in view coordinates (points, y up).
    QRectF area() const { return m_geometry.toView(m_rect); }
    /// The part's pixels in row `y` of the surface. The part must include that row.
    std::uint32_t *row(int y) { return m_pixels.data() + std::ptrdiff_t{y - m_rect.top()} * m_rect.width(); }
    /// Sets every pixel of the part.
    void fill(std::uint32_t premultiplied);
    /// Working memory, all zeros: one value for each pixel of the part, and `kMargin` more for each row. Its
    /// user must leave zeros behind, so that it never has to be cleared.
    float *workingMemory();

    /// A painter on the part, in view coordinates, for content that is not worth painting pixel by pixel.
    QPainter &painter();

    /// Copies the part to its place in the surface's image.
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
