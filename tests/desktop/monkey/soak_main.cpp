// Uses the program for a long time and reports whether its memory use stays constant.

#include "soak.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char *argv[])
{
    using namespace zeigewerk::rig;
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("minutes"), QStringLiteral("Duration; 60 by default."),
                      QStringLiteral("N"), QStringLiteral("60")});
    parser.process(app);
    const int minutes = parser.value(QStringLiteral("minutes")).toInt();
    if (minutes <= 0)
        parser.showHelp(2);
    try {
        return Soak(std::chrono::minutes(minutes)).run() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const RigError &error) {
        std::fprintf(stderr, "the soak failed: %s\n", error.what());
        return 2;
    }
}
