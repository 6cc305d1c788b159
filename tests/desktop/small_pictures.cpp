#include "small_pictures.h"

#include <QPolygon>

#include <algorithm>
#include <optional>

namespace zeigewerk::rig {

namespace {

constexpr QSize kSize(480, 240);
/// The margin around the mark on each side of a picture.
constexpr int kMargin = 16;
constexpr int kAroundToolbar = 22;

/// Next to the slide's lines, in its chart, and at its button.
constexpr QPoint kAtFirstLines(1050, 300);
constexpr QPoint kAtLastLine(1050, 465);
constexpr QPoint kAtBestQuarter(590, 400);
constexpr QPoint kAtButton(1065, 685);

/// The colour of yellow highlighter on the slide's paper.
const QColor kHighlight(0xFC, 0xEC, 0x98);

struct Mark
{
    const char *file;
    const char *what;
    QString tool;
    int color;
    int width;
    QList<QPoint> points;
    /// The picture's upper left corner.
    QPoint corner;
    QColor ink;
    /// Where there is ink once the mark is complete; by default its last point.
    std::optional<QPoint> end = std::nullopt;
};

QList<Mark> marks()
{
    // A table, one field per line:
    // clang-format off
    return {
        {.file = "tool-pen.png",
         .what = "the pen",
         .tool = button::kPen,
         .color = Orange,
         .width = Medium,
         .points = loopAround({1209, 408}, 138, 92),
         .corner = kAtFirstLines,
         .ink = kInks[Orange]},
        {.file = "tool-highlighter.png",
         .what = "the highlighter",
         .tool = button::kHighlighter,
         .color = Yellow,
         .width = Broad,
         .points = straight({1156, 410}, {1436, 410}),
         .corner = kAtFirstLines,
         .ink = kHighlight},
        {.file = "tool-line.png",
         .what = "the line",
         .tool = button::kLine,
         .color = Red,
         .width = Medium,
         .points = straight({1148, 436}, {1450, 436}),
         .corner = kAtFirstLines,
         .ink = kInks[Red]},
        {.file = "tool-arrow.png",
         .what = "the arrow",
         .tool = button::kArrow,
         .color = Red,
         .width = Broad,
         .points = straight({640, 440}, {862, 540}),
         .corner = kAtBestQuarter,
         .ink = kInks[Red]},
        {.file = "tool-rectangle.png",
         .what = "the rectangle",
         .tool = button::kRectangle,
         .color = Blue,
         .width = Medium,
         .points = straight({1094, 736}, {1504, 874}),
         .corner = kAtButton,
         .ink = kInks[Blue]},
        {.file = "tool-ellipse.png",
         .what = "the ellipse",
         .tool = button::kEllipse,
         .color = Green,
         .width = Medium,
         .points = straight({1305, 542}, {1509, 634}),
         .corner = kAtLastLine,
         .ink = kInks[Green],
         .end = QPoint(1509, 588)},
    };
    // clang-format on
}

MarkExtent extentOf(const Mark &mark)
{
    const QPoint end = mark.end.value_or(mark.points.last());
    return {.minSize = QPolygon(mark.points).boundingRect().size(),
            .end = QRect(end - QPoint(3, 3), QSize(7, 7))};
}

} // namespace

bool SmallPictures::make()
{
    return begin() && toolbarInBothLooks() && strokes() && text();
}

bool SmallPictures::toolbarInBothLooks()
{
    return showsToolbar("toolbar-dark.png", "the toolbar in its dark look", true) &&
           choose(button::kAppearance) &&
           showsToolbar("toolbar-light.png", "the toolbar in its light look", false) &&
           choose(button::kAppearance);
}

bool SmallPictures::showsToolbar(const char *file, const char *what, bool hasDarkLook)
{
    // The pointer is moved away, so that no button looks hovered.
    const int around = kAroundToolbar * scale();
    const QRect part = toolbar().panel().marginsAdded({around, around, around, around});
    return session().pointer().moveTo({20, 20}) &&
           shows(
               file, what, [&] { return isDark(toolbar().background()) == hasDarkLook; }, part);
}

bool SmallPictures::strokes()
{
    const QList<Mark> all = marks();
    return std::all_of(all.begin(), all.end(), [this](const Mark &mark) {
        return drawWith(mark.tool, mark.color, mark.width, mark.points) &&
               showsMark(mark.file, mark.what, {mark.corner, kSize}, mark.ink, extentOf(mark));
    });
}

bool SmallPictures::text()
{
    const QRect part(kAtBestQuarter, kSize);
    return take(button::kText, Red, Medium) && write({640, 480}, {840, 482}, "neuer Rekord") &&
           showsMark("tool-text.png", "the text", part, kInks[Red], {.minSize = {150, 12}, .end = part});
}

bool SmallPictures::showsMark(const char *file, const char *what, const QRect &part, const QColor &ink,
                              const MarkExtent &extent)
{
    const QRect within = part.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const auto isCompleteAndInside = [&] {
        const QRect bounds = session().screenshot().bounds(ink, part, 2);
        return bounds.size().expandedTo(extent.minSize) == bounds.size() && within.contains(bounds) &&
               count(extent.end, ink) > 0;
    };
    return shows(file, what, isCompleteAndInside, part) && choose(button::kClear) &&
           eventually([&] { return count(part, ink) == 0; });
}

} // namespace zeigewerk::rig
