// The measurements. Each uses one or more desktops of its own and adds its values to the results.
#pragma once

#include "results.h"

namespace zeigewerk::bench {

/// From the start of the process until the toolbar is on the screen.
void measureStart(Results &results);
/// From the mouse's motion until the ink is on the screen, and the processor time of drawing.
void measureInk(Results &results);
/// The same on a long stroke and over many shapes, and undoing one of the shapes.
void measureMuchInk(Results &results);
/// Spotlight and fading.
void measureEffects(Results &results);
/// Memory, and the activity of the idle program.
void measureIdle(Results &results);

} // namespace zeigewerk::bench
