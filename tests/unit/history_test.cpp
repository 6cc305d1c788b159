#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using test::Controller;

class HistoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void undoRemovesTheNewestShapeOfAllScreens();
    void undoWithNothingDrawnChangesNothing();
    void undoRepaintsOnlyTheRemovedShape();
    void undoIgnoresShapesThatFadedAway();
    void undoSkipsViewsWhoseShapesFadedAway();
    void undoKeepsTheShapeInProgress();
    void undoKeepsTheFadeTimerRunning();
    void clearEmptiesEveryScreen();
    void clearCancelsTheDragInProgress();
    void clearKeepsTheFadeTimerUntilItsNextTick();
    void changingTheScreensForgetsTheUndoOrder();
};

namespace {

std::vector<std::size_t> shapesPerScreen(Controller &controller)
{
    return {controller.view(0).shapes().size(), controller.view(1).shapes().size()};
}

using Counts = std::vector<std::size_t>;

} // namespace

void HistoryTest::undoRemovesTheNewestShapeOfAllScreens()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    controller.draw(controller.view(0), {100, 100}, {200, 100}); // A1
    controller.draw(controller.view(1), {100, 100}, {200, 100}); // B1
    controller.draw(controller.view(0), {100, 300}, {200, 300}); // A2
    QCOMPARE(shapesPerScreen(controller), Counts({2, 1}));

    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({1, 1}));
    QCOMPARE(controller.view(0).shapes().front().start, QPointF(100, 100));
    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({1, 0}));
    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 0}));
    QVERIFY(controller.app().shapeOrder().empty());
}

void HistoryTest::undoWithNothingDrawnChangesNothing()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.desktop.takeLog();
    controller.app().undoShape();
    QVERIFY(controller.app().drawOn());
    QVERIFY(controller.app().shapeOrder().empty());
    QCOMPARE(controller.desktop.takeLog(), QStringList());
    QVERIFY(!controller.surface().display());
}

void HistoryTest::undoRepaintsOnlyTheRemovedShape()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view(), {100, 100}, {300, 100});
    controller.surface().display();
    const QImage before = controller.surface().image();
    controller.draw(controller.view(), {100, 400}, {300, 400});
    QVERIFY(controller.surface().display());
    const qint64 painted = controller.surface().paintedPixels();

    controller.app().undoShape();
    QVERIFY(controller.surface().display());
    QCOMPARE(controller.surface().image(), before);
    // The stroke is 200 points long and 5 wide, with its caps and a pixel around it.
    QVERIFY(controller.surface().paintedPixels() - painted <= qint64{210} * 10);
}

void HistoryTest::undoIgnoresShapesThatFadedAway()
{
    Controller controller(test::twoScreens());
    controller.defaults.setBool(kAutoFadeKey, true);
    controller.app().toggleDraw();
    controller.draw(controller.view(0));
    controller.passTime(3.0);
    controller.draw(controller.view(1));
    controller.draw(controller.view(0));
    controller.passTime(1.8);
    controller.app().tickFade();
    QCOMPARE(shapesPerScreen(controller), Counts({1, 1}));
    // The first shape stays in the order; only the empty canvas shows that its entry is stale.
    QCOMPARE(controller.app().shapeOrder().size(), 3U);

    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 1}));
    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 0}));
    QCOMPARE(controller.app().shapeOrder().size(), 1U);
    controller.app().undoShape();
    QVERIFY(controller.app().shapeOrder().empty());
}

void HistoryTest::undoSkipsViewsWhoseShapesFadedAway()
{
    Controller controller(test::twoScreens());
    controller.defaults.setBool(kAutoFadeKey, true);
    controller.app().toggleDraw();
    controller.draw(controller.view(0));
    // A newer shape fades before an older one only if the clock was set back.
    controller.passTime(-3600.0);
    controller.draw(controller.view(1));
    controller.draw(controller.view(1));
    controller.passTime(4.8);
    controller.app().tickFade();
    QCOMPARE(shapesPerScreen(controller), Counts({1, 0}));

    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 0}));
    QVERIFY(controller.app().shapeOrder().empty());
}

void HistoryTest::undoKeepsTheShapeInProgress()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.view().mouseDown({{10, 10}, {}});
    controller.view().mouseDragged({{20, 20}, {}});
    controller.app().undoShape();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.view().current());
    controller.app().undoShape();
    QCOMPARE(controller.view().current()->points.size(), 2U);
    controller.view().mouseUp({{20, 20}, {}});
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.app().shapeOrder().size(), 1U);
}

void HistoryTest::undoKeepsTheFadeTimerRunning()
{
    Controller controller;
    controller.defaults.setBool(kAutoFadeKey, true);
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.app().undoShape();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.app().tickFade();
    QVERIFY(!controller.app().isFadeTimerRunning());
}

void HistoryTest::clearEmptiesEveryScreen()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    for (const std::size_t screen : {0U, 1U})
        controller.draw(controller.view(screen));
    controller.surface(0).display();
    controller.surface(1).display();

    controller.app().clearAll();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 0}));
    QVERIFY(controller.app().shapeOrder().empty());
    QVERIFY(controller.app().drawOn());
    for (const std::size_t screen : {0U, 1U}) {
        QVERIFY(controller.surface(screen).display());
        QImage blank = controller.surface(screen).image();
        blank.fill(Qt::transparent);
        QCOMPARE(controller.surface(screen).image(), blank);
    }
    controller.app().undoShape();
    QCOMPARE(shapesPerScreen(controller), Counts({0, 0}));
}

void HistoryTest::clearCancelsTheDragInProgress()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.view().mouseDown({{10, 10}, {}});
    controller.view().mouseDragged({{20, 20}, {}});
    controller.app().clearAll();
    QVERIFY(!controller.view().current());
    controller.view().mouseDragged({{30, 30}, {}});
    controller.view().mouseUp({{30, 30}, {}});
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().shapeOrder().empty());
}

void HistoryTest::clearKeepsTheFadeTimerUntilItsNextTick()
{
    Controller controller;
    controller.defaults.setBool(kAutoFadeKey, true);
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.app().clearAll();
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.app().tickFade();
    QVERIFY(!controller.app().isFadeTimerRunning());
}

void HistoryTest::changingTheScreensForgetsTheUndoOrder()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    controller.draw(controller.view(1));
    controller.desktop.changeScreens({test::twoScreens().front()});
    QVERIFY(controller.app().shapeOrder().empty());
    controller.app().undoShape();
    QVERIFY(controller.view(0).shapes().empty());
}

REGISTER_TEST(HistoryTest)
#include "history_test.moc"
