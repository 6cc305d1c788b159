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
    if (std::exchange(m_isComposited, isComposited) != isComposited)
        Q_EMIT compositingChanged();
}

void RecordingDesktop::setTray(bool exists)
{
    if (std::exchange(m_hasTray, exists) != exists)
        Q_EMIT trayChanged();
}

QRectF RecordingDesktop::visibleFrame(const Screen &screen) const
{
    const QRectF visible = screen.frame.marginsRemoved(m_docks);
    return visible.isEmpty() ? screen.frame : visible;
}

QString RecordingDesktop::limitation(Feature feature) const
{
    const auto found = m_limitations.find(feature);
    return found == m_limitations.end() ? QString() : found->second;
}

void RecordingDesktop::setLimitation(Feature feature, const QString &reason)
{
    if (std::exchange(m_limitations[feature], reason) != reason)
        Q_EMIT featuresChanged();
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

} // namespace zeigewerk::platform
