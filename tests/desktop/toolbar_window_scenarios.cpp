// The toolbar as a window among those of others: it takes the mouse and never the keyboard.
#include "paused_process.h"
#include "registered_test.h"
#include "toolbar_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// What turns no canvas on.
struct Harmless
{
    QString name;
    int index = 0;
};

const QList<Harmless> kHarmless = {
    {button::kClicks},   {button::kRing},     {button::kFade},       {button::kColor, 2}, {button::kColor, 7},
    {button::kWidth, 0}, {button::kWidth, 2}, {button::kAppearance}, {button::kUndo},     {button::kClear},
    {button::kClicks},   {button::kRing},     {button::kAppearance},
};

bool lostFocus(WindowBeneath &window)
{
    const QList<InputEvent> &events = window.events();
    return std::any_of(events.begin(), events.end(), [](const InputEvent &event) {
        return event.kind == InputEvent::Kind::FocusOut && !event.isByGrab;
    });
}

/// The toolbar's look by its ground, which nothing but the backdrop colours.
bool isDark(ToolbarPresentation &on, QPoint background)
{
    return on.pixel(background).lightness() < 0x60;
}

} // namespace

class ToolbarWindowScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickingTheToolbarLeavesTheKeyboardWithTheEditor();
    void theSpotlightButtonLeavesTheKeyboardWithTheEditor();
    void clicksOnTheToolbarReachNobodyElse();
    void theToolbarStaysUsableOverItsOwnCanvases();
    void theToolbarIsUsableOverAFullScreenWindow();
    void hiddenItIsGoneAndComesBackAtTheSamePlace();
    void toggledInARushItEndsAsItShould();
    void toggledWhileTheProgramIsBusyItShows();
    void theAppearanceChangesTheToolbarsOwnColours();
    void hoveringShowsATooltip();
};

void ToolbarWindowScenarios::clickingTheToolbarLeavesTheKeyboardWithTheEditor()
{
    ToolbarPresentation on;
    on.beneath.forget();
    QList<Key> typed;
    for (const Harmless &each : kHarmless) {
        QVERIFY(on.presenter.click(each.name, each.index));
        on.session.keyboard().tap(Key::A);
        typed.append(Key::A);
        EVENTUALLY(on.beneath.pressedKeys() == typed);
    }
    // All of it was clicked indeed.
    EVENTUALLY(on.presenter.isOn(button::kColor, 7) && on.presenter.isOn(button::kWidth, 2));
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(!lostFocus(on.beneath));
}

void ToolbarWindowScenarios::theSpotlightButtonLeavesTheKeyboardWithTheEditor()
{
    ToolbarPresentation on;
    on.beneath.forget();
    QVERIFY(on.presenter.click(button::kSpotlight));
    EVENTUALLY(on.isDimmed({10, 10}));
    on.session.keyboard().tap(Key::A);
    QVERIFY(on.presenter.click(button::kSpotlight));
    EVENTUALLY(on.isSlideUntouched());
    on.session.keyboard().tap(Key::B);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>({Key::A, Key::B}));
    QVERIFY(!lostFocus(on.beneath));
}

void ToolbarWindowScenarios::clicksOnTheToolbarReachNobodyElse()
{
    ToolbarPresentation on;
    on.beneath.forget();
    QVERIFY(on.presenter.click(button::kColor, 1));
    QVERIFY(on.session.pointer().clickAt(on.presenter.background()));
    QVERIFY(on.session.pointer().clickAt(on.presenter.grip()));
    QVERIFY(on.session.pointer().clickAt({400, 300}));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>({{400, 300}}));
    EVENTUALLY(on.presenter.isOn(button::kColor, 1));
}

void ToolbarWindowScenarios::theToolbarStaysUsableOverItsOwnCanvases()
{
    ToolbarPresentation on;
    const QPoint background = on.presenter.background();
    const QColor ground = on.pixel(background);
    for (const Key mode : {Key::D, Key::W}) {
        on.hotKey(mode);
        EVENTUALLY(on.hasKeyboard() && (mode != Key::W || on.pixel({10, 10}) == QColor(Qt::white)));
        // Seen, and reached: a press on it is no stroke.
        EVENTUALLY(std::abs(on.pixel(background).lightness() - ground.lightness()) < 20);
        const int color = mode == Key::D ? 3 : 5;
        QVERIFY(on.presenter.click(button::kColor, color));
        EVENTUALLY(on.presenter.isOn(button::kColor, color));
        QVERIFY(on.hasKeyboard());
    }
    // Drawing goes on beneath it.
    const QPoint left(1600, background.y());
    QVERIFY(on.session.pointer().drag({left, background, left + QPoint(300, 0)}));
    EVENTUALLY(on.pixel(left + QPoint(50, 0)) == QColor(0x0A, 0x84, 0xFF));
    QVERIFY(std::abs(on.pixel(background).lightness() - ground.lightness()) < 20);
}

void ToolbarWindowScenarios::theToolbarIsUsableOverAFullScreenWindow()
{
    ToolbarPresentation on;
    const QPoint background = on.presenter.background();
    const QColor ground = on.pixel(background);
    QVERIFY(on.beneath.setFullScreen(true));
    // The picture alone may still be that of before.
    EVENTUALLY(on.session.client().isAbove(on.presenter.window().id, on.beneath.id()) &&
               on.pixel(background) == ground);
    on.beneath.forget();
    QVERIFY(on.presenter.click(button::kColor, 3));
    EVENTUALLY(on.presenter.isOn(button::kColor, 3));
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(on.beneath.presses().isEmpty());
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.strokeFrom({400, 300}));
    EVENTUALLY(on.strokeColor({400, 300}) == QColor(0x34, 0xC7, 0x59));
}

void ToolbarWindowScenarios::hiddenItIsGoneAndComesBackAtTheSamePlace()
{
    ToolbarPresentation on;
    // Moved first: its first place it would find again in any case.
    const QPoint grip = on.presenter.grip();
    QVERIFY(on.session.pointer().drag({grip, grip - QPoint(300, 100)}));
    EVENTUALLY(on.presenter.grip() == grip - QPoint(300, 100));
    const QRect panel = on.presenter.panel();
    const auto isShown = [&] { return on.presenter.window().id != XCB_WINDOW_NONE; };

    QVERIFY(on.presenter.click(button::kHide));
    EVENTUALLY(!isShown());
    EVENTUALLY(on.isUntouched(VirtualDisplay::kFullHd));
    on.hotKey(Key::T);
    EVENTUALLY(isShown());
    QCOMPARE(on.presenter.panel(), panel);
    EVENTUALLY(on.pixel(panel.center()) != on.beneathColor());

    // While it is hidden, what turns a canvas on does not bring it back.
    on.hotKey(Key::T);
    EVENTUALLY(!isShown());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(!isShown());
    on.hotKey(Key::T);
    EVENTUALLY(isShown());
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.beneath.hasFocus());
    QCOMPARE(on.presenter.panel(), panel);
}

void ToolbarWindowScenarios::toggledInARushItEndsAsItShould()
{
    constexpr int kOddCount = 41;
    ToolbarPresentation on;
    const QRect panel = on.presenter.panel();
    const auto isShown = [&] { return on.presenter.window().id != XCB_WINDOW_NONE; };
    const auto rush = [&] {
        for (int i = 0; i < kOddCount; ++i)
            on.hotKey(Key::T);
        // The program takes its keys in order: once this one has been seen, all of them have.
        on.hotKey(Key::D);
        return eventually([&] { return on.hasKeyboard(); });
    };
    QVERIFY(rush());
    EVENTUALLY(!isShown());
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.isUntouched(VirtualDisplay::kFullHd));
    QVERIFY(rush());
    EVENTUALLY(isShown());
    QCOMPARE(on.presenter.panel(), panel);
    EVENTUALLY(on.pixel(panel.center()) != on.beneathColor());
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.beneath.hasFocus());
}

void ToolbarWindowScenarios::toggledWhileTheProgramIsBusyItShows()
{
    ToolbarPresentation on;
    const QPoint middle = on.presenter.panel().center();
    {
        const PausedProcess absence(on.program.processId());
        for (int i = 0; i < 4; ++i)
            on.hotKey(Key::T);
        on.hotKey(Key::D);
    }
    EVENTUALLY(on.hasKeyboard());
    // The picture may be that of before until there is something new in it.
    QVERIFY(on.strokeFrom({400, 300}));
    EVENTUALLY(on.strokeColor({400, 300}) == kInk);
    EVENTUALLY(on.pixel(middle) != on.beneathColor());
}

void ToolbarWindowScenarios::theAppearanceChangesTheToolbarsOwnColours()
{
    ToolbarPresentation on;
    const QPoint background = on.presenter.background();
    QVERIFY(isDark(on, background));
    QVERIFY(on.presenter.click(button::kAppearance));
    EVENTUALLY(!isDark(on, background));
    QVERIFY(on.pixel(background).lightness() > 0xC0);
    QVERIFY(on.isSlideUntouched());
    QVERIFY(on.presenter.click(button::kAppearance));
    EVENTUALLY(isDark(on, background));
}

void ToolbarWindowScenarios::hoveringShowsATooltip()
{
    ToolbarPresentation on;
    const xcb_window_t toolbar = on.presenter.window().id;
    const auto tooltip = [&]() -> std::optional<WindowInfo> {
        for (const WindowInfo &window : on.shownWindows()) {
            if (window.id != toolbar && window.geometry.height() < 100)
                return window;
        }
        return std::nullopt;
    };
    QVERIFY(!tooltip());
    QVERIFY(on.session.pointer().moveTo(on.presenter.button(button::kDraw).extents.center()));
    EVENTUALLY(tooltip());
    QVERIFY(on.session.client().isAbove(tooltip()->id, toolbar));
    QVERIFY(VirtualDisplay::kFullHd.contains(tooltip()->geometry));
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().moveTo({400, 300}));
    EVENTUALLY(!tooltip());

    // Over the program's own canvas as well.
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().moveTo(on.presenter.button(button::kUndo).extents.center()));
    EVENTUALLY(tooltip());
    for (const WindowInfo &window : on.shownWindows())
        QVERIFY(window.id == tooltip()->id || on.session.client().isAbove(tooltip()->id, window.id));
}

REGISTER_GUILESS_TEST(ToolbarWindowScenarios)
#include "toolbar_window_scenarios.moc"
