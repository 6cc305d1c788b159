#include "drawing/blend.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

constexpr std::uint32_t kWhole = 255;

} // namespace

Premultiplied premultiplied(const Color &color)
{
    // This way round what is no number becomes 0.
    const auto clamped = [](double value) { return value > 0.0 ? std::min(value, 1.0) : 0.0; };
    const double alpha = clamped(color.alpha);
    const auto byte = [](double value) { return static_cast<std::uint32_t>(std::lround(255.0 * value)); };
    return byte(alpha) << 24 | byte(alpha * clamped(color.red)) << 16 |
           byte(alpha * clamped(color.green)) << 8 | byte(alpha * clamped(color.blue));
}

void blendSpan(Premultiplied *pixels, int count, Premultiplied color)
{
    if (color >> 24 == kWhole) {
        std::fill(pixels, pixels + count, color);
        return;
    }
    int i = 0;
    for (; i + kFour <= count; i += kFour)
        storeFour(pixels + i, blended(loadFour(pixels + i), fourOf(color), fourOf(kWhole)));
    for (; i < count; ++i)
        pixels[i] = blended(pixels[i], color, kWhole);
}

void blendSpan(Premultiplied *pixels, const Premultiplied *over, int count)
{
    int i = 0;
    for (; i + kFour <= count; i += kFour)
        storeFour(pixels + i, blended(loadFour(pixels + i), loadFour(over + i), fourOf(kWhole)));
    for (; i < count; ++i)
        pixels[i] = blended(pixels[i], over[i], kWhole);
}

} // namespace zeigewerk
