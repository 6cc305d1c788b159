#include "drawing/coverage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zeigewerk {

namespace {

/// A pixel is partly covered if its centre is nearer to an edge than this, in pixels.
constexpr float kRamp = 0.5F;

/// A line, relative to its start.
struct Line
{
    float deltaX;
    float deltaY;
    /// One divided by the squared length; 0 for a dot.
    float inverseSquare;
    /// The distance from the line at which coverage ends, the ramp included.
    float reach;
    /// The highest coverage: less than 1 for a stroke narrower than a pixel.
    float maxCoverage;
};

using Floats = float __attribute__((vector_size(kFour * sizeof(float))));
using Ints = std::int32_t __attribute__((vector_size(kFour * sizeof(std::int32_t))));

Floats minimum(Floats a, Floats b)
{
    return a < b ? a : b;
}

Floats maximum(Floats a, Floats b)
{
    return a > b ? a : b;
}

Floats squareRoots(Floats squares)
{
    return Floats{std::sqrt(squares[0]), std::sqrt(squares[1]), std::sqrt(squares[2]), std::sqrt(squares[3])};
}

/// Raises the coverage of `count` pixels in a row, a multiple of kFour, to at least that of the line. (`x`,
/// `y`) is the centre of the first pixel, relative to the line's start.
void coverRow(float *values, int count, float x, float y, const Line &line)
{
    const Floats none = {};
    const Floats one = none + 1.0F;
    const Floats reach = none + line.reach;
    const Floats limit = none + line.maxCoverage;
    const float alongY = y * line.deltaY;
    Floats pixelX = x + Floats{0.0F, 1.0F, 2.0F, 3.0F};
    for (int i = 0; i < count; i += kFour, pixelX += static_cast<float>(kFour)) {
        const Floats along = (pixelX * line.deltaX + alongY) * line.inverseSquare;
        const Floats part = minimum(maximum(along, none), one);
        const Floats offsetX = pixelX - part * line.deltaX;
        const Floats offsetY = y - part * line.deltaY;
        const Floats depth = reach - squareRoots(offsetX * offsetX + offsetY * offsetY);
        Floats covered;
        std::memcpy(&covered, values + i, sizeof covered);
        covered = maximum(covered, minimum(depth, limit));
        std::memcpy(values + i, &covered, sizeof covered);
    }
}

/// Rounds down. A fast std::floor needs an instruction that the oldest supported processors lack.
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

static_assert(kFour <= platform::PaintTarget::kMargin, "coverage is written in fours, past a row's end");

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
    const QPointF delta = QPointF(onPixelGrid(to.x()), onPixelGrid(to.y())) - start;
    const double square = delta.x() * delta.x() + delta.y() * delta.y();
    const double reach = halfWidth + static_cast<double>(kRamp);
    const Line line{static_cast<float>(delta.x()), static_cast<float>(delta.y()),
                    square > 0.0 ? static_cast<float>(1.0 / square) : 0.0F, static_cast<float>(reach),
                    static_cast<float>(std::min(2.0 * halfWidth, 1.0))};
    const int firstRow = std::max(floored(start.y() + std::min(delta.y(), 0.0) - reach), m_rect.top());
    const int lastRow = std::min(floored(start.y() + std::max(delta.y(), 0.0) + reach), m_rect.bottom());
    // A short line reaches nearly its whole width in each of its rows.
    const bool isShort = std::abs(delta.x()) <= 2.0 * reach || delta.y() == 0.0;
    const double perRow = isShort ? 0.0 : 1.0 / delta.y();
    const auto spanBetween = [&](double begin, double end) {
        const double left = start.x() + std::min(begin * delta.x(), end * delta.x()) - reach;
        const double right = start.x() + std::max(begin * delta.x(), end * delta.x()) + reach;
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
        // Between two lines that are far apart on a row, most pixels are not covered.
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
