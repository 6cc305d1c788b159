#include "tray_host.h"

#include "rig_error.h"
#include "tray_watcher.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusVariant>

namespace zeigewerk::rig {

namespace {

const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenu = QStringLiteral("com.canonical.dbusmenu");

/// The sizes of the images in an a(iiay).
QList<QSize> readSizes(const QDBusArgument &argument)
{
    QList<QSize> sizes;
    argument.beginArray();
    while (!argument.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray pixels;
        argument.beginStructure();
        argument >> width >> height >> pixels;
        argument.endStructure();
        if (pixels.size() == qsizetype{4} * width * height)
            sizes.append({width, height});
    }
    argument.endArray();
    return sizes;
}

/// The title in a (sa(iiay)ss).
QString readToolTip(const QVariant &toolTip)
{
    QString iconName;
    QString title;
    const auto argument = toolTip.value<QDBusArgument>();
    argument.beginStructure();
    argument >> iconName;
    readSizes(argument);
    argument >> title;
    return title;
}

TrayItem describe(const QString &service, const QVariantMap &properties)
{
    const auto text = [&](const char *name) { return properties.value(QLatin1String(name)).toString(); };
    return {.service = service,
            .id = text("Id"),
            .title = text("Title"),
            .status = text("Status"),
            .toolTip = readToolTip(properties.value(QStringLiteral("ToolTip"))),
            .iconName = text("IconName"),
            .iconSizes = readSizes(properties.value(QStringLiteral("IconPixmap")).value<QDBusArgument>()),
            .menuPath = properties.value(QStringLiteral("Menu")).value<QDBusObjectPath>().path()};
}

QString nextServiceName()
{
    static int count = 0;
    return QStringLiteral("org.kde.StatusNotifierHost-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++count);
}

} // namespace

TrayHost::TrayHost(const DesktopSession &session)
    : m_bus(session)
    , m_service(nextServiceName())
    , m_watcher(TrayWatcher::kService, m_bus.connection(), QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHost::registerWithWatcher);
    QDBusConnection &bus = m_bus.connection();
    bus.connect({}, {}, kMenu, QStringLiteral("LayoutUpdated"), this, SLOT(noteLayoutUpdated()));
    bus.connect({}, {}, kMenu, QStringLiteral("ItemsPropertiesUpdated"), this,
                SLOT(notePropertiesUpdated(QDBusMessage)));
}

TrayHost::~TrayHost()
{
    stop();
}

void TrayHost::start()
{
    if (!m_bus.connection().registerService(m_service))
        failRig(QStringLiteral("the bus refuses the host's name"));
    m_isStarted = true;
    registerWithWatcher();
}

void TrayHost::stop()
{
    if (m_isStarted)
        m_bus.connection().unregisterService(m_service);
    m_isStarted = false;
}

void TrayHost::registerWithWatcher()
{
    if (!m_isStarted)
        return;
    QDBusMessage message =
        QDBusMessage::createMethodCall(TrayWatcher::kService, TrayWatcher::kPath, TrayWatcher::kService,
                                       QStringLiteral("RegisterStatusNotifierHost"));
    message << m_service;
    // Without a watcher the call fails; the next watcher will be called again.
    m_bus.connection().asyncCall(message);
}

QList<TrayItem> TrayHost::items()
{
    const QStringList services =
        m_bus.properties(TrayWatcher::kService, TrayWatcher::kPath, TrayWatcher::kService)
            .value(QStringLiteral("RegisteredStatusNotifierItems"))
            .toStringList();
    QList<TrayItem> found;
    for (const QString &service : services) {
        const QVariantMap properties = m_bus.properties(service, kItemPath, kItem);
        if (!properties.isEmpty())
            found.append(describe(service, properties));
    }
    return found;
}

QList<TrayMenuItem> TrayHost::menu(const TrayItem &item)
{
    constexpr int kRoot = 0;
    constexpr int kAllLevels = -1;
    const auto answer = m_bus.call(item.service, item.menuPath, kMenu, QStringLiteral("GetLayout"),
                                   {kRoot, kAllLevels, QStringList()});
    return answer && answer->size() == 2 ? readMenu(answer->at(1)).children : QList<TrayMenuItem>();
}

bool TrayHost::click(const TrayItem &item, int entry)
{
    const QVariantList arguments = {entry, QStringLiteral("clicked"),
                                    QVariant::fromValue(QDBusVariant(QString())), 0U};
    return m_bus.call(item.service, item.menuPath, kMenu, QStringLiteral("Event"), arguments).has_value();
}

bool TrayHost::activate(const TrayItem &item, QPoint place)
{
    return callItem(item, QStringLiteral("Activate"), place);
}

bool TrayHost::openContextMenu(const TrayItem &item, QPoint place)
{
    return callItem(item, QStringLiteral("ContextMenu"), place);
}

bool TrayHost::callItem(const TrayItem &item, const QString &method, QPoint place)
{
    return m_bus.call(item.service, kItemPath, kItem, method, {place.x(), place.y()}).has_value();
}

void TrayHost::notePropertiesUpdated(const QDBusMessage &message)
{
    // The signature is a(ia{sv}), followed by a list of removed properties.
    const auto argument = message.arguments().value(0).value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        int entry = 0;
        QVariantMap properties;
        argument.beginStructure();
        argument >> entry >> properties;
        argument.endStructure();
        if (properties.contains(QStringLiteral("toggle-state")))
            m_toggleStates[entry].append(properties.value(QStringLiteral("toggle-state")).toInt());
    }
    argument.endArray();
}

void TrayHost::forget()
{
    m_layoutUpdates = 0;
    m_toggleStates.clear();
}

} // namespace zeigewerk::rig
