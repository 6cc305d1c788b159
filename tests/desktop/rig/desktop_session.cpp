#include "desktop_session.h"

#include "accessibility_bus.h"
#include "compositor_probe.h"
#include "eventually.h"
#include "process_stats.h"
#include "rig_error.h"
#include "window_manager_probe.h"
#include "window_manager_settings.h"

#include <QFile>

#include <csignal>
#include <functional>
#include <numeric>

namespace zeigewerk::rig {

namespace {

constexpr std::chrono::seconds kStartDeadline{20};
constexpr std::chrono::seconds kExitDeadline{3};

/// The only variables that programs inherit from the developer's environment: installation paths, and the
/// settings of instrumented builds.
constexpr QLatin1String kInherited[] = {
    QLatin1String("PATH"),           QLatin1String("LD_LIBRARY_PATH"),
    QLatin1String("QT_PLUGIN_PATH"), QLatin1String("QT_QPA_PLATFORM_PLUGIN_PATH"),
    QLatin1String("ASAN_OPTIONS"),   QLatin1String("LSAN_OPTIONS"),
    QLatin1String("UBSAN_OPTIONS"),  QLatin1String("LLVM_PROFILE_FILE"),
    QLatin1String("GCOV_PREFIX"),    QLatin1String("GCOV_PREFIX_STRIP"),
};

bool needsPicom(const DesktopSetup &setup)
{
    return setup.compositor == Compositor::Picom ||
           (setup.compositor == Compositor::BuiltIn && setup.windowManager != WindowManager::Xfwm4);
}

QRect boundsOf(const QList<QRect> &screens)
{
    return std::accumulate(screens.begin(), screens.end(), QRect(), std::bit_or());
}

void signalAll(const QList<qint64> &processes, int signal)
{
    for (const qint64 processId : processes)
        kill(static_cast<pid_t>(processId), signal);
}

} // namespace

DesktopSession::DesktopSession(const DesktopSetup &setup)
    : m_setup(setup)
    , m_display(setup.screens, setup.extraDevice)
    , m_pointer(m_display.client())
    , m_keyboard(m_display.client())
{
    if (!setup.keyboardMap.isEmpty())
        m_display.setKeyboardMap(setup.keyboardMap);
    makeEnvironment(setup.environment);
    m_bus = launch(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                    QStringLiteral("--address=") + busAddress()});
    launchWindowManager();
    if (needsPicom(setup))
        launchCompositor();
    awaitManagers();
    if (setup.accessibility)
        startAccessibility();
    m_recorder = Recorder::fromEnvironment(m_display.name(), boundsOf(setup.screens));
    allSessions().append(this);
}

DesktopSession::~DesktopSession()
{
    allSessions().removeOne(this);
    m_recorder.reset();
    m_compositor.reset();
    m_windowManager.reset();
    m_bus.reset();
    endStrayProcesses();
}

QList<DesktopSession *> &DesktopSession::allSessions()
{
    static QList<DesktopSession *> sessions;
    return sessions;
}

QString DesktopSession::busAddress() const
{
    return QStringLiteral("unix:path=") + home().filePath(QStringLiteral("run/bus"));
}

void DesktopSession::makeEnvironment(const QMap<QString, QString> &extra)
{
    const QProcessEnvironment outer = QProcessEnvironment::systemEnvironment();
    for (const QLatin1String name : kInherited)
        if (outer.contains(name))
            m_environment.insert(name, outer.value(name));

    const auto folder = [&](const char *variable, const QString &name) {
        if (!home().mkpath(name))
            failRig(QStringLiteral("cannot create %1").arg(home().filePath(name)));
        m_environment.insert(QLatin1String(variable), home().filePath(name));
    };
    folder("HOME", QStringLiteral("."));
    folder("XDG_RUNTIME_DIR", QStringLiteral("run"));
    folder("XDG_CONFIG_HOME", QStringLiteral(".config"));
    folder("XDG_DATA_HOME", QStringLiteral(".local/share"));
    folder("XDG_STATE_HOME", QStringLiteral(".local/state"));
    folder("XDG_CACHE_HOME", QStringLiteral(".cache"));
    folder("TMPDIR", QStringLiteral("tmp"));
    // Programs refuse a runtime folder that others can access.
    QFile::setPermissions(home().filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    m_environment.insert(QStringLiteral("DISPLAY"), m_display.name());
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress());
    m_environment.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("x11"));
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    for (auto it = extra.cbegin(); it != extra.cend(); ++it)
        m_environment.insert(it.key(), *it);
}

QString DesktopSession::logPath(const QString &program) const
{
    return home().filePath(program + QStringLiteral(".log"));
}

std::unique_ptr<ChildProcess> DesktopSession::launch(const QString &program, const QStringList &arguments)
{
    return std::make_unique<ChildProcess>(ChildProcess::Command{
        .program = program,
        .arguments = arguments,
        .environment = m_environment,
        .logPath = logPath(program),
    });
}

void DesktopSession::launchWindowManager()
{
    switch (m_setup.windowManager) {
    case WindowManager::Openbox:
        writeOpenboxSettings(home());
        m_windowManager = launch(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        return;
    case WindowManager::Xfwm4:
        writeXfwm4Settings(home());
        m_windowManager = launch(QStringLiteral("xfwm4"), {m_setup.compositor == Compositor::BuiltIn
                                                               ? QStringLiteral("--compositor=on")
                                                               : QStringLiteral("--compositor=off"),
                                                           QStringLiteral("--vblank=off")});
        return;
    case WindowManager::I3:
        m_windowManager = launch(QStringLiteral("i3"), {QStringLiteral("-c"), writeI3Settings(home())});
        return;
    case WindowManager::None:
        return;
    }
}

bool DesktopSession::hasWindowManager()
{
    // The root names a window, which in turn names itself. When a window manager dies, only the first
    // remains.
    const QList<quint32> check = client().property(client().root(), "_NET_SUPPORTING_WM_CHECK");
    return !check.isEmpty() && client().property(check.first(), "_NET_SUPPORTING_WM_CHECK") == check;
}

void DesktopSession::awaitManagers()
{
    if (!eventually([&] { return QFile::exists(home().filePath(QStringLiteral("run/bus"))); },
                    kStartDeadline))
        failRig(QStringLiteral("the session bus did not start"));
    if (m_setup.windowManager != WindowManager::None)
        awaitWindowManager();
    if (m_setup.compositor != Compositor::None)
        awaitCompositor();
}

void DesktopSession::awaitWindowManager()
{
    if (!eventually([&] { return hasWindowManager(); }, kStartDeadline))
        failRig(QStringLiteral("the window manager did not start"));
    WindowManagerProbe probe(client());
    if (!eventually([&] { return probe.isManaged(); }, kStartDeadline) ||
        !eventually([&] { return probe.isForgotten(); }, kStartDeadline))
        failRig(QStringLiteral("the window manager does not manage windows"));
}

void DesktopSession::restartWindowManager()
{
    m_windowManager.reset();
    launchWindowManager();
    awaitWindowManager();
}

QByteArray DesktopSession::windowManagerOutput() const
{
    QFile log(m_windowManager ? logPath(m_windowManager->process().program()) : QString());
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
}

void DesktopSession::launchCompositor()
{
    // No vertical sync, because the monitors have none, and no user configuration with shadows and fading.
    m_compositor = launch(QStringLiteral("picom"), {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                                    QStringLiteral("--no-vsync"), QStringLiteral("--config"),
                                                    QStringLiteral("/dev/null")});
}

void DesktopSession::startCompositor()
{
    launchCompositor();
    awaitCompositor();
}

void DesktopSession::awaitCompositor()
{
    if (!eventually([&] { return isComposited(); }, kStartDeadline))
        failRig(QStringLiteral("the compositor did not start"));
    CompositorProbe probe(client(), m_display.screens().value(0).topLeft());
    if (!eventually([&] { return probe.isBlended(); }, kStartDeadline) ||
        !eventually([&] { return probe.isGone(); }, kStartDeadline))
        failRig(QStringLiteral("the compositor does not paint"));
}

void DesktopSession::stopCompositor()
{
    m_compositor.reset();
    if (!eventually([&] { return !isComposited(); }))
        failRig(QStringLiteral("the compositor did not end"));
}

void DesktopSession::startAccessibility()
{
    // A program that finds no accessibility bus when it starts would connect later. Programs ask for the
    // address themselves.
    accessibilityBusAddress(busAddress());
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
}

void DesktopSession::endStrayProcesses()
{
    // Helpers started by the bus or by a program: they have another parent, but our HOME.
    const QByteArray mark = "HOME=" + QFile::encodeName(m_environment.value(QStringLiteral("HOME")));
    signalAll(processesWithEnvironment(mark), SIGTERM);
    const auto allGone = [&] { return processesWithEnvironment(mark).isEmpty(); };
    if (eventually(allGone, kExitDeadline))
        return;
    signalAll(processesWithEnvironment(mark), SIGKILL);
    eventually(allGone, kExitDeadline);
}

} // namespace zeigewerk::rig
