// Has a monkey work on the program, and tells whether it stood it.

#include "monkey.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRandomGenerator>

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

using namespace zeigewerk::rig;

/// A number that stands in the options, or nothing.
std::optional<quint32> numberOf(const QCommandLineParser &parser, const QString &option)
{
    bool isNumber = false;
    const quint32 number = parser.value(option).toUInt(&isNumber);
    if (parser.isSet(option) && !isNumber) {
        std::fprintf(stderr, "--%s takes a number\n", qPrintable(option));
        std::exit(2);
    }
    return isNumber ? std::optional(number) : std::nullopt;
}

MonkeyOptions parseOptions(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Does random things to the program on a virtual desktop."));
    parser.addHelpOption();
    parser.addOptions(
        {{QStringLiteral("seed"), QStringLiteral("The same seed, the same actions."), QStringLiteral("S")},
         {QStringLiteral("actions"), QStringLiteral("How many; 20000 if not said."), QStringLiteral("N")},
         {QStringLiteral("minutes"), QStringLiteral("For so long."), QStringLiteral("N")},
         {QStringLiteral("rest"), QStringLiteral("Looks at what is left after so many; 2000 if not said."),
          QStringLiteral("N")},
         {QStringLiteral("only"), QStringLiteral("Actions with that word in their name; may come again."),
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
        std::fprintf(stderr, "the desktop is broken: %s\n", error.what());
        return 2;
    }
}
