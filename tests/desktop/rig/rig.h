// Everything that a scenario needs.
#pragma once

#include "accessibility.h"   // IWYU pragma: export
#include "clipboard_user.h"  // IWYU pragma: export
#include "desktop_session.h" // IWYU pragma: export
#include "dock.h"            // IWYU pragma: export
#include "eventually.h"      // IWYU pragma: export
#include "frame_watch.h"     // IWYU pragma: export
#include "key_grab.h"        // IWYU pragma: export
#include "popup.h"           // IWYU pragma: export
#include "process_stats.h"   // IWYU pragma: export
#include "program.h"         // IWYU pragma: export
#include "rig_error.h"       // IWYU pragma: export
#include "scroll_mouse.h"    // IWYU pragma: export
#include "window_beneath.h"  // IWYU pragma: export
#include "window_watch.h"    // IWYU pragma: export
