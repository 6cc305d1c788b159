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
    // Asked for apart: the quotient of rounded numbers would leave a shape a trace of opacity at its very
    // end, and a canvas keeps whatever is not wholly gone.
    if (age >= kFadeHold + kFadeDuration)
        return 0.0;
    return std::max(0.0, 1.0 - (age - kFadeHold) / kFadeDuration);
}

} // namespace zeigewerk
