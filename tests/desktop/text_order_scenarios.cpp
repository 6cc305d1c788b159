// Keys and clicks take effect in the order in which they were made, however the program reads them.
#include "paused_process.h"
#include "registered_test.h"
#include "text_presentation.h"

#include <xcb/xtest.h>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QPoint kWordPlace(100, 100);
const QString kWord("abcdefgh");

/// Input without any pauses: the server receives everything at once, and many events get the same timestamp.
class InputBurst
{
public:
    explicit InputBurst(TextPresentation &show)
        : m_client(show.session.client())
    {
    }
    ~InputBurst() { m_client.roundTrip(); }
    InputBurst(const InputBurst &) = delete;
    InputBurst &operator=(const InputBurst &) = delete;

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

/// Writes a word slowly, and returns its ink.
QRect inkOfWord(TextPresentation &show)
{
    if (!show.open(kWordPlace))
        throw RigError("no field opens");
    show.session.keyboard().type(kWord);
    show.session.keyboard().tap(Key::Return);
    if (!eventually([&] { return show.isWritten(kWordPlace); }))
        throw RigError("nothing is written");
    return show.inkAt(kWordPlace);
}

} // namespace

class TextOrderScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysWithEqualTimestampsReachTheirFields();
    void keysBeforeAClickGoToTheOldField();
    void keysAfterAClickGoToTheNewField();
    void keysAfterReturnGoToTheCanvas();
    void keysAfterEscGoToTheCanvas();
    void returnClicksAndKeysKeepTheirOrder();
    void aDelayedEscReachesNoOtherWindow();
};

void TextOrderScenarios::keysWithEqualTimestampsReachTheirFields()
{
    TextPresentation show;
    const QRect word = inkOfWord(show);
    const QList<QPoint> places = {{100, 200}, {100, 300}, {100, 400}, {100, 500}, {100, 600}, {100, 700}};
    QVERIFY(show.open(places.first()));
    {
        InputBurst burst(show);
        for (const QPoint &place : places) {
            if (place != places.first())
                burst.clickAt(place);
            for (const Key key : {Key::A, Key::B, Key::C, Key::D, Key::E, Key::F, Key::G, Key::H})
                burst.tap(key);
        }
        burst.tap(Key::Return);
    }
    for (const QPoint &place : places)
        EVENTUALLY(show.inkAt(place) == word);
    EVENTUALLY(show.isDrawing());
}

void TextOrderScenarios::keysBeforeAClickGoToTheOldField()
{
    TextPresentation show;
    const QRect word = inkOfWord(show);
    QVERIFY(show.open({100, 300}));
    {
        const PausedProcess paused(show.program.processId());
        show.session.keyboard().type(kWord);
        QVERIFY(show.session.pointer().clickAt({100, 500}));
        show.session.keyboard().type(kWord);
        QVERIFY(show.session.pointer().clickAt({100, 700}));
    }
    EVENTUALLY(show.inkAt({100, 300}) == word);
    EVENTUALLY(show.inkAt({100, 500}) == word);
    EVENTUALLY(show.isTyping());
}

void TextOrderScenarios::keysAfterAClickGoToTheNewField()
{
    TextPresentation show;
    const QRect word = inkOfWord(show);
    // It is random which connection is read first.
    for (const int round : {1, 2, 3, 4, 5}) {
        const QPoint first(100 + 240 * round, 300);
        const QPoint second(100 + 240 * round, 500);
        QVERIFY(show.open(first));
        show.session.keyboard().type(kWord.left(2));
        {
            const PausedProcess paused(show.program.processId());
            show.session.keyboard().type(kWord.mid(2));
            QVERIFY(show.session.pointer().clickAt(second));
            show.session.keyboard().type(kWord);
            show.session.keyboard().tap(Key::Return);
        }
        EVENTUALLY(show.inkAt(second) == word);
        EVENTUALLY(show.isDrawing());
        QCOMPARE(show.inkAt(first), word);
    }
}

void TextOrderScenarios::keysAfterReturnGoToTheCanvas()
{
    TextPresentation show;
    inkOfWord(show);
    QVERIFY(show.open({100, 300}));
    show.session.keyboard().type(kWord);
    {
        const PausedProcess paused(show.program.processId());
        show.session.keyboard().tap(Key::Return);
        // Undoes the text that Return has finished, and the one before it.
        show.command(Key::Z);
        show.command(Key::Z);
    }
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(show.isUntouched(ToolbarPresentation::kLeftOfToolbar));
}

void TextOrderScenarios::keysAfterEscGoToTheCanvas()
{
    TextPresentation show;
    QVERIFY(show.open({100, 300}));
    show.session.keyboard().type(kWord);
    show.beneath.forget();
    {
        const PausedProcess paused(show.program.processId());
        show.session.keyboard().tap(Key::Escape);
        show.session.keyboard().tap(Key::Escape);
    }
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.isUntouched(ToolbarPresentation::kLeftOfToolbar));
    QVERIFY(show.beneath.pressedKeys().isEmpty());
}

void TextOrderScenarios::returnClicksAndKeysKeepTheirOrder()
{
    TextPresentation show;
    const QRect word = inkOfWord(show);
    QVERIFY(show.open({100, 300}));
    show.session.keyboard().type(kWord);
    {
        const PausedProcess paused(show.program.processId());
        show.session.keyboard().tap(Key::Return);
        show.command(Key::Z);
        QVERIFY(show.session.pointer().clickAt({100, 500}));
        show.session.keyboard().type(kWord);
        show.session.keyboard().tap(Key::Return);
        QVERIFY(show.session.pointer().clickAt({100, 700}));
        show.session.keyboard().type(kWord);
    }
    EVENTUALLY(show.inkAt({100, 500}) == word);
    EVENTUALLY(show.isTyping());
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.inkAt({100, 700}) == word && show.isUntouched({90, 280, 400, 60}));
}

void TextOrderScenarios::aDelayedEscReachesNoOtherWindow()
{
    TextPresentation show;
    QVERIFY(show.open({100, 300}));
    show.beneath.forget();
    {
        const PausedProcess paused(show.program.processId());
        show.session.keyboard().tap(Key::Return);
        show.session.keyboard().press(Key::Escape);
    }
    EVENTUALLY(show.beneath.hasFocus());
    // The server repeats a held key after 660 ms.
    THROUGHOUT(1000ms, show.beneath.pressedKeys().isEmpty());
    show.session.keyboard().release(Key::Escape);
}

REGISTER_GUILESS_TEST(TextOrderScenarios)
#include "text_order_scenarios.moc"
