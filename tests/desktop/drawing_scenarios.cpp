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
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {450, 310}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 310}) == kInk);
    EVENTUALLY(show.pixel({498, 300}) == kInk);
    QCOMPARE(show.pixel({450, 330}), show.beneathColor());
}

void DrawingScenarios::theSecondHotKeyClearsTheScreen()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    show.hotKey(Key::D);
    EVENTUALLY(show.isUntouched({300, 200, 300, 200}));
    QVERIFY(show.overlays().isEmpty());

    // The drawing is gone, not just hidden.
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 700}, {500, 700}}));
    EVENTUALLY(show.pixel({450, 700}) == kInk);
    QVERIFY(show.isUntouched({300, 200, 300, 200}));
}

void DrawingScenarios::shiftDrawsAStraightLine()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().press(Key::Shift);
    QVERIFY(show.session.pointer().drag({{400, 300}, {460, 380}, {500, 290}, {700, 320}}));
    show.session.keyboard().release(Key::Shift);
    const QRect around(300, 200, 500, 300);
    EVENTUALLY(show.pixel({690, 300}) == kInk && show.isUntouched({300, 310, 500, 190}));
    // At the height of the press, as long as the drag, five pixels wide.
    const QRect ink = show.session.screenshot().bounds(kInk, around);
    QCOMPARE(ink.top(), 298);
    QCOMPARE(ink.bottom(), 302);
    QVERIFY(std::abs(ink.right() - (400 + std::hypot(300, 20))) <= 3);
}

void DrawingScenarios::nothingDrawnReachesTheWindowBeneath()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QVERIFY(show.beneath.presses().isEmpty());
    QVERIFY(show.beneath.pressedKeys().isEmpty());
}

void DrawingScenarios::aClickLeavesADot()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().clickAt({640, 480}));
    EVENTUALLY(show.pixel({640, 480}) == kInk);
    QVERIFY(show.session.screenshot().bounds(kInk, {600, 440, 80, 80}).width() <= 6);
    // Other buttons draw nothing.
    QVERIFY(show.session.pointer().clickAt({840, 480}, Pointer::Right));
    QVERIFY(show.session.pointer().clickAt({640, 580}));
    EVENTUALLY(show.pixel({640, 580}) == kInk);
    QVERIFY(show.isUntouched({800, 440, 80, 80}));
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
    Presentation show({}, {{"QT_SCALE_FACTOR", scale}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    const QList<QPoint> places = {{0, 0}, {1919, 0}, {0, 1079}, {1919, 1079}, {701, 333}, {960, 541}};
    for (const QPoint place : places) {
        QVERIFY(show.session.pointer().clickAt(place));
        EVENTUALLY(show.pixel(place) == kInk);
        const QRect around(place - QPoint(30, 30), QSize(61, 61));
        if (!QRect(0, 0, 1920, 1080).contains(around))
            continue;
        // The dot is as wide as a stroke. Pixels at its edge may be covered partly; without a compositor,
        // which would blend them, they have the full colour of the ink.
        const int partly = show.session.isComposited() ? 0 : 2;
        const QRect ink = show.session.screenshot().bounds(kInk, around, 2);
        const double diameter = 5 * scale.toDouble();
        QVERIFY(ink.width() <= diameter + partly && ink.width() >= diameter - 3);
        QVERIFY(ink.height() <= diameter + partly && ink.height() >= diameter - 3);
        const QPointF middle = QRectF(ink).center() - QPointF(0.5, 0.5);
        QVERIFY(std::abs(middle.x() - place.x()) <= 1 && std::abs(middle.y() - place.y()) <= 1);
    }
}

void DrawingScenarios::theWhiteboardIsWhiteAndCanBeDrawnOn()
{
    Presentation show;
    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, {0, 0, 1920, 1080}));
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    show.hotKey(Key::W);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
}

void DrawingScenarios::aPinnedDrawingStaysAndLetsClicksThrough()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    show.beneath.forget();

    show.hotKey(Key::P);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().clickAt({450, 300}));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>({{450, 300}}));
    EVENTUALLY(show.beneath.releases() == QList<QPoint>({{450, 300}}));
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::A));
    QCOMPARE(show.pixel({450, 300}), kInk);
}

void DrawingScenarios::aPinnedDrawingCanBeDrawnOnAgain()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    show.hotKey(Key::P);
    EVENTUALLY(show.beneath.hasFocus());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 500}, {500, 500}}));
    EVENTUALLY(show.pixel({450, 500}) == kInk);
    QCOMPARE(show.pixel({450, 300}), kInk);
}

void DrawingScenarios::aHiddenOverlayHoldsNoFrameBuffer()
{
    const QRect wide(0, 0, 3840, 2160);
    Presentation show({.screens = {wide}});
    const qint64 frameBuffer = qint64(wide.width()) * wide.height() * 4;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.hotKey(Key::D);
    EVENTUALLY(show.overlays().isEmpty());
    const qint64 before = show.program.residentBytes();

    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, wide));
    QVERIFY(show.program.residentBytes() - before > frameBuffer * 9 / 10);
    show.hotKey(Key::W);
    EVENTUALLY(show.overlays().isEmpty());
    EVENTUALLY(show.program.residentBytes() - before < frameBuffer / 10);
}

REGISTER_GUILESS_TEST(DrawingScenarios)
#include "drawing_scenarios.moc"
