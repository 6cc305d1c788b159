#include "monkey.h"

#include <cstdio>

namespace zeigewerk::rig {

namespace {

using namespace std::chrono_literals;

/// Often enough to keep the server's queue for the program short.
constexpr int kActionsPerPing = 50;
constexpr std::size_t kLogSize = 60;
/// A program with sanitizers starts slowly, and searches for leaks when it ends.
constexpr auto kTimeout = 30s;
/// When its windows are gone, only the leak check remains.
constexpr auto kExitTimeout = 10s;

const QList<QRect> kTwoScreens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}};

/// The output of the sanitizers and of the program, without two harmless warnings of Qt: a tray went away
/// just when Qt wanted to use it, and a window was shown, hidden and shown again before the server's first
/// answer.
QString messagesOf(Program &program)
{
    QStringList lines = QString::fromUtf8(program.output()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) {
        return line.startsWith(QLatin1String("QDBusTrayIcon encountered")) ||
               line.contains(QLatin1String("setNetWmStateOnUnmappedWindow() called on mapped window"));
    });
    return lines.join(u'\n');
}

/// The state that may affect a hot key, for the report of a failure.
QString describeInputState(DesktopSession &session)
{
    Client &client = session.client();
    const auto cookie = xcb_query_pointer(client.connection(), client.root());
    const auto pointer = owned(xcb_query_pointer_reply(client.connection(), cookie, nullptr));
    return QStringLiteral("Modifiers and buttons 0x%1, focused window 0x%2")
               .arg(pointer ? pointer->mask : 0, 0, 16)
               .arg(client.inputFocus(), 0, 16) +
           (session.hasWindowManager() ? QString() : QStringLiteral("; no window manager"));
}

} // namespace

Monkey::Monkey(const MonkeyOptions &options)
    : m_options(options)
    , m_actionSet(options.only)
    , m_session({.screens = kTwoScreens})
    , m_input(m_session.client())
    , m_otherWindows(m_session)
    , m_desktop(m_session)
    , m_controls(m_session, m_desktop)
    , m_inspection(m_session, m_controls)
    , m_ping(m_session)
{
    if (m_actionSet.isEmpty())
        failRig(QStringLiteral("no action matches --only"));
    startProgram();
}

void Monkey::startProgram()
{
    m_program = std::make_unique<Program>(m_session);
    if (!m_program->waitUntilReady(kTimeout)) {
        std::fputs(m_program->output().constData(), stderr);
        throw RigError("the program does not start");
    }
    // Qt decides on the kind of tray when it shows its first icon, and does not change it. If the tray went
    // away at that moment, the icon would never appear.
    eventually([&] { return m_controls.isInTray(); });
}

bool Monkey::run()
{
    bool passed = false;
    try {
        passed = runActions();
    } catch (const RigError &error) {
        report({QStringLiteral("the virtual desktop failed: ") + QString::fromUtf8(error.what())});
    }
    std::printf("%s; quits of the program: %d, crashes of the window manager: %d\n",
                passed ? "PASSED" : "FAILED", m_quits, m_windowManagerExits);
    return passed;
}

bool Monkey::runActions()
{
    int number = 0;
    while (number < m_options.actions && !m_options.deadline.hasExpired()) {
        ++number;
        if (!act(number))
            return false;
        const bool isCheckDue = number % m_options.actionsPerCheck == 0;
        if (isCheckDue && !check(number))
            return false;
        if (isCheckDue) {
            std::printf("%6d actions\n", number);
            std::fflush(stdout);
        }
    }
    return check(number) && endProgram(number);
}

bool Monkey::act(int number)
{
    RandomChoice random(m_options.seed, number);
    const Action &action = m_actionSet.pick(random);
    m_log.push_back(QStringLiteral("%1 %2").arg(number, 6).arg(QLatin1String(action.name)));
    if (m_log.size() > kLogSize)
        m_log.pop_front();
    ActionContext context{m_session, *m_program, m_input, m_otherWindows, m_desktop};
    const QString details = action.perform(context, random);
    if (!details.isEmpty())
        m_log.back() += QStringLiteral(": ") + details;
    const bool isPingDue = number % kActionsPerPing == 0;
    if (isPingDue)
        reviveWindowManager(number);
    if (isPingDue && !respondsOrExits())
        return passes({QStringLiteral("it does not respond")});
    return m_program->isRunning() || handleExit(number);
}

void Monkey::reviveWindowManager(int number)
{
    if (m_session.windowManagerProcessId() == 0 || m_session.hasWindowManager())
        return;
    // A crash of the window manager under this load is not the program's fault, but the program must survive
    // it.
    ++m_windowManagerExits;
    std::printf("%6d the window manager crashed; its output: %s\n", number,
                m_session.windowManagerOutput().trimmed().constData());
    m_session.restartWindowManager();
    m_log.push_back(QStringLiteral("%1 the window manager crashed").arg(number, 6));
}

bool Monkey::respondsOrExits()
{
    // The last action may have been to quit: the windows go away before the process does.
    return m_ping.isResponding(*m_program) ||
           eventually([&] { return !m_program->isRunning(); }, kExitTimeout);
}

bool Monkey::passes(const QStringList &complaints)
{
    if (!complaints.isEmpty())
        report(complaints);
    return complaints.isEmpty();
}

bool Monkey::handleExit(int number)
{
    // The toolbar, the tray and the menus can quit the program; any other exit is by a signal.
    ++m_quits;
    m_log.push_back(QStringLiteral("%1 the program has ended").arg(number, 6));
    reviveWindowManager(number);
    resetDesktop();
    if (!passes(complaintsAboutExit(m_program->waitForExit())))
        return false;
    startProgram();
    return true;
}

void Monkey::resetDesktop()
{
    m_input.releaseAll();
    m_otherWindows.closeAll();
    // The server reuses ids of windows. A window manager that has not yet handled the destruction of the old
    // windows would confuse the new ones with them.
    if (m_session.windowManagerProcessId() != 0)
        m_session.awaitWindowManager();
    m_controls.closeMenus();
    m_desktop.restore();
    for (const Key lock : {Key::CapsLock, Key::NumLock})
        m_session.keyboard().setLock(lock, false);
}

bool Monkey::check(int number)
{
    RandomChoice random(m_options.seed, -number);
    m_log.push_back(QStringLiteral("%1 check").arg(number, 6));
    reviveWindowManager(number);
    // The last action may have opened a menu: it must be open before menus are closed.
    QStringList complaints;
    if (!respondsOrExits())
        complaints += QStringLiteral("it does not respond after the last action");
    resetDesktop();
    if (!respondsOrExits())
        complaints += QStringLiteral("it does not respond");
    if (!m_program->isRunning())
        return handleExit(number) && check(number);
    complaints += m_controls.switchAllOff(random);
    complaints += m_inspection.inspectProgram(*m_program, random);
    return passes(complaints);
}

bool Monkey::endProgram(int number)
{
    RandomChoice random(m_options.seed, -number);
    const bool byMenu = random.oneIn(2);
    m_log.push_back(QStringLiteral("%1 end the program by %2")
                        .arg(number, 6)
                        .arg(byMenu ? QStringLiteral("its menu") : QStringLiteral("SIGTERM")));
    if (!byMenu)
        return passes(complaintsAboutExit(m_program->terminate(kTimeout)));
    m_controls.click(label::kQuit);
    return passes(complaintsAboutExit(m_program->waitForExit(kTimeout)));
}

QStringList Monkey::complaintsAboutExit(std::optional<int> exitCode)
{
    QStringList complaints;
    if (!exitCode)
        complaints += QStringLiteral("it did not end, or was ended by a signal");
    else if (*exitCode != 0)
        complaints += QStringLiteral("it exited with code %1").arg(*exitCode);
    const QString output = messagesOf(*m_program);
    if (!output.isEmpty())
        complaints += QStringLiteral("unexpected output:\n") + output;
    if (!m_program->isRunning())
        complaints += m_inspection.inspectDesktopWithoutProgram();
    return complaints;
}

void Monkey::report(const QStringList &complaints)
{
    saveFailurePictures();
    std::fprintf(stderr, "Seed %u, actions so far:\n", m_options.seed);
    for (const QString &line : m_log)
        std::fprintf(stderr, "    %s\n", qPrintable(line));
    for (const QString &complaint : complaints)
        std::fprintf(stderr, "WRONG: %s\n", qPrintable(complaint));
    std::fprintf(stderr, "%s\n", qPrintable(describeInputState(m_session)));
    if (const QByteArray output = m_session.windowManagerOutput(); !output.isEmpty())
        std::fprintf(stderr, "Output of the window manager: \"%s\"\n", output.trimmed().constData());
    if (m_program->isRunning())
        std::fprintf(stderr, "Output of the program: \"%s\"\n", m_program->output().constData());
}

} // namespace zeigewerk::rig
