#include "commands/status_icon.h"
#include "commands/status_item.h"
#include "controller_fixture.h"
#include "drawing/color.h"
#include "drawing/qt_color.h"
#include "registered_test.h"
#include "toolbar/template_image.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

using namespace zeigewerk;
using test::Controller;

namespace {

/// Adds an icon of that name to a theme in that folder.
bool addBlackIcon(const QDir &themes, const QString &name)
{
    QFile index(themes.filePath(QStringLiteral("hicolor/index.theme")));
    QImage black(16, 16, QImage::Format_ARGB32);
    black.fill(Qt::black);
    return themes.mkpath(QStringLiteral("hicolor/16")) && index.open(QFile::WriteOnly) &&
           index.write("[Icon Theme]\nName=hicolor\nDirectories=16\n[16]\nSize=16\n") > 0 &&
           black.save(themes.filePath(QStringLiteral("hicolor/16/%1.png").arg(name)));
}

/// The icon as it is painted by a tray that does not use its name.
QImage paintedInto(const QIcon &icon, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, image.rect());
    return image;
}

} // namespace

class StatusItemTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void withoutAnyTrayThereIsNoIcon();
    void theIconIsShownInAnExistingTray();
    void theIconIsShownInATrayThatAppearsLater();
    void thePaintedIconHasTheUsualSizes();
    void thePaintedIconIsWhiteWithADarkContour();
    void thePaintedIconIsTransparentAroundTheShape();
    void withoutAnIconInTheThemeTheIconHasNoName();
    void anIconInTheThemeGivesItsNameButNotItsLook();
};

void StatusItemTest::withoutAnyTrayThereIsNoIcon()
{
    Controller controller;
    QVERIFY(!controller.app().statusItem()->hasIcon());
}

void StatusItemTest::theIconIsShownInAnExistingTray()
{
    Controller controller;
    controller.desktop.setTray(true);
    QVERIFY(controller.app().statusItem()->hasIcon());
}

void StatusItemTest::theIconIsShownInATrayThatAppearsLater()
{
    Controller controller;
    controller.app();
    controller.desktop.setTray(true);
    QVERIFY(controller.app().statusItem()->hasIcon());
    // Qt keeps the icon for the next tray.
    controller.desktop.setTray(false);
    controller.desktop.setTray(true);
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

void StatusItemTest::thePaintedIconIsTransparentAroundTheShape()
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

void StatusItemTest::withoutAnIconInTheThemeTheIconHasNoName()
{
    // The themes of this machine may have one.
    const QTemporaryDir themes;
    QIcon::setThemeSearchPaths({themes.path()});
    QVERIFY(statusIcon().name().isEmpty());
    QVERIFY(!statusIcon().availableSizes().isEmpty());
}

void StatusItemTest::anIconInTheThemeGivesItsNameButNotItsLook()
{
    const QTemporaryDir themes;
    QIcon::setThemeSearchPaths({themes.path()});
    const QIcon painted = statusIcon();
    QVERIFY(addBlackIcon(QDir(themes.path()), QStringLiteral("zeigewerk-symbolic")));
    QIcon::setThemeName(QStringLiteral("hicolor"));

    const QIcon icon = statusIcon();
    QCOMPARE(icon.name(), QStringLiteral("zeigewerk-symbolic"));
    QCOMPARE(icon.availableSizes(), painted.availableSizes());
    for (const QSize size : icon.availableSizes()) {
        QCOMPARE(icon.pixmap(size, 1.0).toImage(), painted.pixmap(size, 1.0).toImage());
        QCOMPARE(paintedInto(icon, size), paintedInto(painted, size));
    }
}

REGISTER_TEST(StatusItemTest)
#include "status_item_test.moc"
