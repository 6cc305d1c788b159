#pragma once

#include "canvas/drawing_view.h"
#include "platform/desktop.h"

#include <memory>

namespace zeigewerk {

class AppDelegate;

/// The transparent window over one screen: a surface of the desktop, the canvas that it shows, and the text
/// field that may be open on it. Created hidden and click-through; only `AppDelegate::refreshAll` changes
/// that.
class OverlayWindow
{
public:
    OverlayWindow(platform::Desktop &desktop, const platform::Screen &screen);

    /// `view` must outlive the window.
    void setContentView(DrawingView *view);

    /// Points, global coordinates, y up.
    QRectF frame() const { return m_surface->frame(); }
    void setIgnoresMouseEvents(bool ignores);
    void orderFrontRegardless();
    void orderOut();
    void makeKeyAndOrderFront();

private:
    /// The window of the text field that is open on the canvas; it follows this one. Null if none is open.
    platform::WidgetWindow *textWindow() const { return m_view ? m_view->textWindow() : nullptr; }

    std::unique_ptr<platform::Surface> m_surface;
    DrawingView *m_view = nullptr;
};

/// The canvas of one screen, and the window that shows it.
class Overlay
{
public:
    Overlay(platform::Desktop &desktop, const platform::Screen &screen, AppDelegate &app);

    DrawingView &view() { return m_view; }
    const DrawingView &view() const { return m_view; }
    OverlayWindow &window() { return m_window; }
    const OverlayWindow &window() const { return m_window; }

private:
    // The window refers to the view, so it is destroyed first.
    DrawingView m_view;
    OverlayWindow m_window;
};

} // namespace zeigewerk
