#pragma once

namespace zeigewerk {

/// Prints one line on stderr and aborts: an invariant is broken. That is a bug in the program, so release
/// builds stop as well.
[[noreturn]] void stopProgram(const char *what);

/// Stops the program unless `condition` holds.
inline void mustHold(bool condition, const char *what)
{
    if (!condition)
        stopProgram(what);
}

} // namespace zeigewerk
