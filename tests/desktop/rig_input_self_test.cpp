// The rig's mouse, keyboard and hot keys, without the program.
#include "registered_test.h"
#include "rig.h"
#include "rig_self_test.h"

using namespace zeigewerk::rig;

class RigInputSelfTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicksReachTheWindowBeneathAtTheirPlaces();
    void aDragSendsOneMotionPerPoint();
    void keysReachTheFocusedWindow();
    void focusMovesBetweenWindows();
    void locksAreSetAndCleared_data();
    void locksAreSetAndCleared();
    void theGermanMapKeepsKeyPositions();
    void onlyGrabbedHotKeysAreReportedAsGrabbed();
};

void RigInputSelfTest::clicksReachTheWindowBeneathAtTheirPlaces()
{
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    QVERIFY(session.pointer().clickAt({300, 200}));
    QVERIFY(session.pointer().clickAt({301, 250}, Pointer::Right));
    QVERIFY(session.pointer().clickAt({10, 10}));
    QVERIFY(session.pointer().moveTo({400, 300}));
    QVERIFY(session.pointer().wheel(2));
    QVERIFY(session.pointer().wheel(-1));
    QCOMPARE(session.pointer().location(), QPoint(400, 300));
    EVENTUALLY(beneath.presses(Pointer::WheelDown).size() == 1);
    QCOMPARE(beneath.presses(Pointer::Left), QList<QPoint>({{300, 200}}));
    QCOMPARE(beneath.releases(Pointer::Left), QList<QPoint>({{300, 200}}));
    QCOMPARE(beneath.presses(Pointer::Right), QList<QPoint>({{301, 250}}));
    QCOMPARE(beneath.presses(Pointer::WheelUp).size(), 2);
    beneath.forget();
    QVERIFY(beneath.events().isEmpty());
}

void RigInputSelfTest::aDragSendsOneMotionPerPoint()
{
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    // Another window has the focus, so the window manager handles the press first.
    WindowBeneath other(session, QRect(1100, 100, 300, 300), Qt::green);
    QVERIFY(other.takeFocus());
    const QList<QPoint> motions = {{310, 305}, {311, 305}, {312, 306}, {400, 305}};
    QVERIFY(session.pointer().drag(QList<QPoint>({{300, 300}}) + motions));
    EVENTUALLY(beneath.releases() == QList<QPoint>({{400, 305}}));
    QCOMPARE(beneath.presses(), QList<QPoint>({{300, 300}}));
    QCOMPARE(beneath.dragMotions(), motions);
    QVERIFY(!session.pointer().moveTo({5000, 300}));
}

void RigInputSelfTest::keysReachTheFocusedWindow()
{
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    QVERIFY(beneath.takeFocus());
    QCOMPARE(session.client().inputFocus(), beneath.id());
    session.keyboard().type(QStringLiteral("aZ 9"));
    session.keyboard().chord({Key::Ctrl}, Key::S);
    EVENTUALLY(beneath.pressedKeys() ==
               QList<Key>({Key::A, Key::Shift, Key::Z, Key::Space, Key::Digit9, Key::Ctrl, Key::S}));
    QCOMPARE(beneath.events().last().kind, InputEvent::Kind::KeyRelease);
    QCOMPARE(beneath.events().last().key, Key::Ctrl);
    QCOMPARE(beneath.events().last().state, modifierMask({Key::Ctrl}));
}

void RigInputSelfTest::focusMovesBetweenWindows()
{
    DesktopSession session;
    WindowBeneath one(session, kBeneath, kBlue);
    WindowBeneath other(session, QRect(1100, 100, 300, 300), Qt::green);
    // Otherwise the initial focus could come later, in between.
    QVERIFY(other.opensWithFocus());
    QVERIFY(one.takeFocus());
    one.forget();
    session.pointer().clickAt({1200, 200});
    EVENTUALLY(other.hasFocus());
    QVERIFY(!one.hasFocus());
    EVENTUALLY(!one.events().isEmpty() && one.events().last().kind == InputEvent::Kind::FocusOut);
    QVERIFY(one.takeFocus());
    one.forget();
    // Not every activated window gets a FocusIn event, but it gets its keys.
    session.keyboard().tap(Key::A);
    EVENTUALLY(one.pressedKeys() == QList<Key>{Key::A});
}

void RigInputSelfTest::locksAreSetAndCleared_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<Key>("other");
    QTest::newRow("Caps Lock") << Key::CapsLock << Key::NumLock;
    QTest::newRow("Num Lock") << Key::NumLock << Key::CapsLock;
}

void RigInputSelfTest::locksAreSetAndCleared()
{
    QFETCH(Key, key);
    QFETCH(Key, other);
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    QVERIFY(beneath.takeFocus());
    for (const bool on : {true, true, false, false, true}) {
        QVERIFY(session.keyboard().setLock(key, on));
        QCOMPARE(session.keyboard().lock(key), on);
        QVERIFY(!session.keyboard().lock(other));
    }
    session.keyboard().tap(Key::D);
    EVENTUALLY(!beneath.events().isEmpty() && beneath.events().last().key == Key::D);
    QCOMPARE(beneath.events().last().state, modifierMask({key}));
}

void RigInputSelfTest::theGermanMapKeepsKeyPositions()
{
    DesktopSession session;
    constexpr xcb_keysym_t kOdiaeresis = 0xF6;
    const auto symbol = [&](Key key) {
        xcb_connection_t *c = session.client().connection();
        const auto cookie = xcb_get_keyboard_mapping(c, static_cast<xcb_keycode_t>(key), 1);
        const auto reply = owned(xcb_get_keyboard_mapping_reply(c, cookie, nullptr));
        return reply ? xcb_get_keyboard_mapping_keysyms(reply.get())[0] : xcb_keysym_t(0);
    };
    QCOMPARE(symbol(Key::Semicolon), xcb_keysym_t(';'));
    session.display().setKeyboardMap(QStringLiteral("de"));
    QCOMPARE(symbol(Key::Semicolon), kOdiaeresis);
    // The first event of another keyboard device could bring back that device's map.
    session.keyboard().tap(Key::Semicolon);
    QCOMPARE(symbol(Key::Semicolon), kOdiaeresis);
    QCOMPARE(symbol(Key::Z), xcb_keysym_t('y'));
}

void RigInputSelfTest::onlyGrabbedHotKeysAreReportedAsGrabbed()
{
    DesktopSession session;
    const Modifiers modifiers = {Key::Ctrl, Key::Alt};
    QVERIFY(!isGrabbedByAnother(session, modifiers, Key::P));
    {
        KeyGrab grab(session, modifiers, Key::P);
        QVERIFY(isGrabbedByAnother(session, modifiers, Key::P));
        QVERIFY(!isGrabbedByAnother(session, modifiers, Key::D));
        QVERIFY(!isGrabbedByAnother(session, {Key::Ctrl}, Key::P));
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("already grabbed")));
        QVERIFY_THROWS_EXCEPTION(RigError, KeyGrab(session, modifiers, Key::P));
        QVERIFY(session.keyboard().setLock(Key::CapsLock, true));
        session.keyboard().chord(modifiers, Key::P);
        EVENTUALLY(grab.presses() == 1);
    }
    // Neither the trial grab nor the real one has left anything behind.
    EVENTUALLY(!isGrabbedByAnother(session, modifiers, Key::P));
}

REGISTER_GUILESS_TEST(RigInputSelfTest)
#include "rig_input_self_test.moc"
