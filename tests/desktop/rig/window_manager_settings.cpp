#include "window_manager_settings.h"

#include "rig_error.h"

#include <QFile>

namespace zeigewerk::rig {

namespace {

void write(const QDir &home, const QString &name, const QByteArray &content)
{
    QFile file(home.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        failRig(QStringLiteral("cannot write %1: %2").arg(file.fileName(), file.errorString()));
}

void makeFolder(const QDir &home, const QString &folder)
{
    if (!home.mkpath(folder))
        failRig(QStringLiteral("cannot create %1").arg(home.filePath(folder)));
}

} // namespace

void writeOpenboxSettings(const QDir &home)
{
    const auto folder = QStringLiteral(".config/openbox");
    makeFolder(home, folder);
    write(home, folder + QStringLiteral("/menu.xml"), R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_menu xmlns="http://openbox.org/3.4/menu">
  <menu id="root-menu" label="Openbox"/>
</openbox_menu>
)");
}

void writeXfwm4Settings(const QDir &home)
{
    const auto folder = QStringLiteral(".config/xfce4/xfconf/xfce-perchannel-xml");
    makeFolder(home, folder);
    write(home, folder + QStringLiteral("/xfce4-keyboard-shortcuts.xml"),
          R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="xfwm4" type="empty">
    <property name="custom" type="empty">
      <property name="override" type="bool" value="true"/>
    </property>
  </property>
</channel>
)");
    write(home, folder + QStringLiteral("/xfwm4.xml"), R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="show_frame_shadow" type="bool" value="false"/>
    <property name="zoom_desktop" type="bool" value="false"/>
  </property>
</channel>
)");
}

QString writeI3Settings(const QDir &home)
{
    const auto name = QStringLiteral("i3.conf");
    write(home, name, R"(# i3 config file (v4)
for_window [all] floating enable, border none
focus_follows_mouse no
)");
    return home.filePath(name);
}

} // namespace zeigewerk::rig
