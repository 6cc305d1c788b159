#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::refreshToolbar()
{
    if (!m_toolbar)
        return;
}

void AppDelegate::toggleToolbar()
{
    m_toolbarVisible = !m_toolbarVisible;
}

} // namespace zeigewerk
