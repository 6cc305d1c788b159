#include "demonstration.h"

#include <algorithm>

namespace zeigewerk::rig {

bool Demonstration::play()
{
    return begin() && showToolbar() && everyTool() && undo() && text() && freehand() && pin() &&
           clickRing() && spotlight() && whiteboard() && menu();
}

bool Demonstration::showToolbar()
{
    return shows("1-toolbar.png", "the toolbar at the right edge, over a slide",
                 [&] { return isDark(toolbar().background()); });
}

bool Demonstration::everyTool()
{
    const QRect title(slideTitleLeft(), QSize(800, 80));
    const bool isDrawn =
        drawWith(button::kLine, Navy, Broad, straight({160, 222}, {950, 222})) &&
        drawWith(button::kHighlighter, Yellow, Medium, straight({1152, 410}, {1440, 410})) &&
        drawWith(button::kRectangle, Blue, Medium, straight({1092, 458}, {1536, 534})) &&
        drawWith(button::kEllipse, Green, Medium, straight({180, 630}, {390, 930})) &&
        drawWith(button::kArrow, Red, Broad, straight({600, 390}, slideChartTop() + QPoint(-82, 20))) &&
        drawWith(button::kPen, Orange, Medium, loopAround({1410, 588}, 194, 88));
    return isDrawn && shows("2-tools.png", "pen, highlighter, line, arrow, rectangle, ellipse", [&] {
               return count(title, kInks[Navy]) > 2000 && count(kDemoSlide, kInks[Red]) > 1000 &&
                      count(kDemoSlide, kInks[Green]) > 1000 && count(kDemoSlide, kInks[Blue]) > 1000 &&
                      count({1300, 540, 230, 100}, kInks[Orange]) > 500;
           });
}

bool Demonstration::undo()
{
    return choose(button::kUndo) && shows("3-undo.png", "the latest mark undone", [&] {
               return count({1300, 540, 230, 100}, kInks[Orange]) == 0 &&
                      count(kDemoSlide, kInks[Red]) > 1000;
           });
}

bool Demonstration::text()
{
    const QRect line(520, 270, 460, 90);
    return take(button::kText, Green, Medium) && write({530, 290}, {860, 292}, "Rekord") &&
           shows("4-text.png", "a typed word", [&] { return count(line, kInks[Green]) > 200; });
}

bool Demonstration::freehand()
{
    const QRect beneathChart(150, 935, 960, 60);
    return choose(button::kClear) && eventually([&] { return count(kDemoSlide, kInks[Red]) == 0; }) &&
           drawWith(button::kPen, Orange, Medium, loopAround(slideChartTop(), 260, 330)) &&
           drawWithShift(straight({160, 960}, {1060, 985})) &&
           shows("5-pen.png", "the pen: a loop, and with Shift a horizontal line", [&] {
               const QRect line = session().screenshot().bounds(kInks[Orange], beneathChart);
               return count(kDemoSlide, kInks[Red]) == 0 && line.width() > 850 && line.height() <= 12 &&
                      count(QRect(slideChartTop() - QPoint(140, 180), QSize(280, 360)), kInks[Orange]) > 1000;
           });
}

bool Demonstration::pin()
{
    return choose(button::kPin) && eventually([&] { return slide().hasFocus(); }) &&
           session().pointer().clickAt(slideButton()) &&
           shows("6-pinned.png", "pinned: the drawing stays, and a click has reached the slide's button",
                 [&] { return slide().isButtonPressed() && count(kDemoSlide, kInks[Orange]) > 2000; });
}

bool Demonstration::clickRing()
{
    const QPoint place(1300, 160);
    const int half = 36 * scale();
    const QRect around(place - QPoint(half, half), QSize(2 * half, 2 * half));
    if (!choose(button::kClicks) || !eventually([&] { return toolbar().isOn(button::kClicks); }))
        return false;
    const QColor paper = pixel(place);
    // A ring lives for half a second only and is small at first, so the screenshot that detected it is the
    // one to keep.
    const auto isSeen = [&] {
        const Screenshot now = session().screenshot();
        const int inked = around.width() * around.height() - now.count(paper, around, 40);
        return inked > 300 * scale() * scale() &&
               keep(now, "7-click.png", "a ring around a click on the slide", true);
    };
    bool wasSeen = false;
    for (int attempt = 0; attempt < 20 && !wasSeen; ++attempt)
        wasSeen = session().pointer().clickAt(place) && eventually(isSeen, std::chrono::milliseconds(450));
    return wasSeen && choose(button::kClicks) && eventually([&] { return !isRingShown(); });
}

bool Demonstration::isRingShown()
{
    const QSize ring(72 * scale(), 72 * scale());
    const QList<WindowInfo> windows = session().client().windowsOfProcess(program().processId());
    return std::any_of(windows.begin(), windows.end(), [&](const WindowInfo &window) {
        return window.viewable && window.geometry.size() == ring;
    });
}

bool Demonstration::spotlight()
{
    return choose(button::kSpotlight) && session().pointer().moveTo(slideChartTop() + QPoint(0, 40)) &&
           shows("8-spotlight.png", "the spotlight: everything is dark except a circle around the pointer",
                 [&] {
                     return isDark({1900, 20}) && !isDark(slideChartTop() + QPoint(78, 40)) &&
                            isDark(slideTitleLeft());
                 }) &&
           endWith(Key::Escape);
}

bool Demonstration::whiteboard()
{
    const QRect middle(250, 300, 1250, 400);
    return choose(button::kAppearance) && choose(button::kWhiteboard) && isDrawing() &&
           drawWith(button::kRectangle, Blue, Medium, straight({300, 380}, {640, 620})) &&
           drawWith(button::kArrow, Navy, Medium, straight({680, 500}, {980, 500})) &&
           drawWith(button::kPen, Red, Broad, loopAround({1250, 500}, 420, 280)) &&
           shows("9-whiteboard.png", "the whiteboard, and the toolbar in its light look",
                 [&] {
                     return pixel({20, 20}) == QColor(Qt::white) && count(middle, kInks[Red]) > 3000 &&
                            !isDark(toolbar().background());
                 }) &&
           endWith(Key::Escape);
}

bool Demonstration::menu()
{
    return choose(button::kAppearance) &&
           session().pointer().clickAt(toolbar().background(), Pointer::Right) &&
           shows("10-menu.png", "the menu, which the tray icon opens too", [&] {
               const QRect panel = toolbar().panel();
               const QList<WindowInfo> windows = session().client().windowsOfProcess(program().processId());
               return std::any_of(windows.begin(), windows.end(), [&](const WindowInfo &window) {
                   return window.viewable && window.geometry.width() > 200 &&
                          window.geometry.height() < panel.height() && !window.inputOnly;
               });
           });
}

} // namespace zeigewerk::rig
