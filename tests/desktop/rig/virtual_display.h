// An X server for one test, with monitors that exist only in memory.
#pragma once

#include "child_process.h"
#include "client.h"
#include "outputs.h"

#include <QTemporaryDir>

#include <memory>

namespace zeigewerk::rig {

/// A device besides XTest's keyboard and mouse.
enum class ExtraDevice {
    None,
    ScrollMouse,
    TouchScreen,
    Tablet,
};

/// Xorg with the dummy driver: unlike simpler virtual servers it has outputs that can be plugged and
/// unplugged. No real device, screen or virtual terminal is touched, and any number can run side by side.
class VirtualDisplay
{
public:
    static constexpr QRect kFullHd = QRect(0, 0, 1920, 1080);

    /// Starts the server with one output for each rectangle (native root pixels); the first is the primary
    /// one. The keyboard map is "us". Throws RigError if there is no such server or it does not start.
    explicit VirtualDisplay(const QList<QRect> &screens = {kFullHd},
                            ExtraDevice extraDevice = ExtraDevice::None);

    /// The value of DISPLAY, such as ":3".
    QString name() const { return m_name; }
    qint64 serverProcessId() const { return m_server->processId(); }
    /// Everything the server has written so far.
    QByteArray serverLog() const;
    Client &client() { return *m_client; }
    /// The socket of the extra device, on a display that has one.
    QString devicePath() const { return m_folder.filePath(QStringLiteral("device")); }

    /// Turns an output on, or changes its rectangle; returns once RandR reports the monitor.
    void plug(int output, const QRect &screen);
    /// Turns an output off; returns once RandR no longer reports the monitor.
    void unplug(int output);
    /// The monitors that RandR reports, by output number.
    QMap<int, QRect> screens() { return m_outputs->reported(); }

    /// Switches to another map by its XKB name, such as "de". The codes of the keys do not change.
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
