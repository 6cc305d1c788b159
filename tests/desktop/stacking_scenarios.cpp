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
    void inkStaysAboveAPopupThatIsRaisedAgainAndAgain();
    void aScreenLockerIsNeverCovered();
    void aScreenLockerIsNeverCoveredWhereNothingElseIs();
    void aScreenLockerIsNeverCoveredWhileTheScreensAreOff();
    void nothingIsRestackedWithoutNeed();

private:
    /// A pinned stroke from (400, 300) to (500, 300).
    static bool pinAStroke(Presentation &on)
    {
        on.hotKey(Key::D);
        if (!eventually([&] { return on.hasKeyboard(); }) ||
            !on.session.pointer().drag({{400, 300}, {500, 300}}))
            return false;
        on.hotKey(Key::P);
        return eventually([&] { return on.beneath.hasFocus() && on.pixel({450, 300}) == kInk; });
    }
    /// Whether the program shows something, and all of it is below that window.
    static bool isBelow(Presentation &on, xcb_window_t window)
    {
        const QList<WindowInfo> shown = on.shownWindows();
        return !shown.isEmpty() && std::all_of(shown.begin(), shown.end(), [&](const WindowInfo &ours) {
            return on.session.client().isAbove(window, ours.id);
        });
    }
};

void StackingScenarios::inkStaysAboveAWindowRaisedLater()
{
    Presentation on;
    QVERIFY(pinAStroke(on));
    const WindowBeneath later(on.session, {300, 200, 400, 300}, Qt::green);
    EVENTUALLY(on.pixel({350, 250}) == QColor(Qt::green));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
}

void StackingScenarios::inkStaysAboveAFullScreenWindow()
{
    Presentation on;
    QVERIFY(pinAStroke(on));
    QVERIFY(on.beneath.setFullScreen(true));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    EVENTUALLY(on.pixel({2, 2}) == on.beneathColor());
}

void StackingScenarios::inkStaysAboveAPopup()
{
    // No window manager helps here: the popup is on top until the program has looked.
    Presentation on;
    QVERIFY(pinAStroke(on));
    const Popup popup(on.session, {300, 200, 400, 300}, Qt::green);
    EVENTUALLY(on.pixel({350, 250}) == QColor(Qt::green) && on.pixel({450, 300}) == kInk);
    const Popup second(on.session, {310, 210, 300, 200}, Qt::red);
    EVENTUALLY(on.pixel({350, 250}) == QColor(Qt::red) && on.pixel({450, 300}) == kInk);
}

void StackingScenarios::inkStaysAboveAPopupThatIsRaisedAgainAndAgain()
{
    Presentation on;
    QVERIFY(pinAStroke(on));
    Popup popup(on.session, {300, 200, 400, 300}, Qt::green);
    for (int i = 0; i < 100; ++i)
        popup.raise();
    EVENTUALLY(on.pixel({350, 250}) == QColor(Qt::green) && on.pixel({450, 300}) == kInk);
}

void StackingScenarios::aScreenLockerIsNeverCovered()
{
    Presentation on;
    QVERIFY(pinAStroke(on));
    const xcb_window_t overlay = on.overlays().constFirst().id;
    const Popup locker(on.session, VirtualDisplay::kFullHd, Qt::black);
    // Something happens that makes the program look again; the locker's own popup among it.
    const Popup ofLocker(on.session, {300, 200, 400, 300}, Qt::green);
    const Popup popup(on.session, {800, 200, 100, 100}, Qt::red);
    popup.lowerBelow(locker);
    EVENTUALLY(on.session.client().isAbove(overlay, popup.id()));
    QVERIFY(on.session.client().isAbove(locker.id(), overlay));
    QVERIFY(on.session.client().isAbove(ofLocker.id(), overlay));

    // A mode that is switched on meanwhile stays below it, too.
    on.hotKey(Key::W);
    EVENTUALLY(on.hasKeyboard());
    THROUGHOUT(400ms, on.session.client().isAbove(locker.id(), overlay));
}

void StackingScenarios::aScreenLockerIsNeverCoveredWhereNothingElseIs()
{
    Presentation on;
    QVERIFY(on.beneath.hide());
    const Popup locker(on.session, VirtualDisplay::kFullHd, Qt::black);
    // What comes up has all of ours put in order.
    on.hotKey(Key::W);
    EVENTUALLY(on.hasKeyboard());
    THROUGHOUT(400ms, isBelow(on, locker.id()));
}

void StackingScenarios::aScreenLockerIsNeverCoveredWhileTheScreensAreOff()
{
    Presentation on;
    on.session.display().unplug(0);
    const Popup locker(on.session, VirtualDisplay::kFullHd, Qt::black);
    // The program looks again.
    const Popup popup(on.session, {800, 200, 100, 100}, Qt::red);
    popup.lowerBelow(locker);
    THROUGHOUT(400ms, isBelow(on, locker.id()));
}

void StackingScenarios::nothingIsRestackedWithoutNeed()
{
    Presentation on;
    QVERIFY(pinAStroke(on));
    const Popup popup(on.session, {300, 200, 400, 300}, Qt::green);
    const xcb_window_t overlay = on.overlays().constFirst().id;
    EVENTUALLY(on.session.client().isAbove(overlay, popup.id()) &&
               on.session.client().isAbove(on.toolbar()->id, overlay));
    const QList<xcb_window_t> order = on.session.client().stackedChildren(on.session.client().root());
    // Longer than the last look after a change.
    THROUGHOUT(600ms, on.session.client().stackedChildren(on.session.client().root()) == order);
}

REGISTER_GUILESS_TEST(StackingScenarios)
#include "stacking_scenarios.moc"
