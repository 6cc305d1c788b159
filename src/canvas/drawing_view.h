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

/// The reasons to repaint a whole canvas. Drawing and following the pointer are not among them.
enum class FullRepaint {
    Whiteboard, ///< the white background appeared or disappeared
    Spotlight,  ///< the dimming appeared or disappeared
};

/// The canvas of one screen: the shapes drawn on it, how they are painted, and how the pointer and the
/// keyboard change them. View coordinates: points, origin at the bottom left, y up.
class DrawingView : public platform::SurfaceContent
{
public:
    /// Creates a canvas with bounds of that size at (0, 0). It is not shown until it has a surface.
    explicit DrawingView(QSizeF size);
    ~DrawingView() override;

    /// The controller. Without one the canvas does nothing.
    QPointer<AppDelegate> app;

    QRectF bounds() const { return m_bounds; }
    /// The finished shapes, oldest first.
    const std::vector<Shape> &shapes() const { return m_shapes.shapes(); }
    /// The shape in progress; there is one only between a press and its release.
    const std::optional<Shape> &current() const { return m_current; }
    /// (0, 0) while the pointer's place is unknown.
    QPointF cursorPoint() const { return m_cursorPoint.value_or(QPointF()); }

    /// Sets the surface that shows this canvas and receives its damage; null for none.
    void setSurface(platform::Surface *surface);

    /// Removes every shape, including the one in progress.
    void discardShapes();
    /// Removes the newest finished shape; false if there is none.
    bool removeNewestShape();
    /// Removes the finished shapes that have dissolved, and repaints those that are dissolving.
    void removeDissolvedShapes();
    /// Sets the pointer position, in view coordinates: the centre of the spotlight. There is no spotlight
    /// while it is unknown.
    void setCursorPoint(std::optional<QPointF> point);

    /// The text field that is open on this canvas, and its window; null if none is open.
    TextField *textField() const;
    platform::WidgetWindow *textWindow() const;
    /// Closes the text field if one is open, and keeps its text as a shape.
    void commitTextField();

    /// Call this when the controller's modes may have changed: the surface asks `willDisplay` for the damage.
    void modesChanged();
    /// Call this when the surface was shown again and is blank: everything visible becomes damage.
    void surfaceIsBlank();
    /// How often the whole canvas was repainted for that reason.
    int fullRepaints(FullRepaint reason) const;

    /// Reports the damage of modes, spotlight and fading since the last pass; `draw` paints the new state.
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
        QPointF center;
        double radius = 0.0;

        friend bool operator==(const Hole &, const Hole &) = default;
    };

    /// What the picture depends on besides the shapes. The view keeps the one that the surface shows, so that
    /// all parts of a picture are painted from the same state.
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
    /// The only way to change the shape in progress. Repaints the area that its points from `firstPoint` on
    /// covered before and cover now.
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
