#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// A place on the toolbar's background, beside its buttons; its shadow is as wide on the left as on the
/// right.
QPoint backgroundOf(const WindowInfo &toolbar)
{
    return toolbar.geometry.center() - QPoint(kToolbar.width() / 2 - 3, 0);
}

/// The middle part of the toolbar, without its shadow.
QRect middleOf(const WindowInfo &toolbar)
{
    QRect middle(QPoint(), kToolbar - QSize(40, 80));
    middle.moveCenter(toolbar.geometry.center());
    return middle;
}

} // namespace

class ToolbarStackingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsShownFromTheStart();
    void itStaysAboveAWindowRaisedLater();
    void itStaysAboveAFullScreenWindow();
    void itIsAboveTheOverlays();
    void aClickOnItLeavesTheKeyboardAlone();
    void itsShadowTakesNoClicks();
    void itIsThereAgainWhenTheScreensAre();
    void withoutACompositorItIsThereToo();

private:
    /// Whether the toolbar shows its picture, and not one colour that covers it.
    static bool isSeen(Presentation &on, const QColor &cover)
    {
        const std::optional<WindowInfo> toolbar = on.toolbar();
        if (!toolbar)
            return false;
        const QRect middle = middleOf(*toolbar);
        return on.session.screenshot().count(cover, middle) < middle.width() * middle.height() / 2;
    }
};

void ToolbarStackingScenarios::itIsShownFromTheStart()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    const WindowInfo toolbar = *on.toolbar();
    QVERIFY(toolbar.overrideRedirect);
    QVERIFY(VirtualDisplay::kFullHd.contains(toolbar.geometry));
    QVERIFY(on.session.client().isAbove(toolbar.id, on.beneath.id()));
    QVERIFY(on.beneath.hasFocus());
}

void ToolbarStackingScenarios::itStaysAboveAWindowRaisedLater()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    WindowBeneath later(on.session, VirtualDisplay::kFullHd, Qt::green);
    EVENTUALLY(on.pixel({2, 2}) == QColor(Qt::green));
    EVENTUALLY(isSeen(on, Qt::green));
    const Popup popup(on.session, VirtualDisplay::kFullHd.adjusted(10, 10, -10, -10), Qt::magenta);
    EVENTUALLY(on.pixel({20, 20}) == QColor(Qt::magenta) && isSeen(on, Qt::magenta));
}

void ToolbarStackingScenarios::itStaysAboveAFullScreenWindow()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    // Before there is a full-screen window: some window managers show no other one then.
    WindowBeneath later(on.session, VirtualDisplay::kFullHd, Qt::green);
    QVERIFY(later.opensWithFocus());
    EVENTUALLY(on.pixel({2, 2}) == QColor(Qt::green));
    QVERIFY(on.beneath.takeFocus());
    QVERIFY(on.beneath.setFullScreen(true));
    EVENTUALLY(on.pixel({2, 2}) == on.beneathColor() && isSeen(on, on.beneathColor()));
    QVERIFY(later.takeFocus());
    QVERIFY(later.setFullScreen(true));
    EVENTUALLY(on.pixel({2, 2}) == QColor(Qt::green) && isSeen(on, Qt::green));
}

void ToolbarStackingScenarios::itIsAboveTheOverlays()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    for (int i = 0; i < 3; ++i) {
        on.hotKey(Key::W);
        EVENTUALLY(on.isFilled(Qt::white, VirtualDisplay::kFullHd));
        EVENTUALLY(on.hasKeyboard() && on.overlays().size() == 1);
        QVERIFY(on.session.client().isAbove(on.toolbar()->id, on.overlays().constFirst().id));
        QVERIFY(isSeen(on, Qt::white));
        // So it stays when somebody else comes up.
        const Popup popup(on.session, VirtualDisplay::kFullHd.adjusted(10, 10, -10, -10), Qt::magenta);
        EVENTUALLY(on.isFilled(Qt::white, VirtualDisplay::kFullHd) && isSeen(on, Qt::white));
        on.hotKey(Key::W);
        EVENTUALLY(on.overlays().isEmpty());
    }
}

void ToolbarStackingScenarios::aClickOnItLeavesTheKeyboardAlone()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt(backgroundOf(*on.toolbar())));
    QVERIFY(on.session.pointer().clickAt({100, 100}));
    EVENTUALLY(!on.beneath.presses().isEmpty());
    QCOMPARE(on.beneath.presses(), QList<QPoint>{QPoint(100, 100)});
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
    const QList<InputEvent> events = on.beneath.events();
    for (const InputEvent &event : events)
        QVERIFY(event.isByGrab || event.kind != InputEvent::Kind::FocusOut);
}

void ToolbarStackingScenarios::itsShadowTakesNoClicks()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    const QRect withShadow = on.toolbar()->geometry;
    for (const QPoint corner : {withShadow.topLeft() + QPoint(2, 2), withShadow.bottomRight() - QPoint(2, 2),
                                QPoint(withShadow.left() + 2, withShadow.center().y())}) {
        on.beneath.forget();
        QVERIFY(on.session.pointer().clickAt(corner));
        EVENTUALLY(on.beneath.presses() == QList<QPoint>{corner});
    }
}

void ToolbarStackingScenarios::itIsThereAgainWhenTheScreensAre()
{
    Presentation on;
    EVENTUALLY(isSeen(on, on.beneathColor()));
    on.hotKey(Key::D);
    EVENTUALLY(!on.overlays().isEmpty());
    on.session.display().unplug(0);
    // It has noticed.
    EVENTUALLY(on.overlays().isEmpty());
    on.session.display().plug(0, VirtualDisplay::kFullHd);
    EVENTUALLY(!on.overlays().isEmpty());
    on.hotKey(Key::D);
    EVENTUALLY(on.overlays().isEmpty());
    EVENTUALLY(isSeen(on, on.beneathColor()));
    // On top of what comes later, too.
    WindowBeneath later(on.session, VirtualDisplay::kFullHd, Qt::green);
    EVENTUALLY(on.pixel({2, 2}) == QColor(Qt::green) && isSeen(on, Qt::green));
}

void ToolbarStackingScenarios::withoutACompositorItIsThereToo()
{
    Presentation on({.compositor = Compositor::None});
    EVENTUALLY(isSeen(on, on.beneathColor()));
    on.hotKey(Key::W);
    EVENTUALLY(on.isFilled(Qt::white, VirtualDisplay::kFullHd) && isSeen(on, Qt::white));
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt(backgroundOf(*on.toolbar())));
    EVENTUALLY(on.hasKeyboard());
    on.hotKey(Key::W);
    EVENTUALLY(on.overlays().isEmpty() && on.beneath.hasFocus());
    QVERIFY(on.beneath.presses().isEmpty());
}

REGISTER_GUILESS_TEST(ToolbarStackingScenarios)
#include "toolbar_stacking_scenarios.moc"
