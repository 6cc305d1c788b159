#include "presentation.h"
#include "registered_test.h"
#include "two_screens.h"

using namespace zeigewerk::rig;

namespace {

// In the left halves of the screens, because the toolbar is on the right of one of them.
const QPoint kFirst(300, 300);   // on the left screen
const QPoint kSecond(1600, 300); // on the right screen
const QPoint kThird(300, 600);   // on the left screen again

bool drawAt(Presentation &show, QPoint middle)
{
    return show.session.pointer().drag({middle - QPoint(50, 0), middle, middle + QPoint(50, 0)});
}

} // namespace

class UndoScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void undoShortcutsWorkAcrossScreens_data();
    void undoShortcutsWorkAcrossScreens();
    void otherCombinationsUndoNothing();
    void afterPinningTheKeysBelongToTheApplications();
};

void UndoScenarios::undoShortcutsWorkAcrossScreens_data()
{
    struct Row
    {
        const char *name;
        QList<Key> modifiers;
        QString keyboardMap;
        /// The position of Z with that map.
        Key key;
    };
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        // name, modifiers, keyboard map, key
        {"Ctrl",                        {Key::Ctrl},             "us",    Key::Z},
        {"Ctrl and Shift",              {Key::Ctrl, Key::Shift}, "us",    Key::Z},
        {"Super",                       {Key::Super},            "us",    Key::Z},
        {"German keyboard",             {Key::Ctrl},             "de",    Key::Y},
        {"Hebrew keyboard",             {Key::Ctrl},             "il,us", Key::Z},
        {"Russian and German keyboard", {Key::Super},            "ru,de", Key::Y},
    };
    // clang-format on
    QTest::addColumn<QList<Key>>("modifiers");
    QTest::addColumn<QString>("keyboardMap");
    QTest::addColumn<Key>("key");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.modifiers << row.keyboardMap << row.key;
}

void UndoScenarios::undoShortcutsWorkAcrossScreens()
{
    QFETCH(QList<Key>, modifiers);
    QFETCH(QString, keyboardMap);
    QFETCH(Key, key);
    Presentation show({.screens = {kLeft, kRight}, .keyboardMap = keyboardMap});
    const QColor bareRight = show.pixel(kSecond);
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    for (const QPoint &place : {kFirst, kSecond, kThird}) {
        QVERIFY(drawAt(show, place));
        EVENTUALLY(show.pixel(place) == kInk);
    }

    show.session.keyboard().chord(modifiers, key);
    EVENTUALLY(show.pixel(kThird) == show.beneathColor());
    QCOMPARE(show.pixel(kFirst), kInk);
    QCOMPARE(show.pixel(kSecond), kInk);
    show.session.keyboard().chord(modifiers, key);
    EVENTUALLY(show.pixel(kSecond) == bareRight);
    QCOMPARE(show.pixel(kFirst), kInk);
    show.session.keyboard().chord(modifiers, key);
    EVENTUALLY(show.pixel(kFirst) == show.beneathColor());
    QVERIFY(show.isUntouched({200, 200, 200, 500}));
    QVERIFY(show.session.screenshot().isFilled(bareRight, {1500, 200, 200, 200}));

    // Nothing is left to undo, and drawing continues.
    show.session.keyboard().chord(modifiers, Key::Z);
    QVERIFY(drawAt(show, kFirst));
    EVENTUALLY(show.pixel(kFirst) == kInk);
}

void UndoScenarios::otherCombinationsUndoNothing()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(drawAt(show, kFirst));
    QVERIFY(drawAt(show, kThird));
    EVENTUALLY(show.pixel(kFirst) == kInk && show.pixel(kThird) == kInk);
    show.session.keyboard().tap(Key::Z);
    show.session.keyboard().chord({Key::Shift}, Key::Z);
    // Keys arrive in order: when this one has had its effect, the ones before have been handled.
    show.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(show.pixel(kThird) == show.beneathColor());
    QCOMPARE(show.pixel(kFirst), kInk);
}

void UndoScenarios::afterPinningTheKeysBelongToTheApplications()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(drawAt(show, kFirst));
    EVENTUALLY(show.pixel(kFirst) == kInk);
    show.hotKey(Key::P);
    EVENTUALLY(show.beneath.hasFocus());
    show.beneath.forget();
    show.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::Z));
    QCOMPARE(show.pixel(kFirst), kInk);
}

REGISTER_GUILESS_TEST(UndoScenarios)
#include "undo_scenarios.moc"
