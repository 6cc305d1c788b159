#pragma once

#include <QString>
#include <QUrl>

namespace zeigewerk {

/// The command that opens addresses in the user's preferred program.
inline constexpr char kPageOpener[] = "xdg-open";

/// Opens the page with `opener`, which may outlive us; false if it cannot be started. QDesktopServices would
/// pass our blocked signals and our changed environment on to the browser.
bool openPage(const QUrl &page, const QString &opener = QLatin1String(kPageOpener));

} // namespace zeigewerk
