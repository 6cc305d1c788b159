// Keys that are typed into a field as it closes.
#include "key_order_script.h"
#include "registered_test.h"

using namespace zeigewerk::test;

namespace {

constexpr auto kMaxRepeats = static_cast<int>(KeyOrder::kMaxRemembered);

} // namespace

class KeyOrderClosingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCanvasGetsLaterKeys_data();
    void theCanvasGetsLaterKeys() { playScript(); }
    void repeatsAreDroppedButNotNewPresses_data();
    void repeatsAreDroppedButNotNewPresses() { playScript(); }
};

void KeyOrderClosingTest::theCanvasGetsLaterKeys_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("whenever they are read") << Script{
        {announced('r', 10), ""},
        {announced('x', 11), ""},
        {announced('y', 12), ""},
        {read('r', 10), "Qt"},
        {read('x', 11), "Qt"},
        {fieldCloses(), "pause, mark 1"},
        {handedToClosedField('x', 11), "canvas x"},
        {read('y', 12), "canvas y"},
        {read('z', 13), "withheld"},
        {announced('z', 13), ""},
        {mark(1), "stop announcing, resume, canvas z"},
        {handedToClosedField('x', 11), "Qt"},
    };
    QTest::newRow("and in order with other events") << Script{
        {read('r', 10), "Qt"},
        {fieldCloses(), "pause, mark 1"},
        {read('y', 12), "withheld"},
        {otherEvent(11), ""},
        {announced('y', 12), ""},
        {otherEvent(12), ""},
        {mark(1), "stop announcing, resume, event of 11, canvas y, event of 12"},
    };
    QTest::newRow("if it closes while a press is held: to the pressed canvas") << Script{
        {announced('r', 10), ""},
        {announced('x', 11), ""},
        {press(20), "pause, mark 1"},
        {read('r', 10), "Qt"},
        {fieldCloses(kOtherCanvas), ""},
        {read('x', 11), "canvas x"},
        {read('y', 19), "canvas y"},
        {read('z', 20), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas z"},
    };
    QTest::newRow("unless no canvas has the keyboard") << Script{
        {fieldCloses(KeyOrder::kNoWindow), "stop announcing"},
        {handedToClosedField('x', 11), "Qt"},
        {read('y', 12), "Qt"},
    };
    QTest::newRow("unless the field still has the keyboard") << Script{
        {fieldCloses(kField), "stop announcing"},
        {handedToClosedField('x', 11), "Qt"},
        {read('y', 12), "Qt"},
    };
    QTest::newRow("unless it was another field") << Script{
        {fieldCloses(kCanvas, kNextField), ""},
        {handedToClosedField('x', 11), "Qt"},
        {read('y', 12), "Qt"},
    };
    QTest::newRow("unless they were announced, and are read after it was deleted") << Script{
        {announced('y', 12), ""},
        {fieldCloses(), "pause, mark 1"},
        {fieldIsDeleted(), ""},
        {read('y', 12), "Qt"},
        {read('z', 13), "withheld"},
        {mark(1), "stop announcing, resume, canvas z"},
    };
    // clang-format on
}

void KeyOrderClosingTest::repeatsAreDroppedButNotNewPresses_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("of the key that closed the field: dropped") << Script{
        {read('r', 10), "Qt"},
        {read('r', 11), "Qt"},
        {fieldCloses(), "pause, mark 1"},
        {handedToClosedField('r', 11), "withheld"},
        {read('r', 12), "withheld"},
        {mark(1), "stop announcing, resume"},
    };
    QTest::newRow("a quick second press of the key that closed the field: to the canvas") << Script{
        {read('r', 10), "Qt"},
        {released('r'), ""},
        {read('r', 11), "Qt"},
        {fieldCloses(), "pause, mark 1"},
        {handedToClosedField('r', 11), "canvas r"},
    };
    QTest::newRow("a repeat in an earlier field does not count here") << Script{
        {read('r', 10), "Qt"},
        {read('r', 11), "Qt"},
        {fieldOpens(kNextField), ""},
        {fieldCloses(kCanvas, kNextField), "pause, mark 1 for the next field"},
        {handedToClosedField('r', 11), "canvas r"},
    };
    QTest::newRow("the maximum of remembered repeats") << Script{
        {read('r', 10), "Qt"},
        {read('r', 11), "Qt"},
        {readTimes(kMaxRepeats - 1, 'r', 12), ""},
        {fieldCloses(), "pause, mark 1"},
        {handedToClosedField('r', 11), "withheld"},
    };
    QTest::newRow("one repeat too many") << Script{
        {read('r', 10), "Qt"},
        {read('r', 11), "Qt"},
        {readTimes(kMaxRepeats, 'r', 12), ""},
        {fieldCloses(), "pause, mark 1"},
        {handedToClosedField('r', 11), "canvas r"},
    };
    // clang-format on
}

REGISTER_APPLESS_TEST(KeyOrderClosingTest)
#include "key_order_closing_test.moc"
