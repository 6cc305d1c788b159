// What the rig does when the virtual desktop itself, not what is tested on it, is broken.
#pragma once

#include <stdexcept>

class QString;

namespace zeigewerk::rig {

/// Leaves the running test by unwinding, so that everything it started is ended. A failed QVERIFY could only
/// leave a constructor, and the test would go on with half a desktop.
class RigError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Says on the test log what is wrong and throws.
[[noreturn]] void failRig(const QString &what);

} // namespace zeigewerk::rig
