// Checks the desktop while every mode is off.
#pragma once

#include "controls.h"
#include "program_windows.h"
#include "random_choice.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace zeigewerk::rig {

/// Inspects a desktop on which only the program is active. Each inspection returns its complaints: none if
/// all is well.
class Inspection
{
public:
    Inspection(DesktopSession &session, Controls &controls);

    /// All of the following, while the program runs with every mode off.
    QStringList inspectProgram(const Program &program, RandomChoice &random);
    /// After the program has ended.
    QStringList inspectDesktopWithoutProgram();

    /// Only the toolbar may be on the screen.
    QStringList inspectWindows(const Program &program);
    /// The keyboard must belong to another program's window.
    QStringList inspectFocus(const Program &program);
    /// Other programs must be able to grab the pointer, the keyboard and Esc.
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
    /// One window per screen, created anew for each inspection: the screen must show exactly these, whatever
    /// happened to earlier ones.
    std::vector<std::unique_ptr<WindowBeneath>> m_slides;
};

} // namespace zeigewerk::rig
