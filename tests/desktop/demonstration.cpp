#include "demonstration.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace zeigewerk::rig {

namespace {

const QRect kScreen(0, 0, 1920, 1080);
/// What the toolbar leaves free, also at scale 2: its swatches have the colours of the marks.
const QRect kSlide(0, 0, 1530, 1080);

/// Indices of the toolbar's swatches and widths.
enum Swatch { Orange, Navy, Red, Green, Yellow, Blue };
enum Width { Thin, Medium, Broad };

const std::array kColors = {QColor(0xF2, 0x9A, 0x00), QColor(0x18, 0x22, 0x45), QColor(0xFF, 0x3B, 0x30),
                            QColor(0x34, 0xC7, 0x59), QColor(0xFF, 0xD6, 0x0A), QColor(0x0A, 0x84, 0xFF)};

/// Points along an ellipse, a little more than once round, as a hand draws it.
QList<QPoint> loopAround(QPoint middle, int width, int height)
{
    QList<QPoint> points;
    for (double turn = 0.1; turn < 1.15; turn += 0.01) {
        const double angle = turn * 2 * std::numbers::pi;
        const double wobble = 1 + 0.03 * std::sin(5 * angle);
        points.append(middle + QPoint(qRound(width / 2.0 * wobble * std::cos(angle)),
                                      qRound(height / 2.0 * wobble * std::sin(angle) + 12 * (turn - 0.6))));
    }
    return points;
}

QList<QPoint> straight(QPoint from, QPoint to)
{
    QList<QPoint> points;
    for (int step = 0; step <= 30; ++step)
        points.append(from + (to - from) * step / 30);
    return points;
}

} // namespace

Demonstration::Demonstration(const QDir &folder, int scale)
    : m_folder(folder)
    , m_scale(scale)
    , m_session({.screens = {kScreen}, .accessibility = true})
    , m_slide(m_session, kScreen)
    , m_program(m_session, {{"QT_SCALE_FACTOR", QString::number(scale)}})
{
}

bool Demonstration::play()
{
    return m_slide.isShown() && m_program.waitUntilReady() && toolbar() && everyTool() && undo() && text() &&
           freehand() && pin() && clickRing() && spotlight() && whiteboard() && menu();
}

bool Demonstration::toolbar()
{
    m_toolbar.emplace(m_session, m_program, m_scale);
    return shows("1-toolbar.png", "the toolbar at the right edge, over somebody's slide",
                 [&] { return isDark(m_toolbar->background()); });
}

bool Demonstration::everyTool()
{
    const QRect title(slideTitleLeft(), QSize(800, 80));
    const bool isDrawn =
        drawWith(button::kLine, Navy, Broad, straight({160, 222}, {950, 222})) &&
        drawWith(button::kHighlighter, Yellow, Medium, straight({1152, 408}, {1455, 408})) &&
        drawWith(button::kRectangle, Blue, Medium, straight({1092, 458}, {1536, 534})) &&
        drawWith(button::kEllipse, Green, Medium, straight({180, 630}, {390, 930})) &&
        drawWith(button::kArrow, Red, Broad, straight({600, 390}, slideChartTop() + QPoint(-82, 20))) &&
        drawWith(button::kPen, Orange, Medium, loopAround({1425, 588}, 190, 84));
    return isDrawn && shows("2-tools.png", "pen, highlighter, line, arrow, rectangle, ellipse", [&] {
               return count(title, kColors[Navy]) > 2000 && count(kSlide, kColors[Red]) > 1000 &&
                      count(kSlide, kColors[Green]) > 1000 && count(kSlide, kColors[Blue]) > 1000 &&
                      count({1300, 540, 230, 100}, kColors[Orange]) > 500;
           });
}

bool Demonstration::undo()
{
    return choose(button::kUndo) && shows("3-undo.png", "the newest mark taken back", [&] {
               return count({1300, 540, 230, 100}, kColors[Orange]) == 0 &&
                      count(kSlide, kColors[Red]) > 1000;
           });
}

bool Demonstration::text()
{
    const QRect line(520, 270, 460, 90);
    const QPoint inField(860, 292);
    const QColor paper = pixel(inField);
    const bool isOpen = choose(button::kText) && choose(button::kColor, Green) &&
                        eventually([&] { return m_toolbar->isOn(button::kColor, Green); }) && drawingIsOn() &&
                        m_session.pointer().clickAt({530, 290}) &&
                        eventually([&] { return pixel(inField) != paper; });
    if (!isOpen)
        return false;
    m_session.keyboard().type("Rekord");
    m_session.keyboard().tap(Key::Return);
    return shows("4-text.png", "a word, typed and entered",
                 [&] { return pixel(inField) == paper && count(line, kColors[Green]) > 200; });
}

bool Demonstration::freehand()
{
    const QRect beneathChart(150, 935, 960, 60);
    return choose(button::kClear) && eventually([&] { return count(kSlide, kColors[Red]) == 0; }) &&
           drawWith(button::kPen, Orange, Medium, loopAround(slideChartTop(), 260, 330)) &&
           drawWithShift(straight({160, 960}, {1060, 985})) &&
           shows("5-pen.png", "the pen: a loop, and with Shift a level line", [&] {
               const QRect line = m_session.screenshot().bounds(kColors[Orange], beneathChart);
               return count(kSlide, kColors[Red]) == 0 && line.width() > 850 && line.height() <= 12 &&
                      count(QRect(slideChartTop() - QPoint(140, 180), QSize(280, 360)), kColors[Orange]) >
                          1000;
           });
}

bool Demonstration::pin()
{
    return choose(button::kPin) && eventually([&] { return m_slide.hasFocus(); }) &&
           m_session.pointer().clickAt(slideButton()) &&
           shows("6-pinned.png", "pinned: the drawing stays, and a click has reached the slide's button",
                 [&] { return m_slide.isButtonPressed() && count(kSlide, kColors[Orange]) > 2000; });
}

bool Demonstration::clickRing()
{
    const QPoint place(1300, 160);
    const int half = 36 * m_scale;
    const QRect around(place - QPoint(half, half), QSize(2 * half, 2 * half));
    if (!choose(button::kClicks) || !eventually([&] { return m_toolbar->isOn(button::kClicks); }))
        return false;
    const QColor paper = pixel(place);
    // It lives for half a second only, so what is kept is the very picture on which it was seen.
    const auto isSeen = [&] {
        const Screenshot now = m_session.screenshot();
        const int inked = around.width() * around.height() - now.count(paper, around, 40);
        return inked > 150 && keep(now, "7-click.png", "a ring round a click on the slide", true);
    };
    bool wasSeen = false;
    for (int attempt = 0; attempt < 5 && !wasSeen; ++attempt)
        wasSeen = m_session.pointer().clickAt(place) && eventually(isSeen, std::chrono::milliseconds(450));
    return wasSeen && choose(button::kClicks);
}

bool Demonstration::spotlight()
{
    return choose(button::kSpotlight) && m_session.pointer().moveTo(slideChartTop() + QPoint(0, 40)) &&
           shows("8-spotlight.png", "the spotlight: everything dark but a circle round the pointer",
                 [&] {
                     return isDark({1900, 20}) && !isDark(slideChartTop() + QPoint(78, 40)) &&
                            isDark(slideTitleLeft());
                 }) &&
           endsWith(Key::Escape);
}

bool Demonstration::whiteboard()
{
    const QRect middle(250, 300, 1250, 400);
    return choose(button::kAppearance) && choose(button::kWhiteboard) && drawingIsOn() &&
           drawWith(button::kRectangle, Blue, Medium, straight({300, 380}, {640, 620})) &&
           drawWith(button::kArrow, Navy, Medium, straight({680, 500}, {980, 500})) &&
           drawWith(button::kPen, Red, Broad, loopAround({1250, 500}, 420, 280)) &&
           shows("9-whiteboard.png", "the whiteboard, and the toolbar in its light look",
                 [&] {
                     return pixel({20, 20}) == QColor(Qt::white) && count(middle, kColors[Red]) > 3000 &&
                            !isDark(m_toolbar->background());
                 }) &&
           endsWith(Key::Escape);
}

bool Demonstration::menu()
{
    return choose(button::kAppearance) &&
           m_session.pointer().clickAt(m_toolbar->background(), Pointer::Right) &&
           shows("10-menu.png", "the menu, which the tray's icon opens too", [&] {
               const QRect panel = m_toolbar->panel();
               const QList<WindowInfo> windows = m_session.client().windowsOfProcess(m_program.processId());
               return std::any_of(windows.begin(), windows.end(), [&](const WindowInfo &window) {
                   return window.viewable && window.geometry.width() > 200 &&
                          window.geometry.height() < panel.height() && !window.inputOnly;
               });
           });
}

bool Demonstration::drawWith(const QString &tool, int color, int width, const QList<QPoint> &points)
{
    // The toolbar answers in the order of its clicks, but the canvas does not wait for it.
    return choose(tool) && choose(button::kColor, color) && choose(button::kWidth, width) &&
           eventually([&] { return m_toolbar->isOn(button::kWidth, width); }) && drawingIsOn() &&
           draw(points);
}

bool Demonstration::choose(const QString &button, int index)
{
    return m_toolbar->click(button, index);
}

bool Demonstration::drawWithShift(const QList<QPoint> &points)
{
    m_session.keyboard().press(Key::Shift);
    const bool isDrawn = draw(points);
    m_session.keyboard().release(Key::Shift);
    return isDrawn;
}

bool Demonstration::drawingIsOn()
{
    return eventually([&] { return !m_slide.hasFocus(); });
}

bool Demonstration::endsWith(Key key)
{
    m_session.keyboard().tap(key);
    return eventually([&] {
        return m_slide.hasFocus() && count(kSlide, kColors[Orange]) == 0 && !isDark({1900, 20});
    });
}

bool Demonstration::shows(const char *file, const char *what, const std::function<bool()> &condition)
{
    const bool isShown = eventually(condition);
    return keep(m_session.screenshot(), file, what, isShown) && isShown;
}

bool Demonstration::keep(const Screenshot &picture, const char *file, const char *what, bool isRight)
{
    const QString path = m_folder.filePath(QString::fromLatin1(file));
    if (!picture.save(path))
        return false;
    std::printf("  %s  %s%s\n", qPrintable(path), isRight ? "" : "should show ", what);
    std::fflush(stdout);
    return true;
}

} // namespace zeigewerk::rig
