#pragma once

#include <array>
#include <cstdint>

namespace zeigewerk {

/// An immutable sRGB colour with components in 0 to 1, compared by exact value. Painting converts it to the
/// toolkit's type at the last moment.
struct Color
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 1.0;

    /// The opaque colour 0xRRGGBB; bits above the lowest 24 are ignored.
    static constexpr Color hex(std::uint32_t rgb)
    {
        constexpr auto component = [](std::uint32_t bits) {
            return static_cast<double>(bits & 0xFF) / 255.0;
        };
        return {component(rgb >> 16), component(rgb >> 8), component(rgb), 1.0};
    }

    /// This colour with its alpha replaced (not multiplied).
    constexpr Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }

    friend constexpr bool operator==(const Color &, const Color &) = default;
};

/// The accent: the first drawing colour, buttons that are on, the cursor ring.
inline constexpr Color kOrange = Color::hex(0xF29A00);
/// The dark accent: symbols on buttons that are on.
inline constexpr Color kNavy = Color::hex(0x182245);
inline constexpr Color kWhite = Color::hex(0xFFFFFF);
inline constexpr Color kBlack = Color::hex(0x000000);
inline constexpr Color kClear = kBlack.withAlpha(0.0);

/// The colours on the toolbar, in its order.
inline constexpr std::array kPalette = {kOrange,
                                        kNavy,
                                        Color::hex(0xFF3B30), // red
                                        Color::hex(0x34C759), // green
                                        Color::hex(0xFFD60A), // yellow
                                        Color::hex(0x0A84FF), // blue
                                        kWhite,
                                        kBlack};

} // namespace zeigewerk
