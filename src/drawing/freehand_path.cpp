#include "drawing/freehand_path.h"

#include "drawing/stroke_geometry.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

constexpr double kDotLength = 0.1;
/// Less than any pixel sees, more than the rounding within which the stroker takes two points for one.
constexpr double kSeamGap = 1.0 / 65536.0;
/// By how much a stroke's outline may leave the exact one, in points: arcs become curves, curves lines, and
/// lines end on a grid of 1/64 pixel.
constexpr double kOutlineTolerance = 1.0;

/// Tells which segments' strokes can touch the damage. Asked for every segment of a stroke at every sample,
/// so most are refused by the sides of all the damage on which their ends lie.
class DamageTest
{
public:
    DamageTest(const platform::Damage &damage, double halfWidth)
        : m_damage(damage)
        , m_margin(halfWidth + kOutlineTolerance)
        , m_bounds(withMargin(damage.boundingRect()))
    {
    }

    /// A set of the sides; a segment whose ends have one in common passes the damage by.
    unsigned sidesOf(QPointF point) const
    {
        return static_cast<unsigned>(point.x() < m_bounds.left()) |
               static_cast<unsigned>(point.x() > m_bounds.right()) << 1 |
               static_cast<unsigned>(point.y() < m_bounds.top()) << 2 |
               static_cast<unsigned>(point.y() > m_bounds.bottom()) << 3;
    }

    bool isTouchedBy(QPointF from, QPointF to) const
    {
        if (m_damage.isEverything())
            return true;
        const QRectF span = QRectF(from, to).normalized();
        const auto &rects = m_damage.rects();
        return std::any_of(rects.begin(), rects.end(), [&](const QRectF &rect) {
            const QRectF reach = withMargin(rect);
            return span.left() <= reach.right() && span.right() >= reach.left() &&
                   span.top() <= reach.bottom() && span.bottom() >= reach.top() && lineMeets(from, to, reach);
        });
    }

private:
    /// Whether the line through both points meets the rectangle. A long diagonal spans far more than it
    /// touches, and stroking it costs by its length.
    static bool lineMeets(QPointF from, QPointF to, const QRectF &rect)
    {
        const QPointF way = to - from;
        const QPointF offset = rect.center() - from;
        const double reach = (std::abs(way.y()) * rect.width() + std::abs(way.x()) * rect.height()) / 2.0;
        return std::abs(way.x() * offset.y() - way.y() * offset.x()) <= reach;
    }

    QRectF withMargin(const QRectF &rect) const
    {
        return rect.adjusted(-m_margin, -m_margin, m_margin, m_margin);
    }

    const platform::Damage &m_damage;
    double m_margin;
    QRectF m_bounds;
};

/// Takes every segment.
struct NoTest
{
    unsigned sidesOf(QPointF) const { return 0; }
    bool isTouchedBy(QPointF, QPointF) const { return true; }
};

/// Unlike QPointF's own comparison exact: what is left out must not depend on where the search began.
bool isSame(QPointF a, QPointF b)
{
    return a.x() == b.x() && a.y() == b.y();
}

/// The path of the segments that are wanted. What the stroker does at the end of a segment, a join or where
/// the run is cut off a cap, lies within both segments that meet there and depends on nothing else; so what
/// the cut changes lies where an unwanted segment does.
template <typename Test>
QPainterPath pathThrough(const std::vector<QPointF> &points, const Test &damage)
{
    const auto first = std::find_if(points.begin(), points.end(), isDrawablePoint);
    if (first == points.end())
        return {};
    auto last = first;
    unsigned lastSides = damage.sidesOf(*first);
    bool isPenDown = false;
    QPainterPath path;
    for (auto next = first + 1; next != points.end(); ++next) {
        // The stroker drops a segment without length; dropping it here keeps it from ending a run.
        if (!isDrawablePoint(*next) || isSame(*next, *last))
            continue;
        const unsigned sides = damage.sidesOf(*next);
        const bool isWanted = !(sides & lastSides) && damage.isTouchedBy(*last, *next);
        if (isWanted && !isPenDown)
            path.moveTo(*last);
        if (isWanted)
            path.lineTo(*next);
        isPenDown = isWanted;
        last = next;
        lastSides = sides;
    }
    if (last == first)
        return damage.isTouchedBy(*first, *first) ? dotPath(*first) : QPainterPath();
    // A stroke that ends where it began must not become a closed outline: that has a join there and no caps,
    // which a part of it could not have.
    if (isPenDown && isSame(*first, *last))
        path.lineTo(*last + QPointF(kSeamGap, 0.0));
    return path;
}

} // namespace

QPainterPath freehandPath(const std::vector<QPointF> &points)
{
    return pathThrough(points, NoTest());
}

QPainterPath freehandPath(const std::vector<QPointF> &points, double halfWidth,
                          const platform::Damage &damage)
{
    if (damage.isEverything())
        return freehandPath(points);
    return pathThrough(points, DamageTest(damage, halfWidth));
}

QPainterPath dotPath(QPointF point)
{
    QPainterPath path(point);
    path.lineTo(point.x() + kDotLength, point.y());
    return path;
}

} // namespace zeigewerk
