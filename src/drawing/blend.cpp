#include "drawing/blend.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

constexpr std::uint32_t kFull = 255;

} // namespace

Premultiplied premultiplied(const Color &color)
{
    // This comparison turns NaN into 0.
    const auto clamped = [](double value) { return value > 0.0 ? std::min(value, 1.0) : 0.0; };
    const double alpha = clamped(color.alpha);
    const auto byte = [](double value) { return static_cast<std::uint32_t>(std::lround(255.0 * value)); };
    return byte(alpha) << 24 | byte(alpha * clamped(color.red)) << 16 |
           byte(alpha * clamped(color.green)) << 8 | byte(alpha * clamped(color.blue));
}

void blendSpan(Premultiplied *pixels, int count, Premultiplied color)
{
    if (color >> 24 == kFull) {
        std::fill(pixels, pixels + count, color);
        return;
    }
    int i = 0;
    for (; i + kFour <= count; i += kFour)
        storeFour(pixels + i, blended(loadFour(pixels + i), fourOf(color), fourOf(kFull)));
    for (; i < count; ++i)
        pixels[i] = blended(pixels[i], color, kFull);
}

void blendSpan(Premultiplied *pixels, const Premultiplied *over, int count)
{
    int i = 0;
    for (; i + kFour <= count; i += kFour)
        storeFour(pixels + i, blended(loadFour(pixels + i), loadFour(over + i), fourOf(kFull)));
    for (; i < count; ++i)
        pixels[i] = blended(pixels[i], over[i], kFull);
}

} // namespace zeigewerk
