#pragma once

#include "drawing/tool.h"
#include "platform/widget_window.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace zeigewerk {

class Bar;
class PalButton;
class Panel;
class ToolbarPlacement;
struct ToolbarLook;

/// The floating toolbar: its panel, the window that shows the panel, and the buttons. The panel owns the
/// buttons.
struct Toolbar
{
    Toolbar();
    ~Toolbar();

    // Each uses those before it.
    std::unique_ptr<Panel> panel;
    std::unique_ptr<platform::WidgetWindow> window;
    std::unique_ptr<ToolbarPlacement> placement;

    /// The look that `refreshToolbar` applied last; null before the first time.
    const ToolbarLook *look = nullptr;

    Bar *gripView = nullptr;
    PalButton *btnDraw = nullptr;
    PalButton *btnBoard = nullptr;
    PalButton *btnSpot = nullptr;
    PalButton *btnClicks = nullptr;
    PalButton *btnRing = nullptr;
    PalButton *btnFade = nullptr;
    PalButton *btnPin = nullptr;
    PalButton *btnDark = nullptr;
    std::unordered_map<Tool, PalButton *> toolButtons;
    /// In the order of `kPalette`.
    std::vector<PalButton *> colorButtons;
    /// In the order of `AppDelegate::widths`.
    std::vector<PalButton *> widthButtons;
    /// Undo, clear, hide, quit.
    std::vector<PalButton *> miscButtons;

    PalButton *undoButton() const { return miscButtons.at(0); }
    PalButton *clearButton() const { return miscButtons.at(1); }
    PalButton *hideButton() const { return miscButtons.at(2); }
    PalButton *quitButton() const { return miscButtons.at(3); }
    /// Every button, in no particular order.
    std::vector<PalButton *> allButtons() const;
};

} // namespace zeigewerk
