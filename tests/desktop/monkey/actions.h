// The monkey's actions.
#pragma once

#include "blind_input.h"
#include "desktop_changes.h"
#include "other_windows.h"
#include "random_choice.h"

#include <vector>

namespace zeigewerk::rig {

/// What the actions work on.
struct ActionContext
{
    DesktopSession &session;
    Program &program;
    BlindInput &input;
    OtherWindows &windows;
    DesktopChanges &desktop;
};

struct Action
{
    const char *name;
    /// The relative frequency.
    int weight;
    /// Performs the action and describes what it did.
    QString (*perform)(ActionContext &, RandomChoice &);
};

/// All actions, or those with one of these words in their name.
class ActionSet
{
public:
    explicit ActionSet(const QStringList &words);

    bool isEmpty() const { return m_actions.empty(); }
    /// A random action; each is as likely as its weight says.
    const Action &pick(RandomChoice &random) const;

private:
    std::vector<Action> m_actions;
    int m_weight = 0;
};

// Split by kind.
std::vector<Action> keyActions();
std::vector<Action> pointerActions();
std::vector<Action> desktopActions();

} // namespace zeigewerk::rig
