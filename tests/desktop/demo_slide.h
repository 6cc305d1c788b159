#pragma once

#include "rig.h"

namespace zeigewerk::rig {

/// The slide of the demonstration: a title, a chart, and a button that shows when it has been clicked. Places
/// are native root pixels on a screen of 1920 x 1080.
class DemoSlide
{
public:
    DemoSlide(DesktopSession &session, const QRect &rect);

    /// Paints the slide, focuses it, and waits until it is on the screen.
    bool present();
    bool hasFocus() { return m_window.hasFocus(); }
    /// Whether a click has reached the button; the slide shows it from then on.
    bool isButtonPressed();

private:
    void setPicture(const QImage &picture);

    DesktopSession &m_session;
    QRect m_rect;
    WindowBeneath m_window;
};

QPoint slideTitleLeft();
/// The middle of the highest column.
QPoint slideChartTop();
QPoint slideButton();

} // namespace zeigewerk::rig
