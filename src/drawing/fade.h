#pragma once

#include "drawing/shape.h"

namespace zeigewerk {

/// With auto-fade on, a shape stays fully opaque for this long after it was finished, in seconds …
inline constexpr double kFadeHold = 4.0;
/// … and then dissolves linearly over this long.
inline constexpr double kFadeDuration = 0.8;

/// The opacity of a shape at `now`, from 0 to 1: 1 unless `fading`, else by its age. A shape of negative age
/// (the clock was set back) is opaque.
double fadeAlpha(const Shape &shape, bool fading, TimePoint now);

} // namespace zeigewerk
