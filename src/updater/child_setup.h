#pragma once

#include <QProcessEnvironment>

class QProcess;

namespace zeigewerk {

/// The environment that this program was started with, without later changes and without the variables that
/// announce its first window.
QProcessEnvironment environmentAtStart();

// Both start the process with the environment that this program was started with, and let SIGTERM, SIGINT and
// SIGHUP end it.

/// Prepares a process that is started later: it will end with this one, however this one ends.
void bindToThisProcess(QProcess &process);

/// Starts the process, which must not use pipes; it may outlive this one. False if it cannot be started.
bool startDetached(QProcess &process);

} // namespace zeigewerk
