#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class StackingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inkStaysAboveAWindowRaisedLater();
    void inkStaysAboveAFullScreenWindow();
    void inkStaysAboveAPopup();
    void inkStaysAboveAPopupThatIsRaisedRepeatedly();
    void aScreenLockerIsNeverCovered();
    void aScreenLockerIsNeverCoveredOnAnEmptyDesktop();
    void aScreenLockerIsNeverCoveredWhileTheScreensAreOff();
    void nothingIsRestackedNeedlessly();

private:
    /// Draws a stroke from (400, 300) to (500, 300) and pins it.
    static bool pinAStroke(Presentation &show)
    {
        show.hotKey(Key::D);
        if (!eventually([&] { return show.hasKeyboard(); }) ||
            !show.session.pointer().drag({{400, 300}, {500, 300}}))
            return false;
        show.hotKey(Key::P);
        return eventually([&] { return show.beneath.hasFocus() && show.pixel({450, 300}) == kInk; });
    }
    /// Whether the program shows any windows, all of them below that window.
    static bool isBelow(Presentation &show, xcb_window_t window)
    {
        const QList<WindowInfo> shown = show.shownWindows();
        return !shown.isEmpty() && std::all_of(shown.begin(), shown.end(), [&](const WindowInfo &ours) {
            return show.session.client().isAbove(window, ours.id);
        });
    }
};

void StackingScenarios::inkStaysAboveAWindowRaisedLater()
{
    Presentation show;
    QVERIFY(pinAStroke(show));
    const WindowBeneath later(show.session, {300, 200, 400, 300}, Qt::green);
    EVENTUALLY(show.pixel({350, 250}) == QColor(Qt::green));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
}

void StackingScenarios::inkStaysAboveAFullScreenWindow()
{
    Presentation show;
    QVERIFY(pinAStroke(show));
    QVERIFY(show.beneath.setFullScreen(true));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    EVENTUALLY(show.pixel({2, 2}) == show.beneathColor());
}

void StackingScenarios::inkStaysAboveAPopup()
{
    // The window manager is not involved: the popup is on top until the program corrects that.
    Presentation show;
    QVERIFY(pinAStroke(show));
    const Popup popup(show.session, {300, 200, 400, 300}, Qt::green);
    EVENTUALLY(show.pixel({350, 250}) == QColor(Qt::green) && show.pixel({450, 300}) == kInk);
    const Popup second(show.session, {310, 210, 300, 200}, Qt::red);
    EVENTUALLY(show.pixel({350, 250}) == QColor(Qt::red) && show.pixel({450, 300}) == kInk);
}

void StackingScenarios::inkStaysAboveAPopupThatIsRaisedRepeatedly()
{
    Presentation show;
    QVERIFY(pinAStroke(show));
    Popup popup(show.session, {300, 200, 400, 300}, Qt::green);
    for (int i = 0; i < 100; ++i)
        popup.raise();
    EVENTUALLY(show.pixel({350, 250}) == QColor(Qt::green) && show.pixel({450, 300}) == kInk);
}

void StackingScenarios::aScreenLockerIsNeverCovered()
{
    Presentation show;
    QVERIFY(pinAStroke(show));
    const xcb_window_t overlay = show.overlays().constFirst().id;
    const Popup locker(show.session, VirtualDisplay::kFullHd, Qt::black);
    // Something that makes the program check the order again, among it a popup of the locker itself.
    const Popup lockerPopup(show.session, {300, 200, 400, 300}, Qt::green);
    const Popup popup(show.session, {800, 200, 100, 100}, Qt::red);
    popup.lowerBelow(locker);
    EVENTUALLY(show.session.client().isAbove(overlay, popup.id()));
    QVERIFY(show.session.client().isAbove(locker.id(), overlay));
    QVERIFY(show.session.client().isAbove(lockerPopup.id(), overlay));

    // A mode that is turned on meanwhile stays below the locker, too.
    show.hotKey(Key::W);
    EVENTUALLY(show.hasKeyboard());
    THROUGHOUT(400ms, show.session.client().isAbove(locker.id(), overlay));
}

void StackingScenarios::aScreenLockerIsNeverCoveredOnAnEmptyDesktop()
{
    Presentation show;
    QVERIFY(show.beneath.hide());
    const Popup locker(show.session, VirtualDisplay::kFullHd, Qt::black);
    // Showing a canvas makes the program restack all its windows.
    show.hotKey(Key::W);
    EVENTUALLY(show.hasKeyboard());
    THROUGHOUT(400ms, isBelow(show, locker.id()));
}

void StackingScenarios::aScreenLockerIsNeverCoveredWhileTheScreensAreOff()
{
    Presentation show;
    show.session.display().unplug(0);
    const Popup locker(show.session, VirtualDisplay::kFullHd, Qt::black);
    // Makes the program check the order again.
    const Popup popup(show.session, {800, 200, 100, 100}, Qt::red);
    popup.lowerBelow(locker);
    THROUGHOUT(400ms, isBelow(show, locker.id()));
}

void StackingScenarios::nothingIsRestackedNeedlessly()
{
    Presentation show;
    QVERIFY(pinAStroke(show));
    const Popup popup(show.session, {300, 200, 400, 300}, Qt::green);
    const xcb_window_t overlay = show.overlays().constFirst().id;
    EVENTUALLY(show.session.client().isAbove(overlay, popup.id()) &&
               show.session.client().isAbove(show.toolbar()->id, overlay));
    const QList<xcb_window_t> order = show.session.client().stackedChildren(show.session.client().root());
    // Longer than until the program's last check after a change.
    THROUGHOUT(600ms, show.session.client().stackedChildren(show.session.client().root()) == order);
}

REGISTER_GUILESS_TEST(StackingScenarios)
#include "stacking_scenarios.moc"
