#include "base/stop.h"
#include "fuzz/byte_reader.h"
#include "fuzz/placed_toolbar.h"
#include "platform/x11/struts.h"

namespace zeigewerk::fuzz {

namespace {

using platform::Screen;
using platform::ScreenLayout;
using platform::x11::Strut;

/// Monitors within the limits of the X11 protocol, with scales that Qt supports.
std::vector<Screen> takeMonitors(ByteReader &reader)
{
    std::vector<Screen> monitors(reader.take<std::uint8_t>() % 5);
    for (Screen &monitor : monitors) {
        const auto x = reader.take<std::int16_t>();
        const auto y = reader.take<std::int16_t>();
        const auto width = reader.take<std::uint16_t>();
        const auto height = reader.take<std::uint16_t>();
        monitor = {.name = {},
                   .nativeFrame = {x, y, width, height},
                   .scale = 1.0 + reader.take<std::uint8_t>() % 13 / 4.0,
                   .frame = {}};
    }
    return monitors;
}

std::vector<std::uint32_t> takeProperty(ByteReader &reader)
{
    std::vector<std::uint32_t> values(reader.take<std::uint8_t>() % 14);
    for (std::uint32_t &value : values)
        value = reader.take<std::uint32_t>();
    return values;
}

void checkScreen(const ScreenLayout &layout, const Screen &screen)
{
    const auto pixel = QPointF(screen.nativeFrame.center());
    const auto holds = [&](const Screen &other) { return other.nativeFrame.contains(pixel.toPoint()); };
    const auto &screens = layout.screens();
    mustHold(ScreenLayout::nativeRectOn(screen, screen.frame) == screen.nativeFrame,
             "an overlay covers its screen");
    if (!screen.nativeFrame.isEmpty() && std::count_if(screens.begin(), screens.end(), holds) == 1)
        mustHold(screen.frame.contains(layout.pointOfPixel(pixel)),
                 "a pointer on a screen lies in its frame");
}

void checkStruts(const Screen &screen, const QSize &desktop, const std::vector<Strut> &struts)
{
    const QRect free = withoutStruts(screen.nativeFrame, desktop, struts);
    mustHold(free.isEmpty() || screen.nativeFrame.contains(free),
             "the area that docks leave lies on the screen");
    const QRectF frame = ScreenLayout::frameOfPart(screen, free);
    mustHold(frame.isEmpty() == free.isEmpty(),
             "an area is empty in points exactly if it is empty in pixels");
}

} // namespace

void screens(Bytes input)
{
    ByteReader reader(input);
    const ScreenLayout layout(takeMonitors(reader));
    const QSize desktop(reader.take<std::uint16_t>(), reader.take<std::uint16_t>());
    std::vector<Strut> struts;
    while (!reader.isAtEnd()) {
        const std::vector<Strut> more = platform::x11::strutsOf(takeProperty(reader), desktop);
        struts.insert(struts.end(), more.begin(), more.end());
    }
    for (const Screen &screen : layout.screens()) {
        checkScreen(layout, screen);
        checkStruts(screen, desktop, struts);
    }
}

} // namespace zeigewerk::fuzz
