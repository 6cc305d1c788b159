// What the monkey does with the mouse.

#include "actions.h"
#include "program_windows.h"
#include "text_of.h"

#include <array>

namespace zeigewerk::rig {

namespace {

/// The left one most often; the last two are those of a thumb.
constexpr std::array kButtons = {1, 1, 1, 1, 2, 3, 3, 8, 9};
constexpr std::array kWheel = {4, 5, 4, 5, 6, 7};
/// In the toolbar's lower right corner, shadow included: the button that quits.
constexpr QSize kCornerOfQuit(60, 60);

QString move(Playground &on, RandomChoice &chance)
{
    const QPoint place = chance.in(on.furniture.desktop());
    on.paw.moveTo(place);
    return textOf(place);
}

QString click(Playground &on, RandomChoice &chance)
{
    const QPoint place = chance.in(on.furniture.desktop());
    const int button = chance.of(kButtons);
    const int times = chance.oneIn(5) ? 3 : 1;
    on.paw.moveTo(place);
    for (int i = 0; i < times; ++i)
        on.paw.click(button);
    return QStringLiteral("%1, button %2, %3 times").arg(textOf(place)).arg(button).arg(times);
}

QString press(Playground &on, RandomChoice &chance)
{
    const int button = chance.of(kButtons);
    on.paw.press(button);
    return QStringLiteral("button %1").arg(button);
}

QString releaseAny(Playground &on, RandomChoice &chance)
{
    const int button = chance.of(kButtons);
    on.paw.release(button);
    return QStringLiteral("button %1").arg(button);
}

QString releaseButtons(Playground &on, RandomChoice &)
{
    const QSet<int> held = on.paw.heldButtons();
    for (const int button : held)
        on.paw.release(button);
    return QStringLiteral("%1 buttons").arg(held.size());
}

/// A stroke, at times with Shift, and with other buttons that go down and up in it.
QString drag(Playground &on, RandomChoice &chance)
{
    QPoint place = chance.in(on.furniture.desktop());
    const bool constrained = chance.oneIn(4);
    const int samples = 2 + chance.below(30);
    on.paw.moveTo(place);
    on.paw.press(1);
    if (constrained)
        on.paw.press(Key::Shift);
    for (int i = 0; i < samples; ++i) {
        place += QPoint(chance.below(81) - 40, chance.below(81) - 40);
        on.paw.moveTo(place);
        if (chance.oneIn(20))
            on.paw.click(chance.of(kButtons));
    }
    if (constrained)
        on.paw.release(Key::Shift);
    on.paw.release(1);
    return QStringLiteral("%1 samples to %2").arg(samples).arg(textOf(place));
}

QString wheel(Playground &on, RandomChoice &chance)
{
    const int steps = 1 + chance.below(6);
    for (int i = 0; i < steps; ++i)
        on.paw.click(chance.of(kWheel));
    return QStringLiteral("%1 steps").arg(steps);
}

QString wheelWithAlt(Playground &on, RandomChoice &chance)
{
    on.paw.press(Key::Alt);
    QString what = wheel(on, chance);
    on.paw.release(Key::Alt);
    return what;
}

QString useToolbar(Playground &on, RandomChoice &chance)
{
    const auto toolbar = toolbarOf(on.session, on.program);
    if (!toolbar)
        return QStringLiteral("nothing, as it is hidden");
    const QPoint place = chance.in(toolbar->geometry);
    const QPoint fromCorner = toolbar->geometry.bottomRight() - place;
    // Not that often: each end costs a start.
    if (fromCorner.x() < kCornerOfQuit.width() && fromCorner.y() < kCornerOfQuit.height() && !chance.oneIn(4))
        return QStringLiteral("thinks better of quitting");
    on.paw.moveTo(place);
    on.paw.click(chance.oneIn(10) ? 3 : 1);
    return textOf(place);
}

QString dragToolbar(Playground &on, RandomChoice &chance)
{
    const auto toolbar = toolbarOf(on.session, on.program);
    if (!toolbar)
        return QStringLiteral("nothing, as it is hidden");
    constexpr int kSteps = 5;
    const QPoint from = chance.in(toolbar->geometry);
    const QPoint to = chance.in(on.furniture.desktop());
    on.paw.moveTo(from);
    on.paw.press(1);
    for (int step = 1; step <= kSteps; ++step)
        on.paw.moveTo(from + (to - from) * step / kSteps);
    // At times it is still held when something else happens.
    if (!chance.oneIn(5))
        on.paw.release(1);
    return QStringLiteral("%1 to %2").arg(textOf(from), textOf(to));
}

} // namespace

std::vector<Action> pointerActions()
{
    return {{"move", 80, move},
            {"click", 80, click},
            {"press", 30, press},
            {"release", 20, releaseAny},
            {"release all buttons", 40, releaseButtons},
            {"drag", 120, drag},
            {"wheel", 40, wheel},
            {"wheel with Alt", 30, wheelWithAlt},
            {"toolbar", 90, useToolbar},
            {"drag the toolbar", 15, dragToolbar}};
}

} // namespace zeigewerk::rig
