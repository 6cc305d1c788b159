// The program as a model of its modes sees it.
#pragma once

#include "controller_fixture.h"
#include "modes_model.h"

namespace zeigewerk::test {

class ModesProgram : public Controller
{
public:
    explicit ModesProgram(std::size_t screens);

    Seen seen();
    void changeScreens(std::size_t count);

private:
    Seen::Screen seenScreen(std::size_t index);
    void lookAtMenu(Seen &seen);
    void lookAtToolbar(Seen &seen);

    const TimePoint m_start = now;
    std::size_t m_overlaysMade;
};

} // namespace zeigewerk::test
