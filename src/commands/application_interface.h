#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariant>

namespace zeigewerk {

class StatusMenu;

/// The program's name on the session bus, and the name of its desktop entry.
inline constexpr char kApplicationId[] = "de.zeigewerk.Zeigewerk";

/// Lets other programs control this one: org.freedesktop.Application on the session bus, with the actions of
/// the status menu by their names. So a script, a presenter's remote or a desktop shortcut can control it,
/// too.
///
/// An unknown action is an error. Qt itself refuses calls whose arguments have other types. Without a session
/// bus this object does nothing.
class ApplicationInterface : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Takes the name on the bus, without waiting for it. `menu` must outlive this object.
    explicit ApplicationInterface(StatusMenu &menu);

    // Named as in the interface.
public Q_SLOTS:
    /// Does nothing: the program already runs.
    void Activate(const QVariantMap &platformData);
    /// Always an error: the program opens no files.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// Does what a click on that menu entry does. No action takes a parameter; to pass one is an error.
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

private:
    void refuse(const QString &reason);

    StatusMenu &m_menu;
};

} // namespace zeigewerk
