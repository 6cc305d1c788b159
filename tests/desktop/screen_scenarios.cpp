#include "presentation.h"
#include "registered_test.h"
#include "two_screens.h"

using namespace zeigewerk::rig;

class ScreenScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachScreenHasItsOverlay();
    void theSecondScreenCanBeDrawnOn();
    void unpluggingAScreenLosesTheDrawingsButNotTheMode();
    void aScreenPluggedInWhileDrawingCanBeDrawnOn();
    void mirroredScreensShareAnOverlay();
    void mixedScalesKeepTheInkUnderThePointer();
    void theSpotlightIsOnlyOnThePointersScreen();
    void drawingModeSurvivesAllScreensGoingOff();

private:
    static QList<QRect> shownRects(Presentation &show)
    {
        QList<QRect> rects;
        for (const WindowInfo &window : show.overlays())
            rects.append(window.geometry);
        std::sort(rects.begin(), rects.end(), [](const QRect &a, const QRect &b) { return a.x() < b.x(); });
        return rects;
    }
};

void ScreenScenarios::eachScreenHasItsOverlay()
{
    Presentation show({.screens = {kLeft, kRight}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(shownRects(show), QList<QRect>({kLeft, kRight}));
    show.hotKey(Key::D);
    EVENTUALLY(show.overlays().isEmpty());
    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, kLeft));
    EVENTUALLY(show.isFilled(Qt::white, kRight));
}

void ScreenScenarios::theSecondScreenCanBeDrawnOn()
{
    Presentation show({.screens = {kLeft, kRight}});
    QVERIFY(show.session.pointer().moveTo({2000, 500}));
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    const auto focused = show.session.client().window(show.session.client().inputFocus());
    QVERIFY(focused);
    QCOMPARE(focused->geometry, kRight);
    QVERIFY(show.session.pointer().drag({{2000, 500}, {2100, 500}}));
    EVENTUALLY(show.pixel({2050, 500}) == kInk);
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    QCOMPARE(show.pixel({2050, 500}), kInk);
}

void ScreenScenarios::unpluggingAScreenLosesTheDrawingsButNotTheMode()
{
    Presentation show({.screens = {kLeft, kRight}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    QVERIFY(show.session.pointer().moveTo({2000, 500}));
    QVERIFY(show.session.pointer().press());
    QVERIFY(show.session.pointer().moveTo({2050, 500}));
    EVENTUALLY(show.pixel({2030, 500}) == kInk);

    show.session.display().unplug(1);
    EVENTUALLY(shownRects(show) == QList<QRect>{kLeft});
    QVERIFY(show.session.pointer().release());
    EVENTUALLY(show.pixel({350, 500}) == show.beneathColor());
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{300, 600}, {400, 600}}));
    EVENTUALLY(show.pixel({350, 600}) == kInk);
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.program.isRunning());
}

void ScreenScenarios::aScreenPluggedInWhileDrawingCanBeDrawnOn()
{
    Presentation show({.screens = {kLeft, kRight}});
    show.session.display().unplug(1);
    show.hotKey(Key::D);
    // In this order: the canvases are shown one by one, and the keyboard comes last.
    EVENTUALLY(show.hasKeyboard() && shownRects(show) == QList<QRect>{kLeft});
    show.session.display().plug(1, kRight);
    EVENTUALLY(shownRects(show) == QList<QRect>({kLeft, kRight}));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{2000, 500}, {2100, 500}}));
    EVENTUALLY(show.pixel({2050, 500}) == kInk);
}

void ScreenScenarios::mirroredScreensShareAnOverlay()
{
    Presentation show({.screens = {kLeft, kLeft}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(shownRects(show), QList<QRect>{kLeft});

    // Unplugging one of the two changes neither the image nor the drawing.
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    show.session.display().unplug(0);
    QVERIFY(show.session.pointer().drag({{300, 600}, {400, 600}}));
    EVENTUALLY(show.pixel({350, 600}) == kInk);
    QCOMPARE(show.pixel({350, 500}), kInk);
}

void ScreenScenarios::mixedScalesKeepTheInkUnderThePointer()
{
    const QRect dense(1280, 0, 2560, 1440);
    Presentation show({.screens = {kLeft, dense}}, {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=1;DUMMY1=2"}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(shownRects(show), QList<QRect>({kLeft, dense}));
    QVERIFY(show.session.pointer().drag({{2001, 501}, {2101, 501}}));
    EVENTUALLY(show.pixel({2051, 501}) == kInk);
    // Ten pixels wide at scale 2: nine full ones, and half a pixel on either side. Five at scale 1.
    QCOMPARE(show.session.screenshot().bounds(kInk, {2040, 400, 10, 200}), QRect(2040, 497, 10, 9));
    QVERIFY(show.session.pointer().drag({{301, 501}, {401, 501}}));
    EVENTUALLY(show.pixel({351, 501}) == kInk);
    QCOMPARE(show.session.screenshot().bounds(kInk, {340, 400, 10, 200}), QRect(340, 499, 10, 5));
}

void ScreenScenarios::theSpotlightIsOnlyOnThePointersScreen()
{
    Presentation show({.screens = {kLeft, kRight}});
    QVERIFY(show.session.pointer().moveTo({2000, 500}));
    show.hotKey(Key::S);
    EVENTUALLY(show.isDimmed({10, 10}));
    for (const QPoint place : {QPoint(640, 512), QPoint(10, 1000), QPoint(1200, 10)})
        QVERIFY(show.isDimmed(place));
    QVERIFY(show.session.pointer().moveTo({300, 300}));
    EVENTUALLY(show.pixel({300, 300}) == show.beneathColor());
}

void ScreenScenarios::drawingModeSurvivesAllScreensGoingOff()
{
    Presentation show({.screens = {kLeft}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.display().unplug(0);
    EVENTUALLY(show.overlays().isEmpty());
    show.session.display().plug(0, kRight.translated(-kRight.topLeft()));
    EVENTUALLY(shownRects(show) == QList<QRect>{kRight.translated(-kRight.topLeft())});
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
}

REGISTER_GUILESS_TEST(ScreenScenarios)
#include "screen_scenarios.moc"
