#pragma once

#include "platform/widget_window.h"

#include <QMargins>
#include <QWidget>

namespace zeigewerk::platform::x11 {

class X11Desktop;

/// A Qt widget as an override-redirect window among our surfaces.
class X11WidgetWindow final : public WidgetWindow
{
public:
    X11WidgetWindow(X11Desktop &desktop, WidgetRole role, QWidget &widget, const QMargins &ornament);
    ~X11WidgetWindow() override;

    QRectF frame() const override;
    void setFrameOrigin(QPointF origin) override;
    bool isVisible() const override { return m_visible; }
    void orderFrontRegardless() override;
    void orderOut() override;

private:
    X11Desktop &m_desktop;
    WidgetRole m_role;
    QWidget &m_widget;
    QMargins m_ornament;
    bool m_visible = false;
};

} // namespace zeigewerk::platform::x11
