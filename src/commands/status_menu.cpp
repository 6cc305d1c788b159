#include "commands/status_item.h"
#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::rebuildMenu()
{
    if (!m_statusItem)
        return;
}

void AppDelegate::openStatusMenu() {}

} // namespace zeigewerk
