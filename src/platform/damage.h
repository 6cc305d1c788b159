#pragma once

#include <QRectF>

#include <vector>

namespace zeigewerk::platform {

/// The area of a picture that changed: some rectangles in view coordinates (points, y up), or everything. The
/// rectangles have no margin; the conversion to pixels adds the pixel that antialiasing may paint around
/// them.
class Damage
{
public:
    /// The maximum number of rectangles. Beyond it, neighbours are united, starting with those whose union
    /// adds the least area, so that clipping and culling have a bounded cost.
    static constexpr std::size_t kMaxRects = 128;

    Damage() = default;

    static Damage everything();
    static Damage of(const QRectF &rect);

    /// Adds a rectangle. An empty one counts as a point or a line; one that is not finite means everything.
    void add(const QRectF &rect);
    void add(const Damage &other);

    /// Adds the area that a round stroke of that half width may paint, in pieces, so that a long diagonal
    /// does not damage the whole rectangle around it. Consecutive short segments of a freehand stroke share
    /// pieces.
    void addStroke(QPointF from, QPointF to, double halfWidth);

    bool isEmpty() const { return !m_everything && m_rects.empty(); }
    bool isEverything() const { return m_everything; }
    /// The rectangles; meaningless when the damage is everything.
    const std::vector<QRectF> &rects() const { return m_rects; }
    /// Whether any part of `rect`, including its edges, is damaged.
    bool touches(const QRectF &rect) const;

private:
    void addPiece(const QRectF &piece, double maxShortSide);
    void append(const QRectF &rect);
    void uniteNeighbours();

    bool m_everything = false;
    std::vector<QRectF> m_rects;
};

} // namespace zeigewerk::platform
