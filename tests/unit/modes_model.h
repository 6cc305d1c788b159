// A second implementation of the rules of the modes, as a model: with flags and lists, without windows,
// timers or pictures.
#pragma once

#include "modes_state.h"

namespace zeigewerk::test {

/// Times are in milliseconds. A mark is identified by its x coordinate.
class ModesModel
{
public:
    explicit ModesModel(std::size_t screenCount) { changeScreens(screenCount); }

    ModesState state() const;

    void toggleDraw();
    void toggleBoard() { invert(board); }
    void toggleSpot() { invert(spot); }
    void toggleClicks() { invert(clicks); }
    void toggleRing() { invert(ring); }
    void togglePin();
    void endModes();
    void toggleFade();
    void toggleDark();
    void toggleToolbar() { toolbar = !toolbar; }
    void pickTool(int picked);
    void undo();
    void clearAll() { discard(); }

    void press(std::size_t screen, double x);
    void release(std::size_t screen);
    void pressEsc(std::size_t screen);
    void pressReturn(std::size_t screen) { commitText(screen); }
    void pressUndo(std::size_t screen);
    void type(std::size_t screen, QChar letter);

    void changeScreens(std::size_t count);
    void tickFade();
    void follow();

    bool draw = false;
    bool board = false;
    bool spot = false;
    bool clicks = false;
    bool pin = false;
    bool ring = false;
    bool fade = false;
    bool dark = true;
    bool toolbar = true;
    int tool = 0;
    int colour = 0;
    int width = 1;
    QPointF mouse;
    qint64 now = 0;
    bool fadeTimer = false;
    bool isEscRegistered = false;
    /// Whether another program has grabbed Esc.
    bool isEscRefused = false;
    std::vector<ModesState::Screen> screens;

private:
    bool interactive() const { return draw || board; }
    std::optional<std::size_t> screenUnderMouse() const;
    void invert(bool &flag);
    void refresh();
    void discard();
    void updateFadeTimer();
    void commitText(std::size_t screen);
    void add(std::size_t screen, double x);

    std::vector<std::size_t> m_order;
    std::optional<std::size_t> m_keyScreen;
    QPointF m_ring;
    std::optional<bool> m_storedFade;
    std::optional<bool> m_storedDark;
    std::vector<double> m_fieldX;
};

} // namespace zeigewerk::test
