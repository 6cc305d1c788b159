#include "presentation.h"
#include "registered_test.h"
#include "two_screens.h"

using namespace zeigewerk::rig;

namespace {

// In the left halves of the screens: the toolbar is at the right of one of them.
const QPoint kFirst(300, 300);   // on the left screen
const QPoint kSecond(1600, 300); // on the right one
const QPoint kThird(300, 600);   // on the left one again

bool drawAt(Presentation &on, QPoint middle)
{
    return on.session.pointer().drag({middle - QPoint(50, 0), middle, middle + QPoint(50, 0)});
}

} // namespace

class UndoScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theKeysTakeStrokesBackAcrossTheScreens_data();
    void theKeysTakeStrokesBackAcrossTheScreens();
    void otherCombinationsLeaveTheStroke();
    void whileNothingIsDrawnOnTheKeysBelongToTheApplications();
};

void UndoScenarios::theKeysTakeStrokesBackAcrossTheScreens_data()
{
    QTest::addColumn<QList<Key>>("modifiers");
    QTest::addColumn<QString>("keyboardMap");
    QTest::addColumn<Key>("key");
    QTest::newRow("Ctrl") << QList<Key>{Key::Ctrl} << "us" << Key::Z;
    QTest::newRow("Ctrl and Shift") << QList<Key>{Key::Ctrl, Key::Shift} << "us" << Key::Z;
    QTest::newRow("Super") << QList<Key>{Key::Super} << "us" << Key::Z;
    QTest::newRow("where the letter is on a German keyboard") << QList<Key>{Key::Ctrl} << "de" << Key::Y;
    QTest::newRow("with Hebrew letters") << QList<Key>{Key::Ctrl} << "il,us" << Key::Z;
    QTest::newRow("with Russian letters, beside German ones") << QList<Key>{Key::Super} << "ru,de" << Key::Y;
}

void UndoScenarios::theKeysTakeStrokesBackAcrossTheScreens()
{
    QFETCH(QList<Key>, modifiers);
    QFETCH(QString, keyboardMap);
    QFETCH(Key, key);
    Presentation on({.screens = {kLeft, kRight}, .keyboardMap = keyboardMap});
    const QColor bareRight = on.pixel(kSecond);
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    for (const QPoint &place : {kFirst, kSecond, kThird}) {
        QVERIFY(drawAt(on, place));
        EVENTUALLY(on.pixel(place) == kInk);
    }

    on.session.keyboard().chord(modifiers, key);
    EVENTUALLY(on.pixel(kThird) == on.beneathColor());
    QCOMPARE(on.pixel(kFirst), kInk);
    QCOMPARE(on.pixel(kSecond), kInk);
    on.session.keyboard().chord(modifiers, key);
    EVENTUALLY(on.pixel(kSecond) == bareRight);
    QCOMPARE(on.pixel(kFirst), kInk);
    on.session.keyboard().chord(modifiers, key);
    EVENTUALLY(on.pixel(kFirst) == on.beneathColor());
    QVERIFY(on.isUntouched({200, 200, 200, 500}));
    QVERIFY(on.session.screenshot().isFilled(bareRight, {1500, 200, 200, 200}));

    // Nothing is left to take back, and drawing goes on.
    on.session.keyboard().chord(modifiers, Key::Z);
    QVERIFY(drawAt(on, kFirst));
    EVENTUALLY(on.pixel(kFirst) == kInk);
}

void UndoScenarios::otherCombinationsLeaveTheStroke()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(drawAt(on, kFirst));
    QVERIFY(drawAt(on, kThird));
    EVENTUALLY(on.pixel(kFirst) == kInk && on.pixel(kThird) == kInk);
    on.session.keyboard().tap(Key::Z);
    on.session.keyboard().chord({Key::Shift}, Key::Z);
    // Keys arrive in order: when this one has been answered, so have those before it.
    on.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(on.pixel(kThird) == on.beneathColor());
    QCOMPARE(on.pixel(kFirst), kInk);
}

void UndoScenarios::whileNothingIsDrawnOnTheKeysBelongToTheApplications()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(drawAt(on, kFirst));
    EVENTUALLY(on.pixel(kFirst) == kInk);
    on.hotKey(Key::P);
    EVENTUALLY(on.beneath.hasFocus());
    on.beneath.forget();
    on.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::Z));
    QCOMPARE(on.pixel(kFirst), kInk);
}

REGISTER_GUILESS_TEST(UndoScenarios)
#include "undo_scenarios.moc"
