#include "platform/x11/windows/stacking_order.h"
#include "registered_test.h"

#include <algorithm>

using namespace zeigewerk::platform::x11;

namespace {

constexpr QRect kLeftScreen(0, 0, 1920, 1080);
constexpr QRect kRightScreen(1920, 0, 1280, 1024);
constexpr QRect kWholeDesktop(0, 0, 3200, 1080);
constexpr QRect kSmall(300, 200, 400, 300);

const RootChild kCanvas{.window = 1, .isOurs = true, .isOverrideRedirect = true, .frame = kLeftScreen};
const RootChild kCanvasInput{
    .window = 2, .isOurs = true, .isInputOnly = true, .isOverrideRedirect = true, .frame = kLeftScreen};
const RootChild kToolbar{.window = 3, .isOurs = true, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kEffect{.window = 4, .isOurs = true, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kMenu{.window = 5, .isOurs = true, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kTooltip{.window = 6, .isOurs = true, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kHiddenCanvas{
    .window = 7, .isOurs = true, .isViewable = false, .isOverrideRedirect = true, .frame = kRightScreen};

const RootChild kApplication{.window = 20, .frame = kSmall};
const RootChild kFullScreen{.window = 21, .frame = kLeftScreen};
const RootChild kManagersFrame{
    .window = 22, .isOverrideRedirect = true, .isWindowManagers = true, .frame = kLeftScreen};
const RootChild kPopup{.window = 23, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kUnmapped{.window = 24, .isViewable = false, .frame = kSmall};
const RootChild kInputOnly{.window = 25, .isInputOnly = true, .frame = kSmall};
const RootChild kWholeInputOnly{
    .window = 28, .isInputOnly = true, .isOverrideRedirect = true, .frame = kLeftScreen};
const RootChild kAlmostCovers{
    .window = 26, .isOverrideRedirect = true, .frame = kLeftScreen.adjusted(0, 0, -1, 0)};
const RootChild kBetweenScreens{.window = 27, .isOverrideRedirect = true, .frame = {960, 0, 1920, 1080}};

const RootChild kLocker{.window = 30, .isOverrideRedirect = true, .frame = kLeftScreen};
const RootChild kRightLocker{.window = 31, .isOverrideRedirect = true, .frame = kRightScreen};
const RootChild kDesktopLocker{.window = 32, .isOverrideRedirect = true, .frame = kWholeDesktop};
const RootChild kLockersDialog{.window = 33, .isOverrideRedirect = true, .frame = kSmall};
const RootChild kUnmappedLocker{
    .window = 34, .isViewable = false, .isOverrideRedirect = true, .frame = kLeftScreen};

constexpr StackPlace kOnTop{};

StackPlace above(const RootChild &child)
{
    return {StackPlace::Relation::DirectlyAbove, child.window};
}

StackPlace below(const RootChild &child)
{
    return {StackPlace::Relation::DirectlyBelow, child.window};
}

struct Situation
{
    const char *name = nullptr;
    /// The children of the root, the lowest first.
    std::vector<RootChild> stack;
    std::vector<QRect> screens = {kLeftScreen, kRightScreen};
    QRect desktop = kWholeDesktop;
    /// Our shown windows as they should be, the lowest first.
    std::vector<RootChild> ours = {kCanvas, kToolbar};
    StackPlace placeOfLowest;
    bool isInOrder = true;
};

const std::vector<Situation> kSituations = {
    // Windows of other programs.
    {.name = "no other window", .stack = {kCanvas, kToolbar}, .placeOfLowest = kOnTop},
    {.name = "an application below ours",
     .stack = {kApplication, kCanvas, kToolbar},
     .placeOfLowest = above(kApplication)},
    {.name = "an application raised above ours",
     .stack = {kCanvas, kToolbar, kApplication},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "a popup between ours",
     .stack = {kApplication, kCanvas, kPopup, kToolbar},
     .placeOfLowest = above(kPopup),
     .isInOrder = false},
    {.name = "the highest of several counts",
     .stack = {kApplication, kFullScreen, kPopup, kCanvas, kToolbar},
     .placeOfLowest = above(kPopup)},
    {.name = "an unmapped window above ours",
     .stack = {kApplication, kCanvas, kToolbar, kUnmapped},
     .placeOfLowest = above(kApplication)},
    {.name = "an input-only window above ours",
     .stack = {kApplication, kCanvas, kToolbar, kInputOnly},
     .placeOfLowest = above(kApplication)},
    {.name = "an input-only window that covers the screen, below ours",
     .stack = {kApplication, kWholeInputOnly, kCanvas, kToolbar},
     .placeOfLowest = above(kApplication)},

    // The order among our windows.
    {.name = "the toolbar below the canvas",
     .stack = {kApplication, kToolbar, kCanvas},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "our windows in the wrong order, and no other window",
     .stack = {kToolbar, kCanvas},
     .placeOfLowest = kOnTop,
     .isInOrder = false},
    {.name = "the input window above its canvas",
     .stack = {kApplication, kCanvas, kCanvasInput, kToolbar},
     .ours = {kCanvas, kCanvasInput, kToolbar},
     .placeOfLowest = above(kApplication)},
    {.name = "a ring below the toolbar",
     .stack = {kCanvas, kEffect, kToolbar},
     .ours = {kCanvas, kToolbar, kEffect},
     .placeOfLowest = kOnTop,
     .isInOrder = false},
    {.name = "menu and tooltip above all",
     .stack = {kApplication, kCanvas, kToolbar, kMenu, kTooltip},
     .ours = {kCanvas, kToolbar, kMenu, kTooltip},
     .placeOfLowest = above(kApplication)},
    {.name = "a menu below the toolbar",
     .stack = {kApplication, kCanvas, kMenu, kToolbar},
     .ours = {kCanvas, kToolbar, kMenu},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "a tooltip below the menu",
     .stack = {kCanvas, kToolbar, kTooltip, kMenu},
     .ours = {kCanvas, kToolbar, kMenu, kTooltip},
     .placeOfLowest = kOnTop,
     .isInOrder = false},
    {.name = "a hidden window of ours does not count",
     .stack = {kApplication, kCanvas, kHiddenCanvas, kToolbar},
     .placeOfLowest = above(kApplication)},

    // Screen lockers.
    {.name = "a locker above ours",
     .stack = {kApplication, kCanvas, kToolbar, kLocker},
     .placeOfLowest = above(kApplication)},
    {.name = "a locker below ours",
     .stack = {kApplication, kLocker, kCanvas, kToolbar},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "a locker between ours",
     .stack = {kApplication, kCanvas, kLocker, kToolbar},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "a locker above ours, and nothing else",
     .stack = {kCanvas, kToolbar, kLocker},
     .placeOfLowest = below(kLocker)},
    {.name = "a locker below ours, and nothing else",
     .stack = {kLocker, kCanvas, kToolbar},
     .placeOfLowest = below(kLocker),
     .isInOrder = false},
    {.name = "the locker's own window above it",
     .stack = {kApplication, kCanvas, kToolbar, kLocker, kLockersDialog},
     .placeOfLowest = above(kApplication)},
    {.name = "the locker's own window, and nothing below it",
     .stack = {kCanvas, kToolbar, kLocker, kLockersDialog},
     .placeOfLowest = below(kLocker)},
    {.name = "ours above the locker's own window",
     .stack = {kApplication, kLocker, kLockersDialog, kCanvas, kToolbar},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "a popup above ours, below the locker",
     .stack = {kApplication, kCanvas, kToolbar, kPopup, kLocker},
     .placeOfLowest = above(kPopup),
     .isInOrder = false},
    {.name = "a locker that is not mapped yet",
     .stack = {kApplication, kUnmappedLocker, kCanvas, kToolbar},
     .placeOfLowest = above(kApplication)},

    // Windows that cover a screen but are not lockers.
    {.name = "a full-screen application raised above ours",
     .stack = {kCanvas, kToolbar, kFullScreen},
     .placeOfLowest = above(kFullScreen),
     .isInOrder = false},
    {.name = "the window manager's frame of a full-screen application",
     .stack = {kManagersFrame, kCanvas, kToolbar},
     .placeOfLowest = above(kManagersFrame)},
    {.name = "the window manager's frame raised above ours",
     .stack = {kCanvas, kToolbar, kManagersFrame},
     .placeOfLowest = above(kManagersFrame),
     .isInOrder = false},
    {.name = "a popup one pixel smaller than the screen",
     .stack = {kCanvas, kToolbar, kAlmostCovers},
     .placeOfLowest = above(kAlmostCovers),
     .isInOrder = false},

    // Screens.
    {.name = "a locker on the second screen alone",
     .stack = {kApplication, kCanvas, kToolbar, kRightLocker},
     .placeOfLowest = above(kApplication)},
    {.name = "a popup as large as that screen without it",
     .stack = {kApplication, kCanvas, kToolbar, kRightLocker},
     .screens = {kLeftScreen},
     .placeOfLowest = above(kRightLocker),
     .isInOrder = false},
    {.name = "a popup across two screens that covers neither",
     .stack = {kCanvas, kToolbar, kBetweenScreens},
     .placeOfLowest = above(kBetweenScreens),
     .isInOrder = false},
    {.name = "one locker for all screens",
     .stack = {kApplication, kCanvas, kToolbar, kDesktopLocker},
     .placeOfLowest = above(kApplication)},
    {.name = "a locker for each screen",
     .stack = {kApplication, kCanvas, kToolbar, kLocker, kRightLocker},
     .placeOfLowest = above(kApplication)},
    {.name = "ours between the lockers of two screens",
     .stack = {kApplication, kLocker, kCanvas, kToolbar, kRightLocker},
     .placeOfLowest = above(kApplication),
     .isInOrder = false},
    {.name = "all outputs off, a locker as large as the desktop",
     .stack = {kApplication, kCanvas, kToolbar, kDesktopLocker},
     .screens = {},
     .placeOfLowest = above(kApplication)},
    {.name = "all outputs off, a popup smaller than the desktop",
     .stack = {kApplication, kCanvas, kToolbar, kLocker},
     .screens = {},
     .placeOfLowest = above(kLocker),
     .isInOrder = false},
    {.name = "neither screens nor desktop known",
     .stack = {kApplication, kCanvas, kToolbar, kPopup},
     .screens = {},
     .desktop = {},
     .placeOfLowest = above(kPopup),
     .isInOrder = false},
};

std::vector<WindowId> idsOf(const std::vector<RootChild> &windows)
{
    std::vector<WindowId> ids;
    std::transform(windows.begin(), windows.end(), std::back_inserter(ids), std::mem_fn(&RootChild::window));
    return ids;
}

/// Does what the server would: puts `window` at `place`.
void move(std::vector<RootChild> &stack, const RootChild &window, const StackPlace &place)
{
    const auto withId = [](WindowId id) {
        return [id](const RootChild &child) { return child.window == id; };
    };
    std::erase_if(stack, withId(window.window));
    auto sibling = std::find_if(stack.begin(), stack.end(), withId(place.sibling));
    if (place.relation == StackPlace::Relation::DirectlyAbove)
        ++sibling;
    stack.insert(place.relation == StackPlace::Relation::OnTop ? stack.end() : sibling, window);
}

void addSituations()
{
    QTest::addColumn<Situation>("situation");
    for (const Situation &situation : kSituations)
        QTest::newRow(situation.name) << situation;
}

} // namespace

class StackingOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachSituationIsRecognised_data() { addSituations(); }
    void eachSituationIsRecognised();
    void restackingPutsEachSituationInOrder_data() { addSituations(); }
    void restackingPutsEachSituationInOrder();
    void aWindowUnknownToTheServerIsNotInOrder();
};

void StackingOrderTest::eachSituationIsRecognised()
{
    QFETCH(Situation, situation);
    const WindowStack stack{situation.stack, situation.screens, situation.desktop};
    const StackPlace place = placeOfLowest(stack);
    QCOMPARE(place.relation, situation.placeOfLowest.relation);
    QCOMPARE(place.sibling, situation.placeOfLowest.sibling);
    QCOMPARE(isInOrder(stack, idsOf(situation.ours)), situation.isInOrder);
}

void StackingOrderTest::restackingPutsEachSituationInOrder()
{
    QFETCH(Situation, situation);
    WindowStack stack{situation.stack, situation.screens, situation.desktop};
    StackPlace place = placeOfLowest(stack);
    for (const RootChild &window : situation.ours) {
        move(stack.children, window, place);
        place = above(window);
    }
    QVERIFY(isInOrder(stack, idsOf(situation.ours)));
}

void StackingOrderTest::aWindowUnknownToTheServerIsNotInOrder()
{
    const WindowStack stack{{kApplication, kCanvas}, {kLeftScreen}, kWholeDesktop};
    QVERIFY(isInOrder(stack, idsOf({kCanvas})));
    QVERIFY(!isInOrder(stack, idsOf({kCanvas, kToolbar})));
}

REGISTER_APPLESS_TEST(StackingOrderTest)
#include "stacking_order_test.moc"
