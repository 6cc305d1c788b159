#pragma once

#include <QRect>

#include <cstdint>
#include <span>
#include <vector>

namespace zeigewerk::platform::x11 {

/// The server's id of a window.
using WindowId = std::uint32_t;

/// A child of the root window, reduced to what decides about stacking.
struct RootChild
{
    WindowId window = 0;
    bool isOurs = false;
    bool isViewable = true;
    /// An input-only window is invisible.
    bool isInputOnly = false;
    bool isOverrideRedirect = false;
    /// The window manager made it: it is the frame of another program's window.
    bool isWindowManagers = false;
    /// In pixels, like all rectangles here.
    QRect frame;
};

/// The windows on the display, and the screens that they cover.
struct WindowStack
{
    /// The lowest first.
    std::vector<RootChild> children;
    /// Empty while all outputs are off.
    std::vector<QRect> screens;
    /// A rectangle around all screens. It keeps its size while all outputs are off.
    QRect desktop;
};

/// A place in the stack of windows.
struct StackPlace
{
    enum class Relation { OnTop, DirectlyAbove, DirectlyBelow };

    Relation relation = Relation::OnTop;
    /// The window directly below or above the place; 0 on top.
    WindowId sibling = 0;

    friend bool operator==(const StackPlace &, const StackPlace &) = default;
};

/// Where the lowest of our windows belongs: above every visible window of other programs, but below screen
/// lockers and below what is above a screen locker.
///
/// A screen locker is an override-redirect window that covers a whole screen and is not a frame of the window
/// manager.
StackPlace placeOfLowest(const WindowStack &stack);

/// Whether `ours` (our shown windows, the lowest first) are in that order, and between the other programs'
/// windows and the screen lockers.
bool isInOrder(const WindowStack &stack, std::span<const WindowId> ours);

} // namespace zeigewerk::platform::x11
