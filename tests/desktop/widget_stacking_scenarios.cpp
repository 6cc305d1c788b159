// The stacking order of a widget's window.
#include "registered_test.h"
#include "seam.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QMargins kOrnament(20, 16, 20, 24);
const QSize kSlab(150, 300);

QList<QSize> sizesOf(const QList<WindowInfo> &windows)
{
    QList<QSize> sizes;
    for (const WindowInfo &window : windows)
        sizes.append(window.geometry.size());
    return sizes;
}

} // namespace

class WidgetStackingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levelsKeepTheirOrder_data();
    void levelsKeepTheirOrder();
    void menusAndTooltipsOpenAboveIt_data();
    void menusAndTooltipsOpenAboveIt();
    void aMenuThatOpensBelowAnOverlayIsRaised();
};

void WidgetStackingScenarios::levelsKeepTheirOrder_data()
{
    QTest::addColumn<QStringList>("shown");

    // The slab is at (200, 500), and the other windows overlap it.
    QTest::newRow("bottom to top") << QStringList{"overlay", "show", "effect 250 600"};
    QTest::newRow("top to bottom") << QStringList{"effect 250 600", "show", "overlay"};
    QTest::newRow("the slab shown again") << QStringList{"show", "effect 250 600", "overlay", "show"};
    QTest::newRow("the slab hidden in between")
        << QStringList{"show", "hide", "effect 250 600", "overlay", "show"};
}

void WidgetStackingScenarios::levelsKeepTheirOrder()
{
    QFETCH(QStringList, shown);
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    for (const QString &verb : shown)
        seam.tell(verb);
    EVENTUALLY(seam.windows().size() == 3);
    QCOMPARE(sizesOf(seam.windows()),
             QList<QSize>({VirtualDisplay::kFullHd.size(), kSlab.grownBy(kOrnament), QSize(56, 56)}));
    EVENTUALLY(!seam.red().isEmpty());
}

void WidgetStackingScenarios::menusAndTooltipsOpenAboveIt_data()
{
    QTest::addColumn<QString>("popup");
    QTest::newRow("menu") << "menu 250 300";
    QTest::newRow("tooltip") << "tooltip 250 300";
}

void WidgetStackingScenarios::menusAndTooltipsOpenAboveIt()
{
    QFETCH(QString, popup);
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    for (const QString verb : {"show", "overlay", "effect 250 600"})
        seam.tell(verb);
    EVENTUALLY(seam.windows().size() == 3);
    const QList<QSize> below = sizesOf(seam.windows());

    seam.tell(popup);
    EVENTUALLY(seam.windows().size() == 4);
    const QList<QSize> all = sizesOf(seam.windows());
    QCOMPARE(all.first(3), below);
    // Qt shows a tooltip slightly below and to the right of the pointer.
    const QRect shown = seam.windows().at(3).geometry;
    QVERIFY(QRect(250, 300, 10, 30).contains(shown.topLeft()));

    // Another program's popup is on top until the program corrects that.
    Popup foreign(session, {100, 100, 600, 600}, Qt::green);
    const auto isRight = [&] {
        return sizesOf(seam.windows()) == all &&
               session.client().isAbove(seam.windows().constFirst().id, foreign.id());
    };
    EVENTUALLY(isRight() && session.screenshot().count(Qt::red, shown) == 0);
    foreign.raise();
    EVENTUALLY(isRight());
}

void WidgetStackingScenarios::aMenuThatOpensBelowAnOverlayIsRaised()
{
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    seam.tell("show");
    seam.tell("overlay");
    EVENTUALLY(seam.windows().size() == 2);
    // Longer than until the last check after the overlay was shown: only the menu can cause another one.
    THROUGHOUT(600ms, seam.windows().size() == 2);
    seam.tell("lowered menu 250 300");
    EVENTUALLY(seam.windows().size() == 3);
    EVENTUALLY(seam.windows().constLast().geometry.topLeft() == QPoint(250, 300));
}

REGISTER_GUILESS_TEST(WidgetStackingScenarios)
#include "widget_stacking_scenarios.moc"
