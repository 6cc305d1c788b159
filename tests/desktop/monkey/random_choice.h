// The monkey's random choices.
#pragma once

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <iterator>
#include <random>

namespace zeigewerk::rig {

/// Choices depend only on the seed and the action's number, so an action does the same again, regardless of
/// the actions before it.
class RandomChoice
{
public:
    RandomChoice(std::uint32_t seed, int number)
        : m_generator(std::uint64_t{seed} << 32 | static_cast<std::uint32_t>(number))
    {
    }

    /// At least zero and less than `end`.
    int below(int end) { return static_cast<int>(m_generator() % static_cast<std::uint64_t>(end)); }
    bool oneIn(int times) { return below(times) == 0; }
    QPoint in(const QRect &rect)
    {
        return rect.topLeft() + QPoint(below(qMax(1, rect.width())), below(qMax(1, rect.height())));
    }
    template <typename List>
    const auto &of(const List &list)
    {
        return *std::next(std::begin(list), below(static_cast<int>(std::size(list))));
    }

private:
    std::mt19937_64 m_generator;
};

} // namespace zeigewerk::rig
