// Measures the built program on a virtual desktop, from outside.

#include "measures.h"
#include "rig_error.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

using namespace zeigewerk::bench;

struct Measure
{
    const char *name;
    std::function<void(Results &)> run;
};
const Measure kMeasures[] = {{"start", measureStart},
                             {"ink", measureInk},
                             {"much-ink", measureMuchInk},
                             {"effects", measureEffects},
                             {"idle", measureIdle}};

int usage()
{
    std::fputs("usage: zeigewerk_bench_desktop RESULTS.json [MEASURE...]\nmeasures:", stderr);
    for (const Measure &measure : kMeasures)
        std::fprintf(stderr, " %s", measure.name);
    std::fputc('\n', stderr);
    return 2;
}

bool isKnown(const QString &name)
{
    return std::any_of(std::begin(kMeasures), std::end(kMeasures),
                       [&](const Measure &measure) { return name == QLatin1String(measure.name); });
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QStringList chosen = arguments.sliced(1).sliced(arguments.size() > 1 ? 1 : 0);
    if (arguments.size() < 2 || !std::all_of(chosen.begin(), chosen.end(), isKnown))
        return usage();
    Results results;
    try {
        for (const Measure &measure : kMeasures) {
            if (chosen.isEmpty() || chosen.contains(QLatin1String(measure.name)))
                measure.run(results);
        }
    } catch (const zeigewerk::rig::RigError &error) {
        std::fprintf(stderr, "cannot measure: %s\n", error.what());
        return EXIT_FAILURE;
    }
    if (!results.writeJson(arguments[1])) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(arguments[1]));
        return EXIT_FAILURE;
    }
    std::printf("\n%d above their bar. As JSON: %s\n", results.misses(), qPrintable(arguments[1]));
    return EXIT_SUCCESS;
}
