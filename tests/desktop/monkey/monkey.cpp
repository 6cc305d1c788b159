#include "monkey.h"

#include <cstdio>

namespace zeigewerk::rig {

namespace {

using namespace std::chrono_literals;

/// Often enough that the server's queue for the program stays short.
constexpr int kActionsToAnswer = 50;
constexpr std::size_t kRemembered = 60;
/// A program with sanitizers starts slowly, and looks through its memory for leaks at its end.
constexpr auto kPatience = 30s;
/// Once its windows are gone, there is only the look for leaks to wait for.
constexpr auto kPatienceWithEnd = 10s;

const QList<QRect> kTwoScreens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}};

/// What the sanitizers and the program itself wrote. Qt remarks when a tray goes that it was just about to
/// use, and when a window is shown, hidden and shown before the server has told of the first time.
QString wordsOf(Program &program)
{
    QStringList lines = QString::fromUtf8(program.output()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) {
        return line.startsWith(QLatin1String("QDBusTrayIcon encountered")) ||
               line.contains(QLatin1String("setNetWmStateOnUnmappedWindow() called on mapped window"));
    });
    return lines.join(u'\n');
}

/// What a hot key depends on besides the program.
QString nameOfInputState(DesktopSession &session)
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

Monkey::Monkey(const MonkeyOrders &orders)
    : m_orders(orders)
    , m_repertoire(orders.only)
    , m_session({.screens = kTwoScreens})
    , m_paw(m_session.client())
    , m_neighbours(m_session)
    , m_furniture(m_session)
    , m_controls(m_session, m_furniture)
    , m_inspection(m_session, m_controls)
    , m_probe(m_session)
{
    if (m_repertoire.isEmpty())
        failRig(QStringLiteral("no action has such a name"));
    startProgram();
}

void Monkey::startProgram()
{
    m_program = std::make_unique<Program>(m_session);
    if (!m_program->waitUntilReady(kPatience)) {
        std::fputs(m_program->output().constData(), stderr);
        throw RigError("the program does not start");
    }
    // Qt decides at its first icon which kind of tray there is, and stays with that. Without this a tray
    // that goes at that very moment is missed for good.
    eventually([&] { return m_controls.isInTray(); });
}

bool Monkey::play()
{
    bool isFine = false;
    try {
        isFine = playOn();
    } catch (const RigError &error) {
        report({QStringLiteral("the desktop itself is broken: ") + QString::fromUtf8(error.what())});
    }
    std::printf("%s; it quit the program %d times. The window manager ended by itself %d times.\n",
                isFine ? "The program stood it" : "FAILED", m_quits, m_deathsOfManager);
    return isFine;
}

bool Monkey::playOn()
{
    int number = 0;
    while (number < m_orders.actions && !m_orders.deadline.hasExpired()) {
        ++number;
        if (!act(number))
            return false;
        const bool isBreak = number % m_orders.actionsToRest == 0;
        if (isBreak && !rest(number))
            return false;
        if (isBreak) {
            std::printf("%6d actions\n", number);
            std::fflush(stdout);
        }
    }
    return rest(number) && end(number);
}

bool Monkey::act(int number)
{
    RandomChoice chance(m_orders.seed, number);
    const Action &action = m_repertoire.any(chance);
    m_done.push_back(QStringLiteral("%1 %2").arg(number, 6).arg(QLatin1String(action.name)));
    if (m_done.size() > kRemembered)
        m_done.pop_front();
    Playground playground{m_session, *m_program, m_paw, m_neighbours, m_furniture};
    const QString how = action.perform(playground, chance);
    if (!how.isEmpty())
        m_done.back() += QStringLiteral(": ") + how;
    const bool isChecked = number % kActionsToAnswer == 0;
    if (isChecked)
        reviveWindowManager(number);
    if (isChecked && !answersOrEnds())
        return isWell({QStringLiteral("it does not answer")});
    return m_program->isRunning() || isEnded(number);
}

void Monkey::reviveWindowManager(int number)
{
    if (m_session.windowManagerProcessId() == 0 || m_session.hasWindowManager())
        return;
    // A window manager that does not stand all this is none of the program's faults; that the program goes on
    // without is its duty.
    ++m_deathsOfManager;
    std::printf("%6d the window manager has ended by itself; it wrote: %s\n", number,
                m_session.windowManagerOutput().trimmed().constData());
    m_session.restartWindowManager();
    m_done.push_back(QStringLiteral("%1 the window manager has ended by itself").arg(number, 6));
}

bool Monkey::answersOrEnds()
{
    // What was done last may have been to quit: then its windows go before it does.
    return m_probe.isAnswered(*m_program) ||
           eventually([&] { return !m_program->isRunning(); }, kPatienceWithEnd);
}

bool Monkey::isWell(const QStringList &complaints)
{
    if (!complaints.isEmpty())
        report(complaints);
    return complaints.isEmpty();
}

bool Monkey::isEnded(int number)
{
    // It can quit by the toolbar, the tray and the menus; the only other way to such an end is a signal.
    ++m_quits;
    m_done.push_back(QStringLiteral("%1 the program has ended").arg(number, 6));
    reviveWindowManager(number);
    letGo();
    if (!isWell(complaintsOfEnd(m_program->waitForExit())))
        return false;
    startProgram();
    return true;
}

void Monkey::letGo()
{
    m_paw.letGo();
    m_neighbours.leave();
    // The server hands out the ids of windows again, and a window manager that has yet to hear that they are
    // gone takes the next windows for these.
    if (m_session.windowManagerProcessId() != 0)
        m_session.awaitWindowManager();
    m_controls.closeMenus();
    m_furniture.tidyUp();
    for (const Key lock : {Key::CapsLock, Key::NumLock})
        m_session.keyboard().setLock(lock, false);
}

bool Monkey::rest(int number)
{
    RandomChoice chance(m_orders.seed, -number);
    m_done.push_back(QStringLiteral("%1 everything is let go").arg(number, 6));
    reviveWindowManager(number);
    // A menu that the last action asks for is to be open before menus are closed.
    QStringList complaints;
    if (!answersOrEnds())
        complaints += QStringLiteral("it does not answer to the last action");
    letGo();
    if (!answersOrEnds())
        complaints += QStringLiteral("it does not answer");
    if (!m_program->isRunning())
        return isEnded(number) && rest(number);
    complaints += m_controls.switchAllOff(chance);
    complaints += m_inspection.ofProgram(*m_program, chance);
    return isWell(complaints);
}

bool Monkey::end(int number)
{
    RandomChoice chance(m_orders.seed, -number);
    const bool isByMenu = chance.oneIn(2);
    m_done.push_back(QStringLiteral("%1 the program is to end, by %2")
                         .arg(number, 6)
                         .arg(isByMenu ? QStringLiteral("its menu") : QStringLiteral("SIGTERM")));
    if (!isByMenu)
        return isWell(complaintsOfEnd(m_program->terminate(kPatience)));
    m_controls.click(label::kQuit);
    return isWell(complaintsOfEnd(m_program->waitForExit(kPatience)));
}

QStringList Monkey::complaintsOfEnd(std::optional<int> exitCode)
{
    QStringList complaints;
    if (!exitCode)
        complaints += QStringLiteral("it did not end, or a signal ended it");
    else if (*exitCode != 0)
        complaints += QStringLiteral("it ended with %1").arg(*exitCode);
    const QString output = wordsOf(*m_program);
    if (!output.isEmpty())
        complaints += QStringLiteral("it wrote:\n") + output;
    if (!m_program->isRunning())
        complaints += m_inspection.ofDesktopWithout();
    return complaints;
}

void Monkey::report(const QStringList &complaints)
{
    saveFailurePictures();
    std::fprintf(stderr, "With the seed %u, after\n", m_orders.seed);
    for (const QString &done : m_done)
        std::fprintf(stderr, "    %s\n", qPrintable(done));
    for (const QString &complaint : complaints)
        std::fprintf(stderr, "WRONG: %s\n", qPrintable(complaint));
    std::fprintf(stderr, "%s\n", qPrintable(nameOfInputState(m_session)));
    if (const QByteArray words = m_session.windowManagerOutput(); !words.isEmpty())
        std::fprintf(stderr, "The window manager wrote: \"%s\"\n", words.trimmed().constData());
    if (m_program->isRunning())
        std::fprintf(stderr, "The program wrote so far: \"%s\"\n", m_program->output().constData());
}

} // namespace zeigewerk::rig
