// The text tool: a press opens a text field, and the typed text becomes a shape.

#include "canvas/text_entry.h"

#include "canvas/drawing_view.h"
#include "core/app_delegate.h"
#include "drawing/render_shape.h"

namespace zeigewerk {

namespace {

/// Most of the field lies below the pressed point.
constexpr QPointF kFrameFromPress(0, -28);
constexpr QPointF kTextFromFrame(2, 4);

} // namespace

TextField *DrawingView::textField() const
{
    return m_textEntry ? m_textEntry->field.get() : nullptr;
}

platform::WidgetWindow *DrawingView::textWindow() const
{
    return m_textEntry ? m_textEntry->window.get() : nullptr;
}

void DrawingView::openTextField(QPointF point)
{
    if (!m_surface)
        return;
    auto entry = std::make_unique<TextEntry>();
    entry->origin = point + kFrameFromPress;
    // White text would be invisible on the white field.
    entry->field = std::make_unique<TextField>(app->color() == kWhite ? kBlack : app->color());
    TextField *field = entry->field.get();
    platform::Desktop *desktop = &app->desktop();
    const auto adopt = [field, desktop] { field->setComposited(desktop->isComposited()); };
    QObject::connect(desktop, &platform::Desktop::compositingChanged, field, adopt);
    adopt();
    QObject::connect(field, &TextField::entered, field, [this] { commitTextField(); });
    QObject::connect(field, &TextField::cancelled, field, [this] { closeTextField(); });
    QObject::connect(field, &TextField::pressed, field, [this] { textWindow()->makeKey(); });
    QObject::connect(field, &TextField::scrolled, field,
                     [this](const platform::ScrollEvent &event) { scrollWheel(event); });

    entry->window = desktop->makeWindow(platform::WidgetRole::TextField, *field, {});
    const QRectF screenFrame = m_surface->frame();
    entry->window->setFrameOriginOn(screenFrame, screenFrame.topLeft() + entry->origin + kTextFromFrame -
                                                     field->lineOrigin());
    m_textEntry = std::move(entry);
    textWindow()->orderFrontRegardless();
    textWindow()->makeKey();
}

void DrawingView::commitTextField()
{
    if (!m_textEntry)
        return;
    m_textEntry->field->commitComposition();
    const QString text = m_textEntry->field->text();
    const QPointF start = m_textEntry->origin + kTextFromFrame;
    closeTextField();
    if (!app || text.isEmpty())
        return;
    m_shapes.append(Shape{.tool = Tool::text,
                          .points = {},
                          .start = start,
                          .end = start,
                          .color = app->color(),
                          .width = app->lineWidth(),
                          .text = text,
                          .created = app->now()});
    needsDisplay(paintedArea(shapes().back()));
    app->noteShapeAdded(*this);
}

void DrawingView::closeTextField()
{
    const std::unique_ptr<TextEntry> entry = std::move(m_textEntry);
    if (!entry)
        return;
    // The canvas takes the keyboard before the field closes, so that no key gets lost. It takes it only from
    // the field; after interaction, the keyboard returns to the application that had it.
    if (entry->window->isKey() && app && app->interactionOn() && m_surface)
        m_surface->makeKey();
    entry->window.reset();
    // The field may still be handling the key that closes it.
    entry->field->disconnect();
    entry->field.release()->deleteLater();
}

} // namespace zeigewerk
