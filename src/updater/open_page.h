#pragma once

#include <QString>
#include <QUrl>

namespace zeigewerk {

/// The command that opens addresses as the user has set it.
inline constexpr char kPageOpener[] = "xdg-open";

/// Has `opener` open that page, on its own from then on; false if it cannot be started. Not by Qt's own way
/// to do so: a browser started by that would take over the signals that we block and the environment that we
/// set.
bool openPage(const QUrl &page, const QString &opener = QLatin1String(kPageOpener));

} // namespace zeigewerk
