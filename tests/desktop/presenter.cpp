#include "presenter.h"

#include <cmath>
#include <cstdio>
#include <numbers>

namespace zeigewerk::rig {

QList<QPoint> loopAround(QPoint middle, int width, int height)
{
    QList<QPoint> points;
    constexpr int kSteps = 105;
    for (int step = 0; step < kSteps; ++step) {
        const double turn = 0.1 + 0.01 * step;
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

Presenter::Presenter(const QDir &folder, int scale)
    : m_folder(folder)
    , m_scale(scale)
    , m_session({.screens = {kDemoScreen}, .accessibility = true})
    , m_slide(m_session, kDemoScreen)
    , m_program(m_session, {{"QT_SCALE_FACTOR", QString::number(scale)}})
{
}

bool Presenter::begin()
{
    if (!m_slide.present() || !m_program.waitUntilReady())
        return false;
    m_toolbar.emplace(m_session, m_program, m_scale);
    return true;
}

bool Presenter::choose(const QString &button, int index)
{
    return m_toolbar->click(button, index);
}

bool Presenter::take(const QString &tool, int color, int width)
{
    // The toolbar handles its clicks in order, but the canvas is independent of that order.
    return choose(tool) && choose(button::kColor, color) && choose(button::kWidth, width) &&
           eventually([&] { return m_toolbar->isOn(button::kWidth, width); }) && isDrawing();
}

bool Presenter::drawWith(const QString &tool, int color, int width, const QList<QPoint> &points)
{
    return take(tool, color, width) && draw(points);
}

bool Presenter::drawWithShift(const QList<QPoint> &points)
{
    m_session.keyboard().press(Key::Shift);
    const bool isDrawn = draw(points);
    m_session.keyboard().release(Key::Shift);
    return isDrawn;
}

bool Presenter::write(QPoint place, QPoint inField, const QString &text)
{
    const QColor paper = pixel(inField);
    if (!m_session.pointer().clickAt(place) || !eventually([&] { return pixel(inField) != paper; }))
        return false;
    m_session.keyboard().type(text);
    m_session.keyboard().tap(Key::Return);
    return eventually([&] { return pixel(inField) == paper; });
}

bool Presenter::isDrawing()
{
    return eventually([&] { return !m_slide.hasFocus(); });
}

bool Presenter::endWith(Key key)
{
    m_session.keyboard().tap(key);
    return eventually([&] {
        return m_slide.hasFocus() && count(kDemoSlide, kInks[Orange]) == 0 && !isDark({1900, 20});
    });
}

bool Presenter::shows(const char *file, const char *what, const std::function<bool()> &condition,
                      const QRect &part)
{
    const bool isShown = eventually(condition);
    return keep(m_session.screenshot(), file, what, isShown, part) && isShown;
}

bool Presenter::keep(const Screenshot &picture, const char *file, const char *what, bool isRight,
                     const QRect &part)
{
    const QString path = m_folder.filePath(QString::fromLatin1(file));
    if (!picture.image().copy(part & picture.rect()).save(path))
        return false;
    std::printf("  %s  %s%s\n", qPrintable(path), isRight ? "" : "should show ", what);
    std::fflush(stdout);
    return true;
}

} // namespace zeigewerk::rig
