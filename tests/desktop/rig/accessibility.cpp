#include "accessibility.h"

#include "desktop_session.h"
#include "eventually.h"
#include "program.h"
#include "rig_error.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>
#include <cmath>

namespace zeigewerk::rig {

namespace {

const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString kComponent = QStringLiteral("org.a11y.atspi.Component");
const QString kAction = QStringLiteral("org.a11y.atspi.Action");

/// AT-SPI coordinate type: relative to the screen, not to the window.
constexpr std::uint32_t kScreenCoordinates = 0;

bool isButton(const QString &role)
{
    return role == QLatin1String("push button") || role == QLatin1String("toggle button") ||
           role == QLatin1String("check box") || role == QLatin1String("radio button") ||
           role == QLatin1String("button");
}

} // namespace

/// Converts Qt's extents, which are in points, to pixels. Qt does not report the scale, so it is derived from
/// the window's rectangle on the display.
struct Accessibility::PixelMapping
{
    QRect points;
    QRect pixels;

    QRect nativeRect(const QRect &rect) const
    {
        if (points.isEmpty() || pixels.isEmpty() || rect.isEmpty())
            return {};
        const double scale = double(pixels.width()) / points.width();
        const QPointF origin = QPointF(rect.topLeft() - points.topLeft()) * scale + pixels.topLeft();
        return QRectF(origin, QSizeF(rect.size()) * scale).toRect();
    }
    /// How much the two aspect ratios differ.
    double error() const
    {
        return std::abs(double(pixels.width()) / points.width() - double(pixels.height()) / points.height());
    }
};

Accessibility::Accessibility(DesktopSession &session, const Program &program)
    : m_session(session)
    , m_processId(program.processId())
    , m_bus(accessibilityBusAddress(session.busAddress()))
{
    if (!eventually([&] { return findApplication(m_processId); }))
        failRig(QStringLiteral("the program does not register with the accessibility bus"));
}

bool Accessibility::findApplication(qint64 processId)
{
    const Object registry = {QStringLiteral("org.a11y.atspi.Registry"),
                             QStringLiteral("/org/a11y/atspi/accessible/root")};
    const QList<Object> applications = children(registry);
    const auto found = std::find_if(applications.begin(), applications.end(), [&](const Object &application) {
        return m_bus.processOf(application.service) == processId;
    });
    if (found == applications.end())
        return false;
    m_application = *found;
    return true;
}

QList<AccessibilityBus::Object> Accessibility::children(const Object &parent)
{
    QList<Object> found;
    const auto reply = m_bus.call(parent, kAccessible, QStringLiteral("GetChildren"));
    if (!reply)
        return found;
    const auto list = reply->value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        found.append({service, path.path()});
    }
    list.endArray();
    return found;
}

QString Accessibility::role(const Object &object)
{
    return m_bus.call(object, kAccessible, QStringLiteral("GetRoleName")).value_or(QVariant()).toString();
}

QRect Accessibility::reportedExtents(const Object &object)
{
    const auto reply =
        m_bus.call(object, kComponent, QStringLiteral("GetExtents"), {QVariant(kScreenCoordinates)});
    if (!reply)
        return {};
    const auto extents = reply->value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    extents.beginStructure();
    extents >> x >> y >> width >> height;
    extents.endStructure();
    return {x, y, width, height};
}

Accessibility::PixelMapping Accessibility::mappingOf(const Object &window)
{
    // For the same window the two rectangles differ by at most a pixel of rounding at each end, out of about
    // a hundred points. Other windows have other aspect ratios.
    PixelMapping best{.points = reportedExtents(window), .pixels = {}};
    double smallestError = 0.02;
    if (best.points.isEmpty())
        return best;
    for (const WindowInfo &info : m_session.client().windowsOfProcess(m_processId)) {
        const PixelMapping mapping{.points = best.points, .pixels = info.geometry};
        // Pixels are never larger than points: a smaller window is one of Qt's helper windows.
        if (info.inputOnly || info.geometry.width() < mapping.points.width() ||
            mapping.error() >= smallestError)
            continue;
        best = mapping;
        smallestError = mapping.error();
    }
    return best;
}

QList<AccessibleButton> Accessibility::buttons()
{
    QList<AccessibleButton> found;
    visitButtons([&](const Object &object, const QString &buttonRole, const PixelMapping &mapping) {
        found.append(describe(object, buttonRole, mapping));
        return true;
    });
    return found;
}

std::optional<AccessibleButton> Accessibility::find(const QString &name, int index)
{
    std::optional<AccessibleButton> found;
    int passed = 0;
    // Only the matching button is queried for everything: each reply takes a millisecond.
    visitButtons([&](const Object &object, const QString &buttonRole, const PixelMapping &mapping) {
        if (nameOf(object) != name || passed++ < index)
            return true;
        found = describe(object, buttonRole, mapping);
        return false;
    });
    return found;
}

void Accessibility::visitButtons(const Visit &visit)
{
    for (const Object &window : children(m_application)) {
        if (!visitButtonsIn(window, mappingOf(window), visit))
            return;
    }
}

bool Accessibility::visitButtonsIn(const Object &parent, const PixelMapping &mapping, const Visit &visit)
{
    for (const Object &child : children(parent)) {
        const QString childRole = role(child);
        const bool shouldContinue =
            isButton(childRole) ? visit(child, childRole, mapping) : visitButtonsIn(child, mapping, visit);
        if (!shouldContinue)
            return false;
    }
    return true;
}

QString Accessibility::nameOf(const Object &object)
{
    return m_bus.property(object, kAccessible, QStringLiteral("Name")).toString();
}

AccessibleButton Accessibility::describe(const Object &object, const QString &role,
                                         const PixelMapping &mapping)
{
    AccessibleButton button{
        .name = nameOf(object),
        .description = m_bus.property(object, kAccessible, QStringLiteral("Description")).toString(),
        .role = role,
        .extents = mapping.nativeRect(reportedExtents(object)),
        .object = object,
    };
    // The lower 32 bits come first.
    const auto reply = m_bus.call(object, kAccessible, QStringLiteral("GetState"));
    if (!reply)
        failRig(QStringLiteral("the button \"%1\" does not report its state").arg(button.name));
    const auto halves = qdbus_cast<QList<std::uint32_t>>(*reply);
    button.states = halves.value(0) | std::uint64_t{halves.value(1)} << 32;
    return button;
}

bool Accessibility::press(const AccessibleButton &button)
{
    const int actions = m_bus.property(button.object, kAction, QStringLiteral("NActions")).toInt();
    for (int action = 0; action < actions; ++action) {
        const QString name = m_bus.call(button.object, kAction, QStringLiteral("GetName"), {action})
                                 .value_or(QVariant())
                                 .toString();
        if (name != QLatin1String("Press") && name != QLatin1String("Toggle"))
            continue;
        return m_bus.call(button.object, kAction, QStringLiteral("DoAction"), {action})
            .value_or(QVariant())
            .toBool();
    }
    return false;
}

} // namespace zeigewerk::rig
