#include "tray_menu.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace zeigewerk::rig {

namespace {

/// The value is an array of arrays of strings.
QList<QStringList> readShortcut(const QVariant &value)
{
    QList<QStringList> presses;
    if (value.canConvert<QDBusArgument>())
        value.value<QDBusArgument>() >> presses;
    return presses;
}

void readProperties(const QVariantMap &properties, TrayMenuItem &item)
{
    item.label = properties.value(QStringLiteral("label")).toString();
    item.enabled = properties.value(QStringLiteral("enabled"), item.enabled).toBool();
    item.visible = properties.value(QStringLiteral("visible"), item.visible).toBool();
    item.type = properties.value(QStringLiteral("type"), item.type).toString();
    item.toggleType = properties.value(QStringLiteral("toggle-type")).toString();
    item.toggleState = properties.value(QStringLiteral("toggle-state"), item.toggleState).toInt();
    item.shortcut = readShortcut(properties.value(QStringLiteral("shortcut")));
}

} // namespace

TrayMenuItem readMenu(const QVariant &layout)
{
    TrayMenuItem item;
    QVariantMap properties;
    const auto argument = layout.value<QDBusArgument>();
    argument.beginStructure();
    argument >> item.id >> properties;
    readProperties(properties, item);
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        item.children.append(readMenu(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return item;
}

} // namespace zeigewerk::rig
