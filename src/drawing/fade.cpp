#include "drawing/fade.h"

#include <algorithm>

namespace zeigewerk {

double fadeAlpha(const Shape &shape, bool fading, TimePoint now)
{
    if (!fading)
        return 1.0;
    const double age = std::chrono::duration<double>(now - shape.created).count();
    if (age < kFadeHold)
        return 1.0;
    // Tested separately: the quotient of rounded numbers could leave a trace of opacity, and a canvas keeps
    // every shape that is not fully transparent.
    if (age >= kFadeHold + kFadeDuration)
        return 0.0;
    return std::max(0.0, 1.0 - (age - kFadeHold) / kFadeDuration);
}

} // namespace zeigewerk
