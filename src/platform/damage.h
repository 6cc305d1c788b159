#pragma once

#include <QRectF>

#include <vector>

namespace zeigewerk::platform {

/// Where a picture changed: a handful of rectangles in view coordinates (points, y up), or everything.
/// The rectangles hold the exact geometry; whoever turns them into pixels adds the pixel that antialiasing
/// may touch around them.
class Damage
{
public:
    Damage() = default;

    static Damage everything();
    static Damage of(const QRectF &rect);

    /// Adds a rectangle; an empty one still counts as the point or line that it is, a rectangle that is not
    /// finite means everything.
    void add(const QRectF &rect);
    void add(const Damage &other);

    /// Adds what a round stroke of that half width from `from` to `to` may touch, in pieces short enough
    /// that a long diagonal does not damage the whole rectangle that it spans.
    void addStroke(QPointF from, QPointF to, double halfWidth);

    bool isEmpty() const { return !m_everything && m_rects.empty(); }
    bool isEverything() const { return m_everything; }
    /// The rectangles; meaningless when the damage is everything.
    const std::vector<QRectF> &rects() const { return m_rects; }
    /// Whether any part of `rect`, its edges included, is damaged.
    bool touches(const QRectF &rect) const;

private:
    bool m_everything = false;
    std::vector<QRectF> m_rects;
};

} // namespace zeigewerk::platform
