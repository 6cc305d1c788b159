// A complete desktop for one test: display, home, bus, window manager, compositor.
#pragma once

#include "desktop_kind.h"
#include "keyboard.h"
#include "pointer.h"
#include "recorder.h"
#include "screenshot.h"
#include "virtual_display.h"

#include <QDir>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace zeigewerk::rig {

/// What a session consists of. By default the desktop is that of the current test run.
struct DesktopSetup
{
    QList<QRect> screens = {VirtualDisplay::kFullHd};
    WindowManager windowManager = desktopFromEnvironment().windowManager;
    Compositor compositor = desktopFromEnvironment().compositor;
    /// Starts the accessibility bus, and makes Qt programs use it from their start.
    bool accessibility = false;
    ExtraDevice extraDevice = ExtraDevice::None;
    /// The XKB name of a keyboard map, such as "de"; the server's default, "us", if empty. Programs that
    /// start later never see another one.
    QString keyboardMap = {};
    /// Set for every process of the session, in addition to the session's own variables.
    QMap<QString, QString> environment = {};
};

/// Everything is private to the session and removed with it, even when the test fails. The developer's own
/// settings, bus and display are neither read nor written.
class DesktopSession
{
public:
    /// Waits until the window manager and the compositor work. Throws RigError if one does not.
    explicit DesktopSession(const DesktopSetup &setup = {});
    /// Ends every process of the session, newest first, including those that other processes started.
    ~DesktopSession();
    DesktopSession(const DesktopSession &) = delete;
    DesktopSession &operator=(const DesktopSession &) = delete;

    /// For a program that runs on this desktop: it inherits nothing from the real session.
    QProcessEnvironment environment() const { return m_environment; }
    /// The user's home folder in this session.
    QDir home() const { return QDir(m_home.path()); }
    /// The address of the session bus.
    QString busAddress() const;

    VirtualDisplay &display() { return m_display; }
    Client &client() { return m_display.client(); }
    Pointer &pointer() { return m_pointer; }
    Keyboard &keyboard() { return m_keyboard; }
    Screenshot screenshot() { return Screenshot::of(client()); }

    /// Whether a window manager is running.
    bool hasWindowManager();
    /// Waits until the window manager has processed all requests so far. Throws RigError if it does not.
    void awaitWindowManager();
    /// Ends the window manager if it still runs, starts it again, and waits until it works.
    void restartWindowManager();
    /// Everything the window manager has written since it started.
    QByteArray windowManagerOutput() const;
    /// Whether a compositing manager is running.
    bool isComposited() { return client().selectionHasOwner("_NET_WM_CM_S0"); }
    /// Ends the compositor, or starts it again, and waits until that is done.
    void stopCompositor();
    void startCompositor();
    /// Starts the compositor without waiting. If something covers the place of the probe, startCompositor()
    /// would report that it does not paint.
    void launchCompositor();

    /// Ends the session bus for good.
    void stopBus() { m_bus.reset(); }

    /// The window manager's process, or 0 without one.
    qint64 windowManagerProcessId() const { return m_windowManager ? m_windowManager->processId() : 0; }

    /// The compositor's process, or 0 without one.
    qint64 compositorProcessId() const { return m_compositor ? m_compositor->processId() : 0; }

    /// The sessions that exist now, oldest first: for the screenshot of a failed expectation, which has no
    /// session at hand.
    static const QList<DesktopSession *> &all() { return allSessions(); }

private:
    static QList<DesktopSession *> &allSessions();

    void makeEnvironment(const QMap<QString, QString> &extra);
    std::unique_ptr<ChildProcess> launch(const QString &program, const QStringList &arguments);
    void launchWindowManager();
    void awaitManagers();
    void awaitCompositor();
    void startAccessibility();
    QString logPath(const QString &program) const;
    void endStrayProcesses();

    DesktopSetup m_setup;
    VirtualDisplay m_display;
    Pointer m_pointer;
    Keyboard m_keyboard;
    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    // In the order in which they start; they end in reverse order.
    std::unique_ptr<ChildProcess> m_bus;
    std::unique_ptr<ChildProcess> m_windowManager;
    std::unique_ptr<ChildProcess> m_compositor;
    /// None unless the test is filmed.
    std::unique_ptr<Recorder> m_recorder;
};

} // namespace zeigewerk::rig

Q_DECLARE_METATYPE(zeigewerk::rig::Compositor)
