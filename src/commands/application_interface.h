#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariant>

namespace zeigewerk {

class StatusMenu;

/// The program's name on the session bus, and that of its desktop entry.
inline constexpr char kApplicationId[] = "de.zeigewerk.Zeigewerk";

/// What other programs can have this one do: org.freedesktop.Application on the session bus, with the actions
/// of the status menu by their names. So a script, a presenter's remote or a shortcut of the desktop can
/// draw, too.
///
/// Whoever calls what there is not gets an error, and nothing happens; a call whose arguments have other
/// types never comes here. Without a session bus nothing happens at all.
class ApplicationInterface : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Takes the name on the bus, without waiting for it. `menu` must outlive this object.
    explicit ApplicationInterface(StatusMenu &menu);

    // The names are the interface's.
public Q_SLOTS:
    /// It runs already, and a second start changes nothing either.
    void Activate(const QVariantMap &platformData);
    /// Always an error: it opens no files.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// Does what a click on that entry of the menu does. No action takes a parameter.
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

private:
    void refuse(const QString &reason);

    StatusMenu &m_menu;
};

} // namespace zeigewerk
