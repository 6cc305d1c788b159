#pragma once

#include "platform/surface.h"
#include "platform/widget_window.h"

namespace zeigewerk::platform {

/// The levels of our windows, all above the windows of other programs. A window covers all windows of lower
/// levels; within a level, the last one ordered front is in front.
namespace Levels {
inline constexpr int overlay = 1000;
inline constexpr int toolbar = 1001;
inline constexpr int effects = 1002;
} // namespace Levels

constexpr int levelOf(SurfaceRole role)
{
    return role == SurfaceRole::Overlay ? Levels::overlay : Levels::effects;
}

/// A text field belongs to its overlay, and is above all overlays.
constexpr int levelOf(WidgetRole role)
{
    return role == WidgetRole::TextField ? Levels::overlay : Levels::toolbar;
}

} // namespace zeigewerk::platform
