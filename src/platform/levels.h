#pragma once

#include "platform/surface.h"
#include "platform/widget_window.h"

namespace zeigewerk::platform {

/// The levels at which our windows stand, all above the windows of other programs. A window of a higher level
/// covers every one of a lower level; within a level the last one ordered front is in front.
namespace Levels {
inline constexpr int overlay = 1000;
inline constexpr int toolbar = 1001;
inline constexpr int effects = 1002;
} // namespace Levels

constexpr int levelOf(SurfaceRole role)
{
    return role == SurfaceRole::Overlay ? Levels::overlay : Levels::effects;
}

/// A text field is a part of its overlay, and stands above all of them.
constexpr int levelOf(WidgetRole role)
{
    return role == WidgetRole::TextField ? Levels::overlay : Levels::toolbar;
}

} // namespace zeigewerk::platform
