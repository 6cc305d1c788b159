// A menu of another program, read over D-Bus.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace zeigewerk::rig {

/// An entry of a com.canonical.dbusmenu; missing properties have the protocol's defaults.
struct TrayMenuItem
{
    int id = 0;
    QString label;
    bool enabled = true;
    bool visible = true;
    /// "standard" or "separator".
    QString type = QStringLiteral("standard");
    /// "checkmark", "radio", or empty for an entry without a mark.
    QString toggleType;
    /// 1 is on, 0 off, anything else neither.
    int toggleState = -1;
    /// The keys of each press: "Control", "Alt", "Shift" or "Super", and a key.
    QList<QStringList> shortcut;
    QList<TrayMenuItem> children;

    bool isSeparator() const { return type == QStringLiteral("separator"); }
    bool isChecked() const { return toggleState == 1; }
};

/// The root of a layout that GetLayout returns: the structure (ia{sv}av).
TrayMenuItem readMenu(const QVariant &layout);

} // namespace zeigewerk::rig
