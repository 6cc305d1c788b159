// The menu as the tray shows it.

#include "registered_test.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;

class TrayMenuScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTrayShowsTheWholeMenu();
    void checkMarksFollowTheHotKeys();
    void drawingIsClickedOnAndOff();
    void spotlightIsClickedOnAndOff();
    void whiteboardIsClickedOnAndOff();
    void aRefusedPinIsTakenBackInTheTray();
    void pinningEndsDrawing();
    void clearingWipesTheInk();
    void theToolbarEntrySaysWhatItWillDo();
    void theDarkToolbarHasACheckMark();
    void quittingEndsTheProgram();
    void manyChangesCostNothing();
};

void TrayMenuScenarios::theTrayShowsTheWholeMenu()
{
    using namespace label;
    TrayPresentation on;
    const QStringList expected = {kDraw,  kSpot, kBoard, kClicks,   kPin,      kRing,     kFade, kDark, "",
                                  kClear, kHide, "",     kHints[0], kHints[1], kHints[2], "",    kQuit};
    const QStringList withMark = {kDraw, kSpot, kBoard, kClicks, kPin, kRing, kFade, kDark};
    QStringList labels;
    for (const TrayMenuItem &entry : on.menu()) {
        labels += entry.label;
        QVERIFY2(entry.visible, qPrintable(entry.label));
        QCOMPARE(entry.isSeparator(), entry.label.isEmpty());
        QCOMPARE(entry.enabled, !kHints.contains(entry.label));
        QCOMPARE(entry.toggleType, withMark.contains(entry.label) ? "checkmark" : "");
        QVERIFY(entry.children.isEmpty());
        // The tray names the keys itself, in the language that it speaks.
        const QStringList key = entry.label == kQuit ? QStringList{"Control", "Q"} : QStringList();
        QCOMPARE(entry.shortcut.value(0), key);
    }
    QCOMPARE(labels, expected);
    QCOMPARE(on.checked(), QStringList{kDark});
}

void TrayMenuScenarios::checkMarksFollowTheHotKeys()
{
    using namespace label;
    TrayPresentation on;
    const QList<std::pair<Key, QStringList>> steps = {
        {Key::D, {kDraw, kDark}},
        {Key::S, {kDraw, kSpot, kDark}},
        {Key::W, {kDraw, kSpot, kBoard, kDark}},
        {Key::K, {kDraw, kSpot, kBoard, kClicks, kDark}},
        {Key::P, {kSpot, kClicks, kPin, kDark}},
        {Key::P, {kDraw, kSpot, kClicks, kDark}},
        {Key::K, {kDraw, kSpot, kDark}},
        {Key::S, {kDraw, kDark}},
        {Key::D, {kDark}},
        // Nothing to pin, so this one changes nothing; the next tells that it is over.
        {Key::P, {kDark}},
        {Key::W, {kBoard, kDark}},
    };
    for (const auto &step : steps) {
        on.hotKey(step.first);
        EVENTUALLY(on.checked() == step.second);
    }
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.checked() == QStringList{kDark});
}

void TrayMenuScenarios::drawingIsClickedOnAndOff()
{
    TrayPresentation on;
    QVERIFY(on.click(label::kDraw));
    EVENTUALLY(on.hasKeyboard());
    EVENTUALLY(on.isChecked(label::kDraw));
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    QVERIFY(on.click(label::kDraw));
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(!on.isChecked(label::kDraw));
    EVENTUALLY(on.pixel({350, 500}) == on.beneathColor());
}

void TrayMenuScenarios::spotlightIsClickedOnAndOff()
{
    TrayPresentation on;
    QVERIFY(on.click(label::kSpot));
    EVENTUALLY(on.pixel({10, 1000}) == dimmed(on.beneathColor()));
    EVENTUALLY(on.isChecked(label::kSpot));
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(on.click(label::kSpot));
    EVENTUALLY(on.pixel({10, 1000}) == on.beneathColor());
    EVENTUALLY(!on.isChecked(label::kSpot));
}

void TrayMenuScenarios::whiteboardIsClickedOnAndOff()
{
    TrayPresentation on;
    QVERIFY(on.click(label::kBoard));
    EVENTUALLY(on.pixel({10, 1000}) == QColor(Qt::white));
    EVENTUALLY(on.hasKeyboard() && on.isChecked(label::kBoard));
    QVERIFY(on.click(label::kBoard));
    EVENTUALLY(on.pixel({10, 1000}) == on.beneathColor());
    EVENTUALLY(on.beneath.hasFocus() && !on.isChecked(label::kBoard));
}

void TrayMenuScenarios::aRefusedPinIsTakenBackInTheTray()
{
    TrayPresentation on;
    const auto pin = on.entry(label::kPin);
    QVERIFY(pin);
    on.tray.host.forget();
    QVERIFY(on.click(label::kPin));
    // A tray may have set the mark by itself, so it must hear that it is off.
    EVENTUALLY(on.tray.host.toggleStatesTold(pin->id) == QList<int>({1, 0}));
    QVERIFY(!on.isChecked(label::kPin));
}

void TrayMenuScenarios::pinningEndsDrawing()
{
    TrayPresentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    QVERIFY(on.click(label::kPin));
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.checked() == QStringList({label::kPin, label::kDark}));
    QCOMPARE(on.pixel({350, 500}), kInk);
}

void TrayMenuScenarios::clearingWipesTheInk()
{
    TrayPresentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(on.pixel({350, 500}) == kInk);
    QVERIFY(on.click(label::kClear));
    EVENTUALLY(on.pixel({350, 500}) == on.beneathColor());
    QVERIFY(on.hasKeyboard() && on.isChecked(label::kDraw));
}

void TrayMenuScenarios::theToolbarEntrySaysWhatItWillDo()
{
    TrayPresentation on;
    QVERIFY(on.click(label::kHide));
    EVENTUALLY(on.entry(label::kShow) && !on.entry(label::kHide));
    EVENTUALLY(!on.toolbar());
    QVERIFY(on.click(label::kShow));
    EVENTUALLY(on.entry(label::kHide) && !on.entry(label::kShow));
    EVENTUALLY(on.toolbar());
    // The hot key is the same switch.
    on.hotKey(Key::T);
    EVENTUALLY(on.entry(label::kShow) && !on.toolbar());
}

void TrayMenuScenarios::theDarkToolbarHasACheckMark()
{
    TrayPresentation on;
    QVERIFY(on.isChecked(label::kDark));
    QVERIFY(on.click(label::kDark));
    EVENTUALLY(!on.isChecked(label::kDark));
    QVERIFY(on.click(label::kDark));
    EVENTUALLY(on.isChecked(label::kDark));
}

void TrayMenuScenarios::quittingEndsTheProgram()
{
    TrayPresentation on;
    QVERIFY(on.click(label::kQuit));
    QCOMPARE(on.program.waitForExit(), std::optional(0));
    EVENTUALLY(on.tray.watcher.items().isEmpty());
    QVERIFY(on.program.output().isEmpty());
}

void TrayMenuScenarios::manyChangesCostNothing()
{
    TrayPresentation on;
    const auto clicks = on.entry(label::kClicks);
    QVERIFY(clicks);
    const auto toggle = [&](int times) {
        on.tray.host.forget();
        for (int i = 0; i < times; ++i) {
            on.hotKey(Key::K);
            if (!eventually([&] { return on.tray.host.toggleStatesTold(clicks->id).size() == i + 1; }))
                return false;
        }
        return true;
    };
    QVERIFY(toggle(10)); // what is made once is made now
    const qint64 before = on.program.residentBytes();
    QVERIFY(toggle(40));
    // Far less than 40 menus; the allocator may take a page or two at any time.
    QVERIFY(on.program.residentBytes() - before < qint64{256} * 1024);
    QCOMPARE(on.tray.host.layoutUpdates(), 0);
    QVERIFY(!on.isChecked(label::kClicks));
}

REGISTER_GUILESS_TEST(TrayMenuScenarios)
#include "tray_menu_scenarios.moc"
