#pragma once

#include <QRectF>

#include <vector>

namespace zeigewerk::platform {

/// Where a picture changed: a handful of rectangles in view coordinates (points, y up), or everything.
/// The rectangles hold the geometry without a margin; whoever turns them into pixels adds the pixel that
/// antialiasing may touch around them.
class Damage
{
public:
    /// No more rectangles than this are kept: beyond it neighbours are united, those first that waste least.
    /// What follows the damage (clipping, culling) then has a bounded cost whatever was damaged.
    static constexpr std::size_t kMaxRects = 128;

    Damage() = default;

    static Damage everything();
    static Damage of(const QRectF &rect);

    /// Adds a rectangle; an empty one still counts as the point or line that it is, a rectangle that is not
    /// finite means everything.
    void add(const QRectF &rect);
    void add(const Damage &other);

    /// Adds what a round stroke of that half width from `from` to `to` may touch, in pieces short enough
    /// that a long diagonal does not damage the whole rectangle that it spans. The short segments of a
    /// freehand stroke, added one after the other, share pieces.
    void addStroke(QPointF from, QPointF to, double halfWidth);

    bool isEmpty() const { return !m_everything && m_rects.empty(); }
    bool isEverything() const { return m_everything; }
    /// The rectangles; meaningless when the damage is everything.
    const std::vector<QRectF> &rects() const { return m_rects; }
    /// Whether any part of `rect`, its edges included, is damaged.
    bool touches(const QRectF &rect) const;

private:
    void addPiece(const QRectF &piece, double longestShortSide);
    void append(const QRectF &rect);
    void uniteNeighbours();

    bool m_everything = false;
    std::vector<QRectF> m_rects;
};

} // namespace zeigewerk::platform
