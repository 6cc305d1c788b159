#include "actions.h"

#include <algorithm>

namespace zeigewerk::rig {

ActionSet::ActionSet(const QStringList &words)
{
    for (const auto &part : {keyActions(), pointerActions(), desktopActions()}) {
        std::copy_if(part.begin(), part.end(), std::back_inserter(m_actions), [&](const Action &action) {
            return words.isEmpty() || std::any_of(words.begin(), words.end(), [&](const QString &word) {
                       return QLatin1String(action.name).contains(word);
                   });
        });
    }
    for (const Action &action : m_actions)
        m_weight += action.weight;
}

const Action &ActionSet::pick(RandomChoice &random) const
{
    int position = random.below(m_weight);
    auto action = m_actions.begin();
    while (position >= action->weight) {
        position -= action->weight;
        ++action;
    }
    return *action;
}

} // namespace zeigewerk::rig
