#include "instruments.h"
#include "measures.h"
#include "settings_file.h"

namespace zeigewerk::bench {

namespace {

using namespace std::chrono_literals;

constexpr int kSeconds = 10;

double shareOfCore(Milliseconds spent)
{
    return 100.0 * (spent / Milliseconds(std::chrono::seconds(kSeconds)));
}

/// The spotlight follows a mouse with that many samples per second for ten seconds.
void measureSpotlight(Results &results, double rate, const Bars &bars)
{
    rig::Presentation show(benchSetup());
    Mouse mouse(show.session.client());
    const Path path = penPath(kScreen);
    mouse.moveTo(path(0));
    awaitIdle(show.session, show.program.processId());
    PixelWatch watch(show.session.client(), {kScreen.width() - 2, kScreen.height() - 2});
    show.hotKey(rig::Key::S);
    watch.untilChanged(std::chrono::steady_clock::now());

    const Costs before = Costs::of(show.session, show.program.processId());
    // The same distance in the same time at any rate, in steps of matching size.
    const Path sameDistance = [&](int sample) { return path(static_cast<int>(sample * 1000.0 / rate)); };
    mouse.follow(sameDistance, 1, static_cast<int>(kSeconds * rate), rate);
    const Costs spent = Costs::of(show.session, show.program.processId()) - before;
    const QString what = QStringLiteral("spotlight, %1 Hz mouse: ").arg(rate);
    results.add(what + QStringLiteral("program"), shareOfCore(spent.program), QStringLiteral("%"), bars);
    results.add(what + QStringLiteral("X server"), shareOfCore(spent.server), QStringLiteral("%"));
    results.add(what + QStringLiteral("compositor"), shareOfCore(spent.compositor), QStringLiteral("%"));
}

void measureFade(Results &results)
{
    constexpr int kShapes = 100;
    rig::DesktopSession session(benchSetup());
    if (!rig::SettingsFile(session).write("ZeigewerkAutoFade=true\n"))
        throw rig::RigError("cannot write the settings");
    rig::WindowBeneath beneath(session, QRect(QPoint(0, 0), kScreen), QColor(0x20, 0x60, 0xA0));
    rig::Program program(session);
    if (!beneath.takeFocus() || !program.waitUntilReady())
        throw rig::RigError("the program does not start");
    session.keyboard().chord({rig::Key::Ctrl, rig::Key::Alt}, rig::Key::D);
    if (!rig::eventually(
            [&] { return session.client().isOfProcess(session.client().inputFocus(), program.processId()); }))
        throw rig::RigError("drawing does not start");

    Mouse mouse(session.client());
    const Path path = penPath(kScreen);
    const Costs before = Costs::of(session, program.processId());
    for (int shape = 0; shape < kShapes; ++shape)
        mouse.scribble(path(100 * shape));
    const Costs drawn = Costs::of(session, program.processId());
    awaitIdle(session, program.processId());
    const Costs spent = Costs::of(session, program.processId()) - drawn;
    results.add(QStringLiteral("drawing 100 shapes: program"), (drawn - before).program.count(),
                QStringLiteral("ms"));
    results.add(QStringLiteral("until all 100 have faded: program"), spent.program.count(),
                QStringLiteral("ms"));
    results.add(QStringLiteral("until all 100 have faded: X server"), spent.server.count(),
                QStringLiteral("ms"));
}

} // namespace

void measureEffects(Results &results)
{
    results.heading(QStringLiteral("Effects"));
    measureSpotlight(results, 60.0, {2.0, 1.0});
    measureSpotlight(results, 1000.0, {});
    measureFade(results);
}

} // namespace zeigewerk::bench
