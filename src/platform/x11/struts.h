#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <span>
#include <vector>

namespace zeigewerk::platform::x11 {

/// A strip along an edge of the whole desktop that a dock keeps for itself. All in native pixels, y down.
struct Strut
{
    enum class Edge { Left, Right, Top, Bottom };

    Edge edge = Edge::Left;
    /// How far it reaches into the desktop, counted from the desktop's edge: with several screens it may
    /// cross a whole screen first.
    int depth = 0;
    /// The first and the last pixel along the edge.
    int start = 0;
    int end = 0;

    friend bool operator==(const Strut &, const Strut &) = default;
};

/// The struts in a dock's property: the depths left, right, top and bottom, and perhaps for each in the same
/// order its start and its end. Without those they run along the whole edge. Other numbers of values are
/// none, and on an empty desktop there are none.
std::vector<Strut> strutsOf(std::span<const std::uint32_t> values, const QSize &desktop);

/// What the struts leave of a screen; empty if they leave nothing. A strut that crosses the whole screen
/// belongs to a dock on the next one and takes nothing from it.
QRect withoutStruts(const QRect &screen, const QSize &desktop, std::span<const Strut> struts);

} // namespace zeigewerk::platform::x11
