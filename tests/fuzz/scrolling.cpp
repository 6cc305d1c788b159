#include "base/stop.h"
#include "canvas/spot_radius.h"
#include "fuzz/byte_reader.h"
#include "platform/x11/input/scroll_valuator.h"

#include <cmath>

namespace zeigewerk::fuzz {

void scrolling(Bytes input)
{
    ByteReader reader(input);
    platform::x11::ScrollValuator valuator(reader.take<double>());
    while (!reader.isAtEnd()) {
        const auto scroll = valuator.moveTo(reader.take<double>());
        if (!scroll)
            continue;
        mustHold(std::isfinite(scroll->distance) && scroll->distance != 0.0, "a step goes somewhere");
        mustHold(!std::isnan(spotRadiusChange(*scroll)), "a step changes the spotlight by some number");
    }
}

} // namespace zeigewerk::fuzz
