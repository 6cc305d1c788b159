// One target as libFuzzer calls it; the build names it.

#include "fuzz/targets.h"

#include <QApplication>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace zeigewerk::fuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Not with the session bus of whoever runs it.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus");
    // It has to be there until the process ends, and libFuzzer ends it without coming back.
    static QApplication *const app = new QApplication(*argc, *argv);
    return app ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Target *const target = std::ranges::find_if(
        kTargets, [](const Target &t) { return std::strcmp(t.name, ZEIGEWERK_FUZZ_TARGET) == 0; });
    target->run({data, size});
    // There is no event loop that would clear away what was left for it.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
