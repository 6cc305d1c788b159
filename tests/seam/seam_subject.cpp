#include "seam/seam_subject.h"

#include "platform/paint_target.h"
#include "seam/seam_text.h"

#include <QPainter>

#include <map>

namespace zeigewerk::test {

using namespace platform;

namespace {

/// Paints itself in one colour.
class ColoredWidget : public QWidget
{
public:
    explicit ColoredWidget(const QColor &color)
        : m_color(color)
    {
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), m_color); }

private:
    QColor m_color;
};

} // namespace

/// A surface in one colour, which logs its events.
class SeamSubject::Patch : public SurfaceContent
{
public:
    Patch(Desktop &desktop, SurfaceRole role, const QRectF &frame, const QColor &first)
        : color(first)
        , surface(desktop.makeSurface(role, frame))
    {
        surface->setContent(this);
    }

    void draw(PaintTarget &target) override { target.fill(color.rgba()); }
    void mouseDown(const PointerEvent &event) override { log("down", event); }
    void mouseDragged(const PointerEvent &event) override { log("drag", event); }
    void mouseUp(const PointerEvent &event) override { log("up", event); }
    void scrollWheel(const ScrollEvent &event) override
    {
        events.append(QStringLiteral("scroll %1 %2").arg(event.distance).arg(text(event.globalPosition)));
    }
    void keyDown(const KeyEvent &event) override
    {
        events.append(event.isEscape ? QStringLiteral("escape")
                                     : QStringLiteral("key %1").arg(QChar(event.character)));
    }

    QColor color;
    QStringList events;
    std::unique_ptr<Surface> surface;

private:
    void log(const char *what, const PointerEvent &event)
    {
        events.append(QStringLiteral("%1 %2 %3")
                          .arg(QString::fromLatin1(what), text(event.position), text(event.globalPosition)));
    }
};

struct SeamSubject::Window
{
    // The widget outlives the window.
    std::unique_ptr<QWidget> widget;
    std::unique_ptr<WidgetWindow> window;
};

SeamSubject::SeamSubject(Desktop &desktop)
    : m_desktop(desktop)
{
    listenToDesktop();
}

SeamSubject::~SeamSubject() = default;

QString SeamSubject::tell(const QString &line)
{
    // A table, one row per line.
    // clang-format off
    static const std::map<QString, Command> kCommands = {
        {"surface",  &SeamSubject::makeSurface},    // NAME overlay|effect X Y WIDTH HEIGHT COLOUR
        {"window",   &SeamSubject::makeWindow},     // NAME toolbar|field|dialog WIDTH HEIGHT COLOUR
        {"order",    &SeamSubject::order},          // NAME front|out
        {"origin",   &SeamSubject::setOrigin},      // NAME X Y
        {"mouse",    &SeamSubject::setMouse},       // NAME take|ignore
        {"key",      &SeamSubject::makeKey},        // NAME
        {"color",    &SeamSubject::setColor},       // SURFACE COLOUR
        {"damage",   &SeamSubject::damage},         // SURFACE [X Y WIDTH HEIGHT]
        {"frame",    &SeamSubject::frame},          // NAME
        {"state",    &SeamSubject::state},          // NAME
        {"events",   &SeamSubject::events},         // SURFACE: those that reached it
        {"drag",     &SeamSubject::drag},           // WINDOW GRIP-X GRIP-Y X Y
        {"typed",    &SeamSubject::typed},          // FIELD
        {"hotkeys",  &SeamSubject::takeHotKeys},    // NAME...
        {"giveback", &SeamSubject::giveBackHotKey}, // NAME
        {"states",   &SeamSubject::hotKeyStates},
        {"listen",   &SeamSubject::listen},         // [clicks] [wheel]
        {"heard",    &SeamSubject::heard},          // hot keys and events elsewhere
        {"forget",   &SeamSubject::forget},         // all logs
        {"follow",   &SeamSubject::follow},         // on|off
        {"interact", &SeamSubject::interact},       // begin|end
        {"desktop",  &SeamSubject::desktop},        // screens|visible|main|pointer|tray|features
        {"signals",  &SeamSubject::signalCount},    // tray
    };
    // clang-format on
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const auto command = kCommands.find(words.value(0));
    mustHold(command != kCommands.end(), "the line is a command");
    return (this->*command->second)(words);
}

QString SeamSubject::makeSurface(const Words &words)
{
    const SurfaceRole role =
        words.value(2) == QLatin1String("overlay") ? SurfaceRole::Overlay : SurfaceRole::Effect;
    m_surfaces[words.value(1)] = std::make_unique<Patch>(
        m_desktop, role, QRectF(pointAt(words, 3), QSizeF(number(words, 5), number(words, 6))),
        QColor(words.value(7)));
    return {};
}

QString SeamSubject::makeWindow(const Words &words)
{
    const QString kind = words.value(2);
    const WidgetRole role = kind == QLatin1String("field")     ? WidgetRole::TextField
                            : kind == QLatin1String("toolbar") ? WidgetRole::Toolbar
                                                               : WidgetRole::Dialog;
    auto made = std::make_unique<Window>();
    if (role == WidgetRole::TextField)
        made->widget = std::make_unique<QLineEdit>();
    else
        made->widget = std::make_unique<ColoredWidget>(QColor(words.value(5)));
    made->widget->setFixedSize(static_cast<int>(number(words, 3)), static_cast<int>(number(words, 4)));
    made->window = m_desktop.makeWindow(role, *made->widget, {});
    m_windows[words.value(1)] = std::move(made);
    return {};
}

template <typename Use>
auto SeamSubject::withNamed(const Words &words, Use use)
{
    if (const auto found = m_surfaces.find(words.value(1)); found != m_surfaces.end())
        return use(*found->second->surface);
    return use(*m_windows.at(words.value(1))->window);
}

QString SeamSubject::order(const Words &words)
{
    const bool isFront = words.value(2) == QLatin1String("front");
    withNamed(words, [&](auto &named) { isFront ? named.orderFrontRegardless() : named.orderOut(); });
    return {};
}

QString SeamSubject::setOrigin(const Words &words)
{
    withNamed(words, [&](auto &named) { named.setFrameOrigin(pointAt(words, 2)); });
    return {};
}

QString SeamSubject::setMouse(const Words &words)
{
    const bool ignores = words.value(2) == QLatin1String("ignore");
    withNamed(words, [&](auto &named) { named.setIgnoresMouseEvents(ignores); });
    return {};
}

QString SeamSubject::makeKey(const Words &words)
{
    withNamed(words, [](auto &named) { named.makeKey(); });
    return {};
}

QString SeamSubject::setColor(const Words &words)
{
    m_surfaces.at(words.value(1))->color = QColor(words.value(2));
    return {};
}

QString SeamSubject::damage(const Words &words)
{
    const bool isPart = words.size() > 2;
    m_surfaces.at(words.value(1))
        ->surface->setNeedsDisplay(
            isPart ? Damage::of({pointAt(words, 2), QSizeF(number(words, 4), number(words, 5))})
                   : Damage::everything());
    return {};
}

QString SeamSubject::frame(const Words &words)
{
    return withNamed(words, [](auto &named) { return text(named.frame()); });
}

QString SeamSubject::state(const Words &words)
{
    const auto shown = [](bool isVisible) {
        return isVisible ? QStringLiteral("visible") : QStringLiteral("hidden");
    };
    if (const auto found = m_surfaces.find(words.value(1)); found != m_surfaces.end())
        return shown(found->second->surface->isVisible());
    const WidgetWindow &window = *m_windows.at(words.value(1))->window;
    return shown(window.isVisible()) + (window.isKey() ? QStringLiteral(" key") : QString());
}

QString SeamSubject::events(const Words &words)
{
    return m_surfaces.at(words.value(1))->events.join(QLatin1Char(';'));
}

QString SeamSubject::forget(const Words &)
{
    for (const auto &[name, patch] : m_surfaces)
        patch->events.clear();
    m_heard.clear();
    return {};
}

QString SeamSubject::drag(const Words &words)
{
    m_windows.at(words.value(1))->window->drag(pointAt(words, 2), pointAt(words, 4));
    return {};
}

QString SeamSubject::typed(const Words &words)
{
    return static_cast<const QLineEdit &>(*m_windows.at(words.value(1))->widget).text();
}

} // namespace zeigewerk::test
