// Ownership of memory that xcb allocates.
#pragma once

#include <cstdlib>
#include <memory>

namespace zeigewerk::rig {

struct FreeDeleter
{
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, an event or an error; null if the server refused or is gone.
template <typename T>
using XcbPointer = std::unique_ptr<T, FreeDeleter>;

template <typename T>
XcbPointer<T> owned(T *memory)
{
    return XcbPointer<T>(memory);
}

} // namespace zeigewerk::rig
