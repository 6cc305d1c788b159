#include "registered_test.h"
#include "spotlight_radius.h"

using namespace zeigewerk::rig;

class SpotlightScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theHoleIsUnderThePointerAndFollowsIt();
    void clicksGoThroughTheSpotlight();
    void escEndsTheSpotlightFromAnyApplication();
    void withoutTheSpotlightEscReachesTheApplications();
    void overTheWhiteboardTheDimmedAreaIsGrey();
    void theStoredRadiusIsUsed_data();
    void theStoredRadiusIsUsed();
    void followingThePointerLeavesNoTrace();
};

void SpotlightScenarios::theHoleIsUnderThePointerAndFollowsIt()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo({600, 400}));
    show.hotKey(Key::S);
    EVENTUALLY(show.pixel({10, 10}) == dimmed(show.beneathColor()));
    QCOMPARE(show.pixel({600, 400}), show.beneathColor());
    QCOMPARE(show.pixel({600 + kRadius - 3, 400}), show.beneathColor());
    QCOMPARE(show.pixel({600 + kRadius + 3, 400}), dimmed(show.beneathColor()));
    QCOMPARE(show.pixel({600, 400 - kRadius + 3}), show.beneathColor());
    QCOMPARE(show.pixel({600, 400 - kRadius - 3}), dimmed(show.beneathColor()));

    QVERIFY(show.session.pointer().moveTo({1500, 900}));
    EVENTUALLY(show.pixel({1500, 900}) == show.beneathColor());
    EVENTUALLY(show.pixel({600, 400}) == dimmed(show.beneathColor()));
}

void SpotlightScenarios::clicksGoThroughTheSpotlight()
{
    Presentation show;
    show.hotKey(Key::S);
    EVENTUALLY(show.pixel({10, 10}) == dimmed(show.beneathColor()));
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({700, 500}));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>({{700, 500}}));
    QVERIFY(show.beneath.hasFocus());
}

void SpotlightScenarios::escEndsTheSpotlightFromAnyApplication()
{
    Presentation show;
    show.hotKey(Key::S);
    EVENTUALLY(show.pixel({10, 10}) == dimmed(show.beneathColor()));
    show.beneath.forget();
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(!show.beneath.pressedKeys().contains(Key::Escape));
    QVERIFY(show.beneath.hasFocus());
}

void SpotlightScenarios::withoutTheSpotlightEscReachesTheApplications()
{
    Presentation show;
    QVERIFY(!isGrabbedByAnother(show.session, {}, Key::Escape));
    show.hotKey(Key::S);
    EVENTUALLY(isGrabbedByAnother(show.session, {}, Key::Escape));
    show.hotKey(Key::S);
    EVENTUALLY(!isGrabbedByAnother(show.session, {}, Key::Escape));
    show.beneath.forget();
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::Escape));
}

void SpotlightScenarios::overTheWhiteboardTheDimmedAreaIsGrey()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo({600, 400}));
    show.hotKey(Key::W);
    show.hotKey(Key::S);
    EVENTUALLY(show.pixel({10, 10}) == dimmed(Qt::white));
    EVENTUALLY(show.pixel({600, 400}) == QColor(Qt::white));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
}

void SpotlightScenarios::theStoredRadiusIsUsed_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("radius");

    QTest::newRow("valid") << QByteArray("200") << 200;
    QTest::newRow("text") << QByteArray("wide") << kRadius;
    QTest::newRow("zero") << QByteArray("0") << kRadius;
    QTest::newRow("not a number") << QByteArray("nan") << kRadius;
    QTest::newRow("too large to dim anything") << QByteArray("1e9") << -1;
    QTest::newRow("infinite") << QByteArray("inf") << -1;
}

void SpotlightScenarios::theStoredRadiusIsUsed()
{
    QFETCH(QByteArray, stored);
    QFETCH(int, radius);
    DesktopSession session;
    QVERIFY(session.home().mkpath(".config/zeigewerk"));
    QFile settings(session.home().filePath(".config/zeigewerk/zeigewerk.ini"));
    QVERIFY(settings.open(QFile::WriteOnly));
    QVERIFY(settings.write("[General]\nZeigewerkSpotRadius=" + stored + '\n') > 0);
    settings.close();
    const QColor blue(0, 0, 200);
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, blue);
    QVERIFY(session.pointer().moveTo({500, 500}));
    QVERIFY(beneath.opensWithFocus());
    Program program(session);
    QVERIFY(program.waitUntilReady());

    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::S);
    if (radius < 0) {
        // Drawing proves that the overlay is shown and painted, without dimming.
        session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
        EVENTUALLY(isGrabbedByAnother(session, {}, Key::Escape));
        EVENTUALLY(session.client().inputFocus() != beneath.id());
        QVERIFY(session.pointer().drag({{500, 500}, {600, 500}}));
        EVENTUALLY(session.screenshot().pixel({550, 500}) == kInk);
        QCOMPARE(session.screenshot().pixel({10, 10}), blue);
        return;
    }
    EVENTUALLY(session.screenshot().pixel({10, 10}) == dimmed(blue));
    QCOMPARE(session.screenshot().pixel({500 + radius - 3, 500}), blue);
    QCOMPARE(session.screenshot().pixel({500 + radius + 3, 500}), dimmed(blue));
}

void SpotlightScenarios::followingThePointerLeavesNoTrace()
{
    Presentation show;
    show.hotKey(Key::S);
    QVERIFY(show.session.pointer().moveTo({300, 300}));
    EVENTUALLY(show.isDimmed({10, 10}) && show.pixel({300, 300}) == show.beneathColor());
    for (int i = 0; i <= 60; ++i)
        QVERIFY(show.session.pointer().moveTo({300 + 20 * i, 300 + (i * i) % 500}));
    QVERIFY(show.session.pointer().moveTo({1600, 800}));
    EVENTUALLY(show.pixel({1600, 800}) == show.beneathColor());
    // Everything that the hole has left is dimmed again, evenly.
    EVENTUALLY(show.isFilled(dimmed(show.beneathColor()), {0, 0, 1500, 1080}));
}

REGISTER_GUILESS_TEST(SpotlightScenarios)
#include "spotlight_scenarios.moc"
