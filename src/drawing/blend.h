#pragma once

#include "drawing/color.h"
#include "platform/paint_target.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace zeigewerk {

/// Snaps a coordinate to a grid of 1/64 pixel, too fine to see. Offsets from such a point to a pixel's centre
/// are exact even in a float, so a pixel's coverage does not depend on which part of a figure is painted.
inline double onPixelGrid(double coordinate)
{
    constexpr double kGrid = 64.0;
    return std::round(coordinate * kGrid) / kGrid;
}

/// A pixel's colour: 0xAARRGGBB, each component multiplied by alpha.
using Premultiplied = std::uint32_t;

/// Clamps components to 0 to 1; NaN becomes 0.
Premultiplied premultiplied(const Color &color);

/// Four pixels, or one number for each of four pixels, processed at once. The compiler's own vector code for
/// a loop over single pixels pays off only in rows much longer than a pen is wide.
using Four = std::uint32_t __attribute__((vector_size(16)));
inline constexpr int kFour = 4;

inline Four fourOf(std::uint32_t value)
{
    return Four{value, value, value, value};
}

inline Four loadFour(const std::uint32_t *values)
{
    Four four;
    std::memcpy(&four, values, sizeof four);
    return four;
}

inline void storeFour(std::uint32_t *values, Four four)
{
    std::memcpy(values, &four, sizeof four);
}

/// `colors` blended over `pixels`, each weighted by its coverage (0 to 255).
inline Four blended(Four pixels, Four colors, Four coverage)
{
    // Two of a pixel's four components at a time, in 16 bits each. There (t + 128) * 257 / 65536 is t / 255,
    // rounded to the nearest.
    using Components = std::uint16_t __attribute__((vector_size(16)));
    constexpr std::uint32_t kPair = 0x00FF00FF;
    const auto scaled = [](Four values, Four factors) {
        const auto both = std::bit_cast<Components>(factors | factors << 16);
        Components even = std::bit_cast<Components>(values & kPair) * both + std::uint16_t{128};
        Components odd = std::bit_cast<Components>(values >> 8 & kPair) * both + std::uint16_t{128};
        even = (even + (even >> 8)) >> 8;
        odd = (odd + (odd >> 8)) >> 8;
        return std::bit_cast<Four>(even) | std::bit_cast<Four>(odd) << 8;
    };
    const Four coats = scaled(colors, coverage);
    return coats + scaled(pixels, 255 - (coats >> 24));
}

/// The same for a single pixel.
inline Premultiplied blended(Premultiplied pixel, Premultiplied color, std::uint32_t coverage)
{
    return blended(fourOf(pixel), fourOf(color), fourOf(coverage))[0];
}

/// Blends `color` over `count` pixels, all fully covered.
void blendSpan(Premultiplied *pixels, int count, Premultiplied color);
/// Blends `count` pixels of `over` over `pixels`.
void blendSpan(Premultiplied *pixels, const Premultiplied *over, int count);

} // namespace zeigewerk
