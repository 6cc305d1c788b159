#include "measures.h"
#include "stage.h"

#include <QFile>

namespace zeigewerk::bench {

namespace {

constexpr double kKiBPerMiB = 1024.0;

/// In MiB.
struct Memory
{
    double resident = 0.0;
    double proportional = 0.0;
    double privateOnly = 0.0;
    /// Shared anonymous memory, as frame buffers shared with the server are.
    double shared = 0.0;

    double footprint() const { return privateOnly + shared; }
};

/// The sum of the lines "Name:  123 kB" with one of these names, in MiB.
double sumOf(const QString &path, const QList<QByteArray> &names)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        throw rig::RigError("the process is gone");
    double sum = 0.0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (names.contains(words.value(0)))
            sum += words.value(1).toDouble();
    }
    return sum / kKiBPerMiB;
}

Memory memoryOf(qint64 processId)
{
    const QString folder = QStringLiteral("/proc/%1/").arg(processId);
    const QString maps = folder + QStringLiteral("smaps_rollup");
    return {sumOf(maps, {"Rss:"}), sumOf(maps, {"Pss:"}), sumOf(maps, {"Private_Clean:", "Private_Dirty:"}),
            sumOf(folder + QStringLiteral("status"), {"RssShmem:"})};
}

void addMemory(Results &results, const QString &when, const Memory &memory, const Bars &resident = {})
{
    const QString unit = QStringLiteral("MiB");
    results.add(when + QStringLiteral(": resident"), memory.resident, unit, resident);
    results.add(when + QStringLiteral(": proportional"), memory.proportional, unit);
    results.add(when + QStringLiteral(": private"), memory.privateOnly, unit);
    results.add(when + QStringLiteral(": shared memory"), memory.shared, unit);
}

Memory memoryOfEmptyWindow(rig::DesktopSession &session)
{
    const rig::ChildProcess window(
        {.program = QStringLiteral(BENCH_EMPTY_WINDOW), .environment = session.environment()});
    const auto isShown = [&] {
        const auto windows = session.client().windowsOfProcess(window.processId());
        return std::any_of(windows.begin(), windows.end(), [](const auto &info) { return info.viewable; });
    };
    if (!rig::eventually(isShown))
        throw rig::RigError("no empty window");
    awaitRest(session, window.processId());
    return memoryOf(window.processId());
}

void measureWakeups(Results &results, rig::DesktopSession &session, qint64 processId)
{
    constexpr int kTenSeconds = 10'000;
    awaitRest(session, processId);
    const int before = rig::wakeups(processId);
    QTest::qSleep(kTenSeconds);
    results.add(QStringLiteral("wakeups in 10 s, all modes off"), rig::wakeups(processId) - before, QString(),
                {0.0, {}});
}

} // namespace

void measureIdle(Results &results)
{
    results.heading(QStringLiteral("Memory and idle"));
    rig::Presentation show(stageSetup());
    const qint64 processId = show.program.processId();
    awaitRest(show.session, processId);
    const Memory idle = memoryOf(processId);
    addMemory(results, QStringLiteral("idle"), idle);
    const Memory empty = memoryOfEmptyWindow(show.session);
    results.add(QStringLiteral("empty Qt window: private and shared memory"), empty.footprint(),
                QStringLiteral("MiB"));
    results.add(QStringLiteral("idle: private and shared memory above that"),
                idle.footprint() - empty.footprint(), QStringLiteral("MiB"), {20.0, {}});
    measureWakeups(results, show.session, processId);

    Hand hand(show.session.client());
    const Path path = wander(kScreen);
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.hasKeyboard(); }))
        throw rig::RigError("drawing does not begin");
    hand.moveTo(path(0));
    hand.press();
    constexpr int kSamples = 4000;
    hand.follow(path, 1, kSamples, 1000.0);
    awaitRest(show.session, processId);
    addMemory(results, QStringLiteral("drawing"), memoryOf(processId), {65.0, 50.0});
    hand.release();
    show.hotKey(rig::Key::C);
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.overlays().isEmpty(); }))
        throw rig::RigError("the overlay stays");
    awaitRest(show.session, processId);
    addMemory(results, QStringLiteral("cleared and hidden"), memoryOf(processId));
    measureWakeups(results, show.session, processId);
}

} // namespace zeigewerk::bench
