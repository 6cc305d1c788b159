#pragma once

#include "drawing/box.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <vector>

namespace zeigewerk {

/// The farthest that anything is drawn from a canvas's origin, in points: beyond every desktop, and near
/// enough that stroking what lies there costs little.
inline constexpr double kFarthest = 32768.0;

/// Whether the point can be drawn. A shape that was not made by the user's hand may hold anything; what is no
/// number is not drawable either.
inline bool isDrawablePoint(QPointF point)
{
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest;
}

/// Points joined by straight lines, as a freehand stroke is sampled. It knows where its parts lie, so that
/// those of a long stroke that are somewhere else cost nothing. Points that cannot be drawn are kept but
/// join nothing.
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

    /// Around every point that can be drawn; empty if there is none.
    const Box &bounds() const { return m_bounds; }

    /// Calls visit(from, to) for each line that may touch `area`, in order, and for some others.
    template <typename Visit>
    void forEachLineNear(const Box &area, const Visit &visit) const;

    /// The last point that can be drawn among the first `count`, if there is one.
    std::optional<QPointF> lastDrawableOf(std::size_t count) const;

    friend bool operator==(const Polyline &a, const Polyline &b) { return a.m_points == b.m_points; }

private:
    /// The lines to so many points in a row have one box.
    static constexpr std::size_t kRun = 32;

    std::vector<QPointF> m_points;
    /// Around the lines to the points of each run, the first one's start included.
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
