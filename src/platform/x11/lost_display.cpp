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

// Qt reads its connection in a thread of its own, which may be the one to notice.
std::atomic<bool> hasTold = false;
std::atomic<Connection *> ours = nullptr;
QtMessageHandler handlerBefore = nullptr;

bool isLost()
{
    Connection *connection = ours;
    if (!connection)
        return false;
    // What is lost is known only by who asks.
    connection->roundTrip();
    return xcb_connection_has_error(connection->xcb()) != 0;
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isOfQtsDisplay = context.category && std::strncmp(context.category, "qt.qpa", 6) == 0;
    const bool isTheEnd = message.startsWith(QLatin1String("The X11 connection broke"));
    if (isTheEnd || (isOfQtsDisplay && isLost()))
        LostDisplay::tell();
    else
        handlerBefore(type, context, message);
}

/// For Xlib, which Qt uses here and there. It ends the program with exit code 1 afterwards.
int handleEndOfXlib(Display *)
{
    LostDisplay::tell();
    return 0;
}

} // namespace

LostDisplay::LostDisplay(Connection &connection)
{
    XSetIOErrorHandler(&handleEndOfXlib);
    ours = &connection;
    handlerBefore = qInstallMessageHandler(&handleMessage);
}

LostDisplay::~LostDisplay()
{
    qInstallMessageHandler(std::exchange(handlerBefore, nullptr));
    ours = nullptr;
}

void LostDisplay::tell()
{
    if (!hasTold.exchange(true))
        std::fputs("zeigewerk: the X11 display has gone away\n", stderr);
}

} // namespace zeigewerk::platform::x11
