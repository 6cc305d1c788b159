#pragma once

#include "platform/desktop.h"
#include "recording/recording_event_monitor.h"
#include "recording/recording_hot_keys.h"

#include <QImage>
#include <QStringList>

#include <map>
#include <optional>
#include <set>

namespace zeigewerk::platform {

class RecordingDesktop;

/// A surface whose picture is an image in memory.
class RecordingSurface : public Surface
{
public:
    RecordingSurface(RecordingDesktop &desktop, QString name, const QRectF &frame);
    ~RecordingSurface() override;

    void setContent(SurfaceContent *content) override { m_content = content; }
    QRectF frame() const override { return m_frame; }
    void setFrameOrigin(QPointF origin) override;
    bool isVisible() const override { return m_visible; }
    void orderFrontRegardless() override;
    void orderOut() override;
    void setIgnoresMouseEvents(bool ignores) override;
    void makeKey() override;
    void setNeedsDisplay(const Damage &damage) override;

    bool ignoresMouseEvents() const { return m_ignoresMouseEvents; }
    SurfaceContent *content() { return m_content; }
    const QString &name() const { return m_name; }
    /// Counts up with every order-front of any surface or window.
    quint64 orderedFront() const { return m_orderedFront; }

    /// Paints the damage, as the event loop would do on its next pass. Returns whether there was any.
    bool display();
    /// The current picture; null while the surface is ordered out.
    const QImage &image() const { return m_image; }
    /// How many pixels `display` has painted since the surface was made.
    qint64 paintedPixels() const { return m_paintedPixels; }

private:
    void adoptScale();
    QImage blankImage() const;

    RecordingDesktop &m_desktop;
    QString m_name;
    QRectF m_frame;
    double m_scale;
    SurfaceContent *m_content = nullptr;
    bool m_visible = false;
    bool m_ignoresMouseEvents = true;
    bool m_isDisplayWanted = false;
    quint64 m_orderedFront = 0;
    Damage m_damage;
    QImage m_image;
    qint64 m_paintedPixels = 0;
};

/// The window of a widget. It is shown and hidden on Qt's own platform, so that a test can click in it.
class RecordingWindow : public WidgetWindow
{
public:
    RecordingWindow(RecordingDesktop &desktop, QString name, WidgetRole role, QWidget &widget,
                    const QMargins &ornament);
    ~RecordingWindow() override;

    QRectF frame() const override;
    void setFrameOrigin(QPointF origin) override;
    void setFrameOriginOn(const QRectF &screenFrame, QPointF origin) override;
    void drag(QPointF grip, QPointF position) override;
    bool isVisible() const override { return m_visible; }
    void orderFrontRegardless() override;
    void orderOut() override;
    void setIgnoresMouseEvents(bool ignores) override;
    void makeKey() override;
    bool isKey() const override;

    bool ignoresMouseEvents() const { return m_ignoresMouseEvents; }
    WidgetRole role() const { return m_role; }
    QWidget &widget() const { return m_widget; }
    quint64 orderedFront() const { return m_orderedFront; }

private:
    RecordingDesktop &m_desktop;
    QString m_name;
    WidgetRole m_role;
    QWidget &m_widget;
    QMargins m_ornament;
    QPointF m_origin;
    bool m_visible = false;
    bool m_ignoresMouseEvents = false;
    quint64 m_orderedFront = 0;
};

/// A desktop for tests. The test sets its screens and its pointer; it records all requests in order.
class RecordingDesktop : public Desktop
{
    Q_OBJECT

public:
    /// One screen of 1000 x 800 points at scale 1.
    RecordingDesktop();
    /// `screens` as `ScreenLayout` takes them.
    explicit RecordingDesktop(std::vector<Screen> screens);

    std::vector<Screen> screens() const override { return m_layout.screens(); }
    std::unique_ptr<Surface> makeSurface(SurfaceRole role, const QRectF &frame) override;
    std::unique_ptr<WidgetWindow> makeWindow(WidgetRole role, QWidget &widget,
                                             const QMargins &ornament) override;
    std::optional<Screen> mainScreen() const override;
    QRectF visibleFrame(const Screen &screen) const override;
    QString limitation(Feature feature) const override;
    std::optional<QPointF> mouseLocation() const override { return m_mouseLocation; }
    void setFollowsPointer(bool follows) override { m_followsPointer = follows; }
    bool isComposited() const override { return m_isComposited; }
    bool showsTrayIcons() const override { return m_hasTray; }
    RecordingHotKeys &hotKeys() override { return m_hotKeys; }
    RecordingEventMonitor &eventMonitor() override { return m_eventMonitor; }
    void activate() override;
    void deactivate() override;

    /// Returns the requests in order, such as "overlay 0: order front", and empties the log.
    QStringList takeLog();
    void setMouseLocation(QPointF location) { m_mouseLocation = location; }
    /// From now on the desktop does not know where the pointer is.
    void hideMouseLocation() { m_mouseLocation.reset(); }
    bool followsPointer() const { return m_followsPointer; }
    /// Why the desktop does not offer that feature; it offers it if the text is empty.
    void setLimitation(Feature feature, const QString &reason);
    /// Puts the keyboard focus on the screen with that index.
    void setMainScreen(std::size_t index) { m_mainScreen = index; }
    /// Removes these margins, with y up, from every screen's visible frame.
    void setDocks(const QMarginsF &docks)
    {
        m_docks = {docks.left(), docks.bottom(), docks.right(), docks.top()};
    }
    void setComposited(bool isComposited);
    void setTray(bool exists);
    /// Changes the screens and emits `screensChanged`.
    void changeScreens(std::vector<Screen> screens);
    /// The existing surfaces of that role, oldest first.
    std::vector<RecordingSurface *> surfaces(SurfaceRole role) const;
    /// The existing windows, oldest first.
    const std::vector<RecordingWindow *> &windows() const { return m_windows; }

    /// Which of our windows has the keyboard, such as "overlay 0"; empty for none.
    QString keyWindow() const { return m_keyWindow; }

private:
    friend class RecordingSurface;
    friend class RecordingWindow;
    friend class RecordingHotKeys;

    void note(const QString &what) { m_log.append(what); }
    void forgetKey(const QString &window)
    {
        if (m_keyWindow == window)
            m_keyWindow.clear();
    }

    ScreenLayout m_layout;
    std::optional<QPointF> m_mouseLocation = QPointF();
    bool m_followsPointer = false;
    std::map<Feature, QString> m_limitations;
    std::size_t m_mainScreen = 0;
    QMarginsF m_docks;
    bool m_isComposited = true;
    bool m_hasTray = false;
    QStringList m_log;
    std::map<SurfaceRole, std::vector<RecordingSurface *>> m_surfaces;
    std::map<SurfaceRole, int> m_surfacesMade;
    std::map<WidgetRole, int> m_windowsMade;
    std::vector<RecordingWindow *> m_windows;
    quint64 m_lastOrder = 0;
    QString m_keyWindow;
    RecordingHotKeys m_hotKeys{*this};
    RecordingEventMonitor m_eventMonitor{*this};
};

} // namespace zeigewerk::platform
