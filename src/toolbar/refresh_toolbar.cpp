#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::refreshToolbar()
{
    if (!m_toolbar)
        return;
}

void AppDelegate::toggleDarkUI()
{
    m_darkUI = !m_darkUI;
}

void AppDelegate::toggleToolbar()
{
    m_toolbarVisible = !m_toolbarVisible;
}

} // namespace zeigewerk
