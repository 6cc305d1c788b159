// One function for each kind of external input that our own code reads; each accepts any bytes. The fuzzers
// search for input that breaks them, and a unit test replays the examples and all that was found.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zeigewerk::fuzz {

using Bytes = std::span<const std::uint8_t>;

/// A settings file: what the program reads at startup, and what it writes after a change.
void settings(Bytes input);
/// The position of the toolbar as saved in the settings, and where the toolbar is then placed.
void toolbarFrame(Bytes input);
/// An update feed, and the news that the program makes of it.
void feed(Bytes input);
/// Monitors as the display server reports them, and the struts of docks.
void screens(Bytes input);
/// The values of a scroll axis, as an input device reports them.
void scrolling(Bytes input);

struct Target
{
    /// Also the name of its folder of examples.
    const char *name;
    void (*run)(Bytes input);
};

// A table, one row per line.
// clang-format off
inline constexpr std::array kTargets = {
    Target{"settings", settings},
    Target{"toolbar_frame", toolbarFrame},
    Target{"feed", feed},
    Target{"screens", screens},
    Target{"scrolling", scrolling},
};
// clang-format on

} // namespace zeigewerk::fuzz
