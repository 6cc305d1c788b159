#include "keyboard_grab.h"
#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class HotKeyScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTakenHotKeyLeavesTheOthers();
    void locksDoNotMatter_data();
    void locksDoNotMatter();
    void aHeldHotKeyTogglesOnce();
    void whileAnotherHasTheKeyboardAHotKeyDoesNothing();
    void hotKeysAreTheirPlacesOnAnyLayout();
    void hotKeysNeverReachTheApplications();
};

void HotKeyScenarios::aTakenHotKeyLeavesTheOthers()
{
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    KeyGrab thief(session, {Key::Ctrl, Key::Alt}, Key::D);
    Program program(session);
    QVERIFY(program.waitUntilReady());

    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    EVENTUALLY(thief.presses() == 1);
    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(session.screenshot().isFilled(Qt::white, {100, 100, 500, 500}));
    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(session.screenshot().isFilled(Qt::blue, {100, 100, 500, 500}));
    QVERIFY(program.output().isEmpty());
}

void HotKeyScenarios::locksDoNotMatter_data()
{
    QTest::addColumn<bool>("capsLock");
    QTest::addColumn<bool>("numLock");
    QTest::newRow("CapsLock") << true << false;
    QTest::newRow("NumLock") << false << true;
    QTest::newRow("both") << true << true;
}

void HotKeyScenarios::locksDoNotMatter()
{
    QFETCH(bool, capsLock);
    QFETCH(bool, numLock);
    Presentation on;
    QVERIFY(on.session.keyboard().setLock(Key::CapsLock, capsLock));
    QVERIFY(on.session.keyboard().setLock(Key::NumLock, numLock));
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    on.hotKey(Key::S);
    EVENTUALLY(on.isDimmed({10, 10}));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void HotKeyScenarios::aHeldHotKeyTogglesOnce()
{
    Presentation on;
    on.session.keyboard().press(Key::Ctrl);
    on.session.keyboard().press(Key::Alt);
    on.session.keyboard().press(Key::W);
    EVENTUALLY(on.pixel({10, 10}) == QColor(Qt::white));
    // The server repeats a held key after 660 ms, and then 25 times a second.
    THROUGHOUT(1200ms, on.pixel({10, 10}) == QColor(Qt::white));
    on.session.keyboard().release(Key::W);
    on.session.keyboard().press(Key::W);
    EVENTUALLY(on.isUntouched({0, 0, 100, 100}));
    for (const Key key : {Key::W, Key::Alt, Key::Ctrl})
        on.session.keyboard().release(key);
}

void HotKeyScenarios::hotKeysAreTheirPlacesOnAnyLayout()
{
    // Here the places of a US keyboard carry other letters: D is E, P is L.
    Presentation on;
    on.session.display().setKeyboardMap("us(dvorak)");
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void HotKeyScenarios::hotKeysNeverReachTheApplications()
{
    Presentation on;
    on.beneath.forget();
    on.hotKey(Key::K);
    on.hotKey(Key::T);
    on.hotKey(Key::P);
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::A));
    for (const Key key : {Key::K, Key::T, Key::P})
        QVERIFY(!on.beneath.pressedKeys().contains(key));
}

void HotKeyScenarios::whileAnotherHasTheKeyboardAHotKeyDoesNothing()
{
    Presentation on;
    {
        const KeyboardGrab grab(on.session);
        on.hotKey(Key::D);
        on.hotKey(Key::W);
        on.hotKey(Key::K);
    }
    // What they had brought about would come before this.
    on.hotKey(Key::S);
    EVENTUALLY(on.isDimmed({10, 10}));
    QVERIFY(!on.hasKeyboard());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.overlays().isEmpty());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(HotKeyScenarios)
#include "hot_key_scenarios.moc"
