// A whole desktop for one test: display, home, bus, window manager, compositor.
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

/// What a session is made of. Whoever does not choose the desktop gets the one of this run of the tests.
struct DesktopSetup
{
    QList<QRect> screens = {VirtualDisplay::kFullHd};
    WindowManager windowManager = desktopFromEnvironment().windowManager;
    Compositor compositor = desktopFromEnvironment().compositor;
    /// The accessibility bus runs, and Qt's programs are on it from their start.
    bool accessibility = false;
    ExtraDevice extraDevice = ExtraDevice::None;
    /// The XKB name of a keyboard map, as "de"; the server's own, a US one, if empty. A program that starts
    /// later has never known another.
    QString keyboardMap = {};
    /// Set for every process of the session, beside what the session itself sets.
    QMap<QString, QString> environment = {};
};

/// Everything is private to the session and gone with it, also when the test fails; the settings, the bus and
/// the display of whoever runs the tests are neither read nor written.
class DesktopSession
{
public:
    /// Comes back when the window manager and the compositor work. Throws RigError if one does not.
    explicit DesktopSession(const DesktopSetup &setup = {});
    /// Ends every process started in the session, the newest first, also those it did not start itself.
    ~DesktopSession();
    DesktopSession(const DesktopSession &) = delete;
    DesktopSession &operator=(const DesktopSession &) = delete;

    /// For a program that is to run on this desktop: nothing of the real session shines through.
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

    /// Whether a window manager works on the display now.
    bool hasWindowManager();
    /// Comes back when the window manager has done what it was asked to do until now. Throws RigError if that
    /// does not happen.
    void awaitWindowManager();
    /// Ends the window manager, unless it has ended by itself, and starts it again; comes back when it works.
    void restartWindowManager();
    /// What the window manager has written since it started.
    QByteArray windowManagerOutput() const;
    /// Whether a compositing manager works on the display now.
    bool isComposited() { return client().selectionHasOwner("_NET_WM_CM_S0"); }
    /// Ends the compositor, or starts it again; comes back when that has happened.
    void stopCompositor();
    void startCompositor();
    /// Starts it and does not wait: where something covers the place that is looked at, startCompositor()
    /// would take it for one that does not paint.
    void launchCompositor();

    /// Ends the session bus; nothing starts it again.
    void stopBus() { m_bus.reset(); }

    /// The window manager's process, or 0 without one.
    qint64 windowManagerProcessId() const { return m_windowManager ? m_windowManager->processId() : 0; }

    /// The compositor's process, or 0 without one.
    qint64 compositorProcessId() const { return m_compositor ? m_compositor->processId() : 0; }

    /// The sessions that exist now, the oldest first: for the picture that a failed expectation takes without
    /// being handed a session.
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
    // In the order in which they start, so that they end in the opposite one.
    std::unique_ptr<ChildProcess> m_bus;
    std::unique_ptr<ChildProcess> m_windowManager;
    std::unique_ptr<ChildProcess> m_compositor;
    /// None unless the tests are to be watched.
    std::unique_ptr<Recorder> m_recorder;
};

} // namespace zeigewerk::rig

Q_DECLARE_METATYPE(zeigewerk::rig::Compositor)
