#include "drawing/circles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeigewerk {

namespace {

/// Half the length of a circle's chord at that distance from its centre; 0 if there is none.
double halfChord(double radius, double distance)
{
    return radius > distance ? std::sqrt((radius - distance) * (radius + distance)) : 0.0;
}

/// A row of pixels. Positions along it are relative to the centre of its first pixel.
class PixelRow
{
public:
    PixelRow(Premultiplied *pixels, int count)
        : m_pixels(pixels)
        , m_count(count)
    {
    }

    /// The first pixel with its centre at or beyond `position`, which may be infinite; the row's length if
    /// there is none.
    int firstAt(double position) const
    {
        return static_cast<int>(std::ceil(std::clamp(position, 0.0, static_cast<double>(m_count))));
    }
    void cover(int begin, int end, Premultiplied color) const
    {
        if (begin < end)
            blendSpan(m_pixels + begin, end - begin, color);
    }
    void cover(int position, double part, Premultiplied color) const
    {
        const auto coverage = static_cast<std::uint32_t>(std::lround(255.0 * std::clamp(part, 0.0, 1.0)));
        m_pixels[position] = blended(m_pixels[position], color, coverage);
    }

private:
    Premultiplied *m_pixels;
    int m_count;
};

constexpr double kRamp = 0.5;

/// One row of the target, relative to a circle around `center`.
class CircleRow
{
public:
    CircleRow(platform::PaintTarget &target, int y, QPointF center)
        : m_row(target.row(y), target.rect().width())
        , m_x(onPixelGrid(center.x()) - (target.rect().left() + kRamp))
        , m_distance(std::abs(y + kRamp - onPixelGrid(center.y())))
    {
    }

    const PixelRow &row() const { return m_row; }
    /// The first pixel inside the circle of that radius, and the first one past it.
    std::pair<int, int> chord(double radius) const
    {
        const double half = halfChord(radius, m_distance);
        return {m_row.firstAt(m_x - half), m_row.firstAt(m_x + half)};
    }
    double distanceOf(int pixel) const
    {
        const double x = pixel - m_x;
        return std::sqrt(x * x + m_distance * m_distance);
    }

private:
    PixelRow m_row;
    /// The circle's centre, relative to the centre of the row's first pixel.
    double m_x;
    double m_distance;
};

} // namespace

void coverOutside(platform::PaintTarget &target, QPointF center, double radius, Premultiplied color)
{
    const QRect &rect = target.rect();
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const CircleRow row(target, y, center);
        // From left to right a row is covered, partly covered, clear, partly covered, covered.
        const auto [outerBegin, outerEnd] = row.chord(radius + kRamp);
        const auto [innerBegin, innerEnd] = row.chord(radius - kRamp);
        const auto coverEdge = [&, &row = row](int begin, int end) {
            for (int i = begin; i < end; ++i)
                row.row().cover(i, row.distanceOf(i) - radius + kRamp, color);
        };
        row.row().cover(0, outerBegin, color);
        coverEdge(outerBegin, innerBegin);
        coverEdge(innerEnd, outerEnd);
        row.row().cover(outerEnd, rect.width(), color);
    }
}

void strokeCircle(platform::PaintTarget &target, QPointF center, double radius, double halfWidth,
                  Premultiplied color)
{
    const QRect &rect = target.rect();
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const CircleRow row(target, y, center);
        const auto [outerBegin, outerEnd] = row.chord(radius + halfWidth + kRamp);
        const auto [innerBegin, innerEnd] = row.chord(radius - halfWidth - kRamp);
        const auto coverEdge = [&, &row = row](int begin, int end) {
            for (int i = begin; i < end; ++i)
                row.row().cover(i, halfWidth + kRamp - std::abs(row.distanceOf(i) - radius), color);
        };
        coverEdge(outerBegin, innerBegin);
        coverEdge(innerEnd, outerEnd);
    }
}

} // namespace zeigewerk
