#include "drawing/freehand_path.h"

#include "drawing/stroke_geometry.h"

#include <algorithm>

namespace zeigewerk {

namespace {

constexpr double kDotLength = 0.1;
/// Less than any pixel sees, more than the rounding within which the stroker takes two points for one.
constexpr double kSeamGap = 1.0 / 65536.0;
/// By how much a stroke's outline may leave the exact one, in points: arcs become curves, curves lines, and
/// lines end on a grid of 1/64 pixel.
constexpr double kOutlineTolerance = 1.0;

/// Tells whether a segment's stroke can touch the damage. Asked for every segment of a stroke at every
/// sample, so it looks at the bounds of all the damage first.
class DamageTest
{
public:
    DamageTest(const platform::Damage &damage, double halfWidth)
        : m_everything(damage.isEverything())
        , m_margin(halfWidth + kOutlineTolerance)
        , m_damage(damage)
    {
        for (const QRectF &rect : damage.rects()) {
            m_left = std::min(m_left, rect.left() - m_margin);
            m_right = std::max(m_right, rect.right() + m_margin);
            m_bottom = std::min(m_bottom, rect.top() - m_margin);
            m_top = std::max(m_top, rect.bottom() + m_margin);
        }
    }

    bool operator()(QPointF from, QPointF to) const
    {
        if (m_everything)
            return true;
        if ((from.x() < m_left && to.x() < m_left) || (from.x() > m_right && to.x() > m_right) ||
            (from.y() < m_bottom && to.y() < m_bottom) || (from.y() > m_top && to.y() > m_top))
            return false;
        return m_damage.touches(
            QRectF(from, to).normalized().adjusted(-m_margin, -m_margin, m_margin, m_margin));
    }

private:
    bool m_everything;
    double m_margin;
    const platform::Damage &m_damage;
    double m_left = qInf();
    double m_right = -qInf();
    double m_bottom = qInf();
    double m_top = -qInf();
};

/// Unlike QPointF's own comparison exact: what is left out must not depend on where the search began.
bool isSame(QPointF a, QPointF b)
{
    return a.x() == b.x() && a.y() == b.y();
}

/// The vertex before that one; itself when it is the first.
std::size_t vertexBefore(const std::vector<QPointF> &points, std::size_t vertex)
{
    for (std::size_t i = vertex; i-- > 0;) {
        if (isDrawablePoint(points[i]) && !isSame(points[i], points[vertex]))
            return i;
    }
    return vertex;
}

/// The path of the segments that are wanted, with an unwanted one at both ends of each run. What the stroker
/// does at the end of a segment, a join or at the end of a run a cap, lies within both segments that meet
/// there and depends on nothing else; so what the cut changes lies where an unwanted segment does.
template <typename Test>
QPainterPath pathThrough(const std::vector<QPointF> &points, const Test &wanted)
{
    const auto firstDrawable = std::find_if(points.begin(), points.end(), isDrawablePoint);
    if (firstDrawable == points.end())
        return {};
    const auto first = static_cast<std::size_t>(firstDrawable - points.begin());
    std::size_t last = first;
    bool isPenDown = false;
    QPainterPath path;
    for (std::size_t i = first + 1; i < points.size(); ++i) {
        // The stroker drops a segment without length; dropping it here keeps it from ending a run.
        if (!isDrawablePoint(points[i]) || isSame(points[i], points[last]))
            continue;
        const bool isWanted = wanted(points[last], points[i]);
        if (isWanted && !isPenDown) {
            path.moveTo(points[vertexBefore(points, last)]);
            path.lineTo(points[last]);
        }
        if (isWanted || isPenDown)
            path.lineTo(points[i]);
        isPenDown = isWanted;
        last = i;
    }
    if (last == first)
        return wanted(points[first], points[first]) ? dotPath(points[first]) : QPainterPath();
    // A stroke that ends where it began must not become a closed outline: that has a join there and no caps,
    // which a part of it could not have.
    if (isPenDown && isSame(points[first], points[last]))
        path.lineTo(points[last] + QPointF(kSeamGap, 0.0));
    return path;
}

} // namespace

QPainterPath freehandPath(const std::vector<QPointF> &points)
{
    return pathThrough(points, [](QPointF, QPointF) { return true; });
}

QPainterPath freehandPath(const std::vector<QPointF> &points, double halfWidth,
                          const platform::Damage &damage)
{
    return pathThrough(points, DamageTest(damage, halfWidth));
}

QPainterPath dotPath(QPointF point)
{
    QPainterPath path(point);
    path.lineTo(point.x() + kDotLength, point.y());
    return path;
}

} // namespace zeigewerk
