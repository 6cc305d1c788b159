// The menu as shown by the tray.

#include "registered_test.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;

class TrayMenuScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTrayShowsTheWholeMenu();
    void checkMarksFollowTheHotKeys();
    void theDrawEntryTogglesDrawing();
    void theSpotlightEntryTogglesTheSpotlight();
    void theWhiteboardEntryTogglesTheWhiteboard();
    void aRefusedPinClearsItsCheckMark();
    void pinningEndsDrawing();
    void clearingRemovesTheInk();
    void theToolbarEntryNamesItsAction();
    void theDarkToolbarHasACheckMark();
    void quittingEndsTheProgram();
    void manyChangesLeakNoMemory();
};

void TrayMenuScenarios::theTrayShowsTheWholeMenu()
{
    using namespace label;
    TrayPresentation show;
    const QStringList expected = {kDraw,  kSpot, kBoard, kClicks,   kPin,      kRing,     kFade, kDark, "",
                                  kClear, kHide, "",     kHints[0], kHints[1], kHints[2], "",    kQuit};
    const QStringList checkable = {kDraw, kSpot, kBoard, kClicks, kPin, kRing, kFade, kDark};
    QStringList labels;
    for (const TrayMenuItem &entry : show.menu()) {
        labels += entry.label;
        QVERIFY2(entry.visible, qPrintable(entry.label));
        QCOMPARE(entry.isSeparator(), entry.label.isEmpty());
        QCOMPARE(entry.enabled, !kHints.contains(entry.label));
        QCOMPARE(entry.toggleType, checkable.contains(entry.label) ? "checkmark" : "");
        QVERIFY(entry.children.isEmpty());
        // The tray displays the shortcut itself, in its own language.
        const QStringList key = entry.label == kQuit ? QStringList{"Control", "Q"} : QStringList();
        QCOMPARE(entry.shortcut.value(0), key);
    }
    QCOMPARE(labels, expected);
    QCOMPARE(show.checked(), QStringList{kDark});
}

void TrayMenuScenarios::checkMarksFollowTheHotKeys()
{
    using namespace label;
    TrayPresentation show;
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
        // There is nothing to pin, so nothing changes; the next step proves that the key has been handled.
        {Key::P, {kDark}},
        {Key::W, {kBoard, kDark}},
    };
    for (const auto &step : steps) {
        show.hotKey(step.first);
        EVENTUALLY(show.checked() == step.second);
    }
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.checked() == QStringList{kDark});
}

void TrayMenuScenarios::theDrawEntryTogglesDrawing()
{
    TrayPresentation show;
    QVERIFY(show.click(label::kDraw));
    EVENTUALLY(show.hasKeyboard());
    EVENTUALLY(show.isChecked(label::kDraw));
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    QVERIFY(show.click(label::kDraw));
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(!show.isChecked(label::kDraw));
    EVENTUALLY(show.pixel({350, 500}) == show.beneathColor());
}

void TrayMenuScenarios::theSpotlightEntryTogglesTheSpotlight()
{
    TrayPresentation show;
    QVERIFY(show.click(label::kSpot));
    EVENTUALLY(show.pixel({10, 1000}) == dimmed(show.beneathColor()));
    EVENTUALLY(show.isChecked(label::kSpot));
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.click(label::kSpot));
    EVENTUALLY(show.pixel({10, 1000}) == show.beneathColor());
    EVENTUALLY(!show.isChecked(label::kSpot));
}

void TrayMenuScenarios::theWhiteboardEntryTogglesTheWhiteboard()
{
    TrayPresentation show;
    QVERIFY(show.click(label::kBoard));
    EVENTUALLY(show.pixel({10, 1000}) == QColor(Qt::white));
    EVENTUALLY(show.hasKeyboard() && show.isChecked(label::kBoard));
    QVERIFY(show.click(label::kBoard));
    EVENTUALLY(show.pixel({10, 1000}) == show.beneathColor());
    EVENTUALLY(show.beneath.hasFocus() && !show.isChecked(label::kBoard));
}

void TrayMenuScenarios::aRefusedPinClearsItsCheckMark()
{
    TrayPresentation show;
    const auto pin = show.entry(label::kPin);
    QVERIFY(pin);
    show.tray.host.forget();
    QVERIFY(show.click(label::kPin));
    // A tray may have set the check mark itself, so it must be told that it is off.
    EVENTUALLY(show.tray.host.reportedToggleStates(pin->id) == QList<int>({1, 0}));
    QVERIFY(!show.isChecked(label::kPin));
}

void TrayMenuScenarios::pinningEndsDrawing()
{
    TrayPresentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    QVERIFY(show.click(label::kPin));
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.checked() == QStringList({label::kPin, label::kDark}));
    QCOMPARE(show.pixel({350, 500}), kInk);
}

void TrayMenuScenarios::clearingRemovesTheInk()
{
    TrayPresentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{300, 500}, {400, 500}}));
    EVENTUALLY(show.pixel({350, 500}) == kInk);
    QVERIFY(show.click(label::kClear));
    EVENTUALLY(show.pixel({350, 500}) == show.beneathColor());
    QVERIFY(show.hasKeyboard() && show.isChecked(label::kDraw));
}

void TrayMenuScenarios::theToolbarEntryNamesItsAction()
{
    TrayPresentation show;
    QVERIFY(show.click(label::kHide));
    EVENTUALLY(show.entry(label::kShow) && !show.entry(label::kHide));
    EVENTUALLY(!show.toolbar());
    QVERIFY(show.click(label::kShow));
    EVENTUALLY(show.entry(label::kHide) && !show.entry(label::kShow));
    EVENTUALLY(show.toolbar());
    // The hot key does the same.
    show.hotKey(Key::T);
    EVENTUALLY(show.entry(label::kShow) && !show.toolbar());
}

void TrayMenuScenarios::theDarkToolbarHasACheckMark()
{
    TrayPresentation show;
    QVERIFY(show.isChecked(label::kDark));
    QVERIFY(show.click(label::kDark));
    EVENTUALLY(!show.isChecked(label::kDark));
    QVERIFY(show.click(label::kDark));
    EVENTUALLY(show.isChecked(label::kDark));
}

void TrayMenuScenarios::quittingEndsTheProgram()
{
    TrayPresentation show;
    QVERIFY(show.click(label::kQuit));
    QCOMPARE(show.program.waitForExit(), std::optional(0));
    EVENTUALLY(show.tray.watcher.items().isEmpty());
    QVERIFY(show.program.output().isEmpty());
}

void TrayMenuScenarios::manyChangesLeakNoMemory()
{
    TrayPresentation show;
    const auto clicks = show.entry(label::kClicks);
    QVERIFY(clicks);
    const auto toggle = [&](int times) {
        show.tray.host.forget();
        for (int i = 0; i < times; ++i) {
            show.hotKey(Key::K);
            if (!eventually([&] { return show.tray.host.reportedToggleStates(clicks->id).size() == i + 1; }))
                return false;
        }
        return true;
    };
    QVERIFY(toggle(10)); // the first changes may allocate memory that is kept
    const qint64 before = show.program.residentBytes();
    QVERIFY(toggle(40));
    // Far less than 40 menus; the allocator may take a page or two at any time.
    QVERIFY(show.program.residentBytes() - before < qint64{256} * 1024);
    QCOMPARE(show.tray.host.layoutUpdates(), 0);
    QVERIFY(!show.isChecked(label::kClicks));
}

REGISTER_GUILESS_TEST(TrayMenuScenarios)
#include "tray_menu_scenarios.moc"
