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
    QStringList inspectProgram(const Program &program, RandomChoice &random);
    /// What must be so when it has ended.
    QStringList inspectDesktopWithoutProgram();

    /// That only the toolbar is on the screen.
    QStringList inspectWindows(const Program &program);
    /// That the keyboard is with a window of somebody else.
    QStringList inspectFocus(const Program &program);
    /// That other programs can have pointer, keyboard and Esc.
    QStringList inspectGrabs();

private:
    void showSlides();
    QStringList inspectScreen(const std::optional<WindowInfo> &toolbar);
    QStringList inspectInput(const Program &program, RandomChoice &random);
    QStringList inspectDrawing(const Program &program);
    QStringList inspectHiddenToolbar(const Program &program);
    bool belongsToProgram(xcb_window_t window, const Program &program);
    QStringList unexpectedPixels(const std::optional<WindowInfo> &toolbar);

    DesktopSession &m_session;
    Controls &m_controls;
    /// A window on each screen, made anew for each inspection: whatever became of those before, these are
    /// exactly what the screen must show.
    std::vector<std::unique_ptr<WindowBeneath>> m_slides;
};

} // namespace zeigewerk::rig
