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
    void withoutACompositorPinningInADragLetsItBeFinished();
    void drawingsOutliveTheCompositor();
    void aStrokeUnderWayOutlivesTheCompositor();
    void whatComesBackWhileTheCompositorIsBusyShows();
};

void CompositorScenarios::withoutACompositorTheDesktopShowsThrough()
{
    Presentation on({.compositor = Compositor::None});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 320}, {600, 300}}));
    EVENTUALLY(on.pixel({500, 320}) == kInk);
    QVERIFY(on.isUntouched({400, 340, 300, 300}));
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({800, 700}));
    EVENTUALLY(on.pixel({800, 700}) == kInk);
    QVERIFY(on.beneath.presses().isEmpty());
    on.hotKey(Key::D);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
}

void CompositorScenarios::withoutACompositorTheWhiteboardIsWhite()
{
    Presentation on({.compositor = Compositor::None});
    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, {0, 0, 1920, 1080}));
    on.hotKey(Key::D);
    on.hotKey(Key::W);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
}

void CompositorScenarios::withoutACompositorPinningInADragLetsItBeFinished()
{
    Presentation on({.compositor = Compositor::None});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    QVERIFY(on.session.pointer().moveTo({400, 300}));
    QVERIFY(on.session.pointer().press());
    QVERIFY(on.session.pointer().moveTo({450, 300}));
    on.hotKey(Key::P);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().moveTo({500, 300}));
    QVERIFY(on.session.pointer().release());
    EVENTUALLY(on.pixel({490, 300}) == kInk);
    QVERIFY(on.beneath.releases().isEmpty());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().moveTo({700, 600}));
    QVERIFY(on.session.pointer().clickAt({800, 600}));
    EVENTUALLY(on.pixel({800, 600}) == kInk);
    QVERIFY(on.isUntouched({600, 350, 150, 300}));
}

void CompositorScenarios::drawingsOutliveTheCompositor()
{
    Presentation on({.compositor = Compositor::Picom});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 320}, {600, 300}}));
    EVENTUALLY(on.pixel({500, 320}) == kInk);
    on.session.stopCompositor();
    EVENTUALLY(on.pixel({500, 320}) == kInk && on.isUntouched({400, 340, 300, 300}));
    QVERIFY(on.session.pointer().drag({{400, 500}, {500, 500}}));
    EVENTUALLY(on.pixel({450, 500}) == kInk);
    on.session.startCompositor();
    // What is drawn now the program draws as one that knows of the compositor.
    QVERIFY(on.session.pointer().drag({{400, 600}, {500, 600}}));
    EVENTUALLY(on.pixel({500, 320}) == kInk && on.pixel({450, 500}) == kInk && on.pixel({450, 600}) == kInk &&
               on.isUntouched({400, 340, 300, 140}));
}

void CompositorScenarios::aStrokeUnderWayOutlivesTheCompositor()
{
    Presentation on({.compositor = Compositor::Picom});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    Pointer &pointer = on.session.pointer();
    QVERIFY(pointer.moveTo({400, 300}));
    QVERIFY(pointer.press());
    QVERIFY(pointer.moveTo({500, 300}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);

    on.session.stopCompositor();
    EVENTUALLY(on.pixel({450, 300}) == kInk && on.isUntouched({400, 340, 300, 300}));
    QVERIFY(pointer.moveTo({600, 300}));
    EVENTUALLY(on.pixel({550, 300}) == kInk);

    on.session.startCompositor();
    EVENTUALLY(on.isFilled(kInk, {400, 300, 200, 1}) && on.isUntouched({400, 340, 300, 300}));
    QVERIFY(pointer.moveTo({700, 300}));
    QVERIFY(pointer.release());
    EVENTUALLY(on.isFilled(kInk, {400, 300, 300, 1}));
    // It is one stroke, and the desktop has seen nothing of it.
    on.session.keyboard().chord({Key::Ctrl}, Key::Z);
    EVENTUALLY(on.isUntouched({0, 0, 1920, 1080}));
    QVERIFY(on.beneath.presses().isEmpty() && on.beneath.releases().isEmpty());
}

void CompositorScenarios::whatComesBackWhileTheCompositorIsBusyShows()
{
    constexpr int kEvenCount = 20;
    constexpr qint64 kBusyFor = 400; // ms; the program is not to think of one that has no time for longer
    constexpr QRect kCorner(0, 0, 200, 200);
    Presentation on({.compositor = Compositor::Picom});
    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, VirtualDisplay::kFullHd));
    const xcb_window_t whiteboard = on.overlays().constFirst().id;
    const auto comesBackUnseen = [&] {
        // Amid its work it may have the X server to itself.
        if (!sleepsFor(on.session.compositorProcessId(), 100ms))
            return false;
        QElapsedTimer busy;
        busy.start();
        // It finds all of this at once.
        const PausedProcess absence(on.session.compositorProcessId());
        const bool hadToolbar = on.toolbar().has_value();
        for (int i = 0; i < kEvenCount; ++i)
            on.hotKey(Key::W);
        // The program takes its keys in order: once this one has been seen, all of them have.
        on.hotKey(Key::T);
        return eventually([&] { return on.toolbar().has_value() != hadToolbar; }) && eventually([&] {
                   return Screenshot::of(on.session.client(), whiteboard).isFilled(Qt::white, kCorner);
               }) &&
               busy.elapsed() < kBusyFor;
    };
    EVENTUALLY_WITHIN(20s, comesBackUnseen());
    EVENTUALLY(on.isFilled(Qt::white, VirtualDisplay::kFullHd));
}

REGISTER_GUILESS_TEST(CompositorScenarios)
#include "compositor_scenarios.moc"
