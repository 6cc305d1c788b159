#pragma once

#include "drawing/color.h"
#include "platform/paint_target.h"

#include <cmath>
#include <cstdint>

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

/// `pixel` under a coat of `color` that covers that part of it (0 to 255).
inline Premultiplied blended(Premultiplied pixel, Premultiplied color, std::uint32_t coverage)
{
    // Two components at a time, each in 16 bits; t * 257 / 65536 rounded is t / 255 rounded.
    constexpr std::uint32_t kPair = 0x00FF00FF;
    constexpr std::uint32_t kHalf = 0x00800080;
    const auto scaled = [](std::uint32_t value, std::uint32_t factor) {
        std::uint32_t even = (value & kPair) * factor + kHalf;
        std::uint32_t odd = ((value >> 8) & kPair) * factor + kHalf;
        even = (even + ((even >> 8) & kPair)) >> 8 & kPair;
        odd = (odd + ((odd >> 8) & kPair)) & ~kPair;
        return even | odd;
    };
    const Premultiplied coat = scaled(color, coverage);
    return coat + scaled(pixel, 255 - (coat >> 24));
}

/// Blends the colour over pixels that it covers wholly.
void blendSpan(Premultiplied *pixels, int count, Premultiplied color);
/// Blends pixels over as many others.
void blendSpan(Premultiplied *pixels, const Premultiplied *over, int count);
/// Blends the colour over pixels as far as each is covered (0 to 255).
void blendSpan(Premultiplied *pixels, const std::uint8_t *coverage, int count, Premultiplied color);

} // namespace zeigewerk
