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

/// Of the coordinates that the protocol knows: those of the whole screen, not of the window.
constexpr std::uint32_t kScreenCoordinates = 0;

bool isButton(const QString &role)
{
    return role == QLatin1String("push button") || role == QLatin1String("toggle button") ||
           role == QLatin1String("check box") || role == QLatin1String("radio button") ||
           role == QLatin1String("button");
}

} // namespace

/// Qt reports extents in points, and nothing of the scale. What the display says of the window that holds the
/// button tells where its points lie.
struct Accessibility::Ruler
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
    /// How far the two are from being the same shape.
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
        failRig(QStringLiteral("the program does not present itself to screen readers"));
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
    const auto answer = m_bus.call(parent, kAccessible, QStringLiteral("GetChildren"));
    if (!answer)
        return found;
    const auto list = answer->value<QDBusArgument>();
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
    const auto answer =
        m_bus.call(object, kComponent, QStringLiteral("GetExtents"), {QVariant(kScreenCoordinates)});
    if (!answer)
        return {};
    const auto extents = answer->value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    extents.beginStructure();
    extents >> x >> y >> width >> height;
    extents.endStructure();
    return {x, y, width, height};
}

Accessibility::Ruler Accessibility::rulerOf(const Object &window)
{
    // A pixel of rounding at each end of a window of a hundred points is the most that two rulers of the same
    // window differ by; other windows have other shapes.
    Ruler best{.points = reportedExtents(window), .pixels = {}};
    double smallestError = 0.02;
    if (best.points.isEmpty())
        return best;
    for (const WindowInfo &info : m_session.client().windowsOfProcess(m_processId)) {
        const Ruler ruler{.points = best.points, .pixels = info.geometry};
        // No desktop shows points smaller than pixels: that would be one of Qt's own tiny windows.
        if (info.inputOnly || info.geometry.width() < ruler.points.width() || ruler.error() >= smallestError)
            continue;
        best = ruler;
        smallestError = ruler.error();
    }
    return best;
}

QList<AccessibleButton> Accessibility::buttons()
{
    QList<AccessibleButton> found;
    visitButtons([&](const Object &object, const QString &itsRole, const Ruler &ruler) {
        found.append(describe(object, itsRole, ruler));
        return true;
    });
    return found;
}

std::optional<AccessibleButton> Accessibility::find(const QString &name, int index)
{
    std::optional<AccessibleButton> found;
    int passed = 0;
    // Only the one that is sought is asked for all that it knows: each answer takes a millisecond.
    visitButtons([&](const Object &object, const QString &itsRole, const Ruler &ruler) {
        if (nameOf(object) != name || passed++ < index)
            return true;
        found = describe(object, itsRole, ruler);
        return false;
    });
    return found;
}

void Accessibility::visitButtons(const Visit &visit)
{
    for (const Object &window : children(m_application)) {
        if (!visitButtonsIn(window, rulerOf(window), visit))
            return;
    }
}

bool Accessibility::visitButtonsIn(const Object &parent, const Ruler &ruler, const Visit &visit)
{
    for (const Object &child : children(parent)) {
        const QString childRole = role(child);
        const bool goesOn =
            isButton(childRole) ? visit(child, childRole, ruler) : visitButtonsIn(child, ruler, visit);
        if (!goesOn)
            return false;
    }
    return true;
}

QString Accessibility::nameOf(const Object &object)
{
    return m_bus.property(object, kAccessible, QStringLiteral("Name")).toString();
}

AccessibleButton Accessibility::describe(const Object &object, const QString &role, const Ruler &ruler)
{
    AccessibleButton button{
        .name = nameOf(object),
        .description = m_bus.property(object, kAccessible, QStringLiteral("Description")).toString(),
        .role = role,
        .extents = ruler.nativeRect(reportedExtents(object)),
        .object = object,
    };
    // The lower half of the bits comes first.
    const auto answer = m_bus.call(object, kAccessible, QStringLiteral("GetState"));
    if (!answer)
        failRig(QStringLiteral("the button \"%1\" does not tell its state").arg(button.name));
    const auto halves = qdbus_cast<QList<std::uint32_t>>(*answer);
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
