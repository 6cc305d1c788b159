#include "commands/hot_key_table.h"
#include "core/app_delegate.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace zeigewerk {

using platform::HotKey;
using platform::HotKeyId;
using platform::HotKeys;
using platform::HotKeyState;

void AppDelegate::registerHotKeys()
{
    HotKeys &hotKeys = m_desktop.hotKeys();
    connect(&hotKeys, &HotKeys::pressed, this, [](HotKeyId id) {
        if (gApp && id.signature == kHotKeySignature)
            gApp->hotKey(id.number);
    });
    std::vector<HotKey> wanted;
    std::transform(kHotKeyTable.begin(), kHotKeyTable.end(), std::back_inserter(wanted),
                   [](const HotKeyRow &row) { return row.hotKey(); });
    m_hotKeyRefs = hotKeys.registerHotKeys(wanted);
}

void AppDelegate::hotKey(std::uint32_t number)
{
    if (number == kEscHotKey.number)
        return std::invoke(kEscHotKey.operation, this);
    const auto row = std::find_if(kHotKeyTable.begin(), kHotKeyTable.end(),
                                  [number](const HotKeyRow &each) { return each.number == number; });
    if (row != kHotKeyTable.end())
        std::invoke(row->operation, this);
}

void AppDelegate::updateEscHotKey()
{
    if (!m_spotlightOn) {
        m_escHotKeyRef.reset();
        return;
    }
    // A refused hot key is requested again at each refresh.
    if (m_escHotKeyRef && m_escHotKeyRef->state() != HotKeyState::Refused)
        return;
    const std::array wanted = {kEscHotKey.hotKey()};
    m_escHotKeyRef = std::move(m_desktop.hotKeys().registerHotKeys(wanted).front());
}

} // namespace zeigewerk
