#include "platform/x11/windows/x11_surface.h"

#include "platform/levels.h"
#include "platform/paint_damage.h"
#include "platform/x11/input/modifiers.h"
#include "platform/x11/windows/painted_shape.h"
#include "platform/x11/windows/surface_window.h"

#include <xcb/shape.h>

#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

/// X Input's 16.16 fixed point.
double fromFixed(xcb_input_fp1616_t value)
{
    return value / 65536.0;
}

bool holdsLeftButton(const xcb_input_button_press_event_t &event)
{
    return event.buttons_len > 0 && (*xcb_input_button_press_button_mask(&event) & (1U << kLeftButton)) != 0;
}

} // namespace

X11Surface::X11Surface(const WindowServices &services, SurfaceRole role, const QRectF &frame)
    : StackedWindow(services, {.level = levelOf(role)})
    , m_connection(services.connection)
    , m_frame(frame)
    , m_scale(services.layout().scaleAt(frame.center()))
    , m_nativeFrame(services.layout().nativeRect(frame))
{
    setWindows({createSurfaceWindow(m_connection, role, m_nativeFrame)});
    m_context = xcb_generate_id(m_connection.xcb());
    xcb_create_gc(m_connection.xcb(), m_context, window(), 0, nullptr);
    setIgnoresMouseEvents(true);
    services.surfaces.add(*this);
}

X11Surface::~X11Surface()
{
    services().surfaces.remove(*this);
    xcb_free_gc(m_connection.xcb(), m_context);
    xcb_destroy_window(m_connection.xcb(), window());
    if (m_inputWindow)
        xcb_destroy_window(m_connection.xcb(), m_inputWindow);
}

void X11Surface::setFrameOrigin(QPointF origin)
{
    m_frame.moveTopLeft(origin);
    adoptScale(services().layout().scaleAt(m_frame.center()));
    const QRect nativeFrame = services().layout().nativeRect(m_frame);
    if (nativeFrame == m_nativeFrame)
        return;
    m_nativeFrame = nativeFrame;
    configureWindow(m_connection, window(), nativeFrame);
}

void X11Surface::adoptScale(double scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    // The buffer has the wrong size now. The window loses its picture when it is resized.
    m_buffer.reset();
    m_painted = {};
    setNeedsDisplay(Damage::everything());
}

void X11Surface::map()
{
    xcb_map_window(m_connection.xcb(), window());
}

void X11Surface::unmap()
{
    xcb_unmap_window(m_connection.xcb(), window());
    m_damage = {};
    m_isDisplayWanted = false;
    m_isLeftButtonHeld = false;
    m_painted = {};
    if (m_buffer)
        m_buffer->release();
    updateInputWindow();
}

void X11Surface::setIgnoresMouseEvents(bool ignores)
{
    if (ignores == m_ignoresMouseEvents)
        return;
    m_ignoresMouseEvents = ignores;
    xcb_connection_t *xcb = m_connection.xcb();
    if (ignores)
        xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window(),
                             0, 0, 0, nullptr);
    else
        xcb_shape_mask(xcb, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, window(), 0, 0, XCB_PIXMAP_NONE);
    updateInputWindow();
    // The next click must already go to the right window.
    if (isShown())
        m_connection.roundTrip();
}

void X11Surface::makeKey()
{
    if (isShown())
        services().focus.give(window());
}

void X11Surface::setNeedsDisplay(const Damage &damage)
{
    if (!isShown())
        return;
    m_isDisplayWanted = true;
    m_damage.add(damage);
}

void X11Surface::display()
{
    if (!m_isDisplayWanted || !m_content)
        return;
    m_content->willDisplay();
    m_isDisplayWanted = false;
    if (m_damage.isEmpty())
        return;
    if (!m_buffer)
        m_buffer.emplace(m_connection, m_nativeFrame.size());
    const QRegion region = paintDamage(m_buffer->image(), m_scale, std::exchange(m_damage, {}), *m_content);
    m_painted |= region.boundingRect();
    if (!services().isComposited()) {
        showColors(m_buffer->image(), region);
        showPainted(m_connection, window(), m_buffer->image(), region);
    }
    put(region);
}

void X11Surface::compositingChanged()
{
    if (!isShown())
        return;
    if (services().isComposited())
        showWhole(m_connection, window());
    else
        showNothing(m_connection, window());
    // The server has dropped the contents, and without a compositor translucent colours differ.
    if (!m_painted.isEmpty())
        setNeedsDisplay(Damage::of(ViewGeometry(m_nativeFrame.size(), m_scale).toView(m_painted)));
    updateInputWindow();
}

void X11Surface::updateInputWindow()
{
    // Unmapping it during a drag would send the release to the application beneath.
    const bool takesPointer = !m_ignoresMouseEvents || m_isLeftButtonHeld;
    const bool isNeeded = isShown() && takesPointer && !services().isComposited();
    if (isNeeded == m_isInputWindowShown)
        return;
    m_isInputWindowShown = isNeeded;
    if (!isNeeded) {
        setWindows({window()});
        xcb_unmap_window(m_connection.xcb(), m_inputWindow);
        return;
    }
    if (!m_inputWindow)
        m_inputWindow = createInputWindow(m_connection, m_nativeFrame);
    setWindows({window(), m_inputWindow});
    services().stacking.restack();
    xcb_map_window(m_connection.xcb(), m_inputWindow);
}

void X11Surface::put(const QRegion &region)
{
    if (m_buffer)
        m_buffer->put(window(), m_context, region);
}

void X11Surface::exposed(const QRect &pixels)
{
    if (isShown())
        put(pixels & m_painted);
}

void X11Surface::buttonPressed(const xcb_input_button_press_event_t &event)
{
    if (event.detail != kLeftButton || !m_content)
        return;
    m_isLeftButtonHeld = true;
    m_content->mouseDown(pointerEvent(event));
}

void X11Surface::buttonReleased(const xcb_input_button_press_event_t &event)
{
    if (event.detail == kLeftButton && m_content)
        endDrag(event);
}

void X11Surface::endDrag(const xcb_input_button_press_event_t &event)
{
    m_isLeftButtonHeld = false;
    m_content->mouseUp(pointerEvent(event));
    updateInputWindow();
}

void X11Surface::pointerMoved(const xcb_input_button_press_event_t &event)
{
    if (!m_isLeftButtonHeld || !m_content)
        return;
    if (holdsLeftButton(event))
        m_content->mouseDragged(pointerEvent(event));
    else
        endDrag(event); // another program got the release
}

void X11Surface::scrolled(std::optional<ScrollEvent> scroll, const xcb_input_button_press_event_t &event)
{
    if (!scroll || !m_content)
        return;
    scroll->modifiers = modifiersOf(event.mods.effective);
    scroll->globalPosition = globalPosition(event);
    m_content->scrollWheel(*scroll);
}

void X11Surface::keyPressed(const KeyEvent &event)
{
    if (m_content)
        m_content->keyDown(event);
}

PointerEvent X11Surface::pointerEvent(const xcb_input_button_press_event_t &event) const
{
    // The position names a pixel. The stroke goes through its centre.
    const QPointF pixel(fromFixed(event.event_x) + 0.5, fromFixed(event.event_y) + 0.5);
    return {.position = ViewGeometry(m_nativeFrame.size(), m_scale).toView(pixel),
            .modifiers = modifiersOf(event.mods.effective),
            .globalPosition = globalPosition(event)};
}

QPointF X11Surface::globalPosition(const xcb_input_button_press_event_t &event) const
{
    return services().layout().pointOfPixel({fromFixed(event.root_x), fromFixed(event.root_y)});
}

} // namespace zeigewerk::platform::x11
