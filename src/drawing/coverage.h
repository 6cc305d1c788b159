#pragma once

#include "drawing/blend.h"

#include <QPointF>
#include <QRect>

#include <array>
#include <cstddef>

namespace zeigewerk {

/// How much of each pixel strokes cover. A pixel's coverage is how far its centre lies inside the nearest
/// edge; where strokes overlap, the highest counts. So a path of many lines is one stroke without seams, even
/// a translucent one, regardless of the order and the parts in which its lines are added.
///
/// Coordinates are pixels, x to the right, y down; pixel (x, y) has its centre at (x + 0.5, y + 0.5).
class Coverage
{
public:
    /// Starts with nothing covered. A target can have only one Coverage at a time, and blend() must follow
    /// the last line.
    explicit Coverage(platform::PaintTarget &target);

    /// Adds a straight stroke with round ends. Coordinates must be within 2^17 pixels of the origin.
    void addLine(QPointF from, QPointF to, double halfWidth);

    /// Blends the colour over each pixel by its coverage, then clears all coverage.
    void blend(Premultiplied color);

private:
    /// The pixels of a row that may be covered.
    struct Span
    {
        int begin;
        int end;
    };

    /// The coverage of each pixel of a row, from 0 to 1.
    float *row(int y) { return m_values + std::ptrdiff_t{y - m_rect.top()} * m_stride; }
    void blendRow(int y, Span span, Premultiplied color);

    platform::PaintTarget &m_target;
    QRect m_rect;
    int m_stride;
    float *m_values;
    /// One for each row of the target; the others are unused.
    std::array<Span, platform::PaintTarget::kMaxSide> m_spans;
};

} // namespace zeigewerk
