#pragma once

#include <QProcessEnvironment>

class QProcess;

namespace zeigewerk {

/// The environment that this program was started with, without what it has set for itself since.
QProcessEnvironment environmentAtStart();

/// Has the process, which is not started yet, begin as if whoever started this program had started it: with
/// the same environment, and with SIGTERM, SIGINT and SIGHUP ending it.
void keepOursFrom(QProcess &process);

/// Has the process end with this one, however that ends; otherwise like `keepOursFrom`.
void bindToUs(QProcess &process);

} // namespace zeigewerk
