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

/// The place of the one button that shows that it is chosen; below 0 when it is none, or several.
int placeOfChosen(const std::vector<PalButton *> &buttons)
{
    int place = -1;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i]->isShownOn())
            place = place == -1 ? static_cast<int>(i) : -2;
    }
    return place;
}

template <typename Values, typename Value>
int placeOf(const Values &values, const Value &value)
{
    return static_cast<int>(std::find(values.begin(), values.end(), value) - values.begin());
}

} // namespace

ModesProgram::ModesProgram(std::size_t screens)
    : Controller(firstScreens(screens))
    , m_overlaysMade(screens)
{
    // A folder in place of the settings' file: they hold for this run, and the disk need not follow.
    if (!QDir(home.path()).mkdir(QStringLiteral("settings.ini")))
        qFatal("cannot keep the settings from being written");
    app();
}

void ModesProgram::changeScreens(std::size_t count)
{
    m_overlaysMade += count;
    desktop.changeScreens(firstScreens(count));
}

Seen ModesProgram::seen()
{
    const AppDelegate &app = this->app();
    Seen seen;
    seen.flags = lettersOf({app.drawOn(), app.whiteboardOn(), app.spotlightOn(), app.clicksOn(),
                            app.pinnedOn(), app.cursorRingOn(), app.autoFadeOn()});
    seen.dark = app.darkUI();
    seen.toolbar = app.toolbarVisible();
    lookAtMenu(seen);
    lookAtToolbar(seen);
    for (std::size_t i = 0; i < app.overlays().size(); ++i)
        seen.screens.push_back(seenScreen(i));
    for (const DrawingView *view : app.shapeOrder()) {
        const auto isItsOwn = [view](const auto &overlay) { return &overlay->view() == view; };
        seen.order.push_back(static_cast<std::size_t>(std::ranges::find_if(app.overlays(), isItsOwn) -
                                                      app.overlays().begin()));
    }
    seen.isFollowing = app.isFollowing();
    seen.isFadeTimerRunning = app.isFadeTimerRunning();
    seen.timesEscIsTaken = desktop.hotKeys().timesRegistered(kEscHotKey.id());
    for (const platform::RecordingSurface *effect : desktop.surfaces(platform::SurfaceRole::Effect)) {
        if (effect->isVisible())
            seen.ring = effect->frame().center();
    }
    seen.hearsClicks = desktop.eventMonitor().listening().testFlag(platform::Monitored::LeftPresses);
    seen.hearsWheel = desktop.eventMonitor().listening().testFlag(platform::Monitored::WheelWithAlt);
    seen.storedFade = defaults.boolForKey(kAutoFadeKey);
    seen.storedDark = defaults.boolForKey(kDarkUIKey);
    return seen;
}

Seen::Screen ModesProgram::seenScreen(std::size_t index)
{
    const DrawingView &canvas = view(index);
    const platform::RecordingSurface &overlay = surface(index);
    Seen::Screen seen;
    seen.isShown = overlay.isVisible();
    seen.takesMouse = !overlay.ignoresMouseEvents();
    seen.spotlight = canvas.cursorPoint();
    for (const Shape &shape : canvas.shapes()) {
        const auto finished = std::chrono::floor<std::chrono::milliseconds>(shape.created - m_start);
        seen.marks.push_back({shape.start.x(), finished.count()});
    }
    if (canvas.current())
        seen.stroke = canvas.current()->start.x();
    const std::size_t number = m_overlaysMade - app().overlays().size() + index;
    seen.hasKeyboard = desktop.keyWindow() == QStringLiteral("overlay %1").arg(number);
    if (const auto *window = dynamic_cast<platform::RecordingWindow *>(canvas.textWindow())) {
        seen.text = canvas.textField()->text();
        // The keys go to the field, so its overlay must not have them.
        seen.isFieldInStep = !seen.hasKeyboard && window->isVisible() == overlay.isVisible() &&
                             window->ignoresMouseEvents() == overlay.ignoresMouseEvents();
        seen.hasKeyboard = window->isKey();
    }
    return seen;
}

void ModesProgram::lookAtMenu(Seen &seen)
{
    const QStringList titles = {kDraw, kBoard, kSpot, kClicks, kPin, kRing, kFade};
    std::array<bool, 7> isChecked{};
    seen.toolbarInMenu = false;
    for (const QAction *action : menuOf(*this).trayMenu().actions()) {
        if (const qsizetype place = titles.indexOf(action->text()); place >= 0)
            isChecked.at(static_cast<std::size_t>(place)) = action->isChecked();
        if (action->text() == kDark)
            seen.darkInMenu = action->isChecked();
        if (action->text() == kHide)
            seen.toolbarInMenu = true;
    }
    seen.menu = lettersOf(isChecked);
}

void ModesProgram::lookAtToolbar(Seen &seen)
{
    const Toolbar &bar = *app().toolbar();
    const auto isOn = [](const PalButton *button) {
        return button->isShownOn() && button->layer().background == kOrange;
    };
    seen.buttons = lettersOf({isOn(bar.btnDraw), isOn(bar.btnBoard), isOn(bar.btnSpot), isOn(bar.btnClicks),
                              isOn(bar.btnPin), isOn(bar.btnRing), isOn(bar.btnFade)});
    seen.isToolbarShown = bar.window->isVisible();
    seen.choices = {app().tool().rawValue(), placeOf(kPalette, app().color()),
                    placeOf(AppDelegate::widths, app().lineWidth())};
    std::vector<PalButton *> tools;
    std::ranges::transform(Tool::allCases, std::back_inserter(tools),
                           [&](Tool tool) { return bar.toolButtons.at(tool); });
    seen.shownChoices = {placeOfChosen(tools), placeOfChosen(bar.colorButtons),
                         placeOfChosen(bar.widthButtons)};
}

} // namespace zeigewerk::test
