// The monkey's actions with the mouse.

#include "actions.h"
#include "program_windows.h"
#include "text_of.h"

#include <array>

namespace zeigewerk::rig {

namespace {

/// Mostly the left one; the last two are thumb buttons.
constexpr std::array kButtons = {1, 1, 1, 1, 2, 3, 3, 8, 9};
constexpr std::array kWheel = {4, 5, 4, 5, 6, 7};
/// The Quit button is in the toolbar's lower right corner, shadow included.
constexpr QSize kQuitCorner(60, 60);

QString move(ActionContext &context, RandomChoice &random)
{
    const QPoint place = random.in(context.desktop.bounds());
    context.input.moveTo(place);
    return textOf(place);
}

QString click(ActionContext &context, RandomChoice &random)
{
    const QPoint place = random.in(context.desktop.bounds());
    const int button = random.of(kButtons);
    const int times = random.oneIn(5) ? 3 : 1;
    context.input.moveTo(place);
    for (int i = 0; i < times; ++i)
        context.input.click(button);
    return QStringLiteral("%1, button %2, %3 times").arg(textOf(place)).arg(button).arg(times);
}

QString press(ActionContext &context, RandomChoice &random)
{
    const int button = random.of(kButtons);
    context.input.press(button);
    return QStringLiteral("button %1").arg(button);
}

QString releaseAny(ActionContext &context, RandomChoice &random)
{
    const int button = random.of(kButtons);
    context.input.release(button);
    return QStringLiteral("button %1").arg(button);
}

QString releaseButtons(ActionContext &context, RandomChoice &)
{
    const QSet<int> held = context.input.heldButtons();
    for (const int button : held)
        context.input.release(button);
    return QStringLiteral("%1 buttons").arg(held.size());
}

/// A stroke, sometimes with Shift, and sometimes with clicks of other buttons during it.
QString drag(ActionContext &context, RandomChoice &random)
{
    QPoint place = random.in(context.desktop.bounds());
    const bool constrained = random.oneIn(4);
    const int samples = 2 + random.below(30);
    context.input.moveTo(place);
    context.input.press(1);
    if (constrained)
        context.input.press(Key::Shift);
    for (int i = 0; i < samples; ++i) {
        place += QPoint(random.below(81) - 40, random.below(81) - 40);
        context.input.moveTo(place);
        if (random.oneIn(20))
            context.input.click(random.of(kButtons));
    }
    if (constrained)
        context.input.release(Key::Shift);
    context.input.release(1);
    return QStringLiteral("%1 samples to %2").arg(samples).arg(textOf(place));
}

QString wheel(ActionContext &context, RandomChoice &random)
{
    const int steps = 1 + random.below(6);
    for (int i = 0; i < steps; ++i)
        context.input.click(random.of(kWheel));
    return QStringLiteral("%1 steps").arg(steps);
}

QString wheelWithAlt(ActionContext &context, RandomChoice &random)
{
    context.input.press(Key::Alt);
    QString what = wheel(context, random);
    context.input.release(Key::Alt);
    return what;
}

QString useToolbar(ActionContext &context, RandomChoice &random)
{
    const auto toolbar = toolbarOf(context.session, context.program);
    if (!toolbar)
        return QStringLiteral("skipped: it is hidden");
    const QPoint place = random.in(toolbar->geometry);
    const QPoint fromCorner = toolbar->geometry.bottomRight() - place;
    // Rarely, because every exit costs a start.
    if (fromCorner.x() < kQuitCorner.width() && fromCorner.y() < kQuitCorner.height() && !random.oneIn(4))
        return QStringLiteral("skipped: the Quit button");
    context.input.moveTo(place);
    context.input.click(random.oneIn(10) ? 3 : 1);
    return textOf(place);
}

QString dragToolbar(ActionContext &context, RandomChoice &random)
{
    const auto toolbar = toolbarOf(context.session, context.program);
    if (!toolbar)
        return QStringLiteral("skipped: it is hidden");
    constexpr int kSteps = 5;
    const QPoint from = random.in(toolbar->geometry);
    const QPoint to = random.in(context.desktop.bounds());
    context.input.moveTo(from);
    context.input.press(1);
    for (int step = 1; step <= kSteps; ++step)
        context.input.moveTo(from + (to - from) * step / kSteps);
    // Sometimes the button is still pressed during later actions.
    if (!random.oneIn(5))
        context.input.release(1);
    return QStringLiteral("%1 to %2").arg(textOf(from), textOf(to));
}

} // namespace

std::vector<Action> pointerActions()
{
    // A table, one row per line:
    // clang-format off
    return {
        {"move",                80,  move},
        {"click",               80,  click},
        {"press",               30,  press},
        {"release",             20,  releaseAny},
        {"release all buttons", 40,  releaseButtons},
        {"drag",                120, drag},
        {"wheel",               40,  wheel},
        {"wheel with Alt",      30,  wheelWithAlt},
        {"use the toolbar",     90,  useToolbar},
        {"drag the toolbar",    15,  dragToolbar},
    };
    // clang-format on
}

} // namespace zeigewerk::rig
