#include "platform/x11/struts.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk::platform::x11;

using Edge = Strut::Edge;
using Values = std::vector<std::uint32_t>;

namespace {

// Two screens side by side on a desktop of 2880 x 1024; the right one is shorter.
const QRect kLeft(0, 0, 1280, 1024);
const QRect kRight(1280, 0, 1600, 900);
const QSize kDesktop(2880, 1024);

} // namespace

class StrutsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strutsAreReadFromTheProperty_data();
    void strutsAreReadFromTheProperty();
    void anEmptyDesktopHasNoStruts_data();
    void anEmptyDesktopHasNoStruts();
    void eachScreenLosesOnlyWhatItsDocksTake_data();
    void eachScreenLosesOnlyWhatItsDocksTake();
    void theDeepestStrutOfAnEdgeCounts();
    void strutsOfDifferentEdgesAllCount();
    void docksThatMeetLeaveNothing();
};

void StrutsTest::strutsAreReadFromTheProperty_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<std::vector<Strut>>("struts");

    const auto row = [](const char *name, const Values &values, const std::vector<Strut> &struts) {
        QTest::newRow(name) << values << struts;
    };
    constexpr std::uint32_t kMax = 0xFFFFFFFF;
    // A strut is given by its edge, depth, start and end.
    row("top, part of the edge", {0, 0, 30, 0, 0, 0, 0, 0, 1280, 2879, 0, 0}, {{Edge::Top, 30, 1280, 2879}});
    row("all four", {1, 2, 3, 4, 10, 19, 20, 29, 30, 39, 40, 49},
        {{Edge::Left, 1, 10, 19},
         {Edge::Right, 2, 20, 29},
         {Edge::Top, 3, 30, 39},
         {Edge::Bottom, 4, 40, 49}});
    row("without ranges", {50, 0, 0, 40}, {{Edge::Left, 50, 0, 1023}, {Edge::Bottom, 40, 0, 2879}});
    row("nothing taken", {0, 0, 0, 0}, {});
    row("wrong number of values", {50, 0, 0}, {});
    row("no values", {}, {});
    row("start after the end", {0, 0, 30, 0, 0, 0, 0, 0, 500, 400, 0, 0}, {});
    row("range outside the desktop", {0, 0, 30, 0, 0, 0, 0, 0, 5000, 6000, 0, 0}, {});
    row("huge values", {0, 0, kMax, 0, 0, 0, 0, 0, 0, kMax, 0, 0}, {{Edge::Top, 1024, 0, 2879}});
}

void StrutsTest::strutsAreReadFromTheProperty()
{
    QFETCH(Values, values);
    QFETCH(std::vector<Strut>, struts);
    QVERIFY(strutsOf(values, kDesktop) == struts);
}

void StrutsTest::anEmptyDesktopHasNoStruts_data()
{
    QTest::addColumn<QSize>("desktop");
    QTest::newRow("unknown") << QSize();
    QTest::newRow("no width") << QSize(0, 1024);
    QTest::newRow("no height") << QSize(2880, 0);
}

void StrutsTest::anEmptyDesktopHasNoStruts()
{
    QFETCH(QSize, desktop);
    constexpr std::uint32_t kEnd = 0x7FFFFFFF;
    QVERIFY(strutsOf(Values{1, 2, 3, 4, 0, kEnd, 0, kEnd, 0, kEnd, 0, kEnd}, desktop).empty());
    QVERIFY(strutsOf(Values{1, 2, 3, 4}, desktop).empty());
}

void StrutsTest::eachScreenLosesOnlyWhatItsDocksTake_data()
{
    QTest::addColumn<Strut>("strut");
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("right");

    const auto row = [](const char *name, const Strut &strut, QMargins takenLeft, QMargins takenRight) {
        QTest::newRow(name) << strut << kLeft - takenLeft << kRight - takenRight;
    };
    // The strut by its edge, depth, start and end; the margins that it takes from the left and the right
    // screen.
    row("top of the left screen", {Edge::Top, 30, 0, 1279}, {0, 30, 0, 0}, {});
    row("top of the right screen", {Edge::Top, 30, 1280, 2879}, {}, {0, 30, 0, 0});
    row("a short dock in the middle of the top", {Edge::Top, 30, 600, 700}, {0, 30, 0, 0}, {});
    row("along the top of both", {Edge::Top, 30, 0, 2879}, {0, 30, 0, 0}, {0, 30, 0, 0});
    row("bottom of the left screen", {Edge::Bottom, 40, 0, 1279}, {0, 0, 0, 40}, {});
    // Counted from the desktop's lower edge, 124 pixels below the right screen.
    row("bottom of the right screen", {Edge::Bottom, 124 + 40, 1280, 2879}, {}, {0, 0, 0, 40});
    row("ends below the right screen", {Edge::Bottom, 124, 1280, 2879}, {}, {});
    row("outer left edge", {Edge::Left, 50, 0, 1023}, {50, 0, 0, 0}, {});
    row("outer right edge", {Edge::Right, 50, 0, 899}, {}, {0, 0, 50, 0});
    row("left edge of the right screen", {Edge::Left, 1280 + 50, 0, 899}, {}, {50, 0, 0, 0});
    row("right edge of the left screen", {Edge::Right, 1600 + 50, 0, 1023}, {0, 0, 50, 0}, {});
    row("as wide as the left screen", {Edge::Left, 1280, 0, 1023}, {}, {});
}

void StrutsTest::eachScreenLosesOnlyWhatItsDocksTake()
{
    QFETCH(Strut, strut);
    QFETCH(QRect, left);
    QFETCH(QRect, right);
    QCOMPARE(withoutStruts(kLeft, kDesktop, {&strut, 1}), left);
    QCOMPARE(withoutStruts(kRight, kDesktop, {&strut, 1}), right);
}

void StrutsTest::theDeepestStrutOfAnEdgeCounts()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 20, .start = 0, .end = 600},
                                       {.edge = Edge::Top, .depth = 35, .start = 0, .end = 1279},
                                       {.edge = Edge::Top, .depth = 10, .start = 700, .end = 1279}};
    QCOMPARE(withoutStruts(kLeft, kDesktop, struts), kLeft.adjusted(0, 35, 0, 0));
}

void StrutsTest::strutsOfDifferentEdgesAllCount()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 20, .start = 0, .end = 1279},
                                       {.edge = Edge::Bottom, .depth = 30, .start = 0, .end = 1279},
                                       {.edge = Edge::Left, .depth = 40, .start = 0, .end = 1023}};
    QCOMPARE(withoutStruts(kLeft, kDesktop, struts), kLeft.adjusted(40, 20, 0, -30));
    QCOMPARE(withoutStruts(kRight, kDesktop, {}), kRight);
}

void StrutsTest::docksThatMeetLeaveNothing()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 600, .start = 0, .end = 1279},
                                       {.edge = Edge::Bottom, .depth = 600, .start = 0, .end = 1279}};
    QVERIFY(withoutStruts(kLeft, kDesktop, struts).isEmpty());
}

REGISTER_TEST(StrutsTest)
#include "struts_test.moc"
