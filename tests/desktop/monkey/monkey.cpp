#include "monkey.h"

#include <cstdio>

namespace zeigewerk::rig {

namespace {

using namespace std::chrono_literals;

/// Often enough that the server's queue for the program stays short.
constexpr int kActionsPerPing = 50;
constexpr std::size_t kLogSize = 60;
/// A program with sanitizers starts slowly, and looks through its memory for leaks at its end.
constexpr auto kTimeout = 30s;
/// Once its windows are gone, there is only the look for leaks to wait for.
constexpr auto kExitTimeout = 10s;

const QList<QRect> kTwoScreens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}};

/// What the sanitizers and the program itself wrote. Qt remarks when a tray goes that it was just about to
/// use, and when a window is shown, hidden and shown before the server has told of the first time.
QString messagesOf(Program &program)
{
    QStringList lines = QString::fromUtf8(program.output()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) {
        return line.startsWith(QLatin1String("QDBusTrayIcon encountered")) ||
               line.contains(QLatin1String("setNetWmStateOnUnmappedWindow() called on mapped window"));
    });
    return lines.join(u'\n');
}

/// What a hot key depends on besides the program.
QString describeInputState(DesktopSession &session)
{
    Client &client = session.client();
    const auto cookie = xcb_query_pointer(client.connection(), client.root());
    const auto pointer = owned(xcb_query_pointer_reply(client.connection(), cookie, nullptr));
    return QStringLiteral("Modifiers and buttons 0x%1, the keyboard is with 0x%2")
               .arg(pointer ? pointer->mask : 0, 0, 16)
               .arg(client.inputFocus(), 0, 16) +
           (session.hasWindowManager() ? QString() : QStringLiteral("; there is no window manager"));
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
        failRig(QStringLiteral("no action has such a name"));
    startProgram();
}

void Monkey::startProgram()
{
    m_program = std::make_unique<Program>(m_session);
    if (!m_program->waitUntilReady(kTimeout)) {
        std::fputs(m_program->output().constData(), stderr);
        throw RigError("the program does not start");
    }
    // Qt decides at its first icon which kind of tray there is, and stays with that. Without this a tray
    // that goes at that very moment is missed for good.
    eventually([&] { return m_controls.isInTray(); });
}

bool Monkey::run()
{
    bool passed = false;
    try {
        passed = runActions();
    } catch (const RigError &error) {
        report({QStringLiteral("the desktop itself is broken: ") + QString::fromUtf8(error.what())});
    }
    std::printf("%s; it quit the program %d times. The window manager ended by itself %d times.\n",
                passed ? "The program stood it" : "FAILED", m_quits, m_windowManagerExits);
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
    const Action &action = m_actionSet.any(random);
    m_log.push_back(QStringLiteral("%1 %2").arg(number, 6).arg(QLatin1String(action.name)));
    if (m_log.size() > kLogSize)
        m_log.pop_front();
    ActionContext context{m_session, *m_program, m_input, m_otherWindows, m_desktop};
    const QString how = action.perform(context, random);
    if (!how.isEmpty())
        m_log.back() += QStringLiteral(": ") + how;
    const bool isChecked = number % kActionsPerPing == 0;
    if (isChecked)
        reviveWindowManager(number);
    if (isChecked && !respondsOrExits())
        return passes({QStringLiteral("it does not answer")});
    return m_program->isRunning() || handleExit(number);
}

void Monkey::reviveWindowManager(int number)
{
    if (m_session.windowManagerProcessId() == 0 || m_session.hasWindowManager())
        return;
    // A window manager that does not stand all this is none of the program's faults; that the program goes on
    // without is its duty.
    ++m_windowManagerExits;
    std::printf("%6d the window manager has ended by itself; it wrote: %s\n", number,
                m_session.windowManagerOutput().trimmed().constData());
    m_session.restartWindowManager();
    m_log.push_back(QStringLiteral("%1 the window manager has ended by itself").arg(number, 6));
}

bool Monkey::respondsOrExits()
{
    // What was done last may have been to quit: then its windows go before it does.
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
    // It can quit by the toolbar, the tray and the menus; the only other way to such an end is a signal.
    ++m_quits;
    m_log.push_back(QStringLiteral("%1 the program has ended").arg(number, 6));
    reviveWindowManager(number);
    releaseAll();
    if (!passes(complaintsAboutExit(m_program->waitForExit())))
        return false;
    startProgram();
    return true;
}

void Monkey::releaseAll()
{
    m_input.releaseAll();
    m_otherWindows.closeAll();
    // The server hands out the ids of windows again, and a window manager that has yet to hear that they are
    // gone takes the next windows for these.
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
    m_log.push_back(QStringLiteral("%1 everything is let go").arg(number, 6));
    reviveWindowManager(number);
    // A menu that the last action asks for is to be open before menus are closed.
    QStringList complaints;
    if (!respondsOrExits())
        complaints += QStringLiteral("it does not answer to the last action");
    releaseAll();
    if (!respondsOrExits())
        complaints += QStringLiteral("it does not answer");
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
    m_log.push_back(QStringLiteral("%1 the program is to end, by %2")
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
        complaints += QStringLiteral("it did not end, or a signal ended it");
    else if (*exitCode != 0)
        complaints += QStringLiteral("it ended with %1").arg(*exitCode);
    const QString output = messagesOf(*m_program);
    if (!output.isEmpty())
        complaints += QStringLiteral("it wrote:\n") + output;
    if (!m_program->isRunning())
        complaints += m_inspection.inspectDesktopWithoutProgram();
    return complaints;
}

void Monkey::report(const QStringList &complaints)
{
    saveFailurePictures();
    std::fprintf(stderr, "With the seed %u, after\n", m_options.seed);
    for (const QString &done : m_log)
        std::fprintf(stderr, "    %s\n", qPrintable(done));
    for (const QString &complaint : complaints)
        std::fprintf(stderr, "WRONG: %s\n", qPrintable(complaint));
    std::fprintf(stderr, "%s\n", qPrintable(describeInputState(m_session)));
    if (const QByteArray words = m_session.windowManagerOutput(); !words.isEmpty())
        std::fprintf(stderr, "The window manager wrote: \"%s\"\n", words.trimmed().constData());
    if (m_program->isRunning())
        std::fprintf(stderr, "The program wrote so far: \"%s\"\n", m_program->output().constData());
}

} // namespace zeigewerk::rig
