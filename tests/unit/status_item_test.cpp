#include "commands/status_icon.h"
#include "commands/status_item.h"
#include "controller_fixture.h"
#include "drawing/color.h"
#include "drawing/qt_color.h"
#include "registered_test.h"
#include "toolbar/template_image.h"

#include <QPainter>
#include <QTest>

using namespace zeigewerk;
using test::Controller;

class StatusItemTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void withoutAnyTrayThereIsNoIcon();
    void theIconIsShownInATrayThatIsThere();
    void theIconIsShownInATrayThatComesLater();
    void thePaintedIconHasTheUsualSizes();
    void thePaintedIconIsWhiteWithADarkContour();
    void thePaintedIconIsTransparentBesideTheShape();
};

void StatusItemTest::withoutAnyTrayThereIsNoIcon()
{
    Controller controller;
    QVERIFY(!controller.app().statusItem()->hasIcon());
}

void StatusItemTest::theIconIsShownInATrayThatIsThere()
{
    Controller controller;
    controller.desktop.setEmbeddingTray(true);
    QVERIFY(controller.app().statusItem()->hasIcon());
}

void StatusItemTest::theIconIsShownInATrayThatComesLater()
{
    Controller controller;
    controller.app();
    controller.desktop.setEmbeddingTray(true);
    QVERIFY(controller.app().statusItem()->hasIcon());
    // Qt keeps the place for the next tray.
    controller.desktop.setEmbeddingTray(false);
    controller.desktop.setEmbeddingTray(true);
    QVERIFY(controller.app().statusItem()->hasIcon());
}

void StatusItemTest::thePaintedIconHasTheUsualSizes()
{
    const TemplateImage shape({20, 20}, [](QPainter &) {});
    const QList<QSize> expected = {{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    QCOMPARE(contouredIcon(shape).availableSizes(), expected);
}

void StatusItemTest::thePaintedIconIsWhiteWithADarkContour()
{
    const TemplateImage square({20, 20},
                               [](QPainter &painter) { painter.fillRect(0, 0, 20, 20, Qt::black); });
    const QIcon icon = contouredIcon(square);
    for (const QSize size : icon.availableSizes()) {
        const QImage image = icon.pixmap(size, 1.0).toImage();
        const int last = size.width() - 1;
        const int middle = size.width() / 2;
        for (const QPoint place : {QPoint(0, 0), QPoint(0, middle), QPoint(last, middle), QPoint(middle, 0),
                                   QPoint(middle, last), QPoint(last, last)})
            QCOMPARE(image.pixelColor(place), toQColor(kNavy));
        QCOMPARE(image.pixelColor(middle, middle), QColor(Qt::white));
    }
}

void StatusItemTest::thePaintedIconIsTransparentBesideTheShape()
{
    const TemplateImage bar({20, 10}, [](QPainter &painter) { painter.fillRect(0, 0, 20, 10, Qt::black); });
    const QIcon icon = contouredIcon(bar);
    for (const QSize size : icon.availableSizes()) {
        const QImage image = icon.pixmap(size, 1.0).toImage();
        const int middle = size.width() / 2;
        QCOMPARE(image.pixelColor(middle, middle), QColor(Qt::white));
        QCOMPARE(image.pixelColor(middle, 0).alpha(), 0);
        QCOMPARE(image.pixelColor(middle, size.height() - 1).alpha(), 0);
    }
}

REGISTER_TEST(StatusItemTest)
#include "status_item_test.moc"
