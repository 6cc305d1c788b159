#include "soak.h"

#include "program_windows.h"
#include "toolbar_user.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace zeigewerk::rig {

namespace {

using namespace std::chrono_literals;

constexpr double kFramesPerSecond = 60.0;
constexpr int kFramesPerStroke = 100;
constexpr double kMaxChange = 0.01;
/// In MiB. The allocator requests and returns memory in steps of 128 KiB or more; this is two of them.
constexpr double kHeapGranularity = 0.25;
/// Free of the toolbar.
const QRect kPathArea(50, 50, 1600, 980);
const std::array kTools = {button::kPen,   button::kHighlighter, button::kLine,
                           button::kArrow, button::kRectangle,   button::kEllipse};
const QStringList kModes = {label::kClicks, label::kRing, label::kFade, label::kSpot, label::kDraw};

struct Value
{
    const char *name;
    double Memory::*member;
    bool isJudged;
    /// A change by this many MiB does not count, however small the value is.
    double granularity = 0.0;
};
// A table, one row per line:
// clang-format off
constexpr Value kValues[] = {
    {.name = "proportional", .member = &Memory::proportional, .isJudged = false},
    {.name = "proportional, without files", .member = &Memory::proportionalWithoutFiles, .isJudged = true,
     .granularity = kHeapGranularity},
    {.name = "private", .member = &Memory::privateOnly, .isJudged = false},
    {.name = "resident", .member = &Memory::resident, .isJudged = true},
};
// clang-format on

double medianOf(const std::vector<Memory> &samples, double Memory::*value)
{
    std::vector<double> values;
    std::transform(samples.begin(), samples.end(), std::back_inserter(values),
                   [&](const Memory &sample) { return sample.*value; });
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Memory medianOf(const std::vector<Memory> &samples)
{
    Memory median;
    for (const Value &value : kValues)
        median.*value.member = medianOf(samples, value.member);
    return median;
}

/// The same path all over the area in each round.
QPoint pathPoint(int frame)
{
    return kPathArea.center() + QPoint(qRound(0.48 * kPathArea.width() * std::sin(frame / 31.0)),
                                       qRound(0.48 * kPathArea.height() * std::cos(frame / 23.0)));
}

} // namespace

Soak::Soak(std::chrono::minutes duration)
    : m_duration(duration)
    , m_beneath(m_session, VirtualDisplay::kFullHd, QColor(0x20, 0x60, 0xA0))
    , m_input(m_session.client())
    , m_desktop(m_session)
    , m_program(m_session)
{
    if (!m_beneath.takeFocus() || !m_program.waitUntilReady())
        failRig(QStringLiteral("the program does not start"));
    locateButtons();
}

void Soak::locateButtons()
{
    // On a separate desktop: no screen reader may run where memory is measured.
    DesktopSession session({.accessibility = true});
    const WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::white);
    const Program program(session);
    ToolbarUser toolbar(session, program);
    const QPoint corner = toolbar.window().geometry.topLeft();
    for (const AccessibleButton &each : toolbar.buttons())
        m_buttons.insert(each.name, each.extents.center() - corner);
}

void Soak::switchEverythingOn()
{
    TrayHost &tray = m_desktop.tray().host;
    QList<TrayItem> items;
    if (!eventually([&] { return (items = tray.items()).size() == 1; }))
        failRig(QStringLiteral("the program is not in the tray"));
    const auto entry = [&](const QString &label) {
        const QList<TrayMenuItem> menu = tray.menu(items.first());
        const auto found = std::find_if(menu.begin(), menu.end(),
                                        [&](const TrayMenuItem &item) { return item.label == label; });
        return found == menu.end() ? TrayMenuItem() : *found;
    };
    for (const QString &mode : kModes) {
        tray.click(items.first(), entry(mode).id);
        if (!eventually([&] { return entry(mode).isChecked(); }))
            failRig(QStringLiteral("%1 cannot be turned on").arg(mode));
    }
}

bool Soak::run()
{
    switchEverythingOn();
    const QDeadlineTimer deadline(m_duration);
    m_clock.start();
    while (!deadline.hasExpired()) {
        playRound();
        if (!m_program.isRunning())
            failRig(QStringLiteral("the program has ended:\n") + QString::fromUtf8(m_program.output()));
        m_rounds.push_back(medianOf(m_samples));
        m_samples.clear();
    }
    return isMemoryFlat();
}

void Soak::playRound()
{
    for (int stroke = 0; stroke < static_cast<int>(kTools.size()); ++stroke) {
        draw(stroke);
        sample();
    }
    typeText();
    sample();
    clickAround();
    sample();
    switchModes();
    sample();
}

void Soak::draw(int stroke)
{
    pickTool(kTools[static_cast<std::size_t>(stroke)]);
    const int first = stroke * kFramesPerStroke;
    moveTo(pathPoint(first));
    m_input.press(Pointer::Left);
    for (int frame = first; frame < first + kFramesPerStroke; ++frame)
        moveTo(pathPoint(frame));
    m_input.release(Pointer::Left);
    m_input.click(stroke % 2 == 0 ? Pointer::WheelUp : Pointer::WheelDown);
}

void Soak::typeText()
{
    pickTool(button::kText);
    moveTo(kPathArea.center());
    m_input.click(Pointer::Left);
    nextFrame();
    for (const Key key : {Key::Z, Key::E, Key::I, Key::G, Key::T}) {
        m_input.tap(key);
        nextFrame();
    }
    m_input.tap(Key::Return);
    for (int i = 0; i < 3; ++i) {
        nextFrame();
        m_input.chord({Key::Ctrl}, Key::Z);
    }
    pickTool(button::kPen);
}

void Soak::clickAround()
{
    for (int frame = 0; frame < kFramesPerStroke; ++frame) {
        moveTo(pathPoint(7 * frame));
        if (frame % 5 == 0)
            m_input.click(Pointer::Left);
    }
}

void Soak::switchModes()
{
    // Off, pinned and on the whiteboard; then everything is turned on again.
    for (const Key key : {Key::P, Key::P, Key::W, Key::W, Key::D}) {
        hotKey(key);
        clickAround();
    }
    for (const Key key : {Key::S, Key::S, Key::D})
        hotKey(key);
}

void Soak::pickTool(const QString &tool)
{
    const auto toolbar = toolbarOf(m_session, m_program);
    if (!toolbar || !m_buttons.contains(tool))
        failRig(QStringLiteral("no button for %1").arg(tool));
    moveTo(toolbar->geometry.topLeft() + m_buttons.value(tool));
    m_input.click(Pointer::Left);
    nextFrame();
}

void Soak::hotKey(Key key)
{
    m_input.chord({Key::Ctrl, Key::Alt}, key);
    for (int i = 0; i < 10; ++i)
        nextFrame();
}

void Soak::moveTo(QPoint place)
{
    m_input.moveTo(place);
    nextFrame();
}

void Soak::nextFrame()
{
    // By absolute time, so that late frames are caught up.
    ++m_frames;
    const auto due = static_cast<qint64>(1000.0 * static_cast<double>(m_frames) / kFramesPerSecond);
    if (const qint64 remaining = due - m_clock.elapsed(); remaining > 0)
        QTest::qWait(static_cast<int>(remaining));
}

void Soak::sample()
{
    m_samples.push_back(memoryOf(m_program.processId()));
}

void Soak::printHistory() const
{
    constexpr std::size_t kLines = 10;
    std::printf("  after round   proportional   without files   private\n");
    for (std::size_t line = 1; line <= kLines; ++line) {
        const std::size_t round = qMax(std::size_t{1}, m_rounds.size() * line / kLines);
        const Memory &memory = m_rounds[round - 1];
        std::printf("  %11zu   %12.2f   %13.2f   %7.2f\n", round, memory.proportional,
                    memory.proportionalWithoutFiles, memory.privateOnly);
    }
}

bool Soak::isMemoryFlat() const
{
    const std::size_t warmUp = m_rounds.size() / 10 + 1;
    const std::size_t fifth = (m_rounds.size() - qMin(warmUp, m_rounds.size())) / 5;
    if (fifth == 0)
        failRig(QStringLiteral("too short: only %1 rounds").arg(m_rounds.size()));
    const auto begin = m_rounds.begin() + static_cast<std::ptrdiff_t>(warmUp);
    const auto count = static_cast<std::ptrdiff_t>(fifth);
    const Memory first = medianOf(std::vector(begin, begin + count));
    const Memory last = medianOf(std::vector(m_rounds.end() - count, m_rounds.end()));
    std::printf("%zu rounds; medians in MiB of the first and the last %zu, after %zu to warm up\n",
                m_rounds.size(), fifth, warmUp);
    printHistory();
    bool isFlat = true;
    for (const Value &value : kValues) {
        const double before = first.*value.member;
        const double change = last.*value.member / before - 1.0;
        const bool isWithin = std::abs(change) * before <= std::max(kMaxChange * before, value.granularity);
        std::printf("  %-30s %8.2f %8.2f   %+.2f %%   %s\n", value.name, first.*value.member,
                    last.*value.member, 100.0 * change,
                    !value.isJudged ? ""
                    : isWithin      ? "flat"
                                    : "NOT FLAT");
        isFlat = isFlat && (isWithin || !value.isJudged);
    }
    return isFlat;
}

} // namespace zeigewerk::rig
