// An X server of the test's own, with monitors that exist only in memory.
#pragma once

#include "child_process.h"
#include "client.h"
#include "outputs.h"

#include <QTemporaryDir>

#include <memory>

namespace zeigewerk::rig {

/// The pointing devices of a display: always that of XTest …
enum class ExtraDevice {
    None,
    ScrollMouse, ///< … and a ScrollMouse
    TouchScreen, ///< … and a TouchScreen
    Tablet,      ///< … and a Tablet
};

/// Xorg with the dummy driver: unlike simpler virtual servers it has outputs that come and go. No real
/// device, screen or virtual terminal is touched, and any number run side by side.
class VirtualDisplay
{
public:
    static constexpr QRect kFullHd = QRect(0, 0, 1920, 1080);

    /// Starts the server with one output for each rectangle (native root pixels); the first is the primary
    /// one. The keyboard map is us. Throws RigError if there is no such server or it does not start.
    explicit VirtualDisplay(const QList<QRect> &screens = {kFullHd},
                            ExtraDevice extraDevice = ExtraDevice::None);

    /// What DISPLAY is set to, as ":3".
    QString name() const { return m_name; }
    qint64 serverProcessId() const { return m_server->processId(); }
    /// What the server wrote so far.
    QByteArray serverLog() const;
    Client &client() { return *m_client; }
    /// Where to talk to the device beside XTest's, on a display that has one.
    QString devicePath() const { return m_folder.filePath(QStringLiteral("device")); }

    /// Lights an output, or gives it another rectangle; comes back when RandR reports the monitor.
    void plug(int output, const QRect &screen);
    /// Turns an output off and its monitor away; comes back when RandR no longer reports it.
    void unplug(int output);
    /// The monitors as RandR reports them, by output number.
    QMap<int, QRect> screens() { return m_outputs->reported(); }

    /// Switches to another map by its XKB name, as "de". Keys stay where they are.
    void setKeyboardMap(const QString &layout);

private:
    void startServer(ExtraDevice extraDevice);
    void applyScreens(const QMap<int, QRect> &wanted);

    QTemporaryDir m_folder;
    QString m_name;
    std::unique_ptr<ChildProcess> m_server;
    std::unique_ptr<Client> m_client;
    std::unique_ptr<Outputs> m_outputs;
};

} // namespace zeigewerk::rig
