#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/input/typed_keys.h"
#include "platform/x11/screens.h"
#include "platform/x11/selection_owner.h"
#include "platform/x11/windows/focus.h"
#include "platform/x11/windows/redraw_reminder.h"
#include "platform/x11/windows/stacking.h"
#include "platform/x11/windows/surface_list.h"
#include "platform/x11/windows/window_list.h"

namespace zeigewerk::platform::x11 {

/// What surfaces and widget windows need from the desktop. All of it outlives them.
struct WindowServices
{
    Connection &connection;
    const Screens &screens;
    const SelectionOwner &compositor;
    Focus &focus;
    TypedKeys &typedKeys;
    SurfaceList &surfaces;
    WindowList &windows;
    Stacking &stacking;
    RedrawReminder &redrawReminder;

    const ScreenLayout &layout() const { return screens.layout(); }
    bool isComposited() const { return compositor.exists(); }
};

} // namespace zeigewerk::platform::x11
