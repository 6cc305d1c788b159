#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <span>
#include <vector>

namespace zeigewerk::platform::x11 {

/// A strip along an edge of the whole desktop that a dock reserves for itself, in native pixels, y down.
struct Strut
{
    enum class Edge { Left, Right, Top, Bottom };

    Edge edge = Edge::Left;
    /// The distance from the desktop's edge to the inner edge of the dock. With several screens it may span a
    /// whole other screen.
    int depth = 0;
    /// The first and the last pixel along the edge.
    int start = 0;
    int end = 0;

    friend bool operator==(const Strut &, const Strut &) = default;
};

/// Reads the struts from a dock's property: four depths (left, right, top, bottom), optionally followed by
/// start and end of each. Without these, a strut runs along the whole edge. Empty for any other number of
/// values and for an empty desktop.
std::vector<Strut> strutsOf(std::span<const std::uint32_t> values, const QSize &desktop);

/// The part of a screen that the struts leave free, or an empty rectangle. A strut that spans the whole
/// screen belongs to a dock on the next one, so it takes nothing from this one.
QRect withoutStruts(const QRect &screen, const QSize &desktop, std::span<const Strut> struts);

} // namespace zeigewerk::platform::x11
