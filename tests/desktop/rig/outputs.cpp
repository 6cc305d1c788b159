#include "outputs.h"

#include "client.h"
#include "rig_error.h"

#include <xcb/randr.h>

#include <algorithm>
#include <cmath>

namespace zeigewerk::rig {

namespace {

const QLatin1String kOutputPrefix("DUMMY");

/// At 96 dots per inch, which is also assumed for a monitor that reports no size in millimetres.
std::uint32_t millimetres(int pixels)
{
    return static_cast<std::uint32_t>(std::lround(pixels * 25.4 / 96.0));
}

QString modeName(QSize size)
{
    return QStringLiteral("rig-%1x%2").arg(size.width()).arg(size.height());
}

/// A synthetic timing at 60 Hz; a few pixels of porch are enough without a real monitor.
xcb_randr_mode_info_t modeOf(QSize size, std::uint16_t nameLength)
{
    xcb_randr_mode_info_t mode = {};
    mode.width = static_cast<std::uint16_t>(size.width());
    mode.height = static_cast<std::uint16_t>(size.height());
    mode.hsync_start = static_cast<std::uint16_t>(size.width() + 1);
    mode.hsync_end = static_cast<std::uint16_t>(size.width() + 2);
    mode.htotal = static_cast<std::uint16_t>(size.width() + 3);
    mode.vsync_start = static_cast<std::uint16_t>(size.height() + 1);
    mode.vsync_end = static_cast<std::uint16_t>(size.height() + 2);
    mode.vtotal = static_cast<std::uint16_t>(size.height() + 3);
    mode.dot_clock = 60u * mode.htotal * mode.vtotal;
    mode.name_len = nameLength;
    return mode;
}

} // namespace

struct Outputs::Resources
{
    xcb_timestamp_t configuredAt = 0;
    QList<xcb_randr_crtc_t> crtcs;
    QList<xcb_randr_output_t> outputs;
    QMap<QString, xcb_randr_mode_t> modes;
};

Outputs::Outputs(Client &client)
    : m_client(client)
{
}

Outputs::Resources Outputs::query()
{
    xcb_connection_t *c = m_client.connection();
    const auto cookie = xcb_randr_get_screen_resources_current(c, m_client.root());
    const auto reply = owned(xcb_randr_get_screen_resources_current_reply(c, cookie, nullptr));
    if (!reply)
        failRig(QStringLiteral("the X server has no RandR"));
    Resources found;
    found.configuredAt = reply->config_timestamp;
    const auto *crtcs = xcb_randr_get_screen_resources_current_crtcs(reply.get());
    found.crtcs = QList<xcb_randr_crtc_t>(crtcs, crtcs + reply->num_crtcs);
    const auto *outputs = xcb_randr_get_screen_resources_current_outputs(reply.get());
    found.outputs = QList<xcb_randr_output_t>(outputs, outputs + reply->num_outputs);
    // The names follow one another without separators.
    const auto *name =
        reinterpret_cast<const char *>(xcb_randr_get_screen_resources_current_names(reply.get()));
    const auto *modes = xcb_randr_get_screen_resources_current_modes(reply.get());
    for (int i = 0; i < reply->num_modes; ++i) {
        found.modes.insert(QString::fromLatin1(name, modes[i].name_len), modes[i].id);
        name += modes[i].name_len;
    }
    return found;
}

void Outputs::addMissingModes(const QMap<int, QRect> &wanted)
{
    xcb_connection_t *c = m_client.connection();
    const Resources resources = query();
    QMap<QString, xcb_randr_mode_t> modes = resources.modes;
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
        if (it.key() >= resources.outputs.size())
            failRig(QStringLiteral("the X server has no output %1").arg(it.key()));
        const QByteArray name = modeName(it->size()).toLatin1();
        xcb_randr_mode_t &mode = modes[QString::fromLatin1(name)];
        if (mode == XCB_NONE) {
            const auto length = static_cast<std::uint16_t>(name.size());
            const auto cookie = xcb_randr_create_mode(c, m_client.root(), modeOf(it->size(), length), length,
                                                      name.constData());
            const auto reply = owned(xcb_randr_create_mode_reply(c, cookie, nullptr));
            mode = reply ? reply->mode : xcb_randr_mode_t(XCB_NONE);
        }
        xcb_randr_add_output_mode(c, resources.outputs.at(it.key()), mode);
    }
}

void Outputs::resizeRoot(const QMap<int, QRect> &wanted)
{
    QRect extent;
    for (const QRect &screen : wanted)
        extent |= QRect(QPoint(0, 0), QSize(screen.x() + screen.width(), screen.y() + screen.height()));
    // With every output off the root keeps its size: a root cannot be empty.
    if (extent.isEmpty())
        return;
    xcb_randr_set_screen_size(m_client.connection(), m_client.root(),
                              static_cast<std::uint16_t>(extent.width()),
                              static_cast<std::uint16_t>(extent.height()), millimetres(extent.width()),
                              millimetres(extent.height()));
}

void Outputs::apply(const QMap<int, QRect> &wanted)
{
    addMissingModes(wanted);
    const QMap<int, QRect> before = reported();
    const Resources resources = query();
    xcb_connection_t *c = m_client.connection();
    const auto set = [&](int output, QRect screen, xcb_randr_mode_t mode) {
        const bool on = mode != XCB_NONE;
        return xcb_randr_set_crtc_config(
            c, resources.crtcs.at(output), XCB_CURRENT_TIME, resources.configuredAt,
            static_cast<std::int16_t>(screen.x()), static_cast<std::int16_t>(screen.y()), mode,
            XCB_RANDR_ROTATION_ROTATE_0, on ? 1 : 0, on ? &resources.outputs.at(output) : nullptr);
    };

    // Grabbed, so that other clients see a single change. Outputs that change are turned off first: the root
    // must never be too small for the outputs that are on.
    QList<xcb_randr_set_crtc_config_cookie_t> cookies;
    xcb_grab_server(c);
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        if (wanted.value(it.key()) != *it)
            cookies.append(set(it.key(), QRect(), XCB_NONE));
    resizeRoot(wanted);
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        if (before.value(it.key()) != *it)
            cookies.append(set(it.key(), *it, resources.modes.value(modeName(it->size()))));
    // Makes the driver look for connected screens again, as it does by itself with real hardware.
    const auto probe = xcb_randr_get_screen_resources(c, m_client.root());
    xcb_ungrab_server(c);

    owned(xcb_randr_get_screen_resources_reply(c, probe, nullptr));
    for (const auto cookie : cookies) {
        const auto reply = owned(xcb_randr_set_crtc_config_reply(c, cookie, nullptr));
        if (!reply || reply->status != XCB_RANDR_SET_CONFIG_SUCCESS)
            failRig(QStringLiteral("the X server refused a screen change"));
    }
    m_client.roundTrip();
}

QMap<int, QRect> Outputs::reported()
{
    xcb_connection_t *c = m_client.connection();
    const auto cookie = xcb_randr_get_monitors(c, m_client.root(), 1);
    const auto reply = owned(xcb_randr_get_monitors_reply(c, cookie, nullptr));
    QMap<int, QRect> found;
    if (!reply)
        return found;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it)) {
        const auto nameCookie = xcb_get_atom_name(c, it.data->name);
        const auto nameReply = owned(xcb_get_atom_name_reply(c, nameCookie, nullptr));
        if (!nameReply)
            continue;
        const QString name = QString::fromLatin1(xcb_get_atom_name_name(nameReply.get()),
                                                 xcb_get_atom_name_name_length(nameReply.get()));
        if (name.startsWith(kOutputPrefix))
            found.insert(name.mid(kOutputPrefix.size()).toInt(),
                         QRect(it.data->x, it.data->y, it.data->width, it.data->height));
    }
    return found;
}

} // namespace zeigewerk::rig
