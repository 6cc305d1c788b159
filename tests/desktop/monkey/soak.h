// Uses the program for a long time and watches its memory.
#pragma once

#include "blind_input.h"
#include "desktop_changes.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <chrono>
#include <vector>

namespace zeigewerk::rig {

/// Presents with every feature on, in identical rounds: the mouse moves, draws and clicks at 60 Hz, text is
/// typed and undone, modes are turned off and on.
///
/// Memory varies within a round, so it is sampled at the same moments of each round, and the median of the
/// samples counts for the round. The first tenth of the time is not counted, because caches and the heap
/// still grow. Then the median of the first fifth of the rounds is compared with the median of the last
/// fifth: they may differ by one percent. Medians, because a single round may deviate when the machine was
/// busy and the program late.
class Soak
{
public:
    explicit Soak(std::chrono::minutes duration);

    /// Prints a table; false if memory use is not flat.
    bool run();

private:
    void locateButtons();
    void switchEverythingOn();
    void playRound();
    void draw(int stroke);
    void typeText();
    void clickAround();
    void switchModes();
    void pickTool(const QString &tool);
    void hotKey(Key key);
    void moveTo(QPoint place);
    void nextFrame();
    void sample();
    bool isMemoryFlat() const;
    void printHistory() const;

    std::chrono::minutes m_duration;
    /// The places of the buttons in the toolbar's window.
    QMap<QString, QPoint> m_buttons;
    DesktopSession m_session;
    WindowBeneath m_beneath;
    BlindInput m_input;
    DesktopChanges m_desktop;
    Program m_program;
    QElapsedTimer m_clock;
    qint64 m_frames = 0;
    std::vector<Memory> m_samples;
    std::vector<Memory> m_rounds;
};

} // namespace zeigewerk::rig
