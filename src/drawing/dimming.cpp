#include "drawing/dimming.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

/// Half the length of the chord that a row in that distance from the middle cuts off the circle; 0 if none.
double halfChord(double radius, double distance)
{
    return radius > distance ? std::sqrt((radius - distance) * (radius + distance)) : 0.0;
}

/// A row of the target, and which of its pixels are meant by places relative to its first one's middle.
class Row
{
public:
    Row(Premultiplied *pixels, int count)
        : m_pixels(pixels)
        , m_count(count)
    {
    }

    /// The first pixel with its middle at or beyond that place; all of them are before infinity.
    int firstAt(double place) const
    {
        return static_cast<int>(std::ceil(std::clamp(place, 0.0, static_cast<double>(m_count))));
    }
    void cover(int begin, int end, Premultiplied color) const
    {
        if (begin < end)
            blendSpan(m_pixels + begin, end - begin, color);
    }
    void cover(int place, double part, Premultiplied color) const
    {
        const auto coverage = static_cast<std::uint32_t>(std::lround(255.0 * std::clamp(part, 0.0, 1.0)));
        m_pixels[place] = blended(m_pixels[place], color, coverage);
    }

private:
    Premultiplied *m_pixels;
    int m_count;
};

} // namespace

void coverOutside(platform::PaintTarget &target, QPointF middle, double radius, Premultiplied color)
{
    constexpr double kRamp = 0.5;
    const QRect &rect = target.rect();
    // The middle of the circle, seen from the middle of the first pixel of a row.
    const double x = onPixelGrid(middle.x()) - (rect.left() + kRamp);
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const double distance = std::abs(y + kRamp - onPixelGrid(middle.y()));
        const double outer = halfChord(radius + kRamp, distance);
        const double inner = halfChord(radius - kRamp, distance);
        const Row row(target.row(y), rect.width());
        // Covered up to here, then in part, clear, in part again, and covered from there on.
        const int outerBegin = row.firstAt(x - outer);
        const int innerBegin = std::max(row.firstAt(x - inner), outerBegin);
        const int innerEnd = std::max(row.firstAt(x + inner), innerBegin);
        const int outerEnd = std::max(row.firstAt(x + outer), innerEnd);
        const auto coverEdge = [&](int begin, int end) {
            for (int i = begin; i < end; ++i)
                row.cover(i, std::hypot(i - x, distance) - radius + kRamp, color);
        };
        row.cover(0, outerBegin, color);
        coverEdge(outerBegin, innerBegin);
        coverEdge(innerEnd, outerEnd);
        row.cover(outerEnd, rect.width(), color);
    }
}

} // namespace zeigewerk
