// Runs the stand-in for a program that uses the seam to the desktop.
#pragma once

#include "rig.h"
#include "two_screens.h"

namespace zeigewerk::rig {

/// Qt's setting for "scale of the first;scale of the second".
inline QString factorsOf(const QString &scales)
{
    return QString("DUMMY0=%1;DUMMY1=%2").arg(scales.section(';', 0, 0), scales.section(';', 1));
}

/// The running stand-in: a red widget of 150 x 300 points with an ornament around it.
class SeamStandIn
{
public:
    explicit SeamStandIn(DesktopSession &session, const QMap<QString, QString> &environment = {})
        : m_session(session)
        , m_child(commandOf(session, environment))
    {
    }

    /// Sends the line, and returns the answer once the stand-in has carried it out.
    QString tell(const QString &line)
    {
        QProcess &process = m_child.process();
        process.write(line.toUtf8() + '\n');
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(static_cast<int>(kDeadline.count())))
                throw RigError("the stand-in does not answer");
        }
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    /// Its windows on the screen, from the bottom to the top.
    QList<WindowInfo> windows()
    {
        QList<WindowInfo> shown;
        for (const WindowInfo &window : m_session.client().windowsOfProcess(m_child.processId())) {
            if (window.viewable)
                shown.append(window);
        }
        return shown;
    }
    /// The widget on the screen, without its ornament, in native pixels.
    QRect red()
    {
        const QImage image = m_session.screenshot().image();
        return m_session.screenshot().bounds(Qt::red, image.rect());
    }

private:
    static ChildProcess::Command commandOf(const DesktopSession &session,
                                           const QMap<QString, QString> &environment)
    {
        ChildProcess::Command command{.program = QStringLiteral(SEAM_STAND_IN),
                                      .environment = session.environment(),
                                      .logPath = QProcess::nullDevice(),
                                      .separateOutput = true,
                                      .readsInput = true};
        for (auto it = environment.cbegin(); it != environment.cend(); ++it)
            command.environment.insert(it.key(), *it);
        return command;
    }

    DesktopSession &m_session;
    ChildProcess m_child;
};

} // namespace zeigewerk::rig
