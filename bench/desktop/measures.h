// What is measured. Each has a desktop of its own, or several, and adds its values to the results.
#pragma once

#include "results.h"

namespace zeigewerk::bench {

/// From the start of the process to the toolbar on the screen.
void measureStart(Results &results);
/// From the mouse's motion to the ink on the screen, and the processor time of drawing.
void measureInk(Results &results);
/// The same on a long stroke, and over many shapes; and taking one of these back.
void measureMuchInk(Results &results);
/// Spotlight and fading.
void measureEffects(Results &results);
/// Memory, and what the idle program does.
void measureIdle(Results &results);

} // namespace zeigewerk::bench
