#pragma once

#include "platform/surface.h"
#include "platform/x11/windows/frame_buffer.h"
#include "platform/x11/windows/stacked_window.h"

#include <QRect>

#include <xcb/xinput.h>

#include <optional>

namespace zeigewerk::platform::x11 {

/// A surface on X11: an override-redirect window with an alpha channel. No window manager stacks, focuses,
/// moves or decorates it.
class X11Surface final : public Surface, private StackedWindow
{
public:
    X11Surface(const WindowServices &services, SurfaceRole role, const QRectF &frame);
    ~X11Surface() override;

    void setContent(SurfaceContent *content) override { m_content = content; }
    QRectF frame() const override { return m_frame; }
    void setFrameOrigin(QPointF origin) override;
    bool isVisible() const override { return isShown(); }
    void orderFrontRegardless() override { orderFront(); }
    void orderOut() override { hide(); }
    void setIgnoresMouseEvents(bool ignores) override;
    void makeKey() override;
    void setNeedsDisplay(const Damage &damage) override;

    bool owns(xcb_window_t id) const { return id == window() || (m_inputWindow && id == m_inputWindow); }

    /// Paints and shows the damaged parts.
    void display();
    /// The compositor came or went.
    void compositingChanged();
    /// The server has lost the contents of that part of the window.
    void exposed(const QRect &pixels);
    void buttonPressed(const xcb_input_button_press_event_t &event);
    void buttonReleased(const xcb_input_button_press_event_t &event);
    void pointerMoved(const xcb_input_button_press_event_t &event);
    /// `scroll` is the scrolling that the event stands for, if any.
    void scrolled(std::optional<ScrollEvent> scroll, const xcb_input_button_press_event_t &event);
    void keyPressed(const KeyEvent &event);

private:
    void prepareToShow() override { compositingChanged(); }
    void map() override;
    void unmap() override;
    void adoptScale(double scale);
    void updateInputWindow();
    void put(const QRegion &region);
    void endDrag(const xcb_input_button_press_event_t &event);
    PointerEvent pointerEvent(const xcb_input_button_press_event_t &event) const;
    QPointF globalPosition(const xcb_input_button_press_event_t &event) const;

    Connection &m_connection;
    QRectF m_frame;
    double m_scale;
    QRect m_nativeFrame;
    /// Takes the pointer without a compositor, because the shaped window gets it only over painted pixels.
    /// Created when it is first needed.
    xcb_window_t m_inputWindow = 0;
    bool m_isInputWindowShown = false;
    xcb_gcontext_t m_context = 0;
    SurfaceContent *m_content = nullptr;
    bool m_ignoresMouseEvents = false;
    bool m_isLeftButtonHeld = false;
    Damage m_damage;
    bool m_isDisplayWanted = false;
    /// Encloses all pixels put since the window was shown. The rest is transparent.
    QRect m_painted;
    std::optional<FrameBuffer> m_buffer;
};

} // namespace zeigewerk::platform::x11
