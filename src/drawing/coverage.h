#pragma once

#include "drawing/blend.h"

#include <QPointF>
#include <QRect>

#include <array>
#include <cstddef>

namespace zeigewerk {

/// How much of each pixel strokes cover. A pixel is covered by how far its middle lies inside the nearest
/// edge, and where strokes overlap, by the one that covers it most: so a path of many lines is one stroke
/// without seams, in whatever order and parts its lines are added, and a see-through one is one coat.
///
/// Coordinates are pixels, x to the right, y down; pixel (x, y) has its middle at (x + 0.5, y + 0.5).
class Coverage
{
public:
    /// Of the target's part, of which nothing is covered yet. There may be only one for a target at a time,
    /// and what it covers must be blended in the end.
    explicit Coverage(platform::PaintTarget &target);

    /// Adds a straight stroke with round ends. Coordinates must be within 2^17 pixels of the origin.
    void addLine(QPointF from, QPointF to, double halfWidth);

    /// Paints the colour on each pixel as far as it is covered; then nothing is.
    void blend(Premultiplied color);

private:
    /// The pixels of a row that may be covered.
    struct Span
    {
        int begin;
        int end;
    };

    /// How far each pixel of a row is covered, from 0 to 1.
    float *row(int y) { return m_values + std::ptrdiff_t{y - m_rect.top()} * m_stride; }
    void blendRow(int y, Span span, Premultiplied color);

    platform::PaintTarget &m_target;
    QRect m_rect;
    int m_stride;
    float *m_values;
    /// One for each row of the part; the rest is not in use.
    std::array<Span, platform::PaintTarget::kMaxSide> m_spans;
};

} // namespace zeigewerk
