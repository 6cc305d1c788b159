// Keys that are typed into a field, and presses on the canvases.
#include "key_order_script.h"
#include "registered_test.h"

using namespace zeigewerk::test;

namespace {

constexpr KeyOrder::Time kLastTime = 0xFFFFFFFF;
constexpr auto kMax = static_cast<int>(KeyOrder::kMaxRemembered);

} // namespace

class KeyOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPressWaitsForTheKeysBeforeIt_data();
    void aPressWaitsForTheKeysBeforeIt() { playScript(); }
    void theCanvasGetsNoRepeats_data();
    void theCanvasGetsNoRepeats() { playScript(); }
    void aHoldEnds_data();
    void aHoldEnds() { playScript(); }
    void keysAreAnnouncedWhileAFieldMayGetThem_data();
    void keysAreAnnouncedWhileAFieldMayGetThem() { playScript(); }
};

void KeyOrderTest::aPressWaitsForTheKeysBeforeIt_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("without a press, every key goes to the field") << Script{
        {announced('a', 10), ""},
        {read('a', 10), "Qt"},
        {read('b', 11), "Qt"},
        {announced('b', 11), ""},
    };
    QTest::newRow("typed before the press: to the field") << Script{
        {announced('a', 10), ""},
        {press(20), "pause, mark 1"},
        {read('a', 10), "Qt"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("typed before the press, in the same millisecond: to the field") << Script{
        {announced('a', 20), ""},
        {press(20), "pause, mark 1"},
        {read('a', 20), "Qt"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("typed after the press: to the canvas, after the press") << Script{
        {press(20), "pause, mark 1"},
        {announced('b', 21), ""},
        {read('b', 21), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas b"},
    };
    QTest::newRow("typed after the press, in the same millisecond: to the canvas, after the press") << Script{
        {press(20), "pause, mark 1"},
        {announced('b', 20), ""},
        {read('b', 20), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas b"},
    };
    QTest::newRow("announced, but never read: nothing waits for it") << Script{
        {announced('h', 10), ""},
        {announced('a', 11), ""},
        {press(20), "pause, mark 1"},
        {read('a', 11), "Qt"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("announced before a key that was read: no longer expected") << Script{
        {announced('h', 20), ""},
        {announced('a', 20), ""},
        {press(20), "pause, mark 1"},
        {read('a', 20), "Qt"},
        {read('h', 20), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas h"},
    };
    QTest::newRow("each key waits for its announcement") << Script{
        {press(20), "pause, mark 1"},
        {read('b', 22), "withheld"},
        {read('c', 22), "withheld"},
        {otherEvent(21), ""},
        {announced('b', 22), ""},
        {otherEvent(22), ""},
        {announced('c', 22), ""},
        {mark(1), "stop announcing, press, resume, event of 21, canvas b, event of 22, canvas c"},
    };
    QTest::newRow("never announced, from before the press: to the field") << Script{
        {press(20), "pause, mark 1"},
        {read('a', 19), "Qt"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("never announced: before the events of a later time") << Script{
        {press(20), "pause, mark 1"},
        {read('b', 22), "withheld"},
        {otherEvent(22), ""},
        {otherEvent(23), ""},
        {mark(1), "stop announcing, press, resume, event of 22, canvas b, event of 23"},
    };
    QTest::newRow("never announced: before the announcement of a later key") << Script{
        {press(20), "pause, mark 1"},
        {read('b', 22), "withheld"},
        {read('c', 23), "withheld"},
        {announced('c', 23), ""},
        {otherEvent(23), ""},
        {mark(1), "stop announcing, press, resume, canvas b, canvas c, event of 23"},
    };
    QTest::newRow("a second press holds the keys after it") << Script{
        {nextPressOpens(kNextField), ""},
        {press(20), "pause, mark 1"},
        {announced('b', 21), ""},
        {read('b', 21), "withheld"},
        {press(25, kOtherCanvas), ""},
        {mark(1), "stop announcing, press, announce, resume, canvas b, pause, mark 2 for the next field"},
        {announced('c', 26), ""},
        {read('c', 26, kNextField), "withheld"},
        {mark(2), "stop announcing, press, resume, other canvas c"},
    };
    QTest::newRow("a waiting key that closes the next field holds the keys after it") << Script{
        {nextPressOpens(kNextField), ""},
        {nextKeyClosesField(), ""},
        {press(20), "pause, mark 1"},
        {read('r', 21), "withheld"},
        {read('c', 22), "withheld"},
        {mark(1), "stop announcing, press, announce, resume, canvas r, pause, mark 2 for the next field"},
        {mark(2), "stop announcing, resume, canvas c"},
    };
    QTest::newRow("a waiting key that closes the next field, before a later event") << Script{
        {nextPressOpens(kNextField), ""},
        {nextKeyClosesField(), ""},
        {press(20), "pause, mark 1"},
        {read('r', 21), "withheld"},
        {read('c', 22), "withheld"},
        {announced('d', 30), ""},
        {mark(1), "stop announcing, press, announce, resume, canvas r, pause, mark 2 for the next field"},
        {mark(2), "stop announcing, resume, canvas c"},
    };
    QTest::newRow("the server's time wraps around") << Script{
        {press(kLastTime, kCanvas), "pause, mark 1"},
        {read('a', kLastTime - 1), "Qt"},
        {read('b', 0), "withheld"},
        {read('c', 2), "withheld"},
        {otherEvent(1), ""},
        {otherEvent(2), ""},
        {mark(1), "stop announcing, press, resume, canvas b, event of 1, event of 2, canvas c"},
    };
    QTest::newRow("the maximum of remembered announcements") << Script{
        {announced('a', 20), ""},
        {announced('x', 20, kMax - 1), ""},
        {press(20), "pause, mark 1"},
        {read('a', 20), "Qt"},
    };
    QTest::newRow("one announcement too many") << Script{
        {announced('a', 20), ""},
        {announced('x', 20, kMax), ""},
        {press(20), "pause, mark 1"},
        {read('a', 20), "withheld"},
    };
    // clang-format on
}

void KeyOrderTest::theCanvasGetsNoRepeats_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("read before the press: to the field") << Script{
        {read('a', 10), "Qt"},
        {read('a', 15), "Qt"},
        {press(20), "pause, mark 1"},
        {read('a', 19), "Qt"},
    };
    QTest::newRow("made after the press: dropped") << Script{
        {read('a', 10), "Qt"},
        {press(20), "pause, mark 1"},
        {announced('a', 21), ""},
        {read('a', 21), "withheld"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("released and pressed again: no repeat") << Script{
        {read('a', 10), "Qt"},
        {press(20), "pause, mark 1"},
        {released('a'), ""},
        {read('a', 21), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas a"},
    };
    QTest::newRow("held since another field: no repeat") << Script{
        {read('a', 10), "Qt"},
        {fieldOpens(kNextField), ""},
        {press(20), "pause, mark 1 for the next field"},
        {read('a', 21, kNextField), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas a"},
    };
    // clang-format on
}

void KeyOrderTest::aHoldEnds_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("when the mark does not come back in time") << Script{
        {press(20), "pause, mark 1"},
        {read('b', 21), "withheld"},
        {markTimesOut(), "stop announcing, press, resume, canvas b"},
        {mark(1), ""},
        {read('c', 22), "Qt"},
    };
    QTest::newRow("only once") << Script{
        {press(20), "pause, mark 1"},
        {mark(1), "stop announcing, press, resume"},
        {mark(1), ""},
        {markTimesOut(), ""},
    };
    QTest::newRow("not by the mark of an earlier hold") << Script{
        {press(20), "pause, mark 1"},
        {markTimesOut(), "stop announcing, press, resume"},
        {fieldOpens(kField), "announce"},
        {press(40), "pause, mark 2"},
        {mark(1), ""},
        {mark(2), "stop announcing, press, resume"},
    };
    QTest::newRow("without a mark, if the field's window is gone") << Script{
        {windowVanishes(), ""},
        {press(20), "pause, mark 1, release 1 later"},
        {read('a', 19), "Qt"},
        {mark(1), "stop announcing, press, resume"},
    };
    QTest::newRow("without a mark, if the closing field's window is gone") << Script{
        {windowVanishes(), ""},
        {fieldCloses(), "pause, mark 1, release 1 later"},
        {mark(1), "stop announcing, resume"},
    };
    // clang-format on
}

void KeyOrderTest::keysAreAnnouncedWhileAFieldMayGetThem_data()
{
    QTest::addColumn<Script>("script");
    // One input per line.
    // clang-format off
    QTest::newRow("until the keyboard goes to another program") << Script{
        {announced('a', 10), ""},
        {keyboardGoes(), "stop announcing"},
        {read('a', 10), "Qt"},
        {keyboardGoes(), ""},
        {announced('b', 10), ""},
        {fieldOpens(kField), "announce"},
        {press(10), "pause, mark 1"},
        {read('b', 10), "withheld"},
    };
    QTest::newRow("from one field to the next") << Script{
        {announced('a', 20), ""},
        {fieldOpens(kNextField), ""},
        {read('b', 11), "Qt"},
        {press(20), "pause, mark 1 for the next field"},
        {read('a', 20, kNextField), "Qt"},
        {read('c', 21), "Qt"},
    };
    QTest::newRow("from the press that takes the keyboard from the field, at the latest") << Script{
        {keyboardGoes(), "stop announcing"},
        {press(20, kCanvas, kNextField), "announce, pause, mark 1 for the next field"},
        {read('b', 21, kNextField), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas b"},
    };
    QTest::newRow("until a hold ends, wherever the keyboard goes") << Script{
        {press(20), "pause, mark 1"},
        {keyboardGoes(), ""},
        {fieldOpens(kNextField), ""},
        {read('b', 21), "withheld"},
        {mark(1), "stop announcing, press, resume, canvas b"},
    };
    // clang-format on
}

REGISTER_APPLESS_TEST(KeyOrderTest)
#include "key_order_test.moc"
