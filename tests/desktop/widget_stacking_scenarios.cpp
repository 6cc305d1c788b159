// The stacking order of a widget's window.
#include "registered_test.h"
#include "seam_stand_in.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QMargins kOrnament(20, 16, 20, 24);
const QSize kWidgetSize(150, 300);

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

    // The widget is at (200, 500), and the other windows overlap it.
    QTest::newRow("bottom to top") << QStringList{"overlay", "show", "effect 250 600"};
    QTest::newRow("top to bottom") << QStringList{"effect 250 600", "show", "overlay"};
    QTest::newRow("the widget shown again") << QStringList{"show", "effect 250 600", "overlay", "show"};
    QTest::newRow("the widget hidden in between")
        << QStringList{"show", "hide", "effect 250 600", "overlay", "show"};
}

void WidgetStackingScenarios::levelsKeepTheirOrder()
{
    QFETCH(QStringList, shown);
    DesktopSession session;
    SeamStandIn standIn(session);
    standIn.tell("move 200 500");
    for (const QString &verb : shown)
        standIn.tell(verb);
    EVENTUALLY(standIn.windows().size() == 3);
    QCOMPARE(sizesOf(standIn.windows()),
             QList<QSize>({VirtualDisplay::kFullHd.size(), kWidgetSize.grownBy(kOrnament), QSize(56, 56)}));
    EVENTUALLY(!standIn.red().isEmpty());
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
    SeamStandIn standIn(session);
    standIn.tell("move 200 500");
    for (const QString verb : {"show", "overlay", "effect 250 600"})
        standIn.tell(verb);
    EVENTUALLY(standIn.windows().size() == 3);
    const QList<QSize> below = sizesOf(standIn.windows());

    standIn.tell(popup);
    EVENTUALLY(standIn.windows().size() == 4);
    const QList<QSize> all = sizesOf(standIn.windows());
    QCOMPARE(all.first(3), below);
    // Qt shows a tooltip slightly below and to the right of the pointer.
    const QRect shown = standIn.windows().at(3).geometry;
    QVERIFY(QRect(250, 300, 10, 30).contains(shown.topLeft()));

    // Another program's popup is on top until the program corrects that.
    Popup otherPopup(session, {100, 100, 600, 600}, Qt::green);
    const auto isRight = [&] {
        return sizesOf(standIn.windows()) == all &&
               session.client().isAbove(standIn.windows().constFirst().id, otherPopup.id());
    };
    EVENTUALLY(isRight() && session.screenshot().count(Qt::red, shown) == 0);
    otherPopup.raise();
    EVENTUALLY(isRight());
}

void WidgetStackingScenarios::aMenuThatOpensBelowAnOverlayIsRaised()
{
    DesktopSession session;
    SeamStandIn standIn(session);
    standIn.tell("move 200 500");
    standIn.tell("show");
    standIn.tell("overlay");
    EVENTUALLY(standIn.windows().size() == 2);
    // Longer than until the last check after the overlay was shown: only the menu can cause another one.
    THROUGHOUT(600ms, standIn.windows().size() == 2);
    standIn.tell("lowered menu 250 300");
    EVENTUALLY(standIn.windows().size() == 3);
    EVENTUALLY(standIn.windows().constLast().geometry.topLeft() == QPoint(250, 300));
}

REGISTER_GUILESS_TEST(WidgetStackingScenarios)
#include "widget_stacking_scenarios.moc"
