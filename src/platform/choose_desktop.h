#pragma once

#include "platform/desktop.h"

#include <QString>

#include <memory>

namespace zeigewerk::platform {

/// The connection to the desktop, before there is an application object.
class DesktopConnection
{
public:
    virtual ~DesktopConnection() = default;

    /// Claims the desktop for this process until the connection ends. False if another instance has it.
    virtual bool becomeOnlyInstance() = 0;
    /// What does not work on this desktop, in one line; empty if everything works.
    virtual QString limits() const = 0;
    /// The name of Qt's platform plugin for this desktop.
    virtual QByteArray qtPlatform() const = 0;
    /// Creates the desktop. Needs the application object, and can be called once.
    virtual std::unique_ptr<Desktop> makeDesktop() = 0;
};

/// Connects to the desktop that the process was started on. If that fails, returns null and sets `problem` to
/// the reason, in one line. This is the only place that knows which backends there are.
std::unique_ptr<DesktopConnection> connectToDesktop(QString *problem);

} // namespace zeigewerk::platform
