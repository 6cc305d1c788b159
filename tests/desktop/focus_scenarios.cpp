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
    void theKeyboardGoesBackToWhoHadIt_data();
    void theKeyboardGoesBackToWhoHadIt();
    void whenWhoHadItIsGoneTheNextWindowGetsIt();
    void aDockDoesNotGetTheKeyboardOfAWindowThatIsGone();
    void aWindowThatOpensWhileDrawingGetsTheKeyboardAfterwards();
    void aPressOnACanvasTakesTheKeyboard();
    void theSpotlightLeavesTheKeyboardAlone();
    void theKeyboardIsTakenAgainAfterItMovedUnderAGrab();
    void whoTookTheKeyboardMeanwhileKeepsIt();
    void aHeldEscReachesNobodyElse();
    void aHotKeyUnderAHeldEscWorksAgain();
};

void FocusScenarios::theKeyboardGoesBackToWhoHadIt_data()
{
    QTest::addColumn<QList<Key>>("into");
    QTest::addColumn<QList<Key>>("out");

    // Esc is the key itself, the letters are hot keys.
    QTest::newRow("drawing, hot key") << QList<Key>{Key::D} << QList<Key>{Key::D};
    QTest::newRow("drawing, Esc") << QList<Key>{Key::D} << QList<Key>{Key::Escape};
    QTest::newRow("drawing, pin") << QList<Key>{Key::D} << QList<Key>{Key::P};
    QTest::newRow("whiteboard, hot key") << QList<Key>{Key::W} << QList<Key>{Key::W};
    QTest::newRow("whiteboard, Esc") << QList<Key>{Key::W} << QList<Key>{Key::Escape};
    QTest::newRow("both, one after the other") << QList<Key>{Key::D, Key::W} << QList<Key>{Key::D, Key::W};
    QTest::newRow("drawing with spotlight, Esc") << QList<Key>{Key::D, Key::S} << QList<Key>{Key::Escape};
    QTest::newRow("pinned, drawn on again, Esc")
        << QList<Key>{Key::D, Key::P, Key::D} << QList<Key>{Key::Escape};
}

void FocusScenarios::theKeyboardGoesBackToWhoHadIt()
{
    QFETCH(QList<Key>, into);
    QFETCH(QList<Key>, out);
    Presentation on;
    WindowBeneath other(on.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    QVERIFY(on.beneath.takeFocus());
    // One step at a time: an Esc between pinning and drawing on again would go to the window beneath.
    for (const Key key : into) {
        on.hotKey(key);
        EVENTUALLY(key == Key::P   ? on.beneath.hasFocus()
                   : key == Key::S ? on.isDimmed({1000, 1000})
                                   : on.hasKeyboard());
    }
    for (const Key key : out) {
        if (key == Key::Escape)
            on.session.keyboard().tap(key);
        else
            on.hotKey(key);
    }
    EVENTUALLY(on.beneath.hasFocus());
    // Until the program has seen Esc released, it holds on to the keys.
    EVENTUALLY(isKeyboardFree(on.session));
    on.beneath.forget();
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::whenWhoHadItIsGoneTheNextWindowGetsIt()
{
    Presentation on;
    auto other = std::make_unique<WindowBeneath>(on.session, QRect(100, 100, 300, 300), Qt::red);
    QVERIFY(other->opensWithFocus());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    other.reset();
    on.hotKey(Key::D);
    EVENTUALLY(on.overlays().isEmpty());
    EVENTUALLY(!on.hasKeyboard());
    // Without a window manager there is no list of windows: then the keys go to the one under the pointer.
    EVENTUALLY(on.beneath.hasFocus() || on.session.windowManagerProcessId() == 0);
    QVERIFY(on.session.pointer().moveTo({1000, 800}));
    on.beneath.forget();
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::aDockDoesNotGetTheKeyboardOfAWindowThatIsGone()
{
    // One that lists its docks among the windows.
    Presentation on({.windowManager = WindowManager::Openbox});
    const Dock dock(on.session, {0, 1050, 1920, 30}, "_NET_WM_STRUT", {0, 0, 0, 30});
    auto other = std::make_unique<WindowBeneath>(on.session, QRect(100, 100, 300, 300), Qt::red);
    QVERIFY(other->opensWithFocus());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    other.reset();
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void FocusScenarios::aWindowThatOpensWhileDrawingGetsTheKeyboardAfterwards()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    WindowBeneath later(on.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(later.takeFocus() || on.hasKeyboard());
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(later.hasFocus());
    EVENTUALLY(on.overlays().isEmpty());
}

void FocusScenarios::aPressOnACanvasTakesTheKeyboard()
{
    const QList<QRect> screens = {{0, 0, 1280, 1024}, {1280, 0, 1280, 1024}};
    Presentation on({.screens = screens});
    QVERIFY(on.session.pointer().moveTo({100, 100}));
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    const xcb_window_t first = on.session.client().inputFocus();
    QVERIFY(on.session.pointer().clickAt({1800, 500}));
    EVENTUALLY(on.hasKeyboard() && on.session.client().inputFocus() != first);
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void FocusScenarios::theSpotlightLeavesTheKeyboardAlone()
{
    Presentation on;
    WindowBeneath other(on.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    on.hotKey(Key::S);
    EVENTUALLY(on.isDimmed({1000, 1000}));
    QVERIFY(on.beneath.takeFocus());
    on.hotKey(Key::S);
    EVENTUALLY(on.overlays().isEmpty());
    QVERIFY(on.beneath.hasFocus());
}

void FocusScenarios::theKeyboardIsTakenAgainAfterItMovedUnderAGrab()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    {
        const KeyboardGrab grab(on.session);
        on.session.client().setInputFocus(on.beneath.id());
    }
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void FocusScenarios::whoTookTheKeyboardMeanwhileKeepsIt()
{
    Presentation on;
    WindowBeneath other(on.session, {100, 100, 300, 300}, Qt::red);
    QVERIFY(other.opensWithFocus());
    QVERIFY(on.beneath.takeFocus());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    // The hot key comes before the program takes the keyboard again.
    on.session.client().setInputFocus(other.id());
    on.hotKey(Key::D);
    EVENTUALLY(on.overlays().isEmpty());
    QVERIFY(other.hasFocus());
}

void FocusScenarios::aHeldEscReachesNobodyElse()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    on.session.keyboard().press(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
    // The server repeats a held key after 660 ms.
    THROUGHOUT(1000ms, on.beneath.pressedKeys().isEmpty());
    on.session.keyboard().release(Key::Escape);
    EVENTUALLY(isKeyboardFree(on.session));
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
}

void FocusScenarios::aHotKeyUnderAHeldEscWorksAgain()
{
    Presentation on;
    Keyboard &keyboard = on.session.keyboard();
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    keyboard.press(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(!isKeyboardFree(on.session));
    for (const Key key : {Key::Ctrl, Key::Alt, Key::S})
        keyboard.press(key);
    EVENTUALLY(on.isDimmed({10, 10}));
    keyboard.release(Key::Escape);
    // Whoever got the hot key's press must get its release, or the next press looks like a repeat. Without
    // that the program would let go of the keyboard at once.
    THROUGHOUT(500ms, !isKeyboardFree(on.session));
    for (const Key key : {Key::S, Key::Alt, Key::Ctrl})
        keyboard.release(key);
    EVENTUALLY(isKeyboardFree(on.session));
    on.hotKey(Key::S);
    EVENTUALLY(on.isUntouched({0, 0, 100, 100}));
}

REGISTER_GUILESS_TEST(FocusScenarios)
#include "focus_scenarios.moc"
