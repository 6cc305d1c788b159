// Runs one target under libFuzzer; the build defines its name.

#include "fuzz/targets.h"

#include <QApplication>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace zeigewerk::fuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Stays away from the session bus of the user who runs it.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus");
    // Never deleted, because libFuzzer exits the process without returning.
    static QApplication *const app = new QApplication(*argc, *argv);
    return app ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Target *const target = std::ranges::find_if(
        kTargets, [](const Target &t) { return std::strcmp(t.name, ZEIGEWERK_FUZZ_TARGET) == 0; });
    target->run({data, size});
    // No event loop runs that would handle posted events and deferred deletions.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
