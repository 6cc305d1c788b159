#include "drawing/polyline.h"

#include <iterator>

namespace zeigewerk {

Polyline::Polyline(const std::vector<QPointF> &points)
{
    reserve(points.size());
    for (const QPointF &point : points)
        push_back(point);
}

void Polyline::push_back(QPointF point)
{
    if (m_points.size() % kRun == 0)
        m_runs.emplace_back();
    m_points.push_back(point);
    if (!isDrawablePoint(point))
        return;
    if (!m_bounds.isEmpty())
        m_runs.back().add(m_lastDrawable);
    m_runs.back().add(point);
    m_bounds.add(point);
    m_lastDrawable = point;
}

std::optional<QPointF> Polyline::lastDrawableOf(std::size_t count) const
{
    const auto end = m_points.begin() + static_cast<std::ptrdiff_t>(count);
    const auto found = std::find_if(std::make_reverse_iterator(end), m_points.rend(), &isDrawablePoint);
    return found == m_points.rend() ? std::nullopt : std::optional(*found);
}

} // namespace zeigewerk
