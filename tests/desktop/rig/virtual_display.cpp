#include "virtual_display.h"

#include "eventually.h"
#include "rig_error.h"
#include "scroll_mouse.h"
#include "touch_devices.h"

#include <QFile>
#include <QStandardPaths>

namespace zeigewerk::rig {

namespace {

constexpr std::chrono::seconds kServerDeadline{20};

/// No GLX: its software renderer takes half a second to load, and nothing here uses it. The input class
/// ignores real keyboards and mice, which leaves the devices of XTest.
constexpr char kConfiguration[] = R"(
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 512000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 1-2000
    VertRefresh 1-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 7680 4320
    EndSubSection
EndSection
Section "ServerFlags"
    Option "AutoAddGPU" "false"
    Option "BlankTime" "0"
    Option "StandbyTime" "0"
    Option "SuspendTime" "0"
    Option "OffTime" "0"
EndSection
Section "Module"
    Disable "glx"
EndSection
Section "InputClass"
    Identifier "no real devices"
    Option "Ignore" "true"
EndSection
)";

/// The test driver's name for the extra device, or null if there is none.
const char *driverType(ExtraDevice extraDevice)
{
    switch (extraDevice) {
    case ExtraDevice::ScrollMouse:
        return ScrollMouse::kType;
    case ExtraDevice::TouchScreen:
        return TouchScreen::kType;
    case ExtraDevice::Tablet:
        return Tablet::kType;
    case ExtraDevice::None:
        break;
    }
    return nullptr;
}

QString serverProgram()
{
    // The one in the search path comes last: it is often a wrapper that only allows console users.
    for (const QString &path : {QStringLiteral("/usr/lib/xorg/Xorg"), QStringLiteral("/usr/libexec/Xorg"),
                                QStringLiteral("/usr/lib/Xorg")})
        if (QFile::exists(path))
            return path;
    return QStandardPaths::findExecutable(QStringLiteral("Xorg"));
}

} // namespace

VirtualDisplay::VirtualDisplay(const QList<QRect> &screens, ExtraDevice extraDevice)
{
    startServer(extraDevice);
    m_client = std::make_unique<Client>(m_name);
    m_outputs = std::make_unique<Outputs>(*m_client);
    QMap<int, QRect> wanted;
    for (qsizetype i = 0; i < screens.size(); ++i)
        wanted.insert(static_cast<int>(i), screens.at(i));
    applyScreens(wanted);
}

void VirtualDisplay::startServer(ExtraDevice extraDevice)
{
    QByteArray text = kConfiguration;
    if (const char *type = driverType(extraDevice))
        text += TestDevice::configuration(type, devicePath());
    QFile configuration(m_folder.filePath(QStringLiteral("xorg.conf")));
    if (!configuration.open(QIODevice::WriteOnly) || configuration.write(text) < 0)
        failRig(QStringLiteral("cannot write to %1").arg(m_folder.path()));
    configuration.close();

    // The server picks a free display number and writes it to file descriptor 1.
    const QStringList arguments = {
        QStringLiteral("-displayfd"), QStringLiteral("1"),
        QStringLiteral("-config"),    configuration.fileName(),
        QStringLiteral("-logfile"),   m_folder.filePath(QStringLiteral("Xorg.log")),
        QStringLiteral("-nolisten"),  QStringLiteral("tcp"),
        QStringLiteral("-noreset"),   QStringLiteral("-novtswitch"),
        QStringLiteral("-sharevts"),  QStringLiteral("-ac"),
    };
    m_server = std::make_unique<ChildProcess>(ChildProcess::Command{
        .program = serverProgram(),
        .arguments = arguments,
        .environment = QProcessEnvironment::systemEnvironment(),
        .logPath = m_folder.filePath(QStringLiteral("Xorg.out")),
        .separateOutput = true,
    });
    QByteArray output;
    const bool isStarted = eventually(
        [&] {
            output += m_server->process().readAllStandardOutput();
            return output.endsWith('\n') || !m_server->isRunning();
        },
        kServerDeadline);
    if (!isStarted || !output.endsWith('\n'))
        failRig(QStringLiteral("the X server did not start\n") + QString::fromUtf8(serverLog()));
    m_name = u':' + QString::fromLatin1(output.trimmed());
}

QByteArray VirtualDisplay::serverLog() const
{
    QFile log(m_folder.filePath(QStringLiteral("Xorg.log")));
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
}

void VirtualDisplay::plug(int output, const QRect &screen)
{
    QMap<int, QRect> wanted = screens();
    wanted.insert(output, screen);
    applyScreens(wanted);
}

void VirtualDisplay::unplug(int output)
{
    QMap<int, QRect> wanted = screens();
    wanted.remove(output);
    applyScreens(wanted);
}

void VirtualDisplay::applyScreens(const QMap<int, QRect> &wanted)
{
    m_outputs->apply(wanted);
    if (!eventually([&] { return screens() == wanted; }))
        failRig(QStringLiteral("RandR does not report the requested screens"));
}

void VirtualDisplay::setKeyboardMap(const QString &layout)
{
    ChildProcess command({
        .program = QStringLiteral("setxkbmap"),
        .arguments = {QStringLiteral("-display"), m_name, QStringLiteral("-layout"), layout},
        .environment = QProcessEnvironment::systemEnvironment(),
    });
    if (!eventually([&] { return !command.isRunning(); }, kServerDeadline) ||
        command.process().exitCode() != 0)
        failRig(QStringLiteral("cannot set the keyboard map %1").arg(layout));
}

} // namespace zeigewerk::rig
