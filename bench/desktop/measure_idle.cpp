#include "instruments.h"
#include "measures.h"

namespace zeigewerk::bench {

namespace {

void addMemory(Results &results, const QString &when, const rig::Memory &memory, const Bars &resident = {})
{
    const QString unit = QStringLiteral("MiB");
    results.add(when + QStringLiteral(": resident"), memory.resident, unit, resident);
    results.add(when + QStringLiteral(": proportional"), memory.proportional, unit);
    results.add(when + QStringLiteral(": private"), memory.privateOnly, unit);
    results.add(when + QStringLiteral(": shared memory"), memory.shared, unit);
}

rig::Memory memoryOfEmptyWindow(rig::DesktopSession &session)
{
    const rig::ChildProcess window(
        {.program = QStringLiteral(BENCH_EMPTY_WINDOW), .environment = session.environment()});
    const auto isShown = [&] {
        const auto windows = session.client().windowsOfProcess(window.processId());
        return std::any_of(windows.begin(), windows.end(), [](const auto &info) { return info.viewable; });
    };
    if (!rig::eventually(isShown))
        throw rig::RigError("the empty window does not appear");
    awaitIdle(session, window.processId());
    return rig::memoryOf(window.processId());
}

void measureWakeups(Results &results, rig::DesktopSession &session, qint64 processId)
{
    constexpr int kTenSeconds = 10'000;
    awaitIdle(session, processId);
    const int before = rig::wakeups(processId);
    QTest::qSleep(kTenSeconds);
    results.add(QStringLiteral("wakeups in 10 s, all modes off"), rig::wakeups(processId) - before, QString(),
                {0.0, {}});
}

} // namespace

void measureIdle(Results &results)
{
    results.heading(QStringLiteral("Memory and idle"));
    rig::Presentation show(benchSetup());
    const qint64 processId = show.program.processId();
    awaitIdle(show.session, processId);
    const rig::Memory idle = rig::memoryOf(processId);
    addMemory(results, QStringLiteral("idle"), idle);
    const rig::Memory empty = memoryOfEmptyWindow(show.session);
    results.add(QStringLiteral("empty Qt window: private and shared memory"), empty.footprint(),
                QStringLiteral("MiB"));
    results.add(QStringLiteral("idle: private and shared memory above that"),
                idle.footprint() - empty.footprint(), QStringLiteral("MiB"), {20.0, {}});
    measureWakeups(results, show.session, processId);

    Mouse mouse(show.session.client());
    const Path path = penPath(kScreen);
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.hasKeyboard(); }))
        throw rig::RigError("drawing does not start");
    mouse.moveTo(path(0));
    mouse.press();
    constexpr int kSamples = 4000;
    mouse.follow(path, 1, kSamples, 1000.0);
    awaitIdle(show.session, processId);
    addMemory(results, QStringLiteral("drawing"), rig::memoryOf(processId), {65.0, 50.0});
    mouse.release();
    show.hotKey(rig::Key::C);
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.overlays().isEmpty(); }))
        throw rig::RigError("the overlay does not close");
    awaitIdle(show.session, processId);
    addMemory(results, QStringLiteral("cleared and hidden"), rig::memoryOf(processId));
    measureWakeups(results, show.session, processId);
}

} // namespace zeigewerk::bench
