#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace zeigewerk::platform::x11 {

struct FreeDeleter
{
    void operator()(void *memory) const { std::free(memory); } // xcb allocates with malloc
};

/// A reply, event or error of xcb, owned.
template <typename T>
using Owned = std::unique_ptr<T, FreeDeleter>;

template <typename T>
Owned<T> owned(T *pointer)
{
    return Owned<T>(pointer);
}

} // namespace zeigewerk::platform::x11
