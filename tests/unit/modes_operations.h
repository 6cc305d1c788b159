// The operations of the modes, and the controls that trigger them.
#pragma once

#include "modes_model.h"
#include "status_menu_fixture.h"
#include "toolbar_fixture.h"

#include <cstdint>
#include <functional>

namespace zeigewerk::test {

template <auto button>
PalButton *buttonOf(const Toolbar &bar)
{
    return std::invoke(button, bar);
}

/// An operation with its hot key, button and menu items; 0 or empty if it has none.
struct ModeOperation
{
    void (ModesModel::*rule)();
    std::uint32_t hotKey;
    PalButton *(*button)(const Toolbar &bar);
    QStringList titles;
};

inline const std::vector<ModeOperation> &modeOperations()
{
    static const std::vector<ModeOperation> operations = {
        {&ModesModel::toggleDraw, 1, buttonOf<&Toolbar::btnDraw>, {kDraw}},
        {&ModesModel::toggleSpot, 2, buttonOf<&Toolbar::btnSpot>, {kSpot}},
        {&ModesModel::toggleBoard, 3, buttonOf<&Toolbar::btnBoard>, {kBoard}},
        {&ModesModel::toggleClicks, 4, buttonOf<&Toolbar::btnClicks>, {kClicks}},
        {&ModesModel::toggleToolbar, 5, buttonOf<&Toolbar::hideButton>, {kHide, kShow}},
        {&ModesModel::togglePin, 6, buttonOf<&Toolbar::btnPin>, {kPin}},
        {&ModesModel::toggleRing, 0, buttonOf<&Toolbar::btnRing>, {kRing}},
        {&ModesModel::toggleFade, 0, buttonOf<&Toolbar::btnFade>, {kFade}},
        {&ModesModel::toggleDark, 0, buttonOf<&Toolbar::btnDark>, {kDark}},
        {&ModesModel::clearAll, 0, buttonOf<&Toolbar::clearButton>, {kClearAll}},
        {&ModesModel::undo, 0, buttonOf<&Toolbar::undoButton>, {}},
    };
    return operations;
}

} // namespace zeigewerk::test
