#include "modes_model.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::test {

namespace {

constexpr int kTextTool = 6;
constexpr qint64 kDissolved = 4800;
/// How far right of the press a text begins.
constexpr double kTextFromPress = 2.0;

} // namespace

Seen ModesModel::seen() const
{
    Seen seen;
    seen.flags = seen.menu = seen.buttons = lettersOf({draw, board, spot, clicks, pin, ring, fade});
    seen.dark = seen.darkInMenu = dark;
    seen.toolbar = seen.toolbarInMenu = seen.isToolbarShown = toolbar;
    seen.choices = seen.shownChoices = {tool, colour, width};
    seen.screens = screens;
    if (m_key)
        seen.screens.at(*m_key).hasKeyboard = true;
    seen.order = m_order;
    seen.isFollowing = spot || ring;
    seen.isFadeTimerRunning = fadeTimer;
    seen.timesEscIsTaken = escTaken ? 1 : 0;
    if (ring)
        seen.ring = m_ring;
    seen.hearsClicks = clicks;
    seen.hearsWheel = spot;
    seen.storedFade = m_storedFade;
    seen.storedDark = m_storedDark;
    return seen;
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
        std::vector<Seen::Mark> &marks = screens.at(m_order.back()).marks;
        m_order.pop_back();
        if (!marks.empty())
            return marks.pop_back();
    }
}

void ModesModel::press(std::size_t screen, double x)
{
    if (!interactive())
        return;
    m_key = screen;
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
    // In a field it takes back what was typed there.
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
    for (Seen::Screen &screen : screens) {
        std::erase_if(screen.marks,
                      [&](const Seen::Mark &mark) { return now - mark.finished >= kDissolved; });
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
    for (Seen::Screen &screen : screens) {
        screen.takesMouse = interactive();
        screen.isShown = interactive() || spot || pin;
    }
    m_key = interactive() ? screenUnderMouse() : std::nullopt;
    follow();
    updateFadeTimer();
    escTaken = spot && (escTaken || !escRefused);
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
        add(screen, m_fieldX.at(screen) + kTextFromPress);
}

void ModesModel::add(std::size_t screen, double x)
{
    screens.at(screen).marks.push_back({x, now});
    m_order.push_back(screen);
    updateFadeTimer();
}

} // namespace zeigewerk::test
