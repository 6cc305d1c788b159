// The program as it is compared with the model of its modes.
#pragma once

#include "controller_fixture.h"
#include "modes_model.h"

namespace zeigewerk::test {

class ModesProgram : public Controller
{
public:
    explicit ModesProgram(std::size_t screens);

    ModesState state();
    void changeScreens(std::size_t count);

private:
    ModesState::Screen stateOfScreen(std::size_t index);
    void readMenu(ModesState &state);
    void readToolbar(ModesState &state);

    const TimePoint m_start = now;
    std::size_t m_overlaysMade;
};

} // namespace zeigewerk::test
