// Films a virtual display.
#pragma once

#include "child_process.h"

#include <QRect>

#include <memory>

namespace zeigewerk::rig {

/// Films part of a display for as long as it lives, pointer included. Needs ffmpeg.
class Recorder
{
public:
    /// Films into the folder named by ZEIGEWERK_TEST_RECORD; the file is named after the running test and a
    /// number. Null if the variable is not set. Throws RigError if filming does not start.
    static std::unique_ptr<Recorder> fromEnvironment(const QString &display, const QRect &part);

    /// Finishes the film, which can be played afterwards.
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

private:
    Recorder(const QString &display, const QRect &part, const QString &path);

    ChildProcess m_process;
};

} // namespace zeigewerk::rig
