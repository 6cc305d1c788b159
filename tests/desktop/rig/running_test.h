// What runs now, for the names of files about it.
#pragma once

#include <QString>

namespace zeigewerk::rig {

/// The running program, test function and data row, fit for the name of a file.
QString runningTestName();

} // namespace zeigewerk::rig
