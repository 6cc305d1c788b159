#include "modes_model.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::test {

namespace {

constexpr int kTextTool = 6;
/// How long a mark lasts until it has faded, in milliseconds.
constexpr qint64 kMarkLifetime = 4800;
/// How far to the right of the press a text begins.
constexpr double kTextOffset = 2.0;

} // namespace

ModesState ModesModel::state() const
{
    ModesState state;
    state.flags = state.menu = state.buttons = lettersOf({draw, board, spot, clicks, pin, ring, fade});
    state.dark = state.darkInMenu = dark;
    state.toolbar = state.toolbarInMenu = state.isToolbarShown = toolbar;
    state.choices = state.shownChoices = {tool, colour, width};
    state.screens = screens;
    if (m_keyScreen)
        state.screens.at(*m_keyScreen).hasKeyboard = true;
    state.order = m_order;
    state.isFollowing = spot || ring;
    state.isFadeTimerRunning = fadeTimer;
    state.escRegistrations = isEscRegistered ? 1 : 0;
    if (ring)
        state.ring = m_ring;
    state.monitorsClicks = clicks;
    state.monitorsWheel = spot;
    state.storedFade = m_storedFade;
    state.storedDark = m_storedDark;
    return state;
}

void ModesModel::toggleDraw()
{
    draw = pin || !draw;
    pin = false;
    refresh();
}

void ModesModel::togglePin()
{
    if (pin) {
        pin = false;
        draw = true;
    } else if (interactive()) {
        pin = true;
        draw = board = false;
    }
    refresh();
}

void ModesModel::endModes()
{
    draw = board = spot = pin = false;
    refresh();
}

void ModesModel::toggleFade()
{
    m_storedFade = !fade;
    invert(fade);
}

void ModesModel::toggleDark()
{
    dark = !dark;
    m_storedDark = dark;
}

void ModesModel::invert(bool &flag)
{
    flag = !flag;
    refresh();
}

void ModesModel::pickTool(int picked)
{
    tool = picked;
    if (pin || !interactive())
        draw = true;
    pin = false;
    refresh();
}

void ModesModel::undo()
{
    while (!m_order.empty()) {
        std::vector<ModesState::Mark> &marks = screens.at(m_order.back()).marks;
        m_order.pop_back();
        if (!marks.empty())
            return marks.pop_back();
    }
}

void ModesModel::press(std::size_t screen, double x)
{
    if (!interactive())
        return;
    m_keyScreen = screen;
    commitText(screen);
    if (tool != kTextTool) {
        screens.at(screen).stroke = x;
        return;
    }
    screens.at(screen).text = QString();
    m_fieldX.at(screen) = x;
}

void ModesModel::release(std::size_t screen)
{
    if (const auto stroke = std::exchange(screens.at(screen).stroke, std::nullopt))
        add(screen, *stroke);
}

void ModesModel::pressEsc(std::size_t screen)
{
    if (screens.at(screen).text)
        screens.at(screen).text.reset();
    else
        endModes();
}

void ModesModel::pressUndo(std::size_t screen)
{
    // In a text field it undoes the typing.
    if (screens.at(screen).text)
        screens.at(screen).text = QString();
    else
        undo();
}

void ModesModel::type(std::size_t screen, QChar letter)
{
    if (screens.at(screen).text)
        *screens.at(screen).text += letter;
}

void ModesModel::changeScreens(std::size_t count)
{
    screens.assign(count, {});
    m_fieldX.assign(count, 0.0);
    m_order.clear();
    refresh();
}

void ModesModel::tickFade()
{
    bool isAnyLeft = false;
    for (ModesState::Screen &screen : screens) {
        std::erase_if(screen.marks,
                      [&](const ModesState::Mark &mark) { return now - mark.finished >= kMarkLifetime; });
        isAnyLeft = isAnyLeft || !screen.marks.empty();
    }
    if (!isAnyLeft)
        updateFadeTimer();
}

void ModesModel::follow()
{
    if (ring)
        m_ring = mouse;
    for (std::size_t i = 0; spot && i < screens.size(); ++i)
        screens.at(i).spotlight = mouse - kModelScreens.at(i).topLeft();
}

std::optional<std::size_t> ModesModel::screenUnderMouse() const
{
    for (std::size_t i = 0; i < screens.size(); ++i) {
        if (kModelScreens.at(i).contains(mouse))
            return i;
    }
    return screens.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

void ModesModel::refresh()
{
    if (!interactive() && !pin)
        discard();
    for (ModesState::Screen &screen : screens) {
        screen.takesMouse = interactive();
        screen.isShown = interactive() || spot || pin;
    }
    m_keyScreen = interactive() ? screenUnderMouse() : std::nullopt;
    follow();
    updateFadeTimer();
    isEscRegistered = spot && (isEscRegistered || !isEscRefused);
}

void ModesModel::discard()
{
    for (std::size_t i = 0; i < screens.size(); ++i) {
        commitText(i);
        screens.at(i).marks.clear();
        screens.at(i).stroke.reset();
    }
    m_order.clear();
}

void ModesModel::updateFadeTimer()
{
    const bool hasMarks =
        std::any_of(screens.begin(), screens.end(), [](const auto &screen) { return !screen.marks.empty(); });
    fadeTimer = fade && !board && hasMarks;
}

void ModesModel::commitText(std::size_t screen)
{
    const std::optional<QString> text = std::exchange(screens.at(screen).text, std::nullopt);
    if (text && !text->isEmpty())
        add(screen, m_fieldX.at(screen) + kTextOffset);
}

void ModesModel::add(std::size_t screen, double x)
{
    screens.at(screen).marks.push_back({x, now});
    m_order.push_back(screen);
    updateFadeTimer();
}

} // namespace zeigewerk::test
