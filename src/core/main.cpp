#include "base/termination_signals.h"
#include "commands/application_interface.h"
#include "commands/key_names.h"
#include "commands/status_item.h"
#include "core/app_delegate.h"
#include "platform/choose_desktop.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char *argv[])
{
    using namespace zeigewerk;

    TerminationSignals::hold();
    QString problem;
    const auto connection = platform::connectToDesktop(&problem);
    if (!connection) {
        std::fprintf(stderr, "zeigewerk: %s\n", qPrintable(problem));
        return EXIT_FAILURE;
    }
    // A second start is not an error.
    if (!connection->becomeOnlyInstance())
        return EXIT_SUCCESS;
    if (const QString limits = connection->limits(); !limits.isEmpty())
        std::fprintf(stderr, "zeigewerk: %s\n", qPrintable(limits));
    qputenv("QT_QPA_PLATFORM", connection->qtPlatform());

    // Qt's own event loop wakes up a third less often than glib's. Programs that we start must not inherit
    // the setting.
    constexpr char kNoGlib[] = "QT_NO_GLIB";
    const bool wasGlibRefused = qEnvironmentVariableIsSet(kNoGlib);
    qputenv(kNoGlib, "1");
    QApplication app(argc, argv);
    if (!wasGlibRefused)
        qunsetenv(kNoGlib);
    // The tray shows the application name. Nothing is stored under it.
    QApplication::setApplicationName(QStringLiteral("Zeigewerk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Zeigewerk"));
    // The desktop finds the program's name and icon through this. A window icon would be sent to the display
    // with each of our windows, none of which a task bar shows.
    QApplication::setDesktopFileName(QString::fromLatin1(kApplicationId));
    QApplication::setQuitOnLastWindowClosed(false);
    KeyNames keyNames;
    QApplication::installTranslator(&keyNames);

    const auto desktop = connection->makeDesktop();
    UserDefaults defaults;
    AppDelegate delegate(*desktop, defaults, &WallClock::now, BundleInfo::ofThisProgram());
    const TerminationSignals signals([&delegate] { delegate.quit(); });
    delegate.applicationDidFinishLaunching();
    const ApplicationInterface onBus(delegate.statusItem()->menu());
    return QApplication::exec();
}
