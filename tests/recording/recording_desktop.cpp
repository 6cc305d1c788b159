#include "recording/recording_desktop.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::platform {

namespace {

QString nameOf(WidgetRole role)
{
    switch (role) {
    case WidgetRole::TextField:
        return QStringLiteral("text field");
    case WidgetRole::Toolbar:
        return QStringLiteral("toolbar");
    case WidgetRole::Dialog:
        return QStringLiteral("dialog");
    }
    return {};
}

/// Releases the combination when it is destroyed.
class RecordedHotKey : public HotKey
{
public:
    explicit RecordedHotKey(std::function<void()> release)
        : m_release(std::move(release))
    {
    }
    ~RecordedHotKey() override { m_release(); }

private:
    std::function<void()> m_release;
};

} // namespace

RecordingDesktop::RecordingDesktop()
    : RecordingDesktop(
          {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}}})
{
}

RecordingDesktop::RecordingDesktop(std::vector<Screen> screens)
    : m_layout(std::move(screens))
{
}

std::unique_ptr<Surface> RecordingDesktop::makeSurface(SurfaceRole role, const QRectF &frame)
{
    const QString name = QStringLiteral("%1 %2").arg(role == SurfaceRole::Overlay ? QStringLiteral("overlay")
                                                                                  : QStringLiteral("effect"),
                                                     QString::number(m_surfacesMade[role]++));
    note(name + QStringLiteral(": made"));
    auto surface = std::make_unique<RecordingSurface>(*this, name, frame);
    m_surfaces[role].push_back(surface.get());
    return surface;
}

std::unique_ptr<WidgetWindow> RecordingDesktop::makeWindow(WidgetRole role, QWidget &widget,
                                                           const QMargins &ornament)
{
    const QString name = QStringLiteral("%1 %2").arg(nameOf(role), QString::number(m_windowsMade[role]++));
    note(name + QStringLiteral(": made"));
    return std::make_unique<RecordingWindow>(*this, name, role, widget, ornament);
}

std::optional<Screen> RecordingDesktop::mainScreen() const
{
    if (m_mainScreen >= screens().size())
        return std::nullopt;
    return screens()[m_mainScreen];
}

void RecordingDesktop::setComposited(bool isComposited)
{
    m_isComposited = isComposited;
    Q_EMIT compositingChanged();
}

void RecordingDesktop::setEmbeddingTray(bool isThere)
{
    m_hasEmbeddingTray = isThere;
    Q_EMIT embeddingTrayChanged();
}

void RecordingDesktop::activate()
{
    note(QStringLiteral("activate"));
}

void RecordingDesktop::deactivate()
{
    note(QStringLiteral("deactivate"));
    m_keyWindow.clear();
}

QStringList RecordingDesktop::takeLog()
{
    return std::exchange(m_log, {});
}

void RecordingDesktop::changeScreens(std::vector<Screen> screens)
{
    m_layout = ScreenLayout(std::move(screens));
    Q_EMIT screensChanged();
}

std::vector<RecordingSurface *> RecordingDesktop::surfaces(SurfaceRole role) const
{
    const auto found = m_surfaces.find(role);
    return found == m_surfaces.end() ? std::vector<RecordingSurface *>{} : found->second;
}

void RecordingDesktop::pressHotKey(HotKeyId id)
{
    if (timesRegistered(id) > 0)
        deliverHotKey(id);
}

void RecordingDesktop::deliverHotKey(HotKeyId id)
{
    if (m_hotKeys.m_handler)
        m_hotKeys.m_handler(id);
}

int RecordingDesktop::timesRegistered(HotKeyId id) const
{
    return static_cast<int>(std::count(m_hotKeys.m_registered.begin(), m_hotKeys.m_registered.end(), id));
}

std::unique_ptr<HotKey> RecordingDesktop::RecordingHotKeys::registerHotKey(PhysicalKey, Modifiers,
                                                                           HotKeyId id)
{
    if (std::count(m_refused.begin(), m_refused.end(), id) > 0) {
        m_desktop.note(QStringLiteral("hot key %1: refused").arg(id.number));
        return nullptr;
    }
    m_desktop.note(QStringLiteral("hot key %1: registered").arg(id.number));
    m_registered.push_back(id);
    return std::make_unique<RecordedHotKey>([this, id] {
        m_desktop.note(QStringLiteral("hot key %1: released").arg(id.number));
        m_registered.erase(std::find(m_registered.begin(), m_registered.end(), id));
    });
}

} // namespace zeigewerk::platform
