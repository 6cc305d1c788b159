#pragma once

#include "platform/desktop.h"

#include <QString>

#include <memory>

namespace zeigewerk::platform {

/// What the program found to run on, before there is an application object.
class DesktopConnection
{
public:
    virtual ~DesktopConnection() = default;

    /// Whether this is the only one of our programs on the desktop; from then on it is, until the connection
    /// ends.
    virtual bool becomeOnlyInstance() = 0;
    /// What will not work here, in one line; empty if everything will.
    virtual QString limits() const = 0;
    /// The name of Qt's platform plugin that belongs to it.
    virtual QByteArray qtPlatform() const = 0;
    /// The desktop; needs the application object. Called once.
    virtual std::unique_ptr<Desktop> makeDesktop() = 0;
};

/// Connects to the desktop that the process was started on: the one place that knows which there are. When
/// none can be reached it returns none and says in `problem`, in one line, why.
std::unique_ptr<DesktopConnection> connectToDesktop(QString *problem);

} // namespace zeigewerk::platform
