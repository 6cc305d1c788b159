// The name of the running test, for file names.
#pragma once

#include <QString>

namespace zeigewerk::rig {

/// The running program, test function and data row, in characters that suit a file name.
QString runningTestName();

} // namespace zeigewerk::rig
