#include "controller_fixture.h"
#include "registered_test.h"
#include "toolbar/panel.h"
#include "toolbar/toolbar_placement.h"

#include <QTest>

using namespace zeigewerk;
using platform::RecordingSurface;
using platform::SurfaceRole;
using test::Controller;
using test::twoScreens;

namespace {

RecordingSurface &overlay(const Controller &controller, std::size_t index)
{
    return *controller.desktop.surfaces(SurfaceRole::Overlay).at(index);
}

/// How dark the canvas of one screen is at a point of its view (y up); 0 where nothing is painted.
int alphaAt(const Controller &controller, std::size_t screen, QPoint point)
{
    overlay(controller, screen).display();
    const QImage &image = overlay(controller, screen).image();
    return qAlpha(image.pixel(point.x(), image.height() - 1 - point.y()));
}

} // namespace

/// A desktop need not tell where the pointer is.
class UnknownPointerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDesktopIsToldWhenSomethingFollowsThePointer_data();
    void theDesktopIsToldWhenSomethingFollowsThePointer();
    void theFirstOverlayGetsTheKeyboard();
    void theSpotlightDimsNothingUntilThePlaceIsKnown();
    void theRingAppearsOnceThePlaceIsKnown();
    void theToolbarIsDraggedByItsOwnEvents();
};

void UnknownPointerTest::theDesktopIsToldWhenSomethingFollowsThePointer_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<bool>("follows");

    // A table, one row per line.
    // clang-format off
    QTest::newRow("at the start")            << ""      << false;
    QTest::newRow("spotlight")               << "s"     << true;
    QTest::newRow("ring")                    << "r"     << true;
    QTest::newRow("spotlight on and off")    << "ss"    << false;
    QTest::newRow("both, one of them ended") << "srs"   << true;
    QTest::newRow("Esc ends the spotlight")  << "se"    << false;
    QTest::newRow("Esc leaves the ring")     << "sre"   << true;
    QTest::newRow("every other mode")        << "dwpkf" << false;
    // clang-format on
}

void UnknownPointerTest::theDesktopIsToldWhenSomethingFollowsThePointer()
{
    QFETCH(QString, operations);
    QFETCH(bool, follows);
    Controller controller;
    controller.perform(operations);
    QCOMPARE(controller.desktop.followsPointer(), follows);
}

void UnknownPointerTest::theFirstOverlayGetsTheKeyboard()
{
    Controller controller(twoScreens());
    controller.desktop.setMouseLocation({1200, 300});
    controller.desktop.hideMouseLocation();
    controller.perform("d");
    QCOMPARE(controller.desktop.keyWindow(), QString("overlay 0"));
}

void UnknownPointerTest::theSpotlightDimsNothingUntilThePlaceIsKnown()
{
    Controller controller(twoScreens());
    controller.desktop.hideMouseLocation();
    controller.perform("s");
    QCOMPARE(alphaAt(controller, 0, {500, 400}), 0);
    QCOMPARE(alphaAt(controller, 1, {500, 400}), 0);

    controller.desktop.setMouseLocation({500, 400});
    controller.app().followPointer();
    QCOMPARE(alphaAt(controller, 0, {500, 400}), 0);
    QVERIFY(alphaAt(controller, 0, {10, 10}) > 0);
    QVERIFY(alphaAt(controller, 1, {400, 300}) > 0);

    controller.desktop.hideMouseLocation();
    controller.app().followPointer();
    QCOMPARE(alphaAt(controller, 0, {10, 10}), 0);
    QCOMPARE(alphaAt(controller, 1, {400, 300}), 0);
}

void UnknownPointerTest::theRingAppearsOnceThePlaceIsKnown()
{
    Controller controller;
    controller.desktop.hideMouseLocation();
    controller.perform("r");
    const RecordingSurface &ring = *controller.desktop.surfaces(SurfaceRole::Effect).at(0);
    QVERIFY(!ring.isVisible());
    controller.app().followPointer();
    QVERIFY(!ring.isVisible());
    controller.desktop.setMouseLocation({500, 400});
    controller.app().followPointer();
    QVERIFY(ring.isVisible());
    QCOMPARE(ring.frame().center(), QPointF(500, 400));
    // It stays at the last known place.
    controller.desktop.hideMouseLocation();
    controller.app().followPointer();
    QVERIFY(ring.isVisible());
    QCOMPARE(ring.frame().center(), QPointF(500, 400));
}

void UnknownPointerTest::theToolbarIsDraggedByItsOwnEvents()
{
    Controller controller;
    controller.desktop.hideMouseLocation();
    Panel &panel = *controller.app().toolbar()->panel;
    const platform::WidgetWindow &window = *controller.app().toolbar()->window;
    const QPointF before = window.frame().topLeft();
    const QPoint grip = panel.frameRect().topLeft() + QPoint(5, 60);
    QTest::mousePress(&panel, Qt::LeftButton, {}, grip);
    // The positions are the widget's, which has moved with the first event.
    QTest::mouseMove(&panel, grip + QPoint(-20, 30));
    QCOMPARE(window.frame().topLeft(), before + QPointF(-20, -30));
    QTest::mouseMove(&panel, grip + QPoint(-1, 0));
    QCOMPARE(window.frame().topLeft(), before + QPointF(-21, -30));
    QTest::mouseRelease(&panel, Qt::LeftButton, {}, grip);
    QVERIFY(controller.defaults.stringForKey(kToolbarFrameKey));
}

REGISTER_TEST(UnknownPointerTest)
#include "unknown_pointer_test.moc"
