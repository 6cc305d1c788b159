// What must be so when every mode is off.
#pragma once

#include "controls.h"
#include "program_windows.h"
#include "random_choice.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace zeigewerk::rig {

/// Looks at a desktop on which nobody but the program does anything. Each of these says what is wrong, and
/// nothing if all is well.
class Inspection
{
public:
    Inspection(DesktopSession &session, Controls &controls);

    /// Everything below, while the program runs with every mode off.
    QStringList ofProgram(const Program &program, RandomChoice &chance);
    /// What must be so when it has ended.
    QStringList ofDesktopWithout();

    /// That only the toolbar is on the screen.
    QStringList ofWindows(const Program &program);
    /// That the keyboard is with a window of somebody else.
    QStringList ofFocus(const Program &program);
    /// That other programs can have pointer, keyboard and Esc.
    QStringList ofGrabs();

private:
    void showSlides();
    QStringList ofPicture(const std::optional<WindowInfo> &toolbar);
    QStringList ofInput(const Program &program, RandomChoice &chance);
    QStringList ofDrawing(const Program &program);
    QStringList ofHiddenToolbar(const Program &program);
    bool isOurs(xcb_window_t window, const Program &program);
    QStringList strangePixels(const std::optional<WindowInfo> &toolbar);

    DesktopSession &m_session;
    Controls &m_controls;
    /// A window on each screen, made anew for each inspection: whatever became of those before, these are
    /// exactly what the screen must show.
    std::vector<std::unique_ptr<WindowBeneath>> m_slides;
};

} // namespace zeigewerk::rig
