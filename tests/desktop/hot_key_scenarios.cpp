#include "keyboard_grab.h"
#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class HotKeyScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void otherHotKeysWorkWhenOneIsTaken();
    void locksDoNotMatter_data();
    void locksDoNotMatter();
    void aHeldHotKeyTogglesOnce();
    void hotKeysDoNothingDuringAKeyboardGrab();
    void hotKeysAreKeyPositionsOnAnyLayout();
    void hotKeysNeverReachTheApplications();
};

void HotKeyScenarios::otherHotKeysWorkWhenOneIsTaken()
{
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    KeyGrab otherProgram(session, {Key::Ctrl, Key::Alt}, Key::D);
    Program program(session);
    QVERIFY(program.waitUntilReady());

    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    EVENTUALLY(otherProgram.presses() == 1);
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
    Presentation show;
    QVERIFY(show.session.keyboard().setLock(Key::CapsLock, capsLock));
    QVERIFY(show.session.keyboard().setLock(Key::NumLock, numLock));
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    show.hotKey(Key::S);
    EVENTUALLY(show.isDimmed({10, 10}));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void HotKeyScenarios::aHeldHotKeyTogglesOnce()
{
    Presentation show;
    show.session.keyboard().press(Key::Ctrl);
    show.session.keyboard().press(Key::Alt);
    show.session.keyboard().press(Key::W);
    EVENTUALLY(show.pixel({10, 10}) == QColor(Qt::white));
    // The server repeats a held key after 660 ms, and then 25 times per second.
    THROUGHOUT(1200ms, show.pixel({10, 10}) == QColor(Qt::white));
    show.session.keyboard().release(Key::W);
    show.session.keyboard().press(Key::W);
    EVENTUALLY(show.isUntouched({0, 0, 100, 100}));
    for (const Key key : {Key::W, Key::Alt, Key::Ctrl})
        show.session.keyboard().release(key);
}

void HotKeyScenarios::hotKeysAreKeyPositionsOnAnyLayout()
{
    // On this layout the key positions carry other letters: D is E, P is L.
    Presentation show;
    show.session.display().setKeyboardMap("us(dvorak)");
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void HotKeyScenarios::hotKeysNeverReachTheApplications()
{
    Presentation show;
    show.beneath.forget();
    show.hotKey(Key::K);
    show.hotKey(Key::T);
    show.hotKey(Key::P);
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::A));
    for (const Key key : {Key::K, Key::T, Key::P})
        QVERIFY(!show.beneath.pressedKeys().contains(key));
}

void HotKeyScenarios::hotKeysDoNothingDuringAKeyboardGrab()
{
    Presentation show;
    {
        const KeyboardGrab grab(show.session);
        show.hotKey(Key::D);
        show.hotKey(Key::W);
        show.hotKey(Key::K);
    }
    // Any effect of those keys would be visible before this one.
    show.hotKey(Key::S);
    EVENTUALLY(show.isDimmed({10, 10}));
    QVERIFY(!show.hasKeyboard());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.overlays().isEmpty());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(HotKeyScenarios)
#include "hot_key_scenarios.moc"
