#include "commands/hot_key_table.h"
#include "controller_fixture.h"
#include "registered_test.h"

#include <QSignalSpy>
#include <QTest>

using namespace zeigewerk;
using platform::HotKeyId;
using test::Controller;

class HotKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTableIsRegisteredInItsOrder();
    void hotKeysActLikeTheToggles_data();
    void hotKeysActLikeTheToggles();
    void eachHotKeyHasItsKeyAndADescription();
    void escIsRequestedAgainOnlyIfRefused();
    void foreignAndUnknownIdsDoNothing_data();
    void foreignAndUnknownIdsDoNothing();
    void aRefusedHotKeyDoesNotAffectTheOthers();
    void drawingWhilePinnedMakesThePinnedDrawingEditable();
    void escEndsTheModesButNotClicksAndRing();
    void theToolbarHotKeyHidesAndShowsItWithoutARefresh();
    void hotKeysDoNothingOnceTheControllerIsGone();
};

void HotKeysTest::theTableIsRegisteredInItsOrder()
{
    Controller controller;
    controller.app();
    const QStringList registered = controller.desktop.takeLog().filter("hot key");
    QCOMPARE(registered,
             QStringList({"hot key 1: registered", "hot key 2: registered", "hot key 3: registered",
                          "hot key 4: registered", "hot key 5: registered", "hot key 6: registered"}));
    QCOMPARE(kHotKeySignature, ('Z' << 24) + ('G' << 16) + ('W' << 8) + 'K' + 0U);
}

void HotKeysTest::hotKeysActLikeTheToggles_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<quint32>("number");
    QTest::addColumn<bool>("drawOn");
    QTest::addColumn<bool>("spotlightOn");
    QTest::addColumn<bool>("whiteboardOn");
    QTest::addColumn<bool>("clicksOn");
    QTest::addColumn<bool>("pinnedOn");

    // A table, one row per line.
    // clang-format off
    QTest::newRow("D turns drawing on")  << ""   << 1U << true  << false << false << false << false;
    QTest::newRow("D turns drawing off") << "d"  << 1U << false << false << false << false << false;
    QTest::newRow("S")                   << ""   << 2U << false << true  << false << false << false;
    QTest::newRow("W")                   << ""   << 3U << false << false << true  << false << false;
    QTest::newRow("K")                   << ""   << 4U << false << false << false << true  << false;
    QTest::newRow("P without drawing")   << ""   << 6U << false << false << false << false << false;
    QTest::newRow("P while drawing")     << "d"  << 6U << false << false << false << false << true;
    QTest::newRow("P while pinned")      << "dp" << 6U << true  << false << false << false << false;
    // clang-format on
}

void HotKeysTest::hotKeysActLikeTheToggles()
{
    QFETCH(QString, before);
    QFETCH(quint32, number);
    Controller controller;
    controller.perform(before);
    controller.desktop.hotKeys().press({kHotKeySignature, number});
    QTEST(controller.app().drawOn(), "drawOn");
    QTEST(controller.app().spotlightOn(), "spotlightOn");
    QTEST(controller.app().whiteboardOn(), "whiteboardOn");
    QTEST(controller.app().clicksOn(), "clicksOn");
    QTEST(controller.app().pinnedOn(), "pinnedOn");
}

void HotKeysTest::eachHotKeyHasItsKeyAndADescription()
{
    using platform::PhysicalKey;
    constexpr std::array kKeys = {PhysicalKey::D, PhysicalKey::S, PhysicalKey::W,     PhysicalKey::K,
                                  PhysicalKey::T, PhysicalKey::P, PhysicalKey::Escape};
    Controller controller;
    controller.perform("s");
    const std::vector<platform::HotKey> registered = controller.desktop.hotKeys().registered();
    QCOMPARE(registered.size(), kKeys.size());
    QStringList descriptions;
    for (std::size_t i = 0; i < registered.size(); ++i) {
        const bool isEsc = registered[i].id == kEscHotKey.id();
        QCOMPARE(registered[i].key, kKeys.at(i));
        QCOMPARE(registered[i].modifiers, isEsc ? platform::Modifiers() : kCtrlAlt);
        QVERIFY(!registered[i].description.isEmpty());
        descriptions.append(registered[i].description.toString());
    }
    QCOMPARE(descriptions.removeDuplicates(), 0);
}

void HotKeysTest::escIsRequestedAgainOnlyIfRefused()
{
    using platform::HotKeyState;
    Controller controller;
    platform::RecordingHotKeys &hotKeys = controller.desktop.hotKeys();
    QSignalSpy changes(&hotKeys, &platform::HotKeys::stateChanged);
    hotKeys.setFirstState(HotKeyState::Requested);
    controller.perform("s");
    controller.desktop.takeLog();
    const auto requestsAtRefresh = [&] {
        controller.app().refreshAll();
        return controller.desktop.takeLog().filter("hot key 99: registered").size();
    };
    QCOMPARE(requestsAtRefresh(), 0);
    hotKeys.setState(kEscHotKey.id(), HotKeyState::Granted);
    QCOMPARE(requestsAtRefresh(), 0);
    hotKeys.setState(kEscHotKey.id(), HotKeyState::Refused);
    QCOMPARE(requestsAtRefresh(), 1);
    QCOMPARE(changes.size(), 2);
}

void HotKeysTest::foreignAndUnknownIdsDoNothing_data()
{
    QTest::addColumn<quint32>("signature");
    QTest::addColumn<quint32>("number");

    QTest::newRow("an id that could not be read") << kHotKeySignature << 0U;
    QTest::newRow("an unknown number") << kHotKeySignature << 7U;
    QTest::newRow("another signature") << 0x41414141U << 1U;
}

void HotKeysTest::foreignAndUnknownIdsDoNothing()
{
    QFETCH(quint32, signature);
    QFETCH(quint32, number);
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.desktop.hotKeys().deliver({signature, number});
    QCOMPARE(controller.desktop.takeLog(), QStringList());
    QVERIFY(!controller.app().drawOn());
}

void HotKeysTest::aRefusedHotKeyDoesNotAffectTheOthers()
{
    Controller controller;
    controller.desktop.hotKeys().refuse({kHotKeySignature, 1});
    controller.app();
    controller.desktop.hotKeys().press({kHotKeySignature, 1});
    QVERIFY(!controller.app().drawOn());
    controller.desktop.hotKeys().press({kHotKeySignature, 3});
    QVERIFY(controller.app().whiteboardOn());
}

void HotKeysTest::drawingWhilePinnedMakesThePinnedDrawingEditable()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.app().togglePin();
    controller.desktop.hotKeys().press({kHotKeySignature, 1});
    QVERIFY(controller.app().drawOn());
    QVERIFY(!controller.app().pinnedOn());
    QCOMPARE(controller.view().shapes().size(), 1U);
}

void HotKeysTest::escEndsTheModesButNotClicksAndRing()
{
    Controller controller;
    controller.perform("dwskr");
    controller.desktop.hotKeys().press(kEscHotKey.id());
    QVERIFY(!controller.app().interactionOn());
    QVERIFY(!controller.app().spotlightOn());
    QVERIFY(controller.app().clicksOn());
    QVERIFY(controller.app().cursorRingOn());
}

void HotKeysTest::theToolbarHotKeyHidesAndShowsItWithoutARefresh()
{
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.desktop.hotKeys().press({kHotKeySignature, 5});
    QVERIFY(!controller.app().toolbarVisible());
    controller.desktop.hotKeys().press({kHotKeySignature, 5});
    QVERIFY(controller.app().toolbarVisible());
    QCOMPARE(controller.desktop.takeLog(), QStringList({"toolbar 0: order out", "toolbar 0: order front"}));
}

void HotKeysTest::hotKeysDoNothingOnceTheControllerIsGone()
{
    platform::RecordingDesktop desktop;
    QTemporaryDir home;
    UserDefaults defaults(home.filePath("settings.ini"));
    {
        AppDelegate app(desktop, defaults);
        app.applicationDidFinishLaunching();
        QVERIFY(gApp == &app);
    }
    QVERIFY(!gApp);
    desktop.hotKeys().deliver({kHotKeySignature, 1});
    QVERIFY(desktop.surfaces(platform::SurfaceRole::Overlay).empty());
}

REGISTER_TEST(HotKeysTest)
#include "hot_keys_test.moc"
