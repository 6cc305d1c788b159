// What comes from outside and is read by our own code, each as a function that may be given anything. A
// fuzzer looks for input that it stumbles over, and a test has what was found, and examples of the rest, go
// through it again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zeigewerk::fuzz {

using Bytes = std::span<const std::uint8_t>;

/// A settings file: what the program takes from it when it starts, and what stands in it after a change.
void settings(Bytes input);
/// The place of the toolbar, as it stands in the settings, and where the toolbar goes then.
void toolbarFrame(Bytes input);
/// An update feed, and what it makes the program tell.
void feed(Bytes input);
/// What the display server tells of monitors, and other programs of their docks.
void screens(Bytes input);
/// What a device tells of a scroll axis.
void scrolling(Bytes input);

struct Target
{
    /// That of its folder of examples, too.
    const char *name;
    void (*run)(Bytes input);
};

inline constexpr std::array kTargets = {
    Target{"settings", settings}, Target{"toolbar_frame", toolbarFrame}, Target{"feed", feed},
    Target{"screens", screens},   Target{"scrolling", scrolling},
};

} // namespace zeigewerk::fuzz
