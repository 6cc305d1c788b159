#pragma once

#include "drawing/shape_list.h"
#include "platform/surface.h"
#include "platform/widget_window.h"

#include <QPointer>
#include <QRectF>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace zeigewerk {

class AppDelegate;
class TextField;
struct TextEntry;

/// Why a whole canvas was repainted. Drawing and following the pointer are no reasons.
enum class FullRepaint {
    Whiteboard, ///< the white ground appeared or went
    Spotlight,  ///< the dimming appeared or went
};

/// The canvas of one screen: the shapes drawn on it, how they are painted, and how the pointer and the
/// keyboard change them. View coordinates: points, origin at the bottom left, y up.
class DrawingView : public platform::SurfaceContent
{
public:
    /// The canvas of a surface of that size at (0, 0); it shows nothing until it has a surface.
    explicit DrawingView(QSizeF size);
    ~DrawingView() override;

    /// The controller; the canvas does nothing while there is none.
    QPointer<AppDelegate> app;

    QRectF bounds() const { return m_bounds; }
    /// The finished shapes, oldest first.
    const std::vector<Shape> &shapes() const { return m_shapes.shapes(); }
    /// The shape being dragged out: there is one only between a press and its release.
    const std::optional<Shape> &current() const { return m_current; }
    /// (0, 0) while the pointer's place is unknown.
    QPointF cursorPoint() const { return m_cursorPoint.value_or(QPointF()); }

    /// The surface that shows this canvas, or none; the canvas reports its damage there.
    void setSurface(platform::Surface *surface);

    /// Drops every shape, the one in progress included.
    void discardShapes();
    /// Drops the newest finished shape; false if there is none.
    bool removeNewestShape();
    /// Drops the finished shapes that have dissolved by now, and has those repainted that are dissolving.
    void removeDissolvedShapes();
    /// The pointer position in view coordinates: the middle of the spotlight, which needs to know it.
    void setCursorPoint(std::optional<QPointF> point);

    /// The field in which text is being typed on this canvas, and the window that shows it; null without one.
    TextField *textField() const;
    platform::WidgetWindow *textWindow() const;
    /// Closes an open text field, keeping its text as a shape.
    void commitTextField();

    /// The controller's modes may have changed: has the surface ask `willDisplay` what that changes.
    void modesChanged();
    /// The surface was shown again and is blank: everything that is to be seen is damage.
    void surfaceIsBlank();
    /// How often the whole canvas was repainted for that reason.
    int fullRepaints(FullRepaint reason) const;

    /// Reports what modes, spotlight and fading changed since the last pass; `draw` paints that state.
    void willDisplay() override;
    void draw(platform::PaintTarget &target) override;
    void mouseDown(const platform::PointerEvent &event) override;
    void mouseDragged(const platform::PointerEvent &event) override;
    void mouseUp(const platform::PointerEvent &event) override;
    void scrollWheel(const platform::ScrollEvent &event) override;
    void keyDown(const platform::KeyEvent &event) override;

private:
    struct Hole
    {
        QPointF middle;
        double radius = 0.0;

        friend bool operator==(const Hole &, const Hole &) = default;
    };

    /// What the picture depends on beside the shapes. One is kept of what the surface shows, so that
    /// painting a part of the picture always continues the same picture.
    struct Scene
    {
        bool whiteboard = false;
        bool fading = false;
        std::optional<Hole> spotlight;
        TimePoint time;
    };

    Scene sceneNow() const;
    void needsDisplay(const platform::Damage &damage);
    void repaintAll(FullRepaint reason);
    void damageFadedShapes(const Scene &next);
    void openTextField(QPointF point);
    void closeTextField();
    platform::Damage shapesArea() const;
    platform::Damage holesArea(const Hole &before, const Hole &after) const;
    void drawSpotlight(platform::PaintTarget &target, const Hole &hole) const;
    /// The one way to change the shape in progress: what its points from `firstPoint` on covered before and
    /// cover afterwards is repainted.
    template <typename Change>
    void changeCurrent(std::size_t firstPoint, Change change);

    QRectF m_bounds;
    ShapeList m_shapes;
    std::optional<Shape> m_current;
    std::unique_ptr<TextEntry> m_textEntry;
    std::optional<QPointF> m_cursorPoint;
    platform::Surface *m_surface = nullptr;
    Scene m_shown;
    std::map<FullRepaint, int> m_fullRepaints;
};

} // namespace zeigewerk
