// Random actions at any time, and checks in between.
#pragma once

#include "actions.h"
#include "controls.h"
#include "inspection.h"
#include "ping_probe.h"

#include <QDeadlineTimer>

#include <deque>
#include <memory>

namespace zeigewerk::rig {

struct MonkeyOptions
{
    quint32 seed = 1;
    /// It stops at whichever comes first.
    int actions = 20'000;
    QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever);
    /// How many actions come between two checks.
    int actionsPerCheck = 2000;
    /// Words in the names of the actions to choose from; all actions if empty.
    QStringList only = {};
};

/// Operates the program on a virtual desktop with two screens, as fast as the program follows. From time to
/// time it releases all keys and buttons, restores the desktop, turns each mode off by its own control, and
/// inspects what is left.
class Monkey
{
public:
    explicit Monkey(const MonkeyOptions &options);

    /// False at the first problem, which it reports with the actions before it.
    bool run();

private:
    bool runActions();
    void startProgram();
    bool act(int number);
    void reviveWindowManager(int number);
    bool respondsOrExits();
    bool passes(const QStringList &complaints);
    bool check(int number);
    bool endProgram(int number);
    bool handleExit(int number);
    QStringList complaintsAboutExit(std::optional<int> exitCode);
    void resetDesktop();
    void report(const QStringList &complaints);

    MonkeyOptions m_options;
    ActionSet m_actionSet;
    DesktopSession m_session;
    BlindInput m_input;
    OtherWindows m_otherWindows;
    DesktopChanges m_desktop;
    Controls m_controls;
    Inspection m_inspection;
    PingProbe m_ping;
    std::unique_ptr<Program> m_program;
    int m_quits = 0;
    int m_windowManagerExits = 0;
    /// The latest actions, the newest last.
    std::deque<QString> m_log;
};

} // namespace zeigewerk::rig
