#include "modes_program.h"

#include "commands/hot_key_table.h"
#include "status_menu_fixture.h"
#include "toolbar_fixture.h"
#include "writing_fixture.h"

#include <QDir>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace zeigewerk::test {

namespace {

std::vector<platform::Screen> firstScreens(std::size_t count)
{
    std::vector<platform::Screen> screens;
    for (std::size_t i = 0; i < count; ++i) {
        const QRectF frame = kModelScreens.at(i);
        const QPointF topLeft(frame.left(), kModelScreens.front().height() - frame.bottom());
        screens.push_back({.name = QString::number(i),
                           .nativeFrame = QRectF(topLeft, frame.size()).toRect(),
                           .scale = 1,
                           .frame = {}});
    }
    return screens;
}

/// The index of the button that is shown as chosen; negative if there is not exactly one.
int indexOfChosen(const std::vector<PalButton *> &buttons)
{
    int index = -1;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i]->isShownOn())
            index = index == -1 ? static_cast<int>(i) : -2;
    }
    return index;
}

template <typename Values, typename Value>
int indexOf(const Values &values, const Value &value)
{
    return static_cast<int>(std::find(values.begin(), values.end(), value) - values.begin());
}

} // namespace

ModesProgram::ModesProgram(std::size_t screens)
    : Controller(firstScreens(screens))
    , m_overlaysMade(screens)
{
    // A folder in place of the settings file: the settings then stay in memory.
    if (!QDir(home.path()).mkdir(QStringLiteral("settings.ini")))
        qFatal("cannot keep the settings from being written");
    app();
}

void ModesProgram::changeScreens(std::size_t count)
{
    m_overlaysMade += count;
    desktop.changeScreens(firstScreens(count));
}

ModesState ModesProgram::state()
{
    const AppDelegate &app = this->app();
    ModesState state;
    state.flags = lettersOf({app.drawOn(), app.whiteboardOn(), app.spotlightOn(), app.clicksOn(),
                             app.pinnedOn(), app.cursorRingOn(), app.autoFadeOn()});
    state.dark = app.darkUI();
    state.toolbar = app.toolbarVisible();
    readMenu(state);
    readToolbar(state);
    for (std::size_t i = 0; i < app.overlays().size(); ++i)
        state.screens.push_back(stateOfScreen(i));
    for (const DrawingView *view : app.shapeOrder()) {
        const auto hasThisView = [view](const auto &overlay) { return &overlay->view() == view; };
        state.order.push_back(static_cast<std::size_t>(std::ranges::find_if(app.overlays(), hasThisView) -
                                                       app.overlays().begin()));
    }
    state.isFollowing = app.isFollowing();
    state.isFadeTimerRunning = app.isFadeTimerRunning();
    state.escRegistrations = desktop.hotKeys().timesRegistered(kEscHotKey.id());
    for (const platform::RecordingSurface *effect : desktop.surfaces(platform::SurfaceRole::Effect)) {
        if (effect->isVisible())
            state.ring = effect->frame().center();
    }
    state.monitorsClicks = desktop.eventMonitor().listening().testFlag(platform::Monitored::LeftPresses);
    state.monitorsWheel = desktop.eventMonitor().listening().testFlag(platform::Monitored::WheelWithAlt);
    state.storedFade = defaults.boolForKey(kAutoFadeKey);
    state.storedDark = defaults.boolForKey(kDarkUIKey);
    return state;
}

ModesState::Screen ModesProgram::stateOfScreen(std::size_t index)
{
    const DrawingView &canvas = view(index);
    const platform::RecordingSurface &overlay = surface(index);
    ModesState::Screen state;
    state.isShown = overlay.isVisible();
    state.takesMouse = !overlay.ignoresMouseEvents();
    state.spotlight = canvas.cursorPoint();
    for (const Shape &shape : canvas.shapes()) {
        const auto finished = std::chrono::floor<std::chrono::milliseconds>(shape.created - m_start);
        state.marks.push_back({shape.start.x(), finished.count()});
    }
    if (canvas.current())
        state.stroke = canvas.current()->start.x();
    const std::size_t number = m_overlaysMade - app().overlays().size() + index;
    state.hasKeyboard = desktop.keyWindow() == QStringLiteral("overlay %1").arg(number);
    if (const auto *window = dynamic_cast<platform::RecordingWindow *>(canvas.textWindow())) {
        state.text = canvas.textField()->text();
        // The field has the keyboard, so its overlay must not have it.
        state.isFieldInSync = !state.hasKeyboard && window->isVisible() == overlay.isVisible() &&
                              window->ignoresMouseEvents() == overlay.ignoresMouseEvents();
        state.hasKeyboard = window->isKey();
    }
    return state;
}

void ModesProgram::readMenu(ModesState &state)
{
    const QStringList titles = {kDraw, kBoard, kSpot, kClicks, kPin, kRing, kFade};
    std::array<bool, 7> isChecked{};
    state.toolbarInMenu = false;
    for (const QAction *action : menuOf(*this).trayMenu().actions()) {
        if (const qsizetype index = titles.indexOf(action->text()); index >= 0)
            isChecked.at(static_cast<std::size_t>(index)) = action->isChecked();
        if (action->text() == kDark)
            state.darkInMenu = action->isChecked();
        if (action->text() == kHide)
            state.toolbarInMenu = true;
    }
    state.menu = lettersOf(isChecked);
}

void ModesProgram::readToolbar(ModesState &state)
{
    const Toolbar &bar = *app().toolbar();
    const auto isOn = [](const PalButton *button) {
        return button->isShownOn() && button->layer().background == kOrange;
    };
    state.buttons = lettersOf({isOn(bar.btnDraw), isOn(bar.btnBoard), isOn(bar.btnSpot), isOn(bar.btnClicks),
                               isOn(bar.btnPin), isOn(bar.btnRing), isOn(bar.btnFade)});
    state.isToolbarShown = bar.window->isVisible();
    state.choices = {app().tool().rawValue(), indexOf(kPalette, app().color()),
                     indexOf(AppDelegate::widths, app().lineWidth())};
    std::vector<PalButton *> tools;
    std::ranges::transform(Tool::allCases, std::back_inserter(tools),
                           [&](Tool tool) { return bar.toolButtons.at(tool); });
    state.shownChoices = {indexOfChosen(tools), indexOfChosen(bar.colorButtons),
                          indexOfChosen(bar.widthButtons)};
}

} // namespace zeigewerk::test
