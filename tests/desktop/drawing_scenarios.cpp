#include "presentation.h"
#include "registered_test.h"

#include <cmath>

using namespace zeigewerk::rig;

class DrawingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hotKeyThenDragLeavesInk();
    void theSecondHotKeyClearsTheScreen();
    void shiftDrawsAStraightLine();
    void nothingDrawnReachesTheWindowBeneath();
    void aClickLeavesADot();
    void inkLandsUnderThePointerAtEveryScale_data();
    void inkLandsUnderThePointerAtEveryScale();
    void theWhiteboardIsWhiteAndCanBeDrawnOn();
    void aPinnedDrawingStaysAndLetsClicksThrough();
    void aPinnedDrawingCanBeDrawnOnAgain();
    void aHiddenOverlayHoldsNoFrameBuffer();
};

void DrawingScenarios::hotKeyThenDragLeavesInk()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {450, 310}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 310}) == kInk);
    EVENTUALLY(on.pixel({498, 300}) == kInk);
    QCOMPARE(on.pixel({450, 330}), on.beneathColor());
}

void DrawingScenarios::theSecondHotKeyClearsTheScreen()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    on.hotKey(Key::D);
    EVENTUALLY(on.isUntouched({300, 200, 300, 200}));
    QVERIFY(on.overlays().isEmpty());

    // What was drawn is gone, not only hidden.
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 700}, {500, 700}}));
    EVENTUALLY(on.pixel({450, 700}) == kInk);
    QVERIFY(on.isUntouched({300, 200, 300, 200}));
}

void DrawingScenarios::shiftDrawsAStraightLine()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().press(Key::Shift);
    QVERIFY(on.session.pointer().drag({{400, 300}, {460, 380}, {500, 290}, {700, 320}}));
    on.session.keyboard().release(Key::Shift);
    const QRect around(300, 200, 500, 300);
    EVENTUALLY(on.pixel({690, 300}) == kInk && on.isUntouched({300, 310, 500, 190}));
    // Level with the press, as long as the drag, five wide.
    const QRect ink = on.session.screenshot().bounds(kInk, around);
    QCOMPARE(ink.top(), 298);
    QCOMPARE(ink.bottom(), 302);
    QVERIFY(std::abs(ink.right() - (400 + std::hypot(300, 20))) <= 3);
}

void DrawingScenarios::nothingDrawnReachesTheWindowBeneath()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QVERIFY(on.beneath.presses().isEmpty());
    QVERIFY(on.beneath.pressedKeys().isEmpty());
}

void DrawingScenarios::aClickLeavesADot()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().clickAt({640, 480}));
    EVENTUALLY(on.pixel({640, 480}) == kInk);
    QVERIFY(on.session.screenshot().bounds(kInk, {600, 440, 80, 80}).width() <= 6);
    // Other buttons draw nothing.
    QVERIFY(on.session.pointer().clickAt({840, 480}, Pointer::Right));
    QVERIFY(on.session.pointer().clickAt({640, 580}));
    EVENTUALLY(on.pixel({640, 580}) == kInk);
    QVERIFY(on.isUntouched({800, 440, 80, 80}));
}

void DrawingScenarios::inkLandsUnderThePointerAtEveryScale_data()
{
    QTest::addColumn<QString>("scale");
    for (const char *scale : {"1", "1.25", "1.5", "2"})
        QTest::newRow(scale) << QString(scale);
}

void DrawingScenarios::inkLandsUnderThePointerAtEveryScale()
{
    QFETCH(QString, scale);
    Presentation on({}, {{"QT_SCALE_FACTOR", scale}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    const QList<QPoint> places = {{0, 0}, {1919, 0}, {0, 1079}, {1919, 1079}, {701, 333}, {960, 541}};
    for (const QPoint place : places) {
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.pixel(place) == kInk);
        const QRect around(place - QPoint(30, 30), QSize(61, 61));
        if (!QRect(0, 0, 1920, 1080).contains(around))
            continue;
        // The dot has the stroke's width, of which the outermost pixels may be covered in part; those have
        // the ink's colour only where nothing mixes them.
        const int partly = on.session.isComposited() ? 0 : 2;
        const QRect ink = on.session.screenshot().bounds(kInk, around, 2);
        const double diameter = 5 * scale.toDouble();
        QVERIFY(ink.width() <= diameter + partly && ink.width() >= diameter - 3);
        QVERIFY(ink.height() <= diameter + partly && ink.height() >= diameter - 3);
        const QPointF middle = QRectF(ink).center() - QPointF(0.5, 0.5);
        QVERIFY(std::abs(middle.x() - place.x()) <= 1 && std::abs(middle.y() - place.y()) <= 1);
    }
}

void DrawingScenarios::theWhiteboardIsWhiteAndCanBeDrawnOn()
{
    Presentation on;
    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, {0, 0, 1920, 1080}));
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    on.hotKey(Key::W);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
}

void DrawingScenarios::aPinnedDrawingStaysAndLetsClicksThrough()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    on.beneath.forget();

    on.hotKey(Key::P);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().clickAt({450, 300}));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>({{450, 300}}));
    EVENTUALLY(on.beneath.releases() == QList<QPoint>({{450, 300}}));
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::A));
    QCOMPARE(on.pixel({450, 300}), kInk);
}

void DrawingScenarios::aPinnedDrawingCanBeDrawnOnAgain()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    on.hotKey(Key::P);
    EVENTUALLY(on.beneath.hasFocus());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 500}, {500, 500}}));
    EVENTUALLY(on.pixel({450, 500}) == kInk);
    QCOMPARE(on.pixel({450, 300}), kInk);
}

void DrawingScenarios::aHiddenOverlayHoldsNoFrameBuffer()
{
    const QRect wide(0, 0, 3840, 2160);
    Presentation on({.screens = {wide}});
    const qint64 frameBuffer = qint64(wide.width()) * wide.height() * 4;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.hotKey(Key::D);
    EVENTUALLY(on.overlays().isEmpty());
    const qint64 before = on.program.residentBytes();

    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, wide));
    QVERIFY(on.program.residentBytes() - before > frameBuffer * 9 / 10);
    on.hotKey(Key::W);
    EVENTUALLY(on.overlays().isEmpty());
    EVENTUALLY(on.program.residentBytes() - before < frameBuffer / 10);
}

REGISTER_GUILESS_TEST(DrawingScenarios)
#include "drawing_scenarios.moc"
