#include "commands/status_icon.h"
#include "commands/status_item.h"
#include "controller_fixture.h"
#include "drawing/color.h"
#include "drawing/qt_color.h"
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
    // A bar from the left edge to the right one, half as high as the picture.
    const TemplateImage bar({20, 20}, [](QPainter &painter) { painter.fillRect(0, 5, 20, 10, Qt::black); });
    const QIcon icon = contouredIcon(bar);
    for (const QSize size : icon.availableSizes()) {
        const QImage image = icon.pixmap(size, 1.0).toImage();
        const int middle = size.width() / 2;
        QCOMPARE(image.pixelColor(middle, middle), QColor(Qt::white));
        QCOMPARE(image.pixelColor(middle, 0).alpha(), 0);
        QCOMPARE(image.pixelColor(0, middle), toQColor(kNavy));
        QCOMPARE(image.pixelColor(size.width() - 1, middle), toQColor(kNavy));
        int y = 0;
        while (image.pixelColor(middle, y).alpha() == 0)
            ++y;
        // The bar's edge may lie between two pixels.
        QCOMPARE(image.pixelColor(middle, image.pixelColor(middle, y).alpha() == 255 ? y : y + 1),
                 toQColor(kNavy));
    }
}

QTEST_MAIN(StatusItemTest)
#include "status_item_test.moc"
