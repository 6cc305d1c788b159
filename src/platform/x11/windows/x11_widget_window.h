#pragma once

#include "platform/widget_window.h"
#include "platform/x11/windows/stacked_window.h"

#include <QMargins>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace zeigewerk::platform::x11 {

/// A Qt widget as an override-redirect window among our surfaces. Qt creates and paints the window on its own
/// connection. This class sets its place in the stack and its input shape on ours.
class X11WidgetWindow final : public QObject, public WidgetWindow, private StackedWindow
{
    Q_OBJECT

public:
    X11WidgetWindow(const WindowServices &services, WidgetRole role, QWidget &widget,
                    const QMargins &ornament);
    ~X11WidgetWindow() override;

    QRectF frame() const override;
    void setFrameOrigin(QPointF origin) override;
    /// If the window's middle would lie on a screen of another scale, the widget is cut off at the edge of
    /// its own screen: Qt uses one scale for the whole window.
    void setFrameOriginOn(const QRectF &screenFrame, QPointF origin) override;
    /// Uses the pointer's current place: the event's position was measured before the window last moved.
    void drag(QPointF grip, QPointF position) override;
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
    /// Moves the window back to its place and size if they have changed. When a screen comes or goes, Qt
    /// moves windows to other screens without regard to the scales.
    void restorePlace();
    void restorePlaceSoon();
    /// Sets the part of the window that takes the pointer, and the part to blur behind.
    void describeFrame();
    void askForBlur(const QRect &nativeFrame);

    Connection &m_connection;
    WidgetRole m_role;
    QWidget &m_widget;
    QMargins m_ornament;
    /// The corner of a text field in pixels. Qt itself only knows whole points.
    std::optional<QPoint> m_nativeCorner;
    /// The place of any other window in Qt's points; none before it is set.
    std::optional<QRect> m_place;
    QTimer m_restoring;
    bool m_ignoresMouseEvents = false;
};

} // namespace zeigewerk::platform::x11
