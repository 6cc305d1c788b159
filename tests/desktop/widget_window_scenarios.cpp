// The place of a widget's window, and the clicks and keys that it gets.
#include "registered_test.h"
#include "seam_stand_in.h"

using namespace zeigewerk::rig;

namespace {

struct Move
{
    QString command;
    /// The window's rectangle afterwards, without its ornament: native root pixels.
    QRect native;
};

} // namespace

class WidgetWindowScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsPlacedInPoints_data();
    void theWindowIsPlacedInPoints();
    void clicksPassThroughTheOrnament_data();
    void clicksPassThroughTheOrnament();
    void theOrnamentIsClickThroughWithAndWithoutAMask();
    void showingItLeavesTheKeyboardAlone();
    void keysReadAfterTakingTheFocusKeepTheirAccents();
    void theWindowSurvivesLosingItsScreen();
    void theWindowSurvivesLosingOneOfTwoMirroredScreens();
};

void WidgetWindowScenarios::theWindowIsPlacedInPoints_data()
{
    struct Row
    {
        const char *name;
        QString scales;
        QPoint origin;
        QRect native;
    };
    // Points are relative to the lower left corner of the first screen, which is 1024 pixels high. In the row
    // "mixed scales, second screen" the window is 120 points from its screen's left edge and 24 from its top.
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        // name, scales, origin, native
        {"same scale, first screen",    "1;1",   {100, 200},  {100, 524, 150, 300}},
        {"same scale, second screen",   "1;1",   {1400, 300}, {1400, 424, 150, 300}},
        {"mixed scales, first screen",  "1;2",   {100, 200},  {100, 524, 150, 300}},
        {"mixed scales, second screen", "1;2",   {1400, 700}, {1520, 48, 300, 600}},
        {"first screen denser",         "2;1",   {1400, 20},  {1400, 192, 150, 300}},
        {"fractional scale",            "1;1.5", {1400, 700}, {1460, 36, 225, 450}},
    };
    // clang-format on
    QTest::addColumn<QString>("scales");
    QTest::addColumn<QPoint>("origin");
    QTest::addColumn<QRect>("native");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.scales << row.origin << row.native;
}

void WidgetWindowScenarios::theWindowIsPlacedInPoints()
{
    QFETCH(QString, scales);
    QFETCH(QPoint, origin);
    QFETCH(QRect, native);
    DesktopSession session({.screens = {kLeft, kRight}});
    const QString factors = factorsOf(scales);
    const QString frame = QString("%1 %2 150 300").arg(origin.x()).arg(origin.y());
    const QString move = QString("move %1 %2").arg(origin.x()).arg(origin.y());
    {
        // Moved before it is shown.
        SeamStandIn standIn(session, {{"QT_SCREEN_SCALE_FACTORS", factors}});
        QCOMPARE(standIn.tell(move), frame);
        standIn.tell("show");
        EVENTUALLY(standIn.red() == native);
        QCOMPARE(standIn.tell("widget"), frame);
    }
    // Moved while it is shown, back and forth.
    SeamStandIn standIn(session, {{"QT_SCREEN_SCALE_FACTORS", factors}});
    standIn.tell("move 10 20");
    standIn.tell("show");
    EVENTUALLY(!standIn.red().isEmpty());
    const QRect before = standIn.red();
    standIn.tell(move);
    EVENTUALLY(standIn.red() == native);
    QCOMPARE(standIn.tell("widget"), frame);
    standIn.tell("move 10 20");
    EVENTUALLY(standIn.red() == before);
    QCOMPARE(standIn.tell("widget"), QString("10 20 150 300"));
    standIn.tell(move);
    EVENTUALLY(standIn.red() == native);
    QCOMPARE(standIn.tell("widget"), frame);
}

void WidgetWindowScenarios::clicksPassThroughTheOrnament_data()
{
    QTest::addColumn<QString>("scales");
    QTest::addColumn<QList<Move>>("moves");
    QTest::addColumn<int>("scale");

    const Move coarse = {"move 200 400", {200, 324, 150, 300}};
    const Move dense = {"move 1400 650", {1520, 148, 300, 600}};
    QTest::newRow("scale 1") << "1;1" << QList<Move>{coarse} << 1;
    QTest::newRow("scale 2") << "2;2" << QList<Move>{{"move 200 100", {400, 224, 300, 600}}} << 2;
    QTest::newRow("moved to a denser screen") << "1;2" << QList<Move>{coarse, dense} << 2;
    QTest::newRow("moved away from a denser screen") << "1;2" << QList<Move>{coarse, dense, coarse} << 1;
}

void WidgetWindowScenarios::clicksPassThroughTheOrnament()
{
    QFETCH(QString, scales);
    QFETCH(QList<Move>, moves);
    QFETCH(int, scale);
    DesktopSession session({.screens = {kLeft, kRight}});
    WindowBeneath beneath(session, {0, 0, 2880, 1024}, Qt::blue);
    SeamStandIn standIn(session, {{"QT_SCREEN_SCALE_FACTORS", factorsOf(scales)}});
    standIn.tell("show");
    for (const Move &move : moves) {
        standIn.tell(move.command);
        EVENTUALLY(standIn.red() == move.native);
    }
    // At its first size, and after it has grown.
    for (const QString &size : {QString("150 300"), QString("190 330")}) {
        standIn.tell("resize " + size);
        const QSize points(size.section(' ', 0, 0).toInt(), size.section(' ', 1).toInt());
        const QRect widget(moves.constLast().native.topLeft(), points * scale);
        EVENTUALLY(standIn.red() == widget);
        for (const QPoint outside :
             {widget.topLeft() - QPoint(2, 0), widget.topLeft() - QPoint(0, 2),
              widget.bottomRight() + QPoint(2, 0), widget.bottomRight() + QPoint(0, 2)}) {
            beneath.forget();
            QVERIFY(session.pointer().clickAt(outside));
            EVENTUALLY(beneath.presses() == QList<QPoint>{outside});
        }
        beneath.forget();
        for (const QPoint inside : {widget.topLeft() + QPoint(1, 1), widget.bottomRight() - QPoint(1, 1)})
            QVERIFY(session.pointer().clickAt(inside));
        // Clicks arrive in order: one that passed through would have come before this one.
        const QPoint after = widget.bottomRight() + QPoint(5, 5);
        QVERIFY(session.pointer().clickAt(after));
        EVENTUALLY(!beneath.presses().isEmpty());
        QCOMPARE(beneath.presses(), QList<QPoint>{after});
    }
}

void WidgetWindowScenarios::theOrnamentIsClickThroughWithAndWithoutAMask()
{
    DesktopSession session({.compositor = Compositor::None});
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    SeamStandIn standIn(session);
    standIn.tell("move 200 500");
    standIn.tell("show");
    const QRect native(200, 280, 150, 300);
    EVENTUALLY(standIn.red() == native);
    const QPoint outside = native.topLeft() - QPoint(2, 0);
    // Without a mask the ornament is black; this is why there are masks.
    const QList<std::pair<QString, QColor>> steps = {
        {"unmask", Qt::black}, {"mask", Qt::blue}, {"unmask", Qt::black}};
    for (const auto &step : steps) {
        standIn.tell(step.first);
        EVENTUALLY(session.screenshot().pixel(outside) == step.second && standIn.red() == native);
        beneath.forget();
        QVERIFY(session.pointer().clickAt(native.center()));
        QVERIFY(session.pointer().clickAt(outside));
        EVENTUALLY(!beneath.presses().isEmpty());
        QCOMPARE(beneath.presses(), QList<QPoint>{outside});
    }
}

void WidgetWindowScenarios::showingItLeavesTheKeyboardAlone()
{
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    QVERIFY(beneath.takeFocus());
    beneath.forget();
    SeamStandIn standIn(session);
    for (int i = 0; i < 3; ++i) {
        standIn.tell("show");
        EVENTUALLY(!standIn.red().isEmpty());
        QVERIFY(session.pointer().clickAt(standIn.red().center()));
        standIn.tell("hide");
        EVENTUALLY(standIn.red().isEmpty());
    }
    session.keyboard().tap(Key::A);
    EVENTUALLY(beneath.pressedKeys() == QList<Key>{Key::A});
    const QList<InputEvent> events = beneath.events();
    for (const InputEvent &event : events)
        QVERIFY(event.kind != InputEvent::Kind::FocusOut);
}

void WidgetWindowScenarios::keysReadAfterTakingTheFocusKeepTheirAccents()
{
    DesktopSession session({.keyboardMap = "de"});
    SeamStandIn standIn(session);
    QCOMPARE(standIn.tell("write"), QString("busy"));
    session.keyboard().tap(Key::Equal);
    session.keyboard().tap(Key::E);
    standIn.tell("go on");
    EVENTUALLY(!standIn.tell("written").isEmpty());
    QCOMPARE(standIn.tell("written"), QString("%C3%A9"));
}

void WidgetWindowScenarios::theWindowSurvivesLosingItsScreen()
{
    DesktopSession session({.screens = {kLeft, kRight}});
    SeamStandIn standIn(session);
    standIn.tell("move 1400 300");
    standIn.tell("show");
    EVENTUALLY(standIn.red() == QRect(1400, 424, 150, 300));
    session.display().unplug(1);
    EVENTUALLY(!standIn.tell("desktop screens").contains(';'));
    standIn.tell("move 100 200");
    EVENTUALLY(standIn.red() == QRect(100, 524, 150, 300));
    // It is still above other windows, and clicks around it still pass through.
    WindowBeneath beneath(session, kLeft, Qt::blue);
    EVENTUALLY(session.screenshot().pixel({2, 2}) == QColor(Qt::blue) &&
               standIn.red() == QRect(100, 524, 150, 300));
    QVERIFY(session.pointer().clickAt({98, 600}));
    EVENTUALLY(beneath.presses() == QList<QPoint>{QPoint(98, 600)});

    // All screens off, and then another one on.
    session.display().unplug(0);
    EVENTUALLY(standIn.tell("desktop screens").isEmpty());
    QCOMPARE(standIn.tell("desktop main"), QString("none"));
    session.display().plug(0, kLeft);
    EVENTUALLY(standIn.tell("desktop main") == "DUMMY0");
    standIn.tell("move 300 200");
    EVENTUALLY(standIn.red() == QRect(300, 524, 150, 300));
    const QPoint beside(298, 600);
    beneath.forget();
    QVERIFY(session.pointer().clickAt(beside));
    EVENTUALLY(beneath.presses() == QList<QPoint>{beside});
}

void WidgetWindowScenarios::theWindowSurvivesLosingOneOfTwoMirroredScreens()
{
    DesktopSession session({.screens = {kLeft, kLeft}});
    SeamStandIn standIn(session);
    standIn.tell("move 100 200");
    standIn.tell("show");
    const QRect native(100, 524, 150, 300);
    EVENTUALLY(standIn.red() == native);
    session.display().unplug(0);
    // It is above windows that open later, and at its place.
    const WindowBeneath beneath(session, kLeft, Qt::blue);
    EVENTUALLY(session.screenshot().pixel({2, 2}) == QColor(Qt::blue) && standIn.red() == native);
    QCOMPARE(standIn.tell("widget"), QString("100 200 150 300"));
}

REGISTER_GUILESS_TEST(WidgetWindowScenarios)
#include "widget_window_scenarios.moc"
