#include "drawing/coverage.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

/// A pixel is covered partly while its middle is nearer to an edge than this.
constexpr float kRamp = 0.5F;

/// A line as its pixels see it, relative to its beginning.
struct Line
{
    float wayX;
    float wayY;
    /// One divided by the square of its length; 0 for a dot.
    float perSquare;
    /// Where coverage ends: beyond the edge by the ramp.
    float reach;
    /// What a stroke narrower than a pixel covers of it.
    float most;
};

/// Raises the coverage of pixels in a row to what the line gives them. `x` is the middle of the first one,
/// and `y` the row's, relative to the line's beginning.
void coverRow(std::uint8_t *values, int count, float x, float y, const Line &line)
{
    const float alongY = y * line.wayY;
    for (int i = 0; i < count; ++i) {
        const float pixelX = x + static_cast<float>(i);
        const float along = (pixelX * line.wayX + alongY) * line.perSquare;
        const float part = std::min(std::max(along, 0.0F), 1.0F);
        const float awayX = pixelX - part * line.wayX;
        const float awayY = y - part * line.wayY;
        const float depth = line.reach - std::sqrt(awayX * awayX + awayY * awayY);
        const float covered = std::min(std::max(depth, 0.0F), line.most);
        const auto value = static_cast<std::uint8_t>(static_cast<int>(covered * 255.0F + 0.5F));
        values[i] = std::max(values[i], value);
    }
}

} // namespace

Coverage::Coverage(const QRect &rect)
    : m_rect(rect)
    , m_values(static_cast<std::size_t>(rect.width()) * static_cast<std::size_t>(rect.height()))
    , m_spans(static_cast<std::size_t>(rect.height()))
{
}

void Coverage::addLine(QPointF from, QPointF to, double halfWidth)
{
    const QPointF start(onPixelGrid(from.x()), onPixelGrid(from.y()));
    const QPointF way = QPointF(onPixelGrid(to.x()), onPixelGrid(to.y())) - start;
    const double square = way.x() * way.x() + way.y() * way.y();
    const double reach = halfWidth + static_cast<double>(kRamp);
    const Line line{static_cast<float>(way.x()), static_cast<float>(way.y()),
                    square > 0.0 ? static_cast<float>(1.0 / square) : 0.0F, static_cast<float>(reach),
                    static_cast<float>(std::min(2.0 * halfWidth, 1.0))};
    const auto firstRow = static_cast<int>(std::floor(start.y() + std::min(way.y(), 0.0) - reach));
    const auto lastRow = static_cast<int>(std::ceil(start.y() + std::max(way.y(), 0.0) + reach));
    for (int y = std::max(firstRow, m_rect.top()); y <= std::min(lastRow, m_rect.bottom()); ++y) {
        const double rowY = y + 0.5 - start.y();
        // The part of the line that is near enough to the row, and what it spans.
        double begin = 0.0;
        double end = 1.0;
        if (way.y() != 0.0) {
            const double one = (rowY - reach) / way.y();
            const double other = (rowY + reach) / way.y();
            begin = std::max(begin, std::min(one, other));
            end = std::min(end, std::max(one, other));
        }
        const double left = std::min(begin * way.x(), end * way.x()) - reach;
        const double right = std::max(begin * way.x(), end * way.x()) + reach;
        const int first = std::max(static_cast<int>(std::floor(start.x() + left)), m_rect.left());
        const int last = std::min(static_cast<int>(std::ceil(start.x() + right)), m_rect.right() + 1);
        if (first >= last)
            continue;
        coverRow(row(y) + (first - m_rect.left()), last - first, static_cast<float>(first + 0.5 - start.x()),
                 static_cast<float>(rowY), line);
        Span &span = m_spans[static_cast<std::size_t>(y - m_rect.top())];
        span = span.begin == span.end ? Span{first, last}
                                      : Span{std::min(span.begin, first), std::max(span.end, last)};
    }
}

void Coverage::blendInto(platform::PaintTarget &target, Premultiplied color) const
{
    for (int y = m_rect.top(); y <= m_rect.bottom(); ++y) {
        const Span &span = m_spans[static_cast<std::size_t>(y - m_rect.top())];
        const std::uint8_t *values = m_values.data() + (y - m_rect.top()) * m_rect.width();
        blendSpan(target.row(y) + (span.begin - target.rect().left()), values + (span.begin - m_rect.left()),
                  span.end - span.begin, color);
    }
}

} // namespace zeigewerk
