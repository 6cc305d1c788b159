#include "canvas/drawing_view.h"
#include "canvas/text_field.h"
#include "core/app_delegate.h"

namespace zeigewerk {

using platform::KeyEvent;
using platform::Modifier;

namespace {

/// Whatever else is held, and in upper case too: CapsLock must not stand in the way of taking back.
bool isUndo(const KeyEvent &event)
{
    return event.modifiers.testAnyFlags(Modifier::Ctrl | Modifier::Super) &&
           QChar::toLower(event.character) == U'z';
}

} // namespace

void DrawingView::keyDown(const KeyEvent &event)
{
    if (!app)
        return;
    // Typed before the keyboard had come to the field.
    if (TextField *field = textField())
        field->keyDown(event);
    else if (event.isEscape)
        app->escapePressed();
    else if (isUndo(event))
        app->undoShape();
}

} // namespace zeigewerk
