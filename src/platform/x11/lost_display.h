#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Reports in one line that the display is gone, instead of what Qt and Xlib print. They have connections of
/// their own, may notice first, and then end the program with exit code 1. Only one object at a time.
class LostDisplay
{
public:
    explicit LostDisplay(Connection &connection);
    ~LostDisplay();
    LostDisplay(const LostDisplay &) = delete;
    LostDisplay &operator=(const LostDisplay &) = delete;

    /// Prints the line, but only once.
    static void report();
};

} // namespace zeigewerk::platform::x11
