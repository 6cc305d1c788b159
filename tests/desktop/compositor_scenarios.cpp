#include "paused_process.h"
#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class CompositorScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutACompositorTheDesktopShowsThrough();
    void withoutACompositorTheWhiteboardIsWhite();
    void withoutACompositorADragCanBeFinishedAfterPinning();
    void drawingsSurviveTheCompositor();
    void anUnfinishedStrokeSurvivesTheCompositor();
    void aCanvasShownWhileTheCompositorIsBusyIsVisible();
};

void CompositorScenarios::withoutACompositorTheDesktopShowsThrough()
{
    Presentation show({.compositor = Compositor::None});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 320}, {600, 300}}));
    EVENTUALLY(show.pixel({500, 320}) == kInk);
    QVERIFY(show.isUntouched({400, 340, 300, 300}));
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({800, 700}));
    EVENTUALLY(show.pixel({800, 700}) == kInk);
    QVERIFY(show.beneath.presses().isEmpty());
    show.hotKey(Key::D);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
}

void CompositorScenarios::withoutACompositorTheWhiteboardIsWhite()
{
    Presentation show({.compositor = Compositor::None});
    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, {0, 0, 1920, 1080}));
    show.hotKey(Key::D);
    show.hotKey(Key::W);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
}

void CompositorScenarios::withoutACompositorADragCanBeFinishedAfterPinning()
{
    Presentation show({.compositor = Compositor::None});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    QVERIFY(show.session.pointer().moveTo({400, 300}));
    QVERIFY(show.session.pointer().press());
    QVERIFY(show.session.pointer().moveTo({450, 300}));
    show.hotKey(Key::P);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().moveTo({500, 300}));
    QVERIFY(show.session.pointer().release());
    EVENTUALLY(show.pixel({490, 300}) == kInk);
    QVERIFY(show.beneath.releases().isEmpty());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().moveTo({700, 600}));
    QVERIFY(show.session.pointer().clickAt({800, 600}));
    EVENTUALLY(show.pixel({800, 600}) == kInk);
    QVERIFY(show.isUntouched({600, 350, 150, 300}));
}

void CompositorScenarios::drawingsSurviveTheCompositor()
{
    Presentation show({.compositor = Compositor::Picom});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 320}, {600, 300}}));
    EVENTUALLY(show.pixel({500, 320}) == kInk);
    show.session.stopCompositor();
    EVENTUALLY(show.pixel({500, 320}) == kInk && show.isUntouched({400, 340, 300, 300}));
    QVERIFY(show.session.pointer().drag({{400, 500}, {500, 500}}));
    EVENTUALLY(show.pixel({450, 500}) == kInk);
    show.session.startCompositor();
    // By now the program knows about the compositor and draws accordingly.
    QVERIFY(show.session.pointer().drag({{400, 600}, {500, 600}}));
    EVENTUALLY(show.pixel({500, 320}) == kInk && show.pixel({450, 500}) == kInk &&
               show.pixel({450, 600}) == kInk && show.isUntouched({400, 340, 300, 140}));
}

void CompositorScenarios::anUnfinishedStrokeSurvivesTheCompositor()
{
    Presentation show({.compositor = Compositor::Picom});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    Pointer &pointer = show.session.pointer();
    QVERIFY(pointer.moveTo({400, 300}));
    QVERIFY(pointer.press());
    QVERIFY(pointer.moveTo({500, 300}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);

    show.session.stopCompositor();
    EVENTUALLY(show.pixel({450, 300}) == kInk && show.isUntouched({400, 340, 300, 300}));
    QVERIFY(pointer.moveTo({600, 300}));
    EVENTUALLY(show.pixel({550, 300}) == kInk);

    show.session.startCompositor();
    EVENTUALLY(show.isFilled(kInk, {400, 300, 200, 1}) && show.isUntouched({400, 340, 300, 300}));
    QVERIFY(pointer.moveTo({700, 300}));
    QVERIFY(pointer.release());
    EVENTUALLY(show.isFilled(kInk, {400, 300, 300, 1}));
    // It is a single stroke, and the window beneath has received nothing.
    show.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(show.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(show.beneath.presses().isEmpty() && show.beneath.releases().isEmpty());
}

void CompositorScenarios::aCanvasShownWhileTheCompositorIsBusyIsVisible()
{
    constexpr int kEvenCount = 20;
    constexpr qint64 kMaxPause = 400; // ms; after 500 ms the program repaints once more
    constexpr QRect kCorner(0, 0, 200, 200);
    Presentation show({.compositor = Compositor::Picom});
    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, VirtualDisplay::kFullHd));
    const xcb_window_t whiteboard = show.overlays().constFirst().id;
    const auto showAgainWhilePaused = [&] {
        // While it works, the compositor may have grabbed the X server.
        if (!sleepsFor(show.session.compositorProcessId(), 100ms))
            return false;
        QElapsedTimer pauseTimer;
        pauseTimer.start();
        // The compositor finds all of the following at once.
        const PausedProcess paused(show.session.compositorProcessId());
        const bool hadToolbar = show.toolbar().has_value();
        for (int i = 0; i < kEvenCount; ++i)
            show.hotKey(Key::W);
        // The program handles its keys in order: when this one has had its effect, so have the others.
        show.hotKey(Key::T);
        return eventually([&] { return show.toolbar().has_value() != hadToolbar; }) && eventually([&] {
                   return Screenshot::of(show.session.client(), whiteboard).isFilled(Qt::white, kCorner);
               }) &&
               pauseTimer.elapsed() < kMaxPause;
    };
    EVENTUALLY_WITHIN(20s, showAgainWhilePaused());
    EVENTUALLY(show.isFilled(Qt::white, VirtualDisplay::kFullHd));
}

REGISTER_GUILESS_TEST(CompositorScenarios)
#include "compositor_scenarios.moc"
