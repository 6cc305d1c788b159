#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using test::Controller;

namespace {

/// The modes that are on, one letter each.
QString modesOn(const AppDelegate &app)
{
    QString word;
    for (const auto &[isOn, letter] : {std::pair{app.drawOn(), u'd'},
                                       {app.whiteboardOn(), u'w'},
                                       {app.spotlightOn(), u's'},
                                       {app.clicksOn(), u'k'},
                                       {app.pinnedOn(), u'p'},
                                       {app.cursorRingOn(), u'r'}}) {
        if (isOn)
            word += QChar(letter);
    }
    return word;
}

} // namespace

class ModesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void operationsSwitchTheModes_data();
    void operationsSwitchTheModes();
    void allModesAreOffAtStartup();
    void drawingsAreDiscardedWhenInteractionEndsWithoutAPin();
    void pinnedDrawingsStayAndCanBeDrawnOnAgain();
    void pinningEndsDrawingAndWhiteboardAndKeepsTheShapes();
    void drawingsStayWhileDrawingOrWhiteboardIsOn();
    void aRefusedPinStillRefreshes();
    void theDefaultPenIsOrangeAndFivePointsWide();
};

void ModesTest::operationsSwitchTheModes_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *operations, const char *expected) {
        QTest::newRow(name) << QString(operations) << QString(expected);
    };
    row("drawing on", "d", "d");
    row("drawing on and off", "dd", "");
    row("whiteboard alone", "w", "w");
    row("whiteboard and drawing are independent", "dwd", "w");
    row("the spotlight combines with drawing", "ds", "ds");
    row("clicks and ring are independent of drawing", "krd", "dkr");
    row("a pin without drawing or whiteboard is refused", "p", "");
    row("a pin with the spotlight alone is refused", "sp", "s");
    row("a pin ends drawing", "dp", "p");
    row("a pin ends drawing and whiteboard", "dwp", "p");
    row("unpinning resumes drawing, not the whiteboard", "wpp", "d");
    row("drawing while pinned ends the pin", "dpd", "d");
    row("the whiteboard can be turned on over a pin", "dpw", "wp");
    row("Esc ends four modes and no others", "dwskre", "kr");
    row("Esc ends a pin", "dpse", "");
    row("Esc with nothing on", "e", "");
}

void ModesTest::operationsSwitchTheModes()
{
    QFETCH(QString, operations);
    QFETCH(QString, expected);
    Controller controller;
    controller.perform(operations);
    QCOMPARE(modesOn(controller.app()), expected);
    QCOMPARE(controller.app().interactionOn(), expected.contains(u'd') || expected.contains(u'w'));
}

void ModesTest::allModesAreOffAtStartup()
{
    Controller controller;
    QCOMPARE(modesOn(controller.app()), QString());
    QVERIFY(controller.app().toolbarVisible());
    QVERIFY(!controller.surface().isVisible());
    QVERIFY(controller.surface().ignoresMouseEvents());
}

void ModesTest::drawingsAreDiscardedWhenInteractionEndsWithoutAPin()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.draw(controller.view());
    QCOMPARE(controller.view().shapes().size(), 2U);
    QCOMPARE(controller.app().shapeOrder().size(), 2U);

    controller.app().toggleDraw();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().shapeOrder().empty());
    QVERIFY(!controller.surface().isVisible());
}

void ModesTest::pinnedDrawingsStayAndCanBeDrawnOnAgain()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());

    controller.app().togglePin();
    QCOMPARE(controller.view().shapes().size(), 1U);
    QVERIFY(controller.surface().isVisible());
    QVERIFY(controller.surface().ignoresMouseEvents());

    controller.app().toggleDraw();
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.app().shapeOrder().size(), 1U);
    QVERIFY(!controller.surface().ignoresMouseEvents());
    QCOMPARE(modesOn(controller.app()), QStringLiteral("d"));
}

void ModesTest::pinningEndsDrawingAndWhiteboardAndKeepsTheShapes()
{
    Controller controller;
    controller.perform(QStringLiteral("dw"));
    controller.draw(controller.view());
    controller.surface().display();
    QCOMPARE(controller.surface().image().pixelColor(500, 400), QColor(Qt::white));

    controller.app().togglePin();
    controller.surface().display();
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.surface().image().pixelColor(500, 400).alpha(), 0);
    QVERIFY(controller.surface().image().pixelColor(150, 800 - 125).alpha() > 0);
}

void ModesTest::drawingsStayWhileDrawingOrWhiteboardIsOn()
{
    Controller controller;
    controller.perform(QStringLiteral("dw"));
    controller.draw(controller.view());
    controller.app().toggleDraw();
    QCOMPARE(controller.view().shapes().size(), 1U);
    controller.app().toggleBoard();
    QVERIFY(controller.view().shapes().empty());
}

void ModesTest::aRefusedPinStillRefreshes()
{
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.app().togglePin();
    QVERIFY(!controller.desktop.takeLog().isEmpty());
    QCOMPARE(modesOn(controller.app()), QString());
}

void ModesTest::theDefaultPenIsOrangeAndFivePointsWide()
{
    Controller controller;
    QCOMPARE(controller.app().tool(), Tool(Tool::pen));
    QVERIFY(controller.app().color() == kOrange);
    QCOMPARE(controller.app().lineWidth(), 5.0);
}

REGISTER_TEST(ModesTest)
#include "modes_test.moc"
