#include "platform/x11/input/held_keys.h"

#include <cstddef>

namespace zeigewerk::platform::x11 {

namespace {

constexpr std::size_t kFirstKey = 8;
constexpr std::size_t kBitsOfByte = 8;

} // namespace

void HeldKeys::adopt(Map held)
{
    Keys keys;
    for (std::size_t i = 0; i < held.size() * kBitsOfByte; ++i)
        keys.set(kFirstKey + i, (held[i / kBitsOfByte] >> (i % kBitsOfByte) & 1U) != 0);
    // The server also sends the map when the pointer enters a window or a grab ends.
    m_own &= keys;
    m_foreign = keys & ~m_own;
}

bool HeldKeys::acceptPress(std::uint8_t key)
{
    if (m_foreign.test(key))
        return false;
    m_own.set(key);
    return true;
}

void HeldKeys::released(std::uint8_t key)
{
    m_own.reset(key);
    m_foreign.reset(key);
}

} // namespace zeigewerk::platform::x11
