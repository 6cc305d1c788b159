#include "commands/key_names.h"
#include "core/app_delegate.h"
#include "core/termination_signals.h"
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
    qputenv("QT_QPA_PLATFORM", connection->qtPlatform());

    QApplication app(argc, argv);
    // The tray shows this one, and nothing is stored under it.
    QApplication::setApplicationName(QStringLiteral("Zeigewerk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Zeigewerk"));
    QApplication::setQuitOnLastWindowClosed(false);
    KeyNames keyNames;
    QApplication::installTranslator(&keyNames);

    const auto desktop = connection->makeDesktop();
    UserDefaults defaults;
    AppDelegate delegate(*desktop, defaults);
    const TerminationSignals signals([&delegate] { delegate.quit(); });
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}
