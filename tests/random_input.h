#pragma once

#include <QDebug>

#include <algorithm>
#include <cstdint>
#include <random>

namespace zeigewerk::test {

/// Random numbers for property tests. The seed is printed; the environment variable ZEIGEWERK_TEST_SEED sets
/// it, to reproduce a failure.
class RandomInput
{
public:
    RandomInput()
        : RandomInput(chosenSeed())
    {
        qInfo().noquote() << QStringLiteral("ZEIGEWERK_TEST_SEED=%1").arg(m_seed);
    }
    explicit RandomInput(std::uint64_t seed)
        : m_seed(seed)
        , m_engine(seed)
    {
    }

    std::uint64_t seed() const { return m_seed; }

    bool chance(double probability) { return real(0.0, 1.0) < probability; }
    int integer(int min, int max) { return std::uniform_int_distribution<int>(min, max)(m_engine); }
    double real(double min, double max) { return std::uniform_real_distribution<double>(min, max)(m_engine); }
    template <typename Container>
    void shuffle(Container &values)
    {
        std::shuffle(std::begin(values), std::end(values), m_engine);
    }
    template <typename Container>
    auto oneOf(const Container &values)
    {
        return values[static_cast<std::size_t>(integer(0, static_cast<int>(std::size(values)) - 1))];
    }

private:
    static std::uint64_t chosenSeed()
    {
        bool isNumber = false;
        const std::uint64_t seed = qEnvironmentVariable("ZEIGEWERK_TEST_SEED").toULongLong(&isNumber);
        return isNumber ? seed : std::random_device()();
    }

    std::uint64_t m_seed;
    std::mt19937_64 m_engine;
};

} // namespace zeigewerk::test
