#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using test::Controller;

namespace {

/// The flags that the modes are made of, as a word: one letter for each that is on.
QString flags(const AppDelegate &app)
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
    void operationsChangeTheFlags_data();
    void operationsChangeTheFlags();
    void allModesStartOff();
    void drawingsAreDiscardedWhenInteractionEndsWithoutAPin();
    void pinnedDrawingsStayAndCanBeDrawnOnAgain();
    void pinningOnTheWhiteboardEndsBothAndKeepsTheShapes();
    void drawingsStayWhileEitherDrawingOrWhiteboardIsOn();
    void pinningNothingStillRefreshes();
    void theFirstPenIsOrangeAndFiveWide();
};

void ModesTest::operationsChangeTheFlags_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QString>("expected");

    QTest::newRow("drawing on") << "d"
                                << "d";
    QTest::newRow("drawing on and off") << "dd"
                                        << "";
    QTest::newRow("whiteboard alone") << "w"
                                      << "w";
    QTest::newRow("whiteboard and drawing are independent") << "dwd"
                                                            << "w";
    QTest::newRow("spotlight combines with drawing") << "ds"
                                                     << "ds";
    QTest::newRow("clicks and ring are orthogonal") << "krd"
                                                    << "dkr";
    QTest::newRow("pinning with nothing interactive is refused") << "p"
                                                                 << "";
    QTest::newRow("pinning with the spotlight alone is refused") << "sp"
                                                                 << "s";
    QTest::newRow("pinning ends drawing") << "dp"
                                          << "p";
    QTest::newRow("pinning ends drawing and whiteboard") << "dwp"
                                                         << "p";
    QTest::newRow("unpinning resumes drawing, not the whiteboard") << "wpp"
                                                                   << "d";
    QTest::newRow("drawing while pinned ends the pin") << "dpd"
                                                       << "d";
    QTest::newRow("the whiteboard may come on over a pin") << "dpw"
                                                           << "wp";
    QTest::newRow("Esc ends the four modes and no others") << "dwskre"
                                                           << "kr";
    QTest::newRow("Esc ends a pin") << "dpse"
                                    << "";
    QTest::newRow("Esc with nothing on") << "e"
                                         << "";
}

void ModesTest::operationsChangeTheFlags()
{
    QFETCH(QString, operations);
    QFETCH(QString, expected);
    Controller controller;
    controller.perform(operations);
    QCOMPARE(flags(controller.app()), expected);
    QCOMPARE(controller.app().interactionOn(), expected.contains(u'd') || expected.contains(u'w'));
}

void ModesTest::allModesStartOff()
{
    Controller controller;
    QCOMPARE(flags(controller.app()), QString());
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
    QCOMPARE(flags(controller.app()), QStringLiteral("d"));
}

void ModesTest::pinningOnTheWhiteboardEndsBothAndKeepsTheShapes()
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

void ModesTest::drawingsStayWhileEitherDrawingOrWhiteboardIsOn()
{
    Controller controller;
    controller.perform(QStringLiteral("dw"));
    controller.draw(controller.view());
    controller.app().toggleDraw();
    QCOMPARE(controller.view().shapes().size(), 1U);
    controller.app().toggleBoard();
    QVERIFY(controller.view().shapes().empty());
}

void ModesTest::pinningNothingStillRefreshes()
{
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.app().togglePin();
    QVERIFY(!controller.desktop.takeLog().isEmpty());
    QCOMPARE(flags(controller.app()), QString());
}

void ModesTest::theFirstPenIsOrangeAndFiveWide()
{
    Controller controller;
    QCOMPARE(controller.app().tool(), Tool(Tool::pen));
    QVERIFY(controller.app().color() == kOrange);
    QCOMPARE(controller.app().lineWidth(), 5.0);
}

REGISTER_TEST(ModesTest)
#include "modes_test.moc"
