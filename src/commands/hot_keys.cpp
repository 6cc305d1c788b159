#include "commands/hot_key_table.h"
#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::registerHotKeys()
{
    platform::HotKeys &hotKeys = m_desktop.hotKeys();
    hotKeys.setHandler([](platform::HotKeyId id) {
        if (gApp && id.signature == kHotKeySignature)
            gApp->hotKey(id.number);
    });
    for (const HotKeyRow &row : kHotKeyTable)
        m_hotKeyRefs.push_back(hotKeys.registerHotKey(row.key, row.modifiers, row.id()));
}

void AppDelegate::hotKey(std::uint32_t number)
{
    switch (number) {
    case 1:
        return toggleDraw();
    case 2:
        return toggleSpot();
    case 3:
        return toggleBoard();
    case 4:
        return toggleClicks();
    case 5:
        return toggleToolbar();
    case 6:
        return togglePin();
    case kEscHotKey.number:
        return escapePressed();
    default:
        return;
    }
}

} // namespace zeigewerk
