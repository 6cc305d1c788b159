#include "platform/x11/lost_display.h"

#include <QString>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <utility>

// Last, because of its macros.
#include <X11/Xlib.h>

namespace zeigewerk::platform::x11 {

namespace {

// Qt reads its connection in a thread of its own, which may be the first to notice.
std::atomic<bool> isReported = false;
std::atomic<Connection *> ours = nullptr;
QtMessageHandler previousHandler = nullptr;

bool isLost()
{
    Connection *connection = ours;
    if (!connection)
        return false;
    // xcb notices a broken connection only when it is used.
    connection->roundTrip();
    return xcb_connection_has_error(connection->xcb()) != 0;
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isFromPlatformPlugin = context.category && std::strncmp(context.category, "qt.qpa", 6) == 0;
    const bool isConnectionBroken = message.startsWith(QLatin1String("The X11 connection broke"));
    if (isConnectionBroken || (isFromPlatformPlugin && isLost()))
        LostDisplay::report();
    else
        previousHandler(type, context, message);
}

/// Qt also uses Xlib, which ends the program with exit code 1 after this.
int handleXlibError(Display *)
{
    LostDisplay::report();
    return 0;
}

} // namespace

LostDisplay::LostDisplay(Connection &connection)
{
    XSetIOErrorHandler(&handleXlibError);
    ours = &connection;
    previousHandler = qInstallMessageHandler(&handleMessage);
}

LostDisplay::~LostDisplay()
{
    qInstallMessageHandler(std::exchange(previousHandler, nullptr));
    ours = nullptr;
}

void LostDisplay::report()
{
    if (!isReported.exchange(true))
        std::fputs("zeigewerk: the X11 display has gone away\n", stderr);
}

} // namespace zeigewerk::platform::x11
