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
        mustHold(std::isfinite(scroll->distance) && scroll->distance != 0.0,
                 "a scroll has a finite distance other than zero");
        mustHold(!std::isnan(spotRadiusChange(*scroll)), "a scroll changes the radius by a number");
    }
}

} // namespace zeigewerk::fuzz
