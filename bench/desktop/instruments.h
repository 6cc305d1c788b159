// The desktop on which everything is measured, and the looks taken at it.
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

/// Switches drawing on. Throws RigError if it does not begin.
void beginDrawing(rig::Presentation &show);

/// What the three processes between hand and eye have spent.
struct Costs
{
    Milliseconds program{};
    Milliseconds server{};
    Milliseconds compositor{};

    static Costs of(rig::DesktopSession &session, qint64 programId);
    Costs operator-(const Costs &earlier) const;
    Costs operator*(double factor) const;
};

/// Comes back when none of the three has done anything for a while, so that what follows is not charged with
/// what came before. Throws RigError if they never rest.
void awaitIdle(rig::DesktopSession &session, qint64 programId);

/// What a piece of work costs, until everything is at rest again.
template <typename Work>
Costs costsOf(rig::DesktopSession &session, qint64 programId, const Work &work)
{
    awaitIdle(session, programId);
    const Costs before = Costs::of(session, programId);
    work();
    awaitIdle(session, programId);
    return Costs::of(session, programId) - before;
}

/// Looks at one pixel of the screen over and over.
class PixelWatch
{
public:
    PixelWatch(rig::Client &client, QPoint place);

    QRgb look();
    /// The time from `start` until the pixel was seen to have another colour than at first. Throws RigError
    /// if it keeps it for five seconds.
    Milliseconds untilChanged(std::chrono::steady_clock::time_point start);

private:
    rig::Client &m_client;
    QPoint m_place;
    QRgb m_before;
};

/// How long each of the path's samples takes from the mouse to the screen, one after the other at 60 Hz, in
/// milliseconds. The button is held; at each sample the pixel under the pointer must change.
std::vector<double> motionToPixel(rig::DesktopSession &session, const Path &path, int samples);

} // namespace zeigewerk::bench
