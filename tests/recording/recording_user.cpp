#include "recording/recording_user.h"

#include "platform/levels.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <tuple>

namespace zeigewerk::platform {

namespace {

char32_t characterOf(PhysicalKey key)
{
    switch (key) {
    case PhysicalKey::Escape:
        return U'\x1B';
    case PhysicalKey::W:
        return U'w';
    case PhysicalKey::T:
        return U't';
    case PhysicalKey::P:
        return U'p';
    case PhysicalKey::S:
        return U's';
    case PhysicalKey::D:
        return U'd';
    case PhysicalKey::K:
        return U'k';
    }
    return 0;
}

} // namespace

std::vector<RecordingUser::Shown> RecordingUser::fromFront() const
{
    struct Entry
    {
        std::tuple<int, bool, quint64> place;
        Shown shown;
    };
    std::vector<Entry> entries;
    for (const SurfaceRole role : {SurfaceRole::Overlay, SurfaceRole::Effect}) {
        for (RecordingSurface *surface : m_desktop.surfaces(role)) {
            if (surface->isVisible())
                entries.push_back({{levelOf(role), false, surface->orderedFront()}, {.surface = surface}});
        }
    }
    for (RecordingWindow *window : m_desktop.windows()) {
        const bool isField = window->role() == WidgetRole::TextField;
        if (window->isVisible())
            entries.push_back(
                {{levelOf(window->role()), isField, window->orderedFront()}, {.window = window}});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry &a, const Entry &b) { return a.place > b.place; });
    std::vector<Shown> shown;
    for (const Entry &entry : entries)
        shown.push_back(entry.shown);
    return shown;
}

std::optional<RecordingUser::Shown> RecordingUser::underPointer() const
{
    for (const Shown &shown : fromFront()) {
        const bool ignores =
            shown.surface ? shown.surface->ignoresMouseEvents() : shown.window->ignoresMouseEvents();
        if (!ignores && contains(shown.frame(), pointer()))
            return shown;
    }
    return std::nullopt;
}

PointerEvent RecordingUser::pointerEvent(const RecordingSurface &surface) const
{
    return {.position = pointer() - surface.frame().topLeft(),
            .modifiers = m_modifiers,
            .globalPosition = pointer()};
}

void RecordingUser::movePointer(QPointF place)
{
    m_desktop.setMouseLocation(place);
    if (m_dragged)
        m_dragged->content()->mouseDragged(pointerEvent(*m_dragged));
}

void RecordingUser::pressButton()
{
    m_desktop.eventMonitor().pressLeft();
    const std::optional<Shown> target = underPointer();
    if (!target)
        ++m_clicksElsewhere;
    else if (target->surface) {
        m_dragged = target->surface;
        m_dragged->content()->mouseDown(pointerEvent(*m_dragged));
    }
}

void RecordingUser::releaseButton()
{
    if (RecordingSurface *surface = std::exchange(m_dragged, nullptr))
        surface->content()->mouseUp(pointerEvent(*surface));
}

void RecordingUser::turnWheel(int steps)
{
    const ScrollEvent event{.distance = static_cast<double>(steps),
                            .isPrecise = false,
                            .modifiers = m_modifiers,
                            .globalPosition = pointer()};
    const std::optional<Shown> target = underPointer();
    if (m_modifiers.testFlag(Modifier::Alt))
        m_desktop.eventMonitor().scroll({.event = event, .isOverOurs = target.has_value()});
    if (target && target->surface)
        target->surface->content()->scrollWheel(event);
}

RecordingSurface *RecordingUser::keySurface() const
{
    for (const Shown &shown : fromFront()) {
        if (shown.surface && shown.surface->name() == m_desktop.keyWindow())
            return shown.surface;
    }
    return nullptr;
}

void RecordingUser::pressKey(PhysicalKey key)
{
    for (const HotKey &hotKey : m_desktop.hotKeys().registered()) {
        if (hotKey.key == key && hotKey.modifiers == m_modifiers && m_desktop.hotKeys().isGranted(hotKey.id))
            return m_desktop.hotKeys().press(hotKey.id);
    }
    if (RecordingSurface *surface = keySurface())
        return surface->content()->keyDown({.isEscape = key == PhysicalKey::Escape,
                                            .character = characterOf(key),
                                            .modifiers = m_modifiers});
    const auto &windows = m_desktop.windows();
    const auto field = std::find_if(windows.begin(), windows.end(),
                                    [](const RecordingWindow *window) { return window->isKey(); });
    if (field == windows.end()) {
        ++m_keysElsewhere;
        return;
    }
    const char32_t character = characterOf(key);
    const bool isEscape = key == PhysicalKey::Escape;
    QKeyEvent press(QEvent::KeyPress, isEscape ? Qt::Key_Escape : static_cast<int>(QChar::toUpper(character)),
                    Qt::NoModifier, QString::fromUcs4(&character, 1));
    QCoreApplication::sendEvent(&(*field)->widget(), &press);
}

QColor RecordingUser::pixel(QPointF place)
{
    for (const Shown &shown : fromFront()) {
        if (!contains(shown.frame(), place))
            continue;
        const QPointF within = place - shown.frame().topLeft();
        QImage image;
        if (shown.surface) {
            shown.surface->display();
            image = shown.surface->image();
        } else {
            image = shown.window->widget().grab().toImage();
        }
        const QPoint pixel(static_cast<int>(within.x()), image.height() - 1 - static_cast<int>(within.y()));
        const QColor color = image.pixelColor(pixel);
        if (color.alpha() > 0)
            return color;
    }
    return Qt::blue;
}

} // namespace zeigewerk::platform
