#pragma once

#include "recording/recording_desktop.h"

#include <QColor>

namespace zeigewerk::platform {

/// The user of a recording desktop: moves, clicks and types, and sees what is on the screen. What no surface
/// or window of ours takes goes to another application beneath, whose window is blue.
class RecordingUser
{
public:
    explicit RecordingUser(RecordingDesktop &desktop)
        : m_desktop(desktop)
    {
    }

    void movePointer(QPointF place);
    void pressButton();
    void releaseButton();
    /// Upwards positive.
    void turnWheel(int steps);
    void setModifiers(Modifiers modifiers) { m_modifiers = modifiers; }
    void pressKey(PhysicalKey key);

    /// The screen there, after everything damaged has been painted.
    QColor pixel(QPointF place);

    /// Left clicks and keys that the other application got.
    int clicksElsewhere() const { return m_clicksElsewhere; }
    int keysElsewhere() const { return m_keysElsewhere; }
    void forgetElsewhere() { m_clicksElsewhere = m_keysElsewhere = 0; }

private:
    /// A surface or a window; one of the two is null.
    struct Shown
    {
        RecordingSurface *surface = nullptr;
        RecordingWindow *window = nullptr;

        QRectF frame() const { return surface ? surface->frame() : window->frame(); }
    };

    std::vector<Shown> fromFront() const;
    std::optional<Shown> underPointer() const;
    RecordingSurface *keySurface() const;
    PointerEvent pointerEvent(const RecordingSurface &surface) const;
    QPointF pointer() const { return m_desktop.mouseLocation().value_or(QPointF()); }

    RecordingDesktop &m_desktop;
    Modifiers m_modifiers;
    /// Has the pointer until the button is released.
    RecordingSurface *m_dragged = nullptr;
    int m_clicksElsewhere = 0;
    int m_keysElsewhere = 0;
};

} // namespace zeigewerk::platform
