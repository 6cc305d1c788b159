// Reports that the virtual desktop itself is broken, not the program tested on it.
#pragma once

#include <stdexcept>

class QString;

namespace zeigewerk::rig {

/// Unwinds the running test, which ends everything it started. A failed QVERIFY would only leave a
/// constructor, and the test would continue on half a desktop.
class RigError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Logs the problem and throws.
[[noreturn]] void failRig(const QString &what);

} // namespace zeigewerk::rig
