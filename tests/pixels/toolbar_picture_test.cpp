// The whole toolbar against stored pictures. After a deliberate change they are painted anew with
// ZEIGEWERK_STORE_PICTURES=1 in the environment; look at them before you commit them.

#include "registered_test.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "unit/controller_fixture.h"

#include <QPainter>
#include <QTest>

using namespace zeigewerk;
using test::Controller;

namespace {

/// What the toolbar is seen against: no grey of its own.
constexpr QColor kGround(0x4C, 0x86, 0xA8);
/// Squares of that many pixels are compared by their mean, so that another rounding of an antialiased edge
/// does not count.
constexpr int kSquare = 4;
/// How far the mean of a square may be off, in 255ths of each of red, green and blue.
constexpr int kTolerance = 12;

QImage pictureOf(Controller &controller, int scale)
{
    Panel &panel = *controller.app().toolbar()->panel;
    QImage image(panel.size() * scale, QImage::Format_RGB32);
    image.fill(kGround);
    QPainter painter(&image);
    painter.scale(scale, scale);
    panel.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
}

QImage means(const QImage &image)
{
    return image.scaled(image.size() / kSquare, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The first square that is off, told with both colours; empty when none is.
QString firstDifference(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("the sizes differ");
    const QImage one = means(actual);
    const QImage other = means(expected);
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            if (std::abs(a.red() - b.red()) > kTolerance || std::abs(a.green() - b.green()) > kTolerance ||
                std::abs(a.blue() - b.blue()) > kTolerance)
                return QStringLiteral("at %1, %2: %3 instead of %4")
                    .arg(x * kSquare)
                    .arg(y * kSquare)
                    .arg(a.name(), b.name());
        }
    }
    return {};
}

QString storedPath(const QString &name)
{
    return QStringLiteral(ZEIGEWERK_PICTURES_DIR "/%1.png").arg(name);
}

/// A state in which every kind of highlight shows.
std::unique_ptr<Controller> inUse(bool dark)
{
    auto controller = std::make_unique<Controller>();
    controller->defaults.setBool(kDarkUIKey, dark);
    controller->perform(QStringLiteral("dsr"));
    controller->app().setTool(Tool::ellipse);
    controller->app().setColor(kPalette.at(5));
    controller->app().setLineWidth(9.0);
    return controller;
}

} // namespace

class ToolbarPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itLooksAsStored_data();
    void itLooksAsStored();
    void aWrongColourIsSeen();
    void aMissingSymbolIsSeen();
    void aMovedButtonIsSeen();
};

void ToolbarPictureTest::itLooksAsStored_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("scale");
    for (const int scale : {1, 2}) {
        QTest::addRow("toolbar-dark-%d", scale) << true << scale;
        QTest::addRow("toolbar-light-%d", scale) << false << scale;
    }
}

void ToolbarPictureTest::itLooksAsStored()
{
    QFETCH(bool, dark);
    QFETCH(int, scale);
    const QString path = storedPath(QString::fromLatin1(QTest::currentDataTag()));
    const QImage actual = pictureOf(*inUse(dark), scale);
    if (qEnvironmentVariableIsSet("ZEIGEWERK_STORE_PICTURES"))
        QVERIFY(actual.save(path));
    const QImage stored(path);
    QVERIFY2(!stored.isNull(), qPrintable(path));
    QCOMPARE(firstDifference(actual, stored), QString());
}

void ToolbarPictureTest::aWrongColourIsSeen()
{
    const auto controller = inUse(true);
    const QImage right = pictureOf(*controller, 1);
    // The neighbouring hue, and the neutral tint at another strength.
    controller->app().toolbar()->btnSpot->setBackground(Color::hex(0xF28000));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), right).isEmpty());
    controller->app().refreshToolbar();
    QCOMPARE(firstDifference(pictureOf(*controller, 1), right), QString());
    controller->app().toolbar()->btnPin->setContentTint(kWhite.withAlpha(0.8));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), right).isEmpty());
}

void ToolbarPictureTest::aMissingSymbolIsSeen()
{
    const auto controller = inUse(false);
    const QImage right = pictureOf(*controller, 1);
    for (PalButton *button : controller->app().toolbar()->allButtons()) {
        if (!button->image())
            continue;
        const TemplateImage image = *button->image();
        button->setImage(TemplateImage(image.size(), [](QPainter &) {}));
        QVERIFY2(!firstDifference(pictureOf(*controller, 1), right).isEmpty(),
                 qPrintable(button->accessibleName()));
        button->setImage(image);
    }
    QCOMPARE(firstDifference(pictureOf(*controller, 1), right), QString());
}

void ToolbarPictureTest::aMovedButtonIsSeen()
{
    const auto controller = inUse(true);
    const QImage right = pictureOf(*controller, 1);
    PalButton *button = controller->app().toolbar()->widthButtons.front();
    button->move(button->pos() + QPoint(2, 0));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), right).isEmpty());
}

REGISTER_TEST(ToolbarPictureTest)
#include "toolbar_picture_test.moc"
