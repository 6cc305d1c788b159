#pragma once

#include <QProcessEnvironment>

class QProcess;

namespace zeigewerk {

/// The environment that this program was started with, without what it has set for itself since.
QProcessEnvironment environmentAtStart();

// Both have the process begin as if whoever started this program had started it: with the same environment,
// and with SIGTERM, SIGINT and SIGHUP ending it.

/// For a process that is started later: it ends with this one, however that ends.
void bindToUs(QProcess &process);

/// Starts the process, which must not use pipes, and leaves it to itself. False if it cannot be started.
bool startOnItsOwn(QProcess &process);

} // namespace zeigewerk
