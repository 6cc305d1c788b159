#include "instruments.h"
#include "measures.h"

namespace zeigewerk::bench {

namespace {

using namespace std::chrono_literals;

/// A place on the toolbar's background, taken from a first start.
QPoint placeOnToolbar(rig::DesktopSession &session)
{
    const rig::Program program(session);
    std::optional<rig::WindowInfo> toolbar;
    const bool found = rig::eventually(
        [&] {
            for (const rig::WindowInfo &window : session.client().windowsOfProcess(program.processId())) {
                const bool isDock = window.geometry.height() >= rig::kToolbar.height() &&
                                    window.geometry.width() < rig::kSmallestScreenWidth;
                if (isDock && window.viewable)
                    toolbar = window;
            }
            return toolbar.has_value();
        },
        10s);
    if (!found)
        throw rig::RigError("the toolbar does not appear");
    return toolbar->geometry.center();
}

} // namespace

void measureStart(Results &results)
{
    results.heading(QStringLiteral("Start"));
    constexpr int kStarts = 20;
    rig::DesktopSession session(benchSetup());
    const QPoint place = placeOnToolbar(session);
    std::vector<double> times;
    for (int i = 0; i < kStarts; ++i) {
        PixelWatch watch(session.client(), place);
        const auto start = std::chrono::steady_clock::now();
        rig::Program program(session);
        times.push_back(watch.untilChanged(start).count());
        if (!program.waitUntilReady() || program.terminate() != 0)
            throw rig::RigError("the program does not start and end correctly");
        awaitIdle(session, session.display().serverProcessId());
    }
    results.add(QStringLiteral("start to toolbar on screen, median"), percentile(times, 0.5),
                QStringLiteral("ms"), {80.0, 50.0});
    results.add(QStringLiteral("start to toolbar on screen, slowest of 20"), percentile(times, 1.0),
                QStringLiteral("ms"));
}

} // namespace zeigewerk::bench
