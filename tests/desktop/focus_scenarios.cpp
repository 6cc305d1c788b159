#include "dock.h"
#include "keyboard_grab.h"
#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

bool isKeyboardFree(DesktopSession &session)
{
    try {
        const KeyboardGrab grab(session);
        return true;
    } catch (const RigError &) {
        return false;
    }
}

} // namespace

class FocusScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theKeyboardReturnsToItsPreviousOwner_data();
    void theKeyboardReturnsToItsPreviousOwner();
    void ifThePreviousOwnerIsGoneTheNextWindowGetsTheKeyboard();
    void aDockNeverInheritsTheKeyboard();
    void aWindowThatOpensWhileDrawingGetsTheKeyboardAfterwards();
    void aPressOnACanvasTakesTheKeyboard();
    void theSpotlightLeavesTheKeyboardAlone();
    void aFocusChangeDuringAGrabIsReverted();
    void aWindowThatTookTheKeyboardMeanwhileKeepsIt();
    void aHeldEscReachesNoOtherWindow();
    void aHotKeyPressedDuringAHeldEscWorksAgain();
};

void FocusScenarios::theKeyboardReturnsToItsPreviousOwner_data()
{
    struct Row
    {
        const char *name;
        QList<Key> into;
        QList<Key> out;
    };
    // Esc is the plain key; letters are hot keys.
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        {.name = "drawing, hot key",            .into = {Key::D},                 .out = {Key::D}},
        {.name = "drawing, Esc",                .into = {Key::D},                 .out = {Key::Escape}},
        {.name = "drawing, pin",                .into = {Key::D},                 .out = {Key::P}},
        {.name = "whiteboard, hot key",         .into = {Key::W},                 .out = {Key::W}},
        {.name = "whiteboard, Esc",             .into = {Key::W},                 .out = {Key::Escape}},
        {.name = "both, one after the other",   .into = {Key::D, Key::W},         .out = {Key::D, Key::W}},
        {.name = "drawing with spotlight, Esc", .into = {Key::D, Key::S},         .out = {Key::Escape}},
        {.name = "pinned and drawn on, Esc",    .into = {Key::D, Key::P, Key::D}, .out = {Key::Escape}},
    };
    // clang-format on
    QTest::addColumn<QList<Key>>("into");
    QTest::addColumn<QList<Key>>("out");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.into << row.out;
}

void FocusScenarios::theKeyboardReturnsToItsPreviousOwner()
{
    QFETCH(QList<Key>, into);
    QFETCH(QList<Key>, out);
    Presentation show;
    WindowBeneath other(show.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    QVERIFY(show.beneath.takeFocus());
    // Step by step: an Esc between pinning and drawing again would go to the window beneath.
    for (const Key key : into) {
        show.hotKey(key);
        EVENTUALLY(key == Key::P   ? show.beneath.hasFocus()
                   : key == Key::S ? show.isDimmed({1000, 1000})
                                   : show.hasKeyboard());
    }
    for (const Key key : out) {
        if (key == Key::Escape)
            show.session.keyboard().tap(key);
        else
            show.hotKey(key);
    }
    EVENTUALLY(show.beneath.hasFocus());
    // The program keeps the keyboard grabbed until it has handled the release of Esc.
    EVENTUALLY(isKeyboardFree(show.session));
    show.beneath.forget();
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::ifThePreviousOwnerIsGoneTheNextWindowGetsTheKeyboard()
{
    Presentation show;
    auto other = std::make_unique<WindowBeneath>(show.session, QRect(100, 100, 300, 300), Qt::red);
    QVERIFY(other->opensWithFocus());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    other.reset();
    show.hotKey(Key::D);
    EVENTUALLY(show.overlays().isEmpty());
    EVENTUALLY(!show.hasKeyboard());
    // Without a window manager there is no list of windows; then the window under the pointer gets the keys.
    EVENTUALLY(show.beneath.hasFocus() || show.session.windowManagerProcessId() == 0);
    QVERIFY(show.session.pointer().moveTo({1000, 800}));
    show.beneath.forget();
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::aDockNeverInheritsTheKeyboard()
{
    // Openbox includes docks in its list of windows.
    Presentation show({.windowManager = WindowManager::Openbox});
    const Dock dock(show.session, {0, 1050, 1920, 30}, "_NET_WM_STRUT", {0, 0, 0, 30});
    auto other = std::make_unique<WindowBeneath>(show.session, QRect(100, 100, 300, 300), Qt::red);
    QVERIFY(other->opensWithFocus());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    other.reset();
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void FocusScenarios::aWindowThatOpensWhileDrawingGetsTheKeyboardAfterwards()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    WindowBeneath later(show.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(later.takeFocus() || show.hasKeyboard());
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(later.hasFocus());
    EVENTUALLY(show.overlays().isEmpty());
}

void FocusScenarios::aPressOnACanvasTakesTheKeyboard()
{
    const QList<QRect> screens = {{0, 0, 1280, 1024}, {1280, 0, 1280, 1024}};
    Presentation show({.screens = screens});
    QVERIFY(show.session.pointer().moveTo({100, 100}));
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    const xcb_window_t first = show.session.client().inputFocus();
    QVERIFY(show.session.pointer().clickAt({1800, 500}));
    EVENTUALLY(show.hasKeyboard() && show.session.client().inputFocus() != first);
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void FocusScenarios::theSpotlightLeavesTheKeyboardAlone()
{
    Presentation show;
    WindowBeneath other(show.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    show.hotKey(Key::S);
    EVENTUALLY(show.isDimmed({1000, 1000}));
    QVERIFY(show.beneath.takeFocus());
    show.hotKey(Key::S);
    EVENTUALLY(show.overlays().isEmpty());
    QVERIFY(show.beneath.hasFocus());
}

void FocusScenarios::aFocusChangeDuringAGrabIsReverted()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    {
        const KeyboardGrab grab(show.session);
        show.session.client().setInputFocus(show.beneath.id());
    }
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void FocusScenarios::aWindowThatTookTheKeyboardMeanwhileKeepsIt()
{
    Presentation show;
    WindowBeneath other(show.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    QVERIFY(show.beneath.takeFocus());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    // The hot key arrives before the program takes the keyboard back.
    show.session.client().setInputFocus(other.id());
    show.hotKey(Key::D);
    EVENTUALLY(show.overlays().isEmpty());
    QVERIFY(other.hasFocus());
}

void FocusScenarios::aHeldEscReachesNoOtherWindow()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    show.session.keyboard().press(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
    // The server repeats a held key after 660 ms.
    THROUGHOUT(1000ms, show.beneath.pressedKeys().isEmpty());
    show.session.keyboard().release(Key::Escape);
    EVENTUALLY(isKeyboardFree(show.session));
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::aHotKeyPressedDuringAHeldEscWorksAgain()
{
    Presentation show;
    Keyboard &keyboard = show.session.keyboard();
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    keyboard.press(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(!isKeyboardFree(show.session));
    for (const Key key : {Key::Ctrl, Key::Alt, Key::S})
        keyboard.press(key);
    EVENTUALLY(show.isDimmed({10, 10}));
    keyboard.release(Key::Escape);
    // The grab must last until the hot key is released; otherwise its next press would look like a repeat.
    THROUGHOUT(500ms, !isKeyboardFree(show.session));
    for (const Key key : {Key::S, Key::Alt, Key::Ctrl})
        keyboard.release(key);
    EVENTUALLY(isKeyboardFree(show.session));
    show.hotKey(Key::S);
    EVENTUALLY(show.isUntouched({0, 0, 100, 100}));
}

REGISTER_GUILESS_TEST(FocusScenarios)
#include "focus_scenarios.moc"
