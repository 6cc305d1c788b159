// What the monkey's dice say.
#pragma once

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <iterator>
#include <random>

namespace zeigewerk::rig {

/// Random choices that are the same for the same seed and number, so that an action does what it did before
/// whatever those before it asked for.
class RandomChoice
{
public:
    RandomChoice(std::uint32_t seed, int number)
        : m_generator(std::uint64_t{seed} << 32 | static_cast<std::uint32_t>(number))
    {
    }

    /// From zero to one less than that.
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
