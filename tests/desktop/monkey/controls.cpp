#include "controls.h"

#include "program_windows.h"
#include "rig/grab_probe.h"

#include <QMap>

namespace zeigewerk::rig {

namespace {

/// A keyboard grab that lasts longer than this comes from an open menu.
constexpr std::chrono::seconds kMenuTimeout{1};

/// The modes that have a hot key.
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
    // An open menu, of the program or of the window manager, grabs the keyboard, including hot keys. If it
    // opened during another program's grab, it grabs the keyboard a moment later.
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
        return {QStringLiteral("it has no item in the tray, so its modes are unknown")};
    // Unpinning turns drawing on, so more modes may have to be turned off than were on.
    constexpr int kMaxSwitches = 12;
    for (int i = 0; i < kMaxSwitches; ++i) {
        const QStringList active = modesOn(*found);
        if (active.isEmpty())
            return {};
        const QString mode = random.of(active);
        switchOff(mode, random);
        if (!eventually([&] { return !modesOn(*found).contains(mode); }))
            return {QStringLiteral("\"%1\" cannot be turned off").arg(mode)};
    }
    return {QStringLiteral("still on: ") + modesOn(*found).join(QStringLiteral(", "))};
}

} // namespace zeigewerk::rig
