// Keys and clicks come in the order in which they were made, however the program gets to read them.
#include "paused_process.h"
#include "registered_test.h"
#include "text_presentation.h"

#include <xcb/xtest.h>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QPoint kWordPlace(100, 100);
const QString kWord("abcdefgh");

/// A hand without any time between its strokes: the server is told all of them at once, and gives many the
/// same millisecond.
class Haste
{
public:
    explicit Haste(TextPresentation &on)
        : m_client(on.session.client())
    {
    }
    ~Haste() { m_client.roundTrip(); }
    Haste(const Haste &) = delete;
    Haste &operator=(const Haste &) = delete;

    void clickAt(QPoint place)
    {
        fake(XCB_MOTION_NOTIFY, 0, place);
        fake(XCB_BUTTON_PRESS, Pointer::Left);
        fake(XCB_BUTTON_RELEASE, Pointer::Left);
    }
    void tap(Key key)
    {
        fake(XCB_KEY_PRESS, static_cast<int>(key));
        fake(XCB_KEY_RELEASE, static_cast<int>(key));
    }

private:
    void fake(int type, int detail, QPoint place = {})
    {
        xcb_test_fake_input(m_client.connection(), static_cast<std::uint8_t>(type),
                            static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME, m_client.root(),
                            static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
    }

    Client &m_client;
};

/// A word stands there, typed at leisure.
QRect inkOfWord(TextPresentation &on)
{
    if (!on.open(kWordPlace))
        throw RigError("no field opens");
    on.session.keyboard().type(kWord);
    on.session.keyboard().tap(Key::Return);
    if (!eventually([&] { return on.isWritten(kWordPlace); }))
        throw RigError("nothing is written");
    return on.inkAt(kWordPlace);
}

} // namespace

class TextOrderScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysOfTheSameMillisecondGoWhereTheyWereTyped();
    void keysBeforeAClickAreTheOldField();
    void keysAfterAClickAreTheNewField();
    void keysAfterReturnAreTheCanvas();
    void keysAfterEscAreTheCanvas();
    void returnAndAClickAndKeysKeepTheirOrder();
    void anEscThatWaitedReachesNobodyElse();
};

void TextOrderScenarios::keysOfTheSameMillisecondGoWhereTheyWereTyped()
{
    TextPresentation on;
    const QRect word = inkOfWord(on);
    const QList<QPoint> places = {{100, 200}, {100, 300}, {100, 400}, {100, 500}, {100, 600}, {100, 700}};
    QVERIFY(on.open(places.first()));
    {
        Haste hand(on);
        for (const QPoint &place : places) {
            if (place != places.first())
                hand.clickAt(place);
            for (const Key key : {Key::A, Key::B, Key::C, Key::D, Key::E, Key::F, Key::G, Key::H})
                hand.tap(key);
        }
        hand.tap(Key::Return);
    }
    for (const QPoint &place : places)
        EVENTUALLY(on.inkAt(place) == word);
    EVENTUALLY(on.isDrawing());
}

void TextOrderScenarios::keysBeforeAClickAreTheOldField()
{
    TextPresentation on;
    const QRect word = inkOfWord(on);
    QVERIFY(on.open({100, 300}));
    {
        const PausedProcess absence(on.program.processId());
        on.session.keyboard().type(kWord);
        QVERIFY(on.session.pointer().clickAt({100, 500}));
        on.session.keyboard().type(kWord);
        QVERIFY(on.session.pointer().clickAt({100, 700}));
    }
    EVENTUALLY(on.inkAt({100, 300}) == word);
    EVENTUALLY(on.inkAt({100, 500}) == word);
    EVENTUALLY(on.isTyping());
}

void TextOrderScenarios::keysAfterAClickAreTheNewField()
{
    TextPresentation on;
    const QRect word = inkOfWord(on);
    // Which connection is read first is a matter of luck.
    for (const int round : {1, 2, 3, 4, 5}) {
        const QPoint first(100 + 240 * round, 300);
        const QPoint second(100 + 240 * round, 500);
        QVERIFY(on.open(first));
        on.session.keyboard().type(kWord.left(2));
        {
            const PausedProcess absence(on.program.processId());
            on.session.keyboard().type(kWord.mid(2));
            QVERIFY(on.session.pointer().clickAt(second));
            on.session.keyboard().type(kWord);
            on.session.keyboard().tap(Key::Return);
        }
        EVENTUALLY(on.inkAt(second) == word);
        EVENTUALLY(on.isDrawing());
        QCOMPARE(on.inkAt(first), word);
    }
}

void TextOrderScenarios::keysAfterReturnAreTheCanvas()
{
    TextPresentation on;
    inkOfWord(on);
    QVERIFY(on.open({100, 300}));
    on.session.keyboard().type(kWord);
    {
        const PausedProcess absence(on.program.processId());
        on.session.keyboard().tap(Key::Return);
        // What Return has written goes, and what stood before it.
        on.command(Key::Z);
        on.command(Key::Z);
    }
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(on.isUntouched(ToolbarPresentation::kLeftOfToolbar));
}

void TextOrderScenarios::keysAfterEscAreTheCanvas()
{
    TextPresentation on;
    QVERIFY(on.open({100, 300}));
    on.session.keyboard().type(kWord);
    on.beneath.forget();
    {
        const PausedProcess absence(on.program.processId());
        on.session.keyboard().tap(Key::Escape);
        on.session.keyboard().tap(Key::Escape);
    }
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.isUntouched(ToolbarPresentation::kLeftOfToolbar));
    QVERIFY(on.beneath.pressedKeys().isEmpty());
}

void TextOrderScenarios::returnAndAClickAndKeysKeepTheirOrder()
{
    TextPresentation on;
    const QRect word = inkOfWord(on);
    QVERIFY(on.open({100, 300}));
    on.session.keyboard().type(kWord);
    {
        const PausedProcess absence(on.program.processId());
        on.session.keyboard().tap(Key::Return);
        on.command(Key::Z);
        QVERIFY(on.session.pointer().clickAt({100, 500}));
        on.session.keyboard().type(kWord);
        on.session.keyboard().tap(Key::Return);
        QVERIFY(on.session.pointer().clickAt({100, 700}));
        on.session.keyboard().type(kWord);
    }
    EVENTUALLY(on.inkAt({100, 500}) == word);
    EVENTUALLY(on.isTyping());
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.inkAt({100, 700}) == word && on.isUntouched({90, 280, 400, 60}));
}

void TextOrderScenarios::anEscThatWaitedReachesNobodyElse()
{
    TextPresentation on;
    QVERIFY(on.open({100, 300}));
    on.beneath.forget();
    {
        const PausedProcess absence(on.program.processId());
        on.session.keyboard().tap(Key::Return);
        on.session.keyboard().press(Key::Escape);
    }
    EVENTUALLY(on.beneath.hasFocus());
    // The server repeats a held key after 660 ms.
    THROUGHOUT(1000ms, on.beneath.pressedKeys().isEmpty());
    on.session.keyboard().release(Key::Escape);
}

REGISTER_GUILESS_TEST(TextOrderScenarios)
#include "text_order_scenarios.moc"
