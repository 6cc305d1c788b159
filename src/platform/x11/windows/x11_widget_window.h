#pragma once

#include "platform/widget_window.h"
#include "platform/x11/windows/stacked_window.h"

#include <QMargins>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace zeigewerk::platform::x11 {

/// A Qt widget as an override-redirect window among our surfaces. Qt makes and paints the window on its own
/// connection; its place in the stack and its input shape are set from ours.
class X11WidgetWindow final : public QObject, public WidgetWindow, private StackedWindow
{
    Q_OBJECT

public:
    X11WidgetWindow(const WindowServices &services, WidgetRole role, QWidget &widget,
                    const QMargins &ornament);
    ~X11WidgetWindow() override;

    QRectF frame() const override;
    void setFrameOrigin(QPointF origin) override;
    void setFrameOriginOn(const QRectF &screenFrame, QPointF origin) override;
    bool isVisible() const override { return isShown(); }
    void orderFrontRegardless() override { orderFront(); }
    void orderOut() override { hide(); }
    void setIgnoresMouseEvents(bool ignores) override;
    void makeKey() override;
    bool isKey() const override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepareToShow() override;
    void map() override;
    void unmap() override;
    void adoptNativeWindow();
    void putOnScreen(const QString &name);
    void placeToThePixel();
    QSize size() const;
    /// Gives the window the place and size that it is to have, should it have others: when a screen goes or
    /// comes, Qt takes a window to another one without regard to their scales.
    void settle();
    void settleSoon();
    /// Tells the server which part of the window is the frame, and takes the pointer.
    void describeFrame();
    void askForBlur(const QRect &nativeFrame);

    Connection &m_connection;
    WidgetRole m_role;
    QWidget &m_widget;
    QMargins m_ornament;
    /// Where a text field is to lie in pixels; Qt itself knows whole points only.
    std::optional<QPoint> m_nativeCorner;
    /// Where all the others are to lie, in Qt's points; none until they are placed.
    std::optional<QRect> m_place;
    QTimer m_settling;
    bool m_ignoresMouseEvents = false;
};

} // namespace zeigewerk::platform::x11
