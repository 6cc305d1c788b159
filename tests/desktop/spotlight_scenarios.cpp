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
    void escBelongsToTheApplicationsWithoutTheSpotlight();
    void overTheWhiteboardTheRestIsGrey();
    void theStoredRadiusIsUsed_data();
    void theStoredRadiusIsUsed();
    void followingThePointerLeavesNoTrace();
};

void SpotlightScenarios::theHoleIsUnderThePointerAndFollowsIt()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo({600, 400}));
    on.hotKey(Key::S);
    EVENTUALLY(on.pixel({10, 10}) == dimmed(on.beneathColor()));
    QCOMPARE(on.pixel({600, 400}), on.beneathColor());
    QCOMPARE(on.pixel({600 + kRadius - 3, 400}), on.beneathColor());
    QCOMPARE(on.pixel({600 + kRadius + 3, 400}), dimmed(on.beneathColor()));
    QCOMPARE(on.pixel({600, 400 - kRadius + 3}), on.beneathColor());
    QCOMPARE(on.pixel({600, 400 - kRadius - 3}), dimmed(on.beneathColor()));

    QVERIFY(on.session.pointer().moveTo({1500, 900}));
    EVENTUALLY(on.pixel({1500, 900}) == on.beneathColor());
    EVENTUALLY(on.pixel({600, 400}) == dimmed(on.beneathColor()));
}

void SpotlightScenarios::clicksGoThroughTheSpotlight()
{
    Presentation on;
    on.hotKey(Key::S);
    EVENTUALLY(on.pixel({10, 10}) == dimmed(on.beneathColor()));
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({700, 500}));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>({{700, 500}}));
    QVERIFY(on.beneath.hasFocus());
}

void SpotlightScenarios::escEndsTheSpotlightFromAnyApplication()
{
    Presentation on;
    on.hotKey(Key::S);
    EVENTUALLY(on.pixel({10, 10}) == dimmed(on.beneathColor()));
    on.beneath.forget();
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(!on.beneath.pressedKeys().contains(Key::Escape));
    QVERIFY(on.beneath.hasFocus());
}

void SpotlightScenarios::escBelongsToTheApplicationsWithoutTheSpotlight()
{
    Presentation on;
    QVERIFY(!isGrabbedByAnother(on.session, {}, Key::Escape));
    on.hotKey(Key::S);
    EVENTUALLY(isGrabbedByAnother(on.session, {}, Key::Escape));
    on.hotKey(Key::S);
    EVENTUALLY(!isGrabbedByAnother(on.session, {}, Key::Escape));
    on.beneath.forget();
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::Escape));
}

void SpotlightScenarios::overTheWhiteboardTheRestIsGrey()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo({600, 400}));
    on.hotKey(Key::W);
    on.hotKey(Key::S);
    EVENTUALLY(on.pixel({10, 10}) == dimmed(Qt::white));
    EVENTUALLY(on.pixel({600, 400}) == QColor(Qt::white));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
}

void SpotlightScenarios::theStoredRadiusIsUsed_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("radius");

    QTest::newRow("a stored radius") << QByteArray("200") << 200;
    QTest::newRow("text") << QByteArray("wide") << kRadius;
    QTest::newRow("zero") << QByteArray("0") << kRadius;
    QTest::newRow("no number") << QByteArray("nan") << kRadius;
    QTest::newRow("so large that nothing is dimmed") << QByteArray("1e9") << -1;
    QTest::newRow("endless") << QByteArray("inf") << -1;
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
        // Drawing over it shows that the overlay is up and paints, undimmed.
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
    Presentation on;
    on.hotKey(Key::S);
    QVERIFY(on.session.pointer().moveTo({300, 300}));
    EVENTUALLY(on.isDimmed({10, 10}) && on.pixel({300, 300}) == on.beneathColor());
    for (int i = 0; i <= 60; ++i)
        QVERIFY(on.session.pointer().moveTo({300 + 20 * i, 300 + (i * i) % 500}));
    QVERIFY(on.session.pointer().moveTo({1600, 800}));
    EVENTUALLY(on.pixel({1600, 800}) == on.beneathColor());
    // All that the hole has left is dimmed again, evenly.
    EVENTUALLY(on.isFilled(dimmed(on.beneathColor()), {0, 0, 1500, 1080}));
}

REGISTER_GUILESS_TEST(SpotlightScenarios)
#include "spotlight_scenarios.moc"
