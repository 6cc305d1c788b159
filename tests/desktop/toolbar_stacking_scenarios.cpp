#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// A place on the toolbar's background, beside its buttons; the shadow is equally wide on both sides.
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
    void clicksPassThroughItsShadow();
    void itComesBackWithTheScreens();
    void itWorksWithoutACompositor();

private:
    /// Whether the toolbar is visible, and not covered by that colour.
    static bool isVisible(Presentation &show, const QColor &cover)
    {
        const std::optional<WindowInfo> toolbar = show.toolbar();
        if (!toolbar)
            return false;
        const QRect middle = middleOf(*toolbar);
        return show.session.screenshot().count(cover, middle) < middle.width() * middle.height() / 2;
    }
};

void ToolbarStackingScenarios::itIsShownFromTheStart()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    const WindowInfo toolbar = *show.toolbar();
    QVERIFY(toolbar.overrideRedirect);
    QVERIFY(VirtualDisplay::kFullHd.contains(toolbar.geometry));
    QVERIFY(show.session.client().isAbove(toolbar.id, show.beneath.id()));
    QVERIFY(show.beneath.hasFocus());
}

void ToolbarStackingScenarios::itStaysAboveAWindowRaisedLater()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    WindowBeneath later(show.session, VirtualDisplay::kFullHd, Qt::green);
    EVENTUALLY(show.pixel({2, 2}) == QColor(Qt::green));
    EVENTUALLY(isVisible(show, Qt::green));
    const Popup popup(show.session, VirtualDisplay::kFullHd.adjusted(10, 10, -10, -10), Qt::magenta);
    EVENTUALLY(show.pixel({20, 20}) == QColor(Qt::magenta) && isVisible(show, Qt::magenta));
}

void ToolbarStackingScenarios::itStaysAboveAFullScreenWindow()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    // Opened before there is a full-screen window, because some window managers would not show it then.
    WindowBeneath later(show.session, VirtualDisplay::kFullHd, Qt::green);
    QVERIFY(later.opensWithFocus());
    EVENTUALLY(show.pixel({2, 2}) == QColor(Qt::green));
    QVERIFY(show.beneath.takeFocus());
    QVERIFY(show.beneath.setFullScreen(true));
    EVENTUALLY(show.pixel({2, 2}) == show.beneathColor() && isVisible(show, show.beneathColor()));
    QVERIFY(later.takeFocus());
    QVERIFY(later.setFullScreen(true));
    EVENTUALLY(show.pixel({2, 2}) == QColor(Qt::green) && isVisible(show, Qt::green));
}

void ToolbarStackingScenarios::itIsAboveTheOverlays()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    for (int i = 0; i < 3; ++i) {
        show.hotKey(Key::W);
        EVENTUALLY(show.isFilled(Qt::white, VirtualDisplay::kFullHd));
        EVENTUALLY(show.hasKeyboard() && show.overlays().size() == 1);
        QVERIFY(show.session.client().isAbove(show.toolbar()->id, show.overlays().constFirst().id));
        QVERIFY(isVisible(show, Qt::white));
        // It stays visible when another program opens a popup.
        const Popup popup(show.session, VirtualDisplay::kFullHd.adjusted(10, 10, -10, -10), Qt::magenta);
        EVENTUALLY(show.isFilled(Qt::white, VirtualDisplay::kFullHd) && isVisible(show, Qt::white));
        show.hotKey(Key::W);
        EVENTUALLY(show.overlays().isEmpty());
    }
}

void ToolbarStackingScenarios::aClickOnItLeavesTheKeyboardAlone()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt(backgroundOf(*show.toolbar())));
    QVERIFY(show.session.pointer().clickAt({100, 100}));
    EVENTUALLY(!show.beneath.presses().isEmpty());
    QCOMPARE(show.beneath.presses(), QList<QPoint>{QPoint(100, 100)});
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});
    const QList<InputEvent> events = show.beneath.events();
    for (const InputEvent &event : events)
        QVERIFY(event.isByGrab || event.kind != InputEvent::Kind::FocusOut);
}

void ToolbarStackingScenarios::clicksPassThroughItsShadow()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    const QRect withShadow = show.toolbar()->geometry;
    for (const QPoint corner : {withShadow.topLeft() + QPoint(2, 2), withShadow.bottomRight() - QPoint(2, 2),
                                QPoint(withShadow.left() + 2, withShadow.center().y())}) {
        show.beneath.forget();
        QVERIFY(show.session.pointer().clickAt(corner));
        EVENTUALLY(show.beneath.presses() == QList<QPoint>{corner});
    }
}

void ToolbarStackingScenarios::itComesBackWithTheScreens()
{
    Presentation show;
    EVENTUALLY(isVisible(show, show.beneathColor()));
    show.hotKey(Key::D);
    EVENTUALLY(!show.overlays().isEmpty());
    show.session.display().unplug(0);
    // The program has noticed the change.
    EVENTUALLY(show.overlays().isEmpty());
    show.session.display().plug(0, VirtualDisplay::kFullHd);
    EVENTUALLY(!show.overlays().isEmpty());
    show.hotKey(Key::D);
    EVENTUALLY(show.overlays().isEmpty());
    EVENTUALLY(isVisible(show, show.beneathColor()));
    // It also stays above windows that open later.
    WindowBeneath later(show.session, VirtualDisplay::kFullHd, Qt::green);
    EVENTUALLY(show.pixel({2, 2}) == QColor(Qt::green) && isVisible(show, Qt::green));
}

void ToolbarStackingScenarios::itWorksWithoutACompositor()
{
    Presentation show({.compositor = Compositor::None});
    EVENTUALLY(isVisible(show, show.beneathColor()));
    show.hotKey(Key::W);
    EVENTUALLY(show.isFilled(Qt::white, VirtualDisplay::kFullHd) && isVisible(show, Qt::white));
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt(backgroundOf(*show.toolbar())));
    EVENTUALLY(show.hasKeyboard());
    show.hotKey(Key::W);
    EVENTUALLY(show.overlays().isEmpty() && show.beneath.hasFocus());
    QVERIFY(show.beneath.presses().isEmpty());
}

REGISTER_GUILESS_TEST(ToolbarStackingScenarios)
#include "toolbar_stacking_scenarios.moc"
