// A film of a virtual display.
#pragma once

#include "child_process.h"

#include <QRect>

#include <memory>

namespace zeigewerk::rig {

/// Films a part of a display for as long as it lives, pointer included. Needs ffmpeg.
class Recorder
{
public:
    /// In the folder that ZEIGEWERK_TEST_RECORD names, under the name of the running test and a number; none
    /// unless it is set. Throws RigError if the first pictures do not come.
    static std::unique_ptr<Recorder> fromEnvironment(const QString &display, const QRect &part);

    /// Ends the film, which can be played from then on.
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

private:
    Recorder(const QString &display, const QRect &part, const QString &path);

    ChildProcess m_process;
};

} // namespace zeigewerk::rig
