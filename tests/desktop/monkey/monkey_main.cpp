// Lets a monkey operate the program, and reports whether the program survived.

#include "monkey.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRandomGenerator>

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

using namespace zeigewerk::rig;

/// The number given for an option, if any.
std::optional<quint32> numberOf(const QCommandLineParser &parser, const QString &option)
{
    bool isNumber = false;
    const quint32 number = parser.value(option).toUInt(&isNumber);
    if (parser.isSet(option) && !isNumber) {
        std::fprintf(stderr, "--%s needs a number\n", qPrintable(option));
        std::exit(2);
    }
    return isNumber ? std::optional(number) : std::nullopt;
}

MonkeyOptions parseOptions(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Performs random actions on the program on a virtual desktop."));
    parser.addHelpOption();
    parser.addOptions(
        {{QStringLiteral("seed"), QStringLiteral("Repeats the actions of that seed."), QStringLiteral("S")},
         {QStringLiteral("actions"), QStringLiteral("Number of actions; 20000 by default."),
          QStringLiteral("N")},
         {QStringLiteral("minutes"), QStringLiteral("Stops after that time."), QStringLiteral("N")},
         {QStringLiteral("rest"), QStringLiteral("Actions between two checks; 2000 by default."),
          QStringLiteral("N")},
         {QStringLiteral("only"),
          QStringLiteral("Only actions with that word in their name; can be repeated."),
          QStringLiteral("WORD")}});
    parser.process(app);
    MonkeyOptions options;
    options.seed = numberOf(parser, QStringLiteral("seed")).value_or(QRandomGenerator::global()->generate());
    const auto minutes = numberOf(parser, QStringLiteral("minutes"));
    if (minutes) {
        options.deadline = QDeadlineTimer(std::chrono::minutes(*minutes));
        options.actions = std::numeric_limits<int>::max();
    }
    if (const auto actions = numberOf(parser, QStringLiteral("actions")))
        options.actions = static_cast<int>(*actions);
    if (const auto rest = numberOf(parser, QStringLiteral("rest")); rest && *rest > 0)
        options.actionsPerCheck = static_cast<int>(*rest);
    options.only = parser.values(QStringLiteral("only"));
    return options;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const MonkeyOptions options = parseOptions(app);
    std::printf("Seed %u\n", options.seed);
    std::fflush(stdout);
    try {
        return Monkey(options).run() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const RigError &error) {
        std::fprintf(stderr, "the virtual desktop failed: %s\n", error.what());
        return 2;
    }
}
