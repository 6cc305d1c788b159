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

MonkeyOrders ordersOf(const QCoreApplication &app)
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
    MonkeyOrders orders;
    orders.seed = numberOf(parser, QStringLiteral("seed")).value_or(QRandomGenerator::global()->generate());
    const auto minutes = numberOf(parser, QStringLiteral("minutes"));
    if (minutes) {
        orders.deadline = QDeadlineTimer(std::chrono::minutes(*minutes));
        orders.actions = std::numeric_limits<int>::max();
    }
    if (const auto actions = numberOf(parser, QStringLiteral("actions")))
        orders.actions = static_cast<int>(*actions);
    if (const auto rest = numberOf(parser, QStringLiteral("rest")); rest && *rest > 0)
        orders.actionsToRest = static_cast<int>(*rest);
    orders.only = parser.values(QStringLiteral("only"));
    return orders;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const MonkeyOrders orders = ordersOf(app);
    std::printf("Seed %u\n", orders.seed);
    std::fflush(stdout);
    try {
        return Monkey(orders).play() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const RigError &error) {
        std::fprintf(stderr, "the desktop is broken: %s\n", error.what());
        return 2;
    }
}
