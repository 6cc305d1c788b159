#include "platform/x11/input/pointer_state.h"

namespace zeigewerk::platform::x11 {

std::optional<PointerState> queryPointer(const Connection &connection, const ScreenLayout &layout)
{
    const auto cookie = xcb_query_pointer(connection.xcb(), connection.root());
    const auto reply = owned(xcb_query_pointer_reply(connection.xcb(), cookie, nullptr));
    if (!reply || !reply->same_screen)
        return std::nullopt;
    return PointerState{.location = layout.pointOfPixel(QPointF(reply->root_x, reply->root_y)),
                        .mask = reply->mask,
                        .topLevel = reply->child};
}

} // namespace zeigewerk::platform::x11
