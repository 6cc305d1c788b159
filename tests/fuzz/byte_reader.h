#pragma once

#include "fuzz/targets.h"

#include <algorithm>
#include <cstring>

namespace zeigewerk::fuzz {

/// Reads numbers from the front of the input, and zeros after its end.
class ByteReader
{
public:
    explicit ByteReader(Bytes input)
        : m_input(input)
    {
    }

    bool isAtEnd() const { return m_input.empty(); }
    template <typename Number>
    Number take()
    {
        Number number{};
        const std::size_t count = std::min(sizeof number, m_input.size());
        std::memcpy(&number, m_input.data(), count);
        m_input = m_input.subspan(count);
        return number;
    }

private:
    Bytes m_input;
};

} // namespace zeigewerk::fuzz
