#include "platform/x11/x11_screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/randr.h>

#include <algorithm>

namespace zeigewerk::platform::x11 {

namespace {

QString atomName(Connection &connection, xcb_atom_t atom)
{
    const auto reply =
        owned(xcb_get_atom_name_reply(connection.xcb(), xcb_get_atom_name(connection.xcb(), atom), nullptr));
    return reply ? QString::fromUtf8(xcb_get_atom_name_name(reply.get()),
                                     xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

double scaleOf(const QString &name)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto found =
        std::find_if(screens.begin(), screens.end(), [&](QScreen *screen) { return screen->name() == name; });
    if (found != screens.end())
        return (*found)->devicePixelRatio();
    const QScreen *primary = QGuiApplication::primaryScreen();
    return primary ? primary->devicePixelRatio() : 1.0;
}

} // namespace

ScreenLayout readScreens(Connection &connection)
{
    constexpr std::uint8_t kActiveOnly = 1;
    const auto cookie = xcb_randr_get_monitors(connection.xcb(), connection.root(), kActiveOnly);
    const auto reply = owned(xcb_randr_get_monitors_reply(connection.xcb(), cookie, nullptr));
    std::vector<Screen> screens;
    if (!reply)
        return {};
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem;
         xcb_randr_monitor_info_next(&monitor)) {
        const xcb_randr_monitor_info_t &info = *monitor.data;
        const QString name = atomName(connection, info.name);
        const Screen screen{.name = name,
                            .nativeFrame = {info.x, info.y, info.width, info.height},
                            .scale = scaleOf(name),
                            .frame = {}};
        screens.insert(info.primary ? screens.begin() : screens.end(), screen);
    }
    return ScreenLayout(std::move(screens));
}

} // namespace zeigewerk::platform::x11
