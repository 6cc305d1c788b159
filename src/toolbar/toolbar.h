#pragma once

#include "drawing/tool.h"
#include "platform/widget_window.h"

#include <memory>
#include <unordered_map>
#include <vector>

class QWidget;

namespace zeigewerk {

class PalButton;
class Panel;

/// The floating toolbar: its panel, the window that shows it, and the buttons on it that mirror the program's
/// state. The panel owns the buttons.
struct Toolbar
{
    // The window goes before the panel that it shows.
    std::unique_ptr<Panel> panel;
    std::unique_ptr<platform::WidgetWindow> window;

    QWidget *gripView = nullptr;
    PalButton *btnDraw = nullptr;
    PalButton *btnBoard = nullptr;
    PalButton *btnSpot = nullptr;
    PalButton *btnClicks = nullptr;
    PalButton *btnRing = nullptr;
    PalButton *btnFade = nullptr;
    PalButton *btnPin = nullptr;
    PalButton *btnDark = nullptr;
    /// Undo, clear, hide, quit.
    std::vector<PalButton *> miscButtons;
    std::unordered_map<Tool, PalButton *> toolButtons;
    /// In the order of `kPalette`.
    std::vector<PalButton *> colorButtons;
    /// In the order of `AppDelegate::widths`.
    std::vector<PalButton *> widthButtons;
};

} // namespace zeigewerk
