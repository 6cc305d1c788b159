#include "drawing/coverage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

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

using Floats = float __attribute__((vector_size(kFour * sizeof(float))));
using Ints = std::int32_t __attribute__((vector_size(kFour * sizeof(std::int32_t))));

Floats least(Floats a, Floats b)
{
    return a < b ? a : b;
}

Floats most(Floats a, Floats b)
{
    return a > b ? a : b;
}

Floats roots(Floats squares)
{
    return Floats{std::sqrt(squares[0]), std::sqrt(squares[1]), std::sqrt(squares[2]), std::sqrt(squares[3])};
}

/// Raises the coverage of pixels in a row, a multiple of kFour, to what the line gives them. `x` is the
/// middle of the first one, and `y` the row's, relative to the line's beginning.
void coverRow(float *values, int count, float x, float y, const Line &line)
{
    const Floats none = {};
    const Floats one = none + 1.0F;
    const Floats reach = none + line.reach;
    const Floats limit = none + line.most;
    const float alongY = y * line.wayY;
    Floats pixelX = x + Floats{0.0F, 1.0F, 2.0F, 3.0F};
    for (int i = 0; i < count; i += kFour, pixelX += static_cast<float>(kFour)) {
        const Floats along = (pixelX * line.wayX + alongY) * line.perSquare;
        const Floats part = least(most(along, none), one);
        const Floats awayX = pixelX - part * line.wayX;
        const Floats awayY = y - part * line.wayY;
        const Floats depth = reach - roots(awayX * awayX + awayY * awayY);
        Floats covered;
        std::memcpy(&covered, values + i, sizeof covered);
        covered = most(covered, least(depth, limit));
        std::memcpy(values + i, &covered, sizeof covered);
    }
}

/// The whole number at or below; the library's way asks more of every processor than some have.
int floored(double value)
{
    constexpr int kOffset = 1 << 20;
    return static_cast<int>(value + kOffset) - kOffset;
}

int roundedUp(int count)
{
    return (count + kFour - 1) / kFour * kFour;
}

} // namespace

static_assert(kFour <= platform::PaintTarget::kMargin, "a row may be covered a little beyond its end");

Coverage::Coverage(platform::PaintTarget &target)
    : m_target(target)
    , m_rect(target.rect())
    , m_stride(m_rect.width() + platform::PaintTarget::kMargin)
    , m_values(target.workingMemory())
{
    std::fill_n(m_spans.begin(), m_rect.height(), Span());
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
    const int firstRow = std::max(floored(start.y() + std::min(way.y(), 0.0) - reach), m_rect.top());
    const int lastRow = std::min(floored(start.y() + std::max(way.y(), 0.0) + reach), m_rect.bottom());
    // A short line is near all its rows, as good as wholly.
    const bool isShort = std::abs(way.x()) <= 2.0 * reach || way.y() == 0.0;
    const double perRow = isShort ? 0.0 : 1.0 / way.y();
    const auto spanBetween = [&](double begin, double end) {
        const double left = start.x() + std::min(begin * way.x(), end * way.x()) - reach;
        const double right = start.x() + std::max(begin * way.x(), end * way.x()) + reach;
        return Span{std::max(floored(left), m_rect.left()), std::min(floored(right), m_rect.right()) + 1};
    };
    Span span = spanBetween(0.0, 1.0);
    for (int y = firstRow; y <= lastRow; ++y) {
        const double rowY = y + 0.5 - start.y();
        if (!isShort) {
            const double one = (rowY - reach) * perRow;
            const double other = (rowY + reach) * perRow;
            span = spanBetween(std::clamp(std::min(one, other), 0.0, 1.0),
                               std::clamp(std::max(one, other), 0.0, 1.0));
        }
        if (span.begin >= span.end)
            continue;
        coverRow(row(y) + (span.begin - m_rect.left()), roundedUp(span.end - span.begin),
                 static_cast<float>(span.begin + 0.5 - start.x()), static_cast<float>(rowY), line);
        Span &covered = m_spans[static_cast<std::size_t>(y - m_rect.top())];
        covered = covered.begin == covered.end
                      ? span
                      : Span{std::min(covered.begin, span.begin), std::max(covered.end, span.end)};
    }
}

void Coverage::blend(Premultiplied color)
{
    for (int y = m_rect.top(); y <= m_rect.bottom(); ++y) {
        Span &span = m_spans[static_cast<std::size_t>(y - m_rect.top())];
        if (span.begin < span.end)
            blendRow(y, span, color);
        span = {};
    }
}

void Coverage::blendRow(int y, Span span, Premultiplied color)
{
    float *values = row(y) - m_rect.left();
    Premultiplied *pixels = m_target.row(y) - m_rect.left();
    for (int x = span.begin; x < span.end; x += kFour) {
        Floats covered;
        std::memcpy(&covered, values + x, sizeof covered);
        const Four coverage = std::bit_cast<Four>(__builtin_convertvector(covered * 255.0F + 0.5F, Ints));
        // Between lines that are far from each other on the same row there are many that none covers.
        if ((coverage[0] | coverage[1] | coverage[2] | coverage[3]) == 0)
            continue;
        if (x + kFour <= m_rect.right() + 1) {
            storeFour(pixels + x, blended(loadFour(pixels + x), fourOf(color), coverage));
            continue;
        }
        for (int i = 0; x + i <= m_rect.right(); ++i)
            pixels[x + i] = blended(pixels[x + i], color, coverage[i]);
    }
    std::fill(values + span.begin, values + span.end + kFour, 0.0F);
}

} // namespace zeigewerk
