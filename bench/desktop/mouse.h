// A mouse that moves at the pace of a real device.
#pragma once

#include "client.h"

#include <QPoint>

#include <functional>

namespace zeigewerk::bench {

/// The pointer's place at each sample: native root pixels, different at each sample.
using Path = std::function<QPoint(int sample)>;

/// All over a screen: see penPosition().
Path penPath(QSize screen);
/// From left to right at one height, in steps of twelve pixels: the stroke never returns to where it was.
Path horizontalPath(QPoint start);

/// Sends real events through XTest. Unlike a test's pointer it waits for nothing, so it costs the server what
/// a real mouse costs.
class Mouse
{
public:
    explicit Mouse(rig::Client &client)
        : m_client(client)
    {
    }

    void moveTo(QPoint place);
    void press();
    void release();
    /// Moves through samples `first` to `first + count - 1` of the path at `rate` per second; late samples
    /// follow immediately.
    void follow(const Path &path, int first, int count, double rate);
    /// Draws a stroke of four samples from there, one per millisecond.
    void scribble(QPoint start);

private:
    void fake(int type, int detail, QPoint place);

    rig::Client &m_client;
};

/// The schedule of samples sent at a steady rate: it uses absolute times, so it does not drift.
class Pace
{
public:
    explicit Pace(double rate);
    /// Sleeps until the next sample is due.
    void awaitNext();

private:
    std::int64_t m_start;
    double m_rate;
    int m_sent = 0;
};

} // namespace zeigewerk::bench
