// Somebody who does anything at any time.
#pragma once

#include "actions.h"
#include "controls.h"
#include "inspection.h"
#include "ping_probe.h"

#include <QDeadlineTimer>

#include <deque>
#include <memory>

namespace zeigewerk::rig {

struct MonkeyOrders
{
    quint32 seed = 1;
    /// Ends with whichever comes first.
    int actions = 20'000;
    QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever);
    /// So often everything is let go and looked at.
    int actionsToRest = 2000;
    /// Words in the names of the actions to choose from; all if empty.
    QStringList only = {};
};

/// Works on the program on a virtual desktop with two screens, as fast as the program follows. Every now and
/// then it lets everything go, switches each mode off by its own control, and looks at what is left.
class Monkey
{
public:
    explicit Monkey(const MonkeyOrders &orders);

    /// False at the first thing that is wrong, having said what, and what came before it.
    bool play();

private:
    bool playOn();
    void startProgram();
    bool act(int number);
    void reviveWindowManager(int number);
    bool answersOrEnds();
    bool isWell(const QStringList &complaints);
    bool rest(int number);
    bool end(int number);
    bool isEnded(int number);
    QStringList complaintsOfEnd(std::optional<int> exitCode);
    void letGo();
    void report(const QStringList &complaints);

    MonkeyOrders m_orders;
    Repertoire m_repertoire;
    DesktopSession m_session;
    BlindInput m_paw;
    OtherWindows m_neighbours;
    DesktopChanges m_furniture;
    Controls m_controls;
    Inspection m_inspection;
    PingProbe m_probe;
    std::unique_ptr<Program> m_program;
    int m_quits = 0;
    int m_deathsOfManager = 0;
    /// The last ones, the newest at the end.
    std::deque<QString> m_done;
};

} // namespace zeigewerk::rig
