#pragma once

#include "drawing/box.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <vector>

namespace zeigewerk {

/// Nothing is drawn farther from a canvas's origin than this, in points. It is beyond every desktop, and near
/// enough that stroking there costs little.
inline constexpr double kFarthest = 32768.0;

/// Whether the point can be drawn. A shape that the user did not draw may hold anything; NaN is not drawable
/// either.
inline bool isDrawablePoint(QPointF point)
{
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest;
}

/// A freehand stroke as sampled: points joined by straight lines. It keeps the bounds of its parts, so that
/// painting one area skips the rest of a long stroke. Points that cannot be drawn are kept, but the lines
/// skip them.
class Polyline
{
public:
    using const_iterator = std::vector<QPointF>::const_iterator;

    Polyline() = default;
    Polyline(std::initializer_list<QPointF> points)
        : Polyline(std::vector<QPointF>(points))
    {
    }
    Polyline(const std::vector<QPointF> &points);

    void push_back(QPointF point);
    void reserve(std::size_t count) { m_points.reserve(count); }

    bool empty() const { return m_points.empty(); }
    std::size_t size() const { return m_points.size(); }
    QPointF operator[](std::size_t i) const { return m_points[i]; }
    QPointF front() const { return m_points.front(); }
    QPointF back() const { return m_points.back(); }
    const_iterator begin() const { return m_points.begin(); }
    const_iterator end() const { return m_points.end(); }

    /// The bounds of all points that can be drawn; empty if there are none.
    const Box &bounds() const { return m_bounds; }

    /// Calls visit(from, to) in order, for each line that touches `area`; some others may be included.
    template <typename Visit>
    void forEachLineNear(const Box &area, const Visit &visit) const;

    /// Among the first `count` points, the last that can be drawn, if any.
    std::optional<QPointF> lastDrawableOf(std::size_t count) const;

    friend bool operator==(const Polyline &a, const Polyline &b) { return a.m_points == b.m_points; }

private:
    /// The lines that lead to this many consecutive points share a box.
    static constexpr std::size_t kRun = 32;

    std::vector<QPointF> m_points;
    /// The bounds of each run: of the lines that lead to its points, including the start of the first.
    std::vector<Box> m_runs;
    Box m_bounds;
    QPointF m_lastDrawable;
};

template <typename Visit>
void Polyline::forEachLineNear(const Box &area, const Visit &visit) const
{
    for (std::size_t run = 0; run < m_runs.size(); ++run) {
        if (!m_runs[run].touches(area))
            continue;
        const std::size_t first = run * kRun;
        const std::size_t end = std::min(first + kRun, m_points.size());
        std::optional<QPointF> from = lastDrawableOf(first);
        for (std::size_t i = first; i < end; ++i) {
            if (!isDrawablePoint(m_points[i]))
                continue;
            if (from)
                visit(*from, m_points[i]);
            from = m_points[i];
        }
    }
}

} // namespace zeigewerk
