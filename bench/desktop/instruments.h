// The desktop for all measurements, and the means of measuring.
#pragma once

#include "mouse.h"
#include "presentation.h"

#include <QRgb>

#include <chrono>

namespace zeigewerk::bench {

inline constexpr QSize kScreen(3840, 2160);

using Milliseconds = std::chrono::duration<double, std::milli>;

/// One screen of 3840 x 2160 with the usual window manager and compositor.
inline rig::DesktopSetup benchSetup()
{
    return {.screens = {QRect(QPoint(0, 0), kScreen)}};
}

/// Turns drawing on. Throws RigError if it does not start.
void beginDrawing(rig::Presentation &show);

/// Processor time of the three processes between the mouse and the screen.
struct Costs
{
    Milliseconds program{};
    Milliseconds server{};
    Milliseconds compositor{};

    static Costs of(rig::DesktopSession &session, qint64 programId);
    Costs operator-(const Costs &earlier) const;
    Costs operator*(double factor) const;
};

/// Waits until none of the three has done anything for a while, so that earlier work is not counted. Throws
/// RigError if they never become idle.
void awaitIdle(rig::DesktopSession &session, qint64 programId);

/// The costs of some work, until everything is idle again.
template <typename Work>
Costs costsOf(rig::DesktopSession &session, qint64 programId, const Work &work)
{
    awaitIdle(session, programId);
    const Costs before = Costs::of(session, programId);
    work();
    awaitIdle(session, programId);
    return Costs::of(session, programId) - before;
}

/// Polls one pixel of the screen.
class PixelWatch
{
public:
    PixelWatch(rig::Client &client, QPoint place);

    QRgb look();
    /// The time from `start` until the pixel has a different colour than at first. Throws RigError if it does
    /// not change within five seconds.
    Milliseconds untilChanged(std::chrono::steady_clock::time_point start);

private:
    rig::Client &m_client;
    QPoint m_place;
    QRgb m_before;
};

/// How long each of the path's samples takes from the mouse to the screen, one after the other at 60 Hz, in
/// milliseconds. The button is pressed; each sample must change the pixel under the pointer.
std::vector<double> motionToPixel(rig::DesktopSession &session, const Path &path, int samples);

} // namespace zeigewerk::bench
