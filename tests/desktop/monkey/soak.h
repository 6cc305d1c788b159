// The program used for a long time, and what that does to its memory.
#pragma once

#include "blind_input.h"
#include "desktop_changes.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <chrono>
#include <vector>

namespace zeigewerk::rig {

/// Somebody presents with every feature on, in rounds that are all the same: the mouse moves, draws and
/// clicks at 60 Hz, text is typed and taken back, modes go off and on.
///
/// Memory goes up and down within a round, so it is sampled at the same moments of each, and a round counts
/// by the medians of its samples. After a tenth of the time, in which caches and the heap find their size,
/// the median of the first fifth of the rounds is compared with that of the last fifth: neither may be more
/// than one percent off the other. Medians, as a single round may be off when the machine was busy and the
/// program late.
class Soak
{
public:
    explicit Soak(std::chrono::minutes duration);

    /// Prints a table; false if memory is not flat.
    bool run();

private:
    void locateButtons();
    void switchEverythingOn();
    void playRound();
    void draw(int stroke);
    void write();
    void clickAround();
    void switchModes();
    void use(const QString &tool);
    void hotKey(Key key);
    void moveTo(QPoint place);
    void nextFrame();
    void sample();
    bool isMemoryFlat() const;
    void printHistory() const;

    std::chrono::minutes m_duration;
    /// Where the buttons are in the toolbar's window.
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
