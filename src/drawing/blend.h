#pragma once

#include "drawing/color.h"
#include "platform/paint_target.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace zeigewerk {

/// The nearest place on a grid of 1/64 pixel, a step that nobody sees. Distances along x and y from such a
/// place to the middle of a pixel are exact even in a float, so how a pixel is covered cannot depend on which
/// part of a figure is being painted.
inline double onPixelGrid(double coordinate)
{
    constexpr double kGrid = 64.0;
    return std::round(coordinate * kGrid) / kGrid;
}

/// A colour as pixels hold it: 0xAARRGGBB, each component multiplied by alpha.
using Premultiplied = std::uint32_t;

/// Components outside 0 to 1 are taken for the nearest; what is no number for 0.
Premultiplied premultiplied(const Color &color);

/// Four pixels, or a number for each of four pixels, worked on at once. What the compiler makes by itself of
/// a loop over single pixels pays only in rows much longer than a pen is wide.
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

/// `pixels` under coats of `colors` that cover that part of each (0 to 255).
inline Four blended(Four pixels, Four colors, Four coverage)
{
    // Two of the four components of a pixel at a time, each with 16 bits to itself. There t / 255 is
    // (t + 128) * 257 / 65536, rounded to the nearest.
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

/// One pixel under a coat.
inline Premultiplied blended(Premultiplied pixel, Premultiplied color, std::uint32_t coverage)
{
    return blended(fourOf(pixel), fourOf(color), fourOf(coverage))[0];
}

/// Blends the colour over pixels that it covers wholly.
void blendSpan(Premultiplied *pixels, int count, Premultiplied color);
/// Blends pixels over as many others.
void blendSpan(Premultiplied *pixels, const Premultiplied *over, int count);

} // namespace zeigewerk
