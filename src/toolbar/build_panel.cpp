#include "core/app_delegate.h"
#include "toolbar/panel.h"

namespace zeigewerk {

void AppDelegate::buildPanel()
{
    m_toolbar = std::make_unique<Toolbar>();
    m_toolbar->panel = std::make_unique<Panel>();
    m_toolbar->panel->resize(QSize(151, 477).grownBy(Panel::kShadow));
    m_toolbar->window =
        m_desktop.makeWindow(platform::WidgetRole::Toolbar, *m_toolbar->panel, Panel::kShadow);
    m_toolbar->window->setFrameOrigin({1000, 300});
    m_toolbar->window->orderFrontRegardless();
}

} // namespace zeigewerk
