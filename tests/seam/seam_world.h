#pragma once

#include "platform/events.h"

#include <QColor>
#include <QMargins>
#include <QString>

namespace zeigewerk::test {

/// A desktop seen from outside, with one screen of at least 1000 x 700 points at scale 1: the program under
/// test (a `SeamSubject`), the user's input, and another application whose blue window fills the screen
/// beneath. Places are points, global coordinates, y up; a pointer lies on the middle of a pixel.
class SeamWorld
{
public:
    virtual ~SeamWorld() = default;

    /// Makes the program do what the line says, and returns its answer.
    virtual QString tell(const QString &line) = 0;

    virtual void movePointer(QPointF place) = 0;
    virtual void pressButton() = 0;
    virtual void releaseButton() = 0;
    /// Steps of the wheel, upwards positive.
    virtual void turnWheel(int steps) = 0;
    virtual void holdModifiers(platform::Modifiers modifiers) = 0;
    virtual void releaseModifiers() = 0;
    virtual void pressKey(platform::PhysicalKey key) = 0;
    virtual void releaseKey(platform::PhysicalKey key) = 0;

    /// The colour on the screen there.
    virtual QColor pixel(QPointF place) = 0;

    /// What reached the other application: presses of the left button, and of keys.
    virtual int otherClicks() = 0;
    virtual int otherKeys() = 0;
    /// Forgets what reached it until now.
    virtual void forgetOtherInput() = 0;
    virtual bool otherHasKeyboard() = 0;
    /// The other application takes the hot key "D" (Ctrl+Alt+D) before the program asks for it.
    virtual void otherGrabsHotKey() = 0;
    /// Sets how much of each edge of the screen docks take.
    virtual void setDocks(const QMargins &margins) = 0;

    /// A press and a release.
    void click()
    {
        pressButton();
        releaseButton();
    }
    void tap(platform::PhysicalKey key)
    {
        pressKey(key);
        releaseKey(key);
    }
};

} // namespace zeigewerk::test
