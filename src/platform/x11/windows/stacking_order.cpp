#include "platform/x11/windows/stacking_order.h"

#include <algorithm>
#include <optional>

namespace zeigewerk::platform::x11 {

namespace {

bool coversScreen(const QRect &frame, const WindowStack &stack)
{
    // Outputs that are off may come back with the same screens.
    if (stack.screens.empty())
        return frame.contains(stack.desktop);
    return std::any_of(stack.screens.begin(), stack.screens.end(),
                       [&](const QRect &screen) { return frame.contains(screen); });
}

bool isVisibleForeign(const RootChild &child)
{
    return !child.isOurs && child.isViewable && !child.isInputOnly;
}

bool isScreenLocker(const RootChild &child, const WindowStack &stack)
{
    // Window managers make their frames override-redirect too, and the frame of a full-screen application
    // covers a screen.
    return isVisibleForeign(child) && child.isOverrideRedirect && !child.isWindowManagers &&
           coversScreen(child.frame, stack);
}

/// Of the other programs' windows, those between which ours belong.
struct Neighbours
{
    std::optional<WindowId> highestForeign;
    std::optional<WindowId> lowestLocker;
};

Neighbours neighboursOfOurs(const WindowStack &stack)
{
    Neighbours neighbours;
    for (const RootChild &child : stack.children) {
        if (isScreenLocker(child, stack)) {
            // What is above a locker is the locker's own.
            neighbours.lowestLocker = child.window;
            break;
        }
        if (isVisibleForeign(child))
            neighbours.highestForeign = child.window;
    }
    return neighbours;
}

} // namespace

StackPlace placeOfLowest(const WindowStack &stack)
{
    const Neighbours neighbours = neighboursOfOurs(stack);
    if (neighbours.highestForeign)
        return {StackPlace::Relation::DirectlyAbove, *neighbours.highestForeign};
    if (neighbours.lowestLocker)
        return {StackPlace::Relation::DirectlyBelow, *neighbours.lowestLocker};
    return {};
}

bool isInOrder(const WindowStack &stack, std::span<const WindowId> ours)
{
    const Neighbours neighbours = neighboursOfOurs(stack);
    std::vector<WindowId> expected(ours.begin(), ours.end());
    if (neighbours.highestForeign)
        expected.insert(expected.begin(), *neighbours.highestForeign);
    if (neighbours.lowestLocker)
        expected.push_back(*neighbours.lowestLocker);
    std::vector<WindowId> actual;
    for (const RootChild &child : stack.children) {
        if (std::count(expected.begin(), expected.end(), child.window) > 0)
            actual.push_back(child.window);
    }
    return actual == expected;
}

} // namespace zeigewerk::platform::x11
