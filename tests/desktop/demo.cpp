// Plays a short demonstration of the program on a virtual desktop, with the keys and the pointer of a person,
// and keeps pictures of it.

#include "demo_slide.h"
#include "rig.h"

#include <QDir>
#include <QGuiApplication>

#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>

using namespace zeigewerk::rig;

namespace {

const QRect kScreen(0, 0, 1920, 1080);
const QColor kInk(0xF2, 0x9A, 0x00);

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

/// A wavy underline.
QList<QPoint> wave(QPoint from, int length)
{
    QList<QPoint> points;
    for (int x = 0; x <= length; x += 6)
        points.append(from + QPoint(x, qRound(9 * std::sin(x / 22.0))));
    return points;
}

QList<QPoint> straight(QPoint from, QPoint to)
{
    QList<QPoint> points;
    for (int step = 0; step <= 30; ++step)
        points.append(from + (to - from) * step / 30);
    return points;
}

class Demonstration
{
public:
    Demonstration(const QDir &folder, const QString &scale)
        : m_folder(folder)
        , m_slide(m_session, kScreen)
        , m_program(m_session, {{"QT_SCALE_FACTOR", scale}})
    {
    }

    bool play()
    {
        return m_slide.isShown() && m_program.waitUntilReady() && pen() && shiftLine() && pin() &&
               spotlight() && whiteboard();
    }

private:
    bool pen()
    {
        hotKey(Key::D);
        return drawingIsOn() && draw(loopAround(slideChartTop(), 260, 330)) &&
               draw(wave(slideTitleLeft() + QPoint(0, 70), 790)) &&
               shows("1-pen.png", "the pen: a loop round the best quarter, a wave under the title", [&] {
                   return count(QRect(slideTitleLeft(), QSize(520, 100))) > 500 &&
                          count(QRect(slideChartTop() - QPoint(140, 180), QSize(280, 360))) > 1000;
               });
    }

    bool shiftLine()
    {
        m_session.keyboard().press(Key::Shift);
        const QPoint from(160, 930);
        const bool isDrawn = draw(straight(from, from + QPoint(900, 25)));
        m_session.keyboard().release(Key::Shift);
        return isDrawn &&
               shows("2-shift-line.png", "the pen with Shift held: a level line under the chart", [&] {
                   const QRect ink = m_session.screenshot().bounds(kInk, QRect(150, 900, 960, 60));
                   return ink.width() > 850 && ink.height() <= 12;
               });
    }

    bool pin()
    {
        hotKey(Key::P);
        return eventually([&] { return m_slide.hasFocus(); }) && m_session.pointer().clickAt(slideButton()) &&
               shows("3-pinned.png", "pinned: the drawing stays, and a click has reached the slide's button",
                     [&] { return m_slide.isButtonPressed() && count(kScreen) > 2000; });
    }

    bool spotlight()
    {
        hotKey(Key::S);
        return m_session.pointer().moveTo(slideChartTop() + QPoint(0, 40)) &&
               shows("4-spotlight.png", "the spotlight: everything dark but a circle round the pointer",
                     [&] {
                         return isDark({1900, 20}) && !isDark(slideChartTop() + QPoint(78, 40)) &&
                                isDark(slideTitleLeft());
                     }) &&
               endsWith(Key::Escape);
    }

    bool whiteboard()
    {
        hotKey(Key::W);
        return drawingIsOn() && draw(loopAround({500, 500}, 420, 300)) &&
               draw(straight({720, 500}, {1120, 500})) && draw(loopAround({1330, 500}, 420, 300)) &&
               shows("5-whiteboard.png", "the whiteboard: white, and drawn on",
                     [&] {
                         return pixel({20, 20}) == QColor(Qt::white) && count(kScreen) > 3000;
                     }) &&
               endsWith(Key::Escape);
    }

    void hotKey(Key key) { m_session.keyboard().chord({Key::Ctrl, Key::Alt}, key); }
    bool draw(const QList<QPoint> &points) { return m_session.pointer().drag(points); }
    QColor pixel(QPoint place) { return m_session.screenshot().pixel(place); }
    int count(const QRect &rect) { return m_session.screenshot().count(kInk, rect); }
    bool isDark(QPoint place) { return pixel(place).lightness() < 128; }
    bool drawingIsOn()
    {
        return eventually([&] { return !m_slide.hasFocus(); });
    }
    bool endsWith(Key key)
    {
        m_session.keyboard().tap(key);
        return eventually([&] { return m_slide.hasFocus() && count(kScreen) == 0 && !isDark({1900, 20}); });
    }

    bool shows(const char *file, const char *what, const std::function<bool()> &condition)
    {
        const bool isShown = eventually(condition);
        const QString path = m_folder.filePath(QString::fromLatin1(file));
        if (!m_session.screenshot().save(path))
            return false;
        std::printf("  %s  %s%s\n", qPrintable(path), isShown ? "" : "should show ", what);
        return isShown;
    }

    QDir m_folder;
    DesktopSession m_session{{.screens = {kScreen}}};
    DemoSlide m_slide;
    Program m_program;
};

} // namespace

int main(int argc, char *argv[])
{
    // The slide is painted in memory; the program is what needs a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: zeigewerk_demo FOLDER [SCALE]\n", stderr);
        return 2;
    }
    Demonstration demonstration(QDir(arguments[1]), arguments.value(2, QStringLiteral("1")));
    if (demonstration.play())
        return 0;
    std::fputs("The demonstration did not show what it should.\n", stderr);
    return 1;
}
