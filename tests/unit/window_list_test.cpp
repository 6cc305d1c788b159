#include "platform/levels.h"
#include "platform/x11/windows/window_list.h"
#include "registered_test.h"

#include <QWidget>

#include <algorithm>

using namespace zeigewerk::platform;
using zeigewerk::platform::x11::WindowList;

namespace {

using Windows = std::vector<xcb_window_t>;

constexpr int kOverlay = Levels::overlay;
constexpr int kToolbar = Levels::toolbar;
constexpr int kEffects = Levels::effects;

struct Case
{
    const char *name = nullptr;
    /// In the order of the order-fronts.
    std::vector<WindowList::Entry> entries;
    Windows shownFromBottom;
};

const std::vector<Case> kCases = {
    {.name = "nothing was made", .entries = {}, .shownFromBottom = {}},
    {.name = "within a level the last one is in front",
     .entries = {{.level = kOverlay, .isShown = true, .windows = {1}},
                 {.level = kOverlay, .isShown = true, .windows = {2}}},
     .shownFromBottom = {1, 2}},
    {.name = "a higher level covers what came later",
     .entries = {{.level = kEffects, .isShown = true, .windows = {1}},
                 {.level = kToolbar, .isShown = true, .windows = {2}},
                 {.level = kOverlay, .isShown = true, .windows = {3}}},
     .shownFromBottom = {3, 2, 1}},
    {.name = "a text field covers overlays that came later, and not the toolbar",
     .entries = {{.level = kToolbar, .isShown = true, .windows = {1}},
                 {.level = kOverlay, .isTextField = true, .isShown = true, .windows = {2}},
                 {.level = kOverlay, .isShown = true, .windows = {3}}},
     .shownFromBottom = {3, 2, 1}},
    {.name = "hidden windows are left out",
     .entries = {{.level = kOverlay, .isShown = false, .windows = {1}},
                 {.level = kToolbar, .isShown = true, .windows = {2}}},
     .shownFromBottom = {2}},
    {.name = "all windows of an entry stay together",
     .entries = {{.level = kOverlay, .isShown = true, .windows = {1, 2}},
                 {.level = kOverlay, .isShown = true, .windows = {3, 4}}},
     .shownFromBottom = {1, 2, 3, 4}},
    {.name = "a widget without a native window yet",
     .entries = {{.level = kToolbar, .isShown = true, .windows = {}}},
     .shownFromBottom = {}},
};

} // namespace

class WindowListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shownWindowsAreListedFromTheBottom_data();
    void shownWindowsAreListedFromTheBottom();
    void anEntryThatIsOrderedFrontAgainComesToTheFront();
    void aRemovedEntryIsForgotten();
    void anOpenMenuIsAboveAllOthers();
};

void WindowListTest::shownWindowsAreListedFromTheBottom_data()
{
    QTest::addColumn<Case>("row");
    for (const Case &row : kCases)
        QTest::newRow(row.name) << row;
}

void WindowListTest::shownWindowsAreListedFromTheBottom()
{
    QFETCH(Case, row);
    WindowList list;
    // Added in the opposite order, which must not matter.
    std::for_each(row.entries.rbegin(), row.entries.rend(), [&](const auto &entry) { list.add(entry); });
    for (WindowList::Entry &entry : row.entries)
        list.orderFront(entry);
    QCOMPARE(list.shownFromBottom(), row.shownFromBottom);
    QCOMPARE(list.isAnyShown(), !row.shownFromBottom.empty());
}

void WindowListTest::anEntryThatIsOrderedFrontAgainComesToTheFront()
{
    WindowList list;
    WindowList::Entry first{.level = kOverlay, .isShown = true, .windows = {1}};
    WindowList::Entry second{.level = kOverlay, .isShown = true, .windows = {2}};
    list.add(first);
    list.add(second);
    list.orderFront(first);
    list.orderFront(second);
    list.orderFront(first);
    QCOMPARE(list.shownFromBottom(), (Windows{2, 1}));
}

void WindowListTest::aRemovedEntryIsForgotten()
{
    WindowList list;
    const WindowList::Entry first{.level = kOverlay, .isShown = true, .windows = {1}};
    const WindowList::Entry second{.level = kToolbar, .isShown = true, .windows = {2}};
    list.add(first);
    list.add(second);
    list.remove(first);
    QCOMPARE(list.shownFromBottom(), Windows{2});
    list.remove(second);
    QVERIFY(!list.isAnyShown());
}

void WindowListTest::anOpenMenuIsAboveAllOthers()
{
    QWidget menu(nullptr, Qt::Popup);
    QWidget tooltip(nullptr, Qt::ToolTip);
    tooltip.show();
    menu.show();
    const auto idOf = [](const QWidget &widget) { return static_cast<xcb_window_t>(widget.winId()); };

    WindowList list;
    WindowList::Entry ring{.level = kEffects, .isShown = false, .windows = {0xFFFFFF}};
    list.add(ring);
    QVERIFY(list.shownFromBottom().empty());
    ring.isShown = true;
    QCOMPARE(list.shownFromBottom(), (Windows{0xFFFFFF, idOf(menu), idOf(tooltip)}));
    menu.hide();
    QCOMPARE(list.shownFromBottom(), (Windows{0xFFFFFF, idOf(tooltip)}));
}

REGISTER_TEST(WindowListTest)
#include "window_list_test.moc"
