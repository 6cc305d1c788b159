#pragma once

namespace zeigewerk {

/// Ends the process with one line on stderr: something that exists by construction does not. Such a fault is
/// in the program itself, so it stops release builds as well.
[[noreturn]] void stopProgram(const char *what);

/// Stops the program unless `condition` holds.
inline void mustHold(bool condition, const char *what)
{
    if (!condition)
        stopProgram(what);
}

} // namespace zeigewerk
