#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Tells of the end of the display in one line, whoever notices it first. Qt has a connection of its own,
/// says in its own words what it can no longer do, and ends the program with exit code 1. One at a time.
class LostDisplay
{
public:
    explicit LostDisplay(Connection &connection);
    ~LostDisplay();
    LostDisplay(const LostDisplay &) = delete;
    LostDisplay &operator=(const LostDisplay &) = delete;

    /// Tells it, unless it has been told.
    static void tell();
};

} // namespace zeigewerk::platform::x11
