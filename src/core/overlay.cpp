#include "core/overlay.h"

#include "core/app_delegate.h"

namespace zeigewerk {

OverlayWindow::OverlayWindow(platform::Desktop &desktop, const platform::Screen &screen)
    : m_surface(desktop.makeSurface(platform::SurfaceRole::Overlay, screen.frame))
{
    m_surface->setIgnoresMouseEvents(true);
}

void OverlayWindow::setContentView(DrawingView *view)
{
    m_view = view;
    m_surface->setContent(view);
    view->setSurface(m_surface.get());
}

void OverlayWindow::setIgnoresMouseEvents(bool ignores)
{
    m_surface->setIgnoresMouseEvents(ignores);
    if (platform::WidgetWindow *field = textWindow())
        field->setIgnoresMouseEvents(ignores);
}

void OverlayWindow::orderFrontRegardless()
{
    const bool wasHidden = !m_surface->isVisible();
    m_surface->orderFrontRegardless();
    if (wasHidden && m_view)
        m_view->surfaceIsBlank();
    if (platform::WidgetWindow *field = textWindow())
        field->orderFrontRegardless();
}

void OverlayWindow::orderOut()
{
    if (platform::WidgetWindow *field = textWindow())
        field->orderOut();
    m_surface->orderOut();
}

void OverlayWindow::makeKeyAndOrderFront()
{
    orderFrontRegardless();
    // While a text field is open, it gets the keyboard.
    if (platform::WidgetWindow *field = textWindow())
        field->makeKey();
    else
        m_surface->makeKey();
}

Overlay::Overlay(platform::Desktop &desktop, const platform::Screen &screen, AppDelegate &app)
    : m_view(screen.frame.size())
    , m_window(desktop, screen)
{
    m_view.app = &app;
    m_window.setContentView(&m_view);
}

} // namespace zeigewerk
