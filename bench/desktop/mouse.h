// The hand that holds the mouse while costs are measured.
#pragma once

#include "client.h"

#include <QPoint>

#include <functional>

namespace zeigewerk::bench {

/// Where the pointer is at each sample: native root pixels, a different place at each sample.
using Path = std::function<QPoint(int sample)>;

/// All over a screen, as wander.h has it.
Path penPath(QSize screen);
/// From left to right at that height, in steps of twelve pixels: a stroke never comes near where it was.
Path horizontalPath(QPoint start);

/// Sends real events through XTest at the pace of a device. Unlike a test's pointer it waits for nothing, so
/// that what it costs the server is what a mouse costs.
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
    /// Moves through samples `first` to `first + count - 1` of the path, `rate` of them in a second; samples
    /// that are late follow at once.
    void follow(const Path &path, int first, int count, double rate);
    /// Draws a stroke of four samples from there, in as many milliseconds.
    void scribble(QPoint start);

private:
    void fake(int type, int detail, QPoint place);

    rig::Client &m_client;
};

/// When something is sent at a steady pace: the absolute times do not drift.
class Pace
{
public:
    explicit Pace(double rate);
    /// Sleeps until the next one is due.
    void awaitNext();

private:
    std::int64_t m_start;
    double m_rate;
    int m_sent = 0;
};

} // namespace zeigewerk::bench
