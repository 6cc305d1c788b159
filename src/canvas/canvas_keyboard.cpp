#include "canvas/drawing_view.h"
#include "canvas/text_field.h"
#include "core/app_delegate.h"

namespace zeigewerk {

using platform::KeyEvent;
using platform::Modifier;

namespace {

/// Shift is left open, and with it upper case: CapsLock must not stand in the way of taking back. With Alt
/// the key belongs to a global hot key, ours or another program's.
bool isUndo(const KeyEvent &event)
{
    const bool isCommand = event.modifiers.testAnyFlags(Modifier::Ctrl | Modifier::Super) &&
                           !event.modifiers.testFlag(Modifier::Alt);
    return isCommand && QChar::toLower(event.character) == U'z';
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
