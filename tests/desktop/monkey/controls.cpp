#include "controls.h"

#include "program_windows.h"
#include "rig/grab_probe.h"

#include <QMap>

namespace zeigewerk::rig {

namespace {

/// Whoever holds the keyboard longer than that does not do so for a moment.
constexpr std::chrono::seconds kMenuTimeout{1};

/// Those that have a hot key, and it.
const QMap<QString, Key> &hotKeysOfModes()
{
    static const QMap<QString, Key> kKeys = {{label::kDraw, Key::D},
                                             {label::kSpot, Key::S},
                                             {label::kBoard, Key::W},
                                             {label::kClicks, Key::K},
                                             {label::kPin, Key::P}};
    return kKeys;
}

} // namespace

void Controls::closeMenus()
{
    // An open menu, of the program or of the window manager, has the keyboard, hot keys included; one that
    // opened while another program had it gets it a moment later.
    const auto isNoneOpen = [this] { return !isMenuOpen() && canGrabKeyboard(m_session); };
    constexpr int kMaxMenus = 4;
    for (int i = 0; i < kMaxMenus && !eventually(isNoneOpen, kMenuTimeout); ++i)
        m_session.keyboard().tap(Key::Escape);
}

bool Controls::isMenuOpen()
{
    Client &client = m_session.client();
    const QList<xcb_window_t> windows = client.stackedChildren(client.root());
    return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t id) {
        const std::optional<WindowInfo> window = client.window(id);
        return window && window->viewable && isMenu(m_session, *window);
    });
}

std::optional<TrayItem> Controls::item()
{
    QList<TrayItem> items;
    if (!eventually([&] { return (items = m_desktop.tray().host.items()).size() == 1; }))
        return std::nullopt;
    return items.first();
}

QStringList Controls::modesOn(const TrayItem &item)
{
    QStringList modes;
    for (const TrayMenuItem &entry : m_desktop.tray().host.menu(item)) {
        if (entry.isChecked() && entry.label != label::kDark)
            modes.append(entry.label);
    }
    return modes;
}

void Controls::switchOff(const QString &mode, RandomChoice &random)
{
    const auto key = hotKeysOfModes().constFind(mode);
    if (key != hotKeysOfModes().cend() && !random.oneIn(3))
        m_session.keyboard().chord({Key::Ctrl, Key::Alt}, *key);
    else
        click(mode);
}

bool Controls::click(const QString &label)
{
    const auto found = item();
    if (!found)
        return false;
    for (const TrayMenuItem &entry : m_desktop.tray().host.menu(*found)) {
        if (entry.label == label)
            return m_desktop.tray().host.click(*found, entry.id);
    }
    return false;
}

bool Controls::isToolbarOn()
{
    const auto found = item();
    const QList<TrayMenuItem> menu = found ? m_desktop.tray().host.menu(*found) : QList<TrayMenuItem>();
    return std::any_of(menu.begin(), menu.end(),
                       [](const TrayMenuItem &entry) { return entry.label == label::kHide; });
}

QStringList Controls::switchAllOff(RandomChoice &random)
{
    const auto found = item();
    if (!found)
        return {QStringLiteral("it has no item in the tray, so nothing tells its modes")};
    // Unpinning goes on with drawing, so there may be more to switch off than there was.
    constexpr int kMaxSwitches = 12;
    for (int i = 0; i < kMaxSwitches; ++i) {
        const QStringList active = modesOn(*found);
        if (active.isEmpty())
            return {};
        const QString mode = random.of(active);
        switchOff(mode, random);
        if (!eventually([&] { return !modesOn(*found).contains(mode); }))
            return {QStringLiteral("\"%1\" cannot be switched off").arg(mode)};
    }
    return {QStringLiteral("still on: ") + modesOn(*found).join(QStringLiteral(", "))};
}

} // namespace zeigewerk::rig
