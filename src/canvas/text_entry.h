#pragma once

#include "canvas/text_field.h"
#include "platform/widget_window.h"

#include <QPointF>

#include <memory>

namespace zeigewerk {

/// The text being typed on a canvas.
struct TextEntry
{
    /// The lower left corner of the field's frame in view coordinates. The window is at the nearest pixel.
    QPointF origin;
    std::unique_ptr<TextField> field;
    // It shows the field, so it is destroyed first.
    std::unique_ptr<platform::WidgetWindow> window;
};

} // namespace zeigewerk
