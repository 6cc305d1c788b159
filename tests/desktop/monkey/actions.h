// What the monkey can do.
#pragma once

#include "blind_input.h"
#include "desktop_changes.h"
#include "other_windows.h"
#include "random_choice.h"

#include <vector>

namespace zeigewerk::rig {

/// What it does it with.
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
    /// How often it comes, beside the others.
    int weight;
    /// Does it, and says how.
    QString (*perform)(ActionContext &, RandomChoice &);
};

/// All that it can do, or what has one of these words in its name.
class ActionSet
{
public:
    explicit ActionSet(const QStringList &words);

    bool isEmpty() const { return m_actions.empty(); }
    /// Any of them, each as often as its weight says.
    const Action &any(RandomChoice &random) const;

private:
    std::vector<Action> m_actions;
    int m_weight = 0;
};

// In parts, as there are many.
std::vector<Action> keyActions();
std::vector<Action> pointerActions();
std::vector<Action> desktopActions();

} // namespace zeigewerk::rig
