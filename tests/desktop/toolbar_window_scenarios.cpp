// The toolbar's window: it takes mouse input, but never the keyboard.
#include "paused_process.h"
#include "registered_test.h"
#include "toolbar_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// A button and its index among those of the same name.
struct ButtonRef
{
    QString name;
    int index = 0;
};

/// Buttons that do not show a canvas.
// A table, one row per line:
// clang-format off
const QList<ButtonRef> kButtonsWithoutCanvas = {
    {.name = button::kClicks},
    {.name = button::kRing},
    {.name = button::kFade},
    {.name = button::kColor, .index = 2},
    {.name = button::kColor, .index = 7},
    {.name = button::kWidth, .index = 0},
    {.name = button::kWidth, .index = 2},
    {.name = button::kAppearance},
    {.name = button::kUndo},
    {.name = button::kClear},
    {.name = button::kClicks},
    {.name = button::kRing},
    {.name = button::kAppearance},
};
// clang-format on

bool lostFocus(WindowBeneath &window)
{
    const QList<InputEvent> &events = window.events();
    return std::any_of(events.begin(), events.end(), [](const InputEvent &event) {
        return event.kind == InputEvent::Kind::FocusOut && !event.isByGrab;
    });
}

/// Recognises the look by the background, which only the appearance changes.
bool isDark(ToolbarPresentation &show, QPoint background)
{
    return show.pixel(background).lightness() < 0x60;
}

} // namespace

class ToolbarWindowScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickingTheToolbarLeavesTheKeyboardAlone();
    void theSpotlightButtonLeavesTheKeyboardAlone();
    void clicksOnTheToolbarReachNoOtherWindow();
    void theToolbarIsUsableOverOurCanvases();
    void theToolbarIsUsableOverAFullScreenWindow();
    void itHidesAndComesBackAtTheSamePlace();
    void rapidTogglingEndsInTheRightState();
    void togglingWhileTheProgramIsBusyEndsVisible();
    void theAppearanceChangesOnlyTheToolbarsColours();
    void hoveringShowsATooltip();
};

void ToolbarWindowScenarios::clickingTheToolbarLeavesTheKeyboardAlone()
{
    ToolbarPresentation show;
    show.beneath.forget();
    QList<Key> typed;
    for (const ButtonRef &each : kButtonsWithoutCanvas) {
        QVERIFY(show.presenter.click(each.name, each.index));
        show.session.keyboard().tap(Key::A);
        typed.append(Key::A);
        EVENTUALLY(show.beneath.pressedKeys() == typed);
    }
    // All clicks have had their effect.
    EVENTUALLY(show.presenter.isOn(button::kColor, 7) && show.presenter.isOn(button::kWidth, 2));
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(!lostFocus(show.beneath));
}

void ToolbarWindowScenarios::theSpotlightButtonLeavesTheKeyboardAlone()
{
    ToolbarPresentation show;
    show.beneath.forget();
    QVERIFY(show.presenter.click(button::kSpotlight));
    EVENTUALLY(show.isDimmed({10, 10}));
    show.session.keyboard().tap(Key::A);
    QVERIFY(show.presenter.click(button::kSpotlight));
    EVENTUALLY(show.isSlideUntouched());
    show.session.keyboard().tap(Key::B);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>({Key::A, Key::B}));
    QVERIFY(!lostFocus(show.beneath));
}

void ToolbarWindowScenarios::clicksOnTheToolbarReachNoOtherWindow()
{
    ToolbarPresentation show;
    show.beneath.forget();
    QVERIFY(show.presenter.click(button::kColor, 1));
    QVERIFY(show.session.pointer().clickAt(show.presenter.background()));
    QVERIFY(show.session.pointer().clickAt(show.presenter.grip()));
    QVERIFY(show.session.pointer().clickAt({400, 300}));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>({{400, 300}}));
    EVENTUALLY(show.presenter.isOn(button::kColor, 1));
}

void ToolbarWindowScenarios::theToolbarIsUsableOverOurCanvases()
{
    ToolbarPresentation show;
    const QPoint background = show.presenter.background();
    const QColor ground = show.pixel(background);
    for (const Key mode : {Key::D, Key::W}) {
        show.hotKey(mode);
        EVENTUALLY(show.hasKeyboard() && (mode != Key::W || show.pixel({10, 10}) == QColor(Qt::white)));
        // It is visible and can be clicked: a press on it draws nothing.
        EVENTUALLY(std::abs(show.pixel(background).lightness() - ground.lightness()) < 20);
        const int color = mode == Key::D ? 3 : 5;
        QVERIFY(show.presenter.click(button::kColor, color));
        EVENTUALLY(show.presenter.isOn(button::kColor, color));
        QVERIFY(show.hasKeyboard());
    }
    // Drawing continues beneath it.
    const QPoint left(1600, background.y());
    QVERIFY(show.session.pointer().drag({left, background, left + QPoint(300, 0)}));
    EVENTUALLY(show.pixel(left + QPoint(50, 0)) == QColor(0x0A, 0x84, 0xFF));
    QVERIFY(std::abs(show.pixel(background).lightness() - ground.lightness()) < 20);
}

void ToolbarWindowScenarios::theToolbarIsUsableOverAFullScreenWindow()
{
    ToolbarPresentation show;
    const QPoint background = show.presenter.background();
    const QColor ground = show.pixel(background);
    QVERIFY(show.beneath.setFullScreen(true));
    // The screen alone may not have changed yet.
    EVENTUALLY(show.session.client().isAbove(show.presenter.window().id, show.beneath.id()) &&
               show.pixel(background) == ground);
    show.beneath.forget();
    QVERIFY(show.presenter.click(button::kColor, 3));
    EVENTUALLY(show.presenter.isOn(button::kColor, 3));
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.beneath.presses().isEmpty());
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.strokeFrom({400, 300}));
    EVENTUALLY(show.strokeColor({400, 300}) == QColor(0x34, 0xC7, 0x59));
}

void ToolbarWindowScenarios::itHidesAndComesBackAtTheSamePlace()
{
    ToolbarPresentation show;
    // Moved first, because it would return to the default place in any case.
    const QPoint grip = show.presenter.grip();
    QVERIFY(show.session.pointer().drag({grip, grip - QPoint(300, 100)}));
    EVENTUALLY(show.presenter.grip() == grip - QPoint(300, 100));
    const QRect panel = show.presenter.panel();
    const auto isShown = [&] { return show.presenter.window().id != XCB_WINDOW_NONE; };

    QVERIFY(show.presenter.click(button::kHide));
    EVENTUALLY(!isShown());
    EVENTUALLY(show.isUntouched(VirtualDisplay::kFullHd));
    show.hotKey(Key::T);
    EVENTUALLY(isShown());
    QCOMPARE(show.presenter.panel(), panel);
    EVENTUALLY(show.pixel(panel.center()) != show.beneathColor());

    // While it is hidden, showing a canvas does not show it.
    show.hotKey(Key::T);
    EVENTUALLY(!isShown());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(!isShown());
    show.hotKey(Key::T);
    EVENTUALLY(isShown());
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.beneath.hasFocus());
    QCOMPARE(show.presenter.panel(), panel);
}

void ToolbarWindowScenarios::rapidTogglingEndsInTheRightState()
{
    constexpr int kOddCount = 41;
    ToolbarPresentation show;
    const QRect panel = show.presenter.panel();
    const auto isShown = [&] { return show.presenter.window().id != XCB_WINDOW_NONE; };
    const auto toggleRapidly = [&] {
        for (int i = 0; i < kOddCount; ++i)
            show.hotKey(Key::T);
        // The program handles its keys in order: when this one has had its effect, so have the others.
        show.hotKey(Key::D);
        return eventually([&] { return show.hasKeyboard(); });
    };
    QVERIFY(toggleRapidly());
    EVENTUALLY(!isShown());
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.isUntouched(VirtualDisplay::kFullHd));
    QVERIFY(toggleRapidly());
    EVENTUALLY(isShown());
    QCOMPARE(show.presenter.panel(), panel);
    EVENTUALLY(show.pixel(panel.center()) != show.beneathColor());
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.beneath.hasFocus());
}

void ToolbarWindowScenarios::togglingWhileTheProgramIsBusyEndsVisible()
{
    ToolbarPresentation show;
    const QPoint middle = show.presenter.panel().center();
    {
        const PausedProcess paused(show.program.processId());
        for (int i = 0; i < 4; ++i)
            show.hotKey(Key::T);
        show.hotKey(Key::D);
    }
    EVENTUALLY(show.hasKeyboard());
    // The screen may show an older state until something new is drawn.
    QVERIFY(show.strokeFrom({400, 300}));
    EVENTUALLY(show.strokeColor({400, 300}) == kInk);
    EVENTUALLY(show.pixel(middle) != show.beneathColor());
}

void ToolbarWindowScenarios::theAppearanceChangesOnlyTheToolbarsColours()
{
    ToolbarPresentation show;
    const QPoint background = show.presenter.background();
    QVERIFY(isDark(show, background));
    QVERIFY(show.presenter.click(button::kAppearance));
    EVENTUALLY(!isDark(show, background));
    QVERIFY(show.pixel(background).lightness() > 0xC0);
    QVERIFY(show.isSlideUntouched());
    QVERIFY(show.presenter.click(button::kAppearance));
    EVENTUALLY(isDark(show, background));
}

void ToolbarWindowScenarios::hoveringShowsATooltip()
{
    ToolbarPresentation show;
    const xcb_window_t toolbar = show.presenter.window().id;
    const auto tooltip = [&]() -> std::optional<WindowInfo> {
        for (const WindowInfo &window : show.shownWindows()) {
            if (window.id != toolbar && window.geometry.height() < 100)
                return window;
        }
        return std::nullopt;
    };
    QVERIFY(!tooltip());
    QVERIFY(show.session.pointer().moveTo(show.presenter.button(button::kDraw).extents.center()));
    EVENTUALLY(tooltip());
    QVERIFY(show.session.client().isAbove(tooltip()->id, toolbar));
    QVERIFY(VirtualDisplay::kFullHd.contains(tooltip()->geometry));
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().moveTo({400, 300}));
    EVENTUALLY(!tooltip());

    // It also appears above the program's own canvas.
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().moveTo(show.presenter.button(button::kUndo).extents.center()));
    EVENTUALLY(tooltip());
    for (const WindowInfo &window : show.shownWindows())
        QVERIFY(window.id == tooltip()->id || show.session.client().isAbove(tooltip()->id, window.id));
}

REGISTER_GUILESS_TEST(ToolbarWindowScenarios)
#include "toolbar_window_scenarios.moc"
