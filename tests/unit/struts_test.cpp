#include "platform/x11/struts.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk::platform::x11;

using Edge = Strut::Edge;
using Values = std::vector<std::uint32_t>;

namespace {

// Two screens side by side, the second one lower, in a desktop of 2880 x 1024.
const QRect kLeft(0, 0, 1280, 1024);
const QRect kRight(1280, 0, 1600, 900);
const QSize kDesktop(2880, 1024);

} // namespace

class StrutsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void propertiesAreRead_data();
    void propertiesAreRead();
    void anEmptyDesktopHasNone_data();
    void anEmptyDesktopHasNone();
    void eachScreenLosesWhatItsDocksTake_data();
    void eachScreenLosesWhatItsDocksTake();
    void ofSeveralOnOneEdgeTheDeepestCounts();
    void onDifferentEdgesAllCount();
    void nothingIsLeftBetweenDocksThatMeet();
};

void StrutsTest::propertiesAreRead_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<std::vector<Strut>>("struts");

    QTest::newRow("top, part of the edge")
        << Values{0, 0, 30, 0, 0, 0, 0, 0, 1280, 2879, 0, 0}
        << std::vector<Strut>{{.edge = Edge::Top, .depth = 30, .start = 1280, .end = 2879}};
    QTest::newRow("all four") << Values{1, 2, 3, 4, 10, 19, 20, 29, 30, 39, 40, 49}
                              << std::vector<Strut>{
                                     {.edge = Edge::Left, .depth = 1, .start = 10, .end = 19},
                                     {.edge = Edge::Right, .depth = 2, .start = 20, .end = 29},
                                     {.edge = Edge::Top, .depth = 3, .start = 30, .end = 39},
                                     {.edge = Edge::Bottom, .depth = 4, .start = 40, .end = 49}};
    QTest::newRow("without ranges") << Values{50, 0, 0, 40}
                                    << std::vector<Strut>{
                                           {.edge = Edge::Left, .depth = 50, .start = 0, .end = 1023},
                                           {.edge = Edge::Bottom, .depth = 40, .start = 0, .end = 2879}};
    QTest::newRow("nothing taken") << Values{0, 0, 0, 0} << std::vector<Strut>{};
    QTest::newRow("the wrong number of values") << Values{50, 0, 0} << std::vector<Strut>{};
    QTest::newRow("none") << Values{} << std::vector<Strut>{};
    QTest::newRow("turned round range")
        << Values{0, 0, 30, 0, 0, 0, 0, 0, 500, 400, 0, 0} << std::vector<Strut>{};
    QTest::newRow("a range beside the desktop")
        << Values{0, 0, 30, 0, 0, 0, 0, 0, 5000, 6000, 0, 0} << std::vector<Strut>{};
    QTest::newRow("numbers beyond everything")
        << Values{0, 0, 0xFFFFFFFF, 0, 0, 0, 0, 0, 0, 0xFFFFFFFF, 0, 0}
        << std::vector<Strut>{{.edge = Edge::Top, .depth = 1024, .start = 0, .end = 2879}};
}

void StrutsTest::propertiesAreRead()
{
    QFETCH(Values, values);
    QFETCH(std::vector<Strut>, struts);
    QVERIFY(strutsOf(values, kDesktop) == struts);
}

void StrutsTest::anEmptyDesktopHasNone_data()
{
    QTest::addColumn<QSize>("desktop");
    QTest::newRow("unknown") << QSize();
    QTest::newRow("no width") << QSize(0, 1024);
    QTest::newRow("no height") << QSize(2880, 0);
}

void StrutsTest::anEmptyDesktopHasNone()
{
    QFETCH(QSize, desktop);
    QVERIFY(strutsOf(Values{1, 2, 3, 4, 0, 0x7FFFFFFF, 0, 0x7FFFFFFF, 0, 0x7FFFFFFF, 0, 0x7FFFFFFF}, desktop)
                .empty());
    QVERIFY(strutsOf(Values{1, 2, 3, 4}, desktop).empty());
}

void StrutsTest::eachScreenLosesWhatItsDocksTake_data()
{
    QTest::addColumn<Strut>("strut");
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("right");

    QTest::newRow("top of the left screen") << Strut{.edge = Edge::Top, .depth = 30, .start = 0, .end = 1279}
                                            << kLeft.adjusted(0, 30, 0, 0) << kRight;
    QTest::newRow("top of the right screen")
        << Strut{.edge = Edge::Top, .depth = 30, .start = 1280, .end = 2879} << kLeft
        << kRight.adjusted(0, 30, 0, 0);
    QTest::newRow("a short dock in the middle of the top")
        << Strut{.edge = Edge::Top, .depth = 30, .start = 600, .end = 700} << kLeft.adjusted(0, 30, 0, 0)
        << kRight;
    QTest::newRow("along the top of both") << Strut{.edge = Edge::Top, .depth = 30, .start = 0, .end = 2879}
                                           << kLeft.adjusted(0, 30, 0, 0) << kRight.adjusted(0, 30, 0, 0);
    QTest::newRow("bottom of the left screen")
        << Strut{.edge = Edge::Bottom, .depth = 40, .start = 0, .end = 1279} << kLeft.adjusted(0, 0, 0, -40)
        << kRight;
    // Counted from the desktop's lower edge, 124 pixels below that screen.
    QTest::newRow("bottom of the right screen, which is lower")
        << Strut{.edge = Edge::Bottom, .depth = 124 + 40, .start = 1280, .end = 2879} << kLeft
        << kRight.adjusted(0, 0, 0, -40);
    QTest::newRow("ends below the right screen")
        << Strut{.edge = Edge::Bottom, .depth = 124, .start = 1280, .end = 2879} << kLeft << kRight;
    QTest::newRow("outer left edge") << Strut{.edge = Edge::Left, .depth = 50, .start = 0, .end = 1023}
                                     << kLeft.adjusted(50, 0, 0, 0) << kRight;
    QTest::newRow("outer right edge") << Strut{.edge = Edge::Right, .depth = 50, .start = 0, .end = 899}
                                      << kLeft << kRight.adjusted(0, 0, -50, 0);
    QTest::newRow("left edge of the right screen, across the left one")
        << Strut{.edge = Edge::Left, .depth = 1280 + 50, .start = 0, .end = 899} << kLeft
        << kRight.adjusted(50, 0, 0, 0);
    QTest::newRow("right edge of the left screen, across the right one")
        << Strut{.edge = Edge::Right, .depth = 1600 + 50, .start = 0, .end = 1023}
        << kLeft.adjusted(0, 0, -50, 0) << kRight;
    QTest::newRow("as wide as the left screen")
        << Strut{.edge = Edge::Left, .depth = 1280, .start = 0, .end = 1023} << kLeft << kRight;
}

void StrutsTest::eachScreenLosesWhatItsDocksTake()
{
    QFETCH(Strut, strut);
    QFETCH(QRect, left);
    QFETCH(QRect, right);
    QCOMPARE(withoutStruts(kLeft, kDesktop, {&strut, 1}), left);
    QCOMPARE(withoutStruts(kRight, kDesktop, {&strut, 1}), right);
}

void StrutsTest::ofSeveralOnOneEdgeTheDeepestCounts()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 20, .start = 0, .end = 600},
                                       {.edge = Edge::Top, .depth = 35, .start = 0, .end = 1279},
                                       {.edge = Edge::Top, .depth = 10, .start = 700, .end = 1279}};
    QCOMPARE(withoutStruts(kLeft, kDesktop, struts), kLeft.adjusted(0, 35, 0, 0));
}

void StrutsTest::onDifferentEdgesAllCount()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 20, .start = 0, .end = 1279},
                                       {.edge = Edge::Bottom, .depth = 30, .start = 0, .end = 1279},
                                       {.edge = Edge::Left, .depth = 40, .start = 0, .end = 1023}};
    QCOMPARE(withoutStruts(kLeft, kDesktop, struts), kLeft.adjusted(40, 20, 0, -30));
    QCOMPARE(withoutStruts(kRight, kDesktop, {}), kRight);
}

void StrutsTest::nothingIsLeftBetweenDocksThatMeet()
{
    const std::vector<Strut> struts = {{.edge = Edge::Top, .depth = 600, .start = 0, .end = 1279},
                                       {.edge = Edge::Bottom, .depth = 600, .start = 0, .end = 1279}};
    QVERIFY(withoutStruts(kLeft, kDesktop, struts).isEmpty());
}

REGISTER_TEST(StrutsTest)
#include "struts_test.moc"
