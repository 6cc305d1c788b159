#include "drawing/freehand_path.h"

#include "drawing/stroke_geometry.h"

#include <algorithm>
#include <array>

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
        , m_rects(damage.rects())
    {
        for (const QRectF &rect : m_rects) {
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
        return touchesRect(from, to);
    }

private:
    bool touchesRect(QPointF from, QPointF to) const
    {
        const QRectF span = QRectF(from, to).normalized().adjusted(-m_margin, -m_margin, m_margin, m_margin);
        return std::any_of(m_rects.begin(), m_rects.end(), [&](const QRectF &rect) {
            return span.right() >= rect.left() && span.left() <= rect.right() &&
                   span.bottom() >= rect.top() && span.top() <= rect.bottom();
        });
    }

    bool m_everything;
    double m_margin;
    const std::vector<QRectF> &m_rects;
    double m_left = qInf();
    double m_right = -qInf();
    double m_bottom = qInf();
    double m_top = -qInf();
};

/// Builds the path of the segments that are wanted, with an unwanted one at both ends of each run. What the
/// stroker does at the end of a segment, a join or at the end of a run a cap, lies within both segments that
/// meet there and depends on nothing else; so what the cut changes lies where an unwanted segment does.
class RunBuilder
{
public:
    void moveTo(QPointF point) { m_recent.front() = point; }

    void lineTo(QPointF point, bool wanted)
    {
        if (wanted) {
            catchUp();
            m_path.lineTo(point);
            m_spare = kSpareSegments;
        } else if (m_spare > 0) {
            m_path.lineTo(point);
            --m_spare;
        } else {
            ++m_skipped;
        }
        std::rotate(m_recent.begin(), m_recent.end() - 1, m_recent.end());
        m_recent.front() = point;
        m_known = std::min(m_known + 1, m_recent.size());
    }

    QPainterPath takePath() { return std::move(m_path); }

private:
    /// Brings the path from where it ends to the newest point.
    void catchUp()
    {
        const bool startsRun = m_path.isEmpty() || m_skipped > kSpareSegments;
        std::size_t behind = startsRun ? std::min(kSpareSegments, m_known - 1) : m_skipped;
        if (startsRun)
            m_path.moveTo(m_recent[behind]);
        while (behind > 0)
            m_path.lineTo(m_recent[--behind]);
        m_skipped = 0;
    }

    static constexpr std::size_t kSpareSegments = 1;

    QPainterPath m_path;
    /// The newest points, the newest first, and how many of them there are.
    std::array<QPointF, kSpareSegments + 1> m_recent;
    std::size_t m_known = 1;
    /// Unwanted segments that the current run still takes in, and those since its end.
    std::size_t m_spare = 0;
    std::size_t m_skipped = 0;
};

template <typename Test>
QPainterPath pathThrough(const std::vector<QPointF> &points, const Test &wanted)
{
    auto next = std::find_if(points.begin(), points.end(), isDrawablePoint);
    if (next == points.end())
        return {};
    const QPointF first = *next;
    QPointF last = first;
    RunBuilder runs;
    runs.moveTo(first);
    bool isDot = true;
    for (++next; next != points.end(); ++next) {
        QPointF point = *next;
        // A stroke that returns to its first point must not become a closed outline: it has a join there
        // and no caps, which a part of it could not have.
        if (point == first && last != first)
            point.rx() += kSeamGap;
        // The stroker drops a segment without length; dropping it here keeps it from counting as a spare.
        if (!isDrawablePoint(point) || point == last)
            continue;
        runs.lineTo(point, wanted(last, point));
        last = point;
        isDot = false;
    }
    if (isDot)
        return wanted(first, first) ? dotPath(first) : QPainterPath();
    return runs.takePath();
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
