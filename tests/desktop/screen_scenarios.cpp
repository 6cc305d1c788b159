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
    void aScreenUnpluggedWhileDrawingTakesTheDrawingsNotTheMode();
    void aScreenPluggedInWhileDrawingCanBeDrawnOn();
    void mirroredScreensShareAnOverlay();
    void mixedScalesKeepTheInkUnderThePointer();
    void theSpotlightIsOnTheScreenOfThePointerOnly();
    void allScreensOffAndOnAgain();

private:
    static QList<QRect> shownRects(Presentation &on)
    {
        QList<QRect> rects;
        for (const WindowInfo &window : on.overlays())
            rects.append(window.geometry);
        std::sort(rects.begin(), rects.end(), [](const QRect &a, const QRect &b) { return a.x() < b.x(); });
        return rects;
    }
};

void ScreenScenarios::eachScreenHasItsOverlay()
{
    Presentation on({.screens = {kLeft, kRight}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(shownRects(on), QList<QRect>({kLeft, kRight}));
    on.hotKey(Key::D);
    EVENTUALLY(on.overlays().isEmpty());
    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, kLeft));
    EVENTUALLY(on.isFilled(Qt::white, kRight));
}

void ScreenScenarios::theSecondScreenCanBeDrawnOn()
{
    Presentation on({.screens = {kLeft, kRight}});
    QVERIFY(on.session.pointer().moveTo({2000, 500}));
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    const auto focused = on.session.client().window(on.session.client().inputFocus());
    QVERIFY(focused);
    QCOMPARE(focused->geometry, kRight);
    QVERIFY(on.session.pointer().drag({{2000, 500}, {2100, 500}}));
    EVENTUALLY(on.pixel({2050, 500}) == kInk);
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    QCOMPARE(on.pixel({2050, 500}), kInk);
}

void ScreenScenarios::aScreenUnpluggedWhileDrawingTakesTheDrawingsNotTheMode()
{
    Presentation on({.screens = {kLeft, kRight}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    QVERIFY(on.session.pointer().moveTo({2000, 500}));
    QVERIFY(on.session.pointer().press());
    QVERIFY(on.session.pointer().moveTo({2050, 500}));
    EVENTUALLY(on.pixel({2030, 500}) == kInk);

    on.session.display().unplug(1);
    EVENTUALLY(shownRects(on) == QList<QRect>{kLeft});
    QVERIFY(on.session.pointer().release());
    EVENTUALLY(on.pixel({350, 500}) == on.beneathColor());
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{300, 600}, {400, 600}}));
    EVENTUALLY(on.pixel({350, 600}) == kInk);
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.program.isRunning());
}

void ScreenScenarios::aScreenPluggedInWhileDrawingCanBeDrawnOn()
{
    Presentation on({.screens = {kLeft, kRight}});
    on.session.display().unplug(1);
    on.hotKey(Key::D);
    // In this order: the canvases are shown one by one, and the keyboard comes last.
    EVENTUALLY(on.hasKeyboard() && shownRects(on) == QList<QRect>{kLeft});
    on.session.display().plug(1, kRight);
    EVENTUALLY(shownRects(on) == QList<QRect>({kLeft, kRight}));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{2000, 500}, {2100, 500}}));
    EVENTUALLY(on.pixel({2050, 500}) == kInk);
}

void ScreenScenarios::mirroredScreensShareAnOverlay()
{
    Presentation on({.screens = {kLeft, kLeft}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(shownRects(on), QList<QRect>{kLeft});

    // One of the two goes: the picture is the same, and so is what was drawn.
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    on.session.display().unplug(0);
    QVERIFY(on.session.pointer().drag({{300, 600}, {400, 600}}));
    EVENTUALLY(on.pixel({350, 600}) == kInk);
    QCOMPARE(on.pixel({350, 500}), kInk);
}

void ScreenScenarios::mixedScalesKeepTheInkUnderThePointer()
{
    const QRect dense(1280, 0, 2560, 1440);
    Presentation on({.screens = {kLeft, dense}}, {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=1;DUMMY1=2"}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(shownRects(on), QList<QRect>({kLeft, dense}));
    QVERIFY(on.session.pointer().drag({{2001, 501}, {2101, 501}}));
    EVENTUALLY(on.pixel({2051, 501}) == kInk);
    // Ten pixels wide at scale 2: nine, and half of one on either side. Five at scale 1.
    QCOMPARE(on.session.screenshot().bounds(kInk, {2040, 400, 10, 200}), QRect(2040, 497, 10, 9));
    QVERIFY(on.session.pointer().drag({{301, 501}, {401, 501}}));
    EVENTUALLY(on.pixel({351, 501}) == kInk);
    QCOMPARE(on.session.screenshot().bounds(kInk, {340, 400, 10, 200}), QRect(340, 499, 10, 5));
}

void ScreenScenarios::theSpotlightIsOnTheScreenOfThePointerOnly()
{
    Presentation on({.screens = {kLeft, kRight}});
    QVERIFY(on.session.pointer().moveTo({2000, 500}));
    on.hotKey(Key::S);
    EVENTUALLY(on.isDimmed({10, 10}));
    for (const QPoint place : {QPoint(640, 512), QPoint(10, 1000), QPoint(1200, 10)})
        QVERIFY(on.isDimmed(place));
    QVERIFY(on.session.pointer().moveTo({300, 300}));
    EVENTUALLY(on.pixel({300, 300}) == on.beneathColor());
}

void ScreenScenarios::allScreensOffAndOnAgain()
{
    Presentation on({.screens = {kLeft}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.display().unplug(0);
    EVENTUALLY(on.overlays().isEmpty());
    on.session.display().plug(0, kRight.translated(-kRight.topLeft()));
    EVENTUALLY(shownRects(on) == QList<QRect>{kRight.translated(-kRight.topLeft())});
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
}

REGISTER_GUILESS_TEST(ScreenScenarios)
#include "screen_scenarios.moc"
