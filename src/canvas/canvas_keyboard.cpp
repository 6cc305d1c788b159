#include "canvas/drawing_view.h"
#include "canvas/text_field.h"
#include "core/app_delegate.h"

namespace zeigewerk {

using platform::KeyEvent;
using platform::Modifier;

namespace {

/// Other modifiers do not matter, nor does upper case: CapsLock must not prevent undo.
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
    // Keys typed before the field got the keyboard.
    if (TextField *field = textField())
        field->keyDown(event);
    else if (event.isEscape)
        app->escapePressed();
    else if (isUndo(event))
        app->undoShape();
}

} // namespace zeigewerk
