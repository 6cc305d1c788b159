// Compares the whole toolbar with stored pictures. After a deliberate change, run this test with
// ZEIGEWERK_STORE_PICTURES=1 in the environment to store new ones, and look at them before you commit them.

#include "registered_test.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "unit/controller_fixture.h"

#include <QPainter>
#include <QTest>

using namespace zeigewerk;
using test::Controller;

namespace {

/// The background behind the toolbar; a colour that cannot be mistaken for its greys.
constexpr QColor kBackground(0x4C, 0x86, 0xA8);
/// The side of the squares whose mean colours are compared, in pixels. The means hide differences in the
/// rounding of antialiased edges.
constexpr int kSquare = 4;
/// How far the mean of a square may be off, in 255ths, in each of red, green and blue.
constexpr int kTolerance = 12;

QImage pictureOf(Controller &controller, int scale)
{
    Panel &panel = *controller.app().toolbar()->panel;
    QImage image(panel.size() * scale, QImage::Format_RGB32);
    image.fill(kBackground);
    QPainter painter(&image);
    painter.scale(scale, scale);
    panel.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
}

QImage means(const QImage &image)
{
    return image.scaled(image.size() / kSquare, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Describes the first square that is off; empty if there is none.
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

/// A controller in a state that shows every kind of highlight.
std::unique_ptr<Controller> withHighlights(bool dark)
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
    void theToolbarLooksLikeItsStoredPicture_data();
    void theToolbarLooksLikeItsStoredPicture();
    void aWrongColourIsDetected();
    void aMissingSymbolIsDetected();
    void aMovedButtonIsDetected();
};

void ToolbarPictureTest::theToolbarLooksLikeItsStoredPicture_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("scale");
    for (const int scale : {1, 2}) {
        QTest::addRow("toolbar-dark-%d", scale) << true << scale;
        QTest::addRow("toolbar-light-%d", scale) << false << scale;
    }
}

void ToolbarPictureTest::theToolbarLooksLikeItsStoredPicture()
{
    QFETCH(bool, dark);
    QFETCH(int, scale);
    const QString path = storedPath(QString::fromLatin1(QTest::currentDataTag()));
    const QImage actual = pictureOf(*withHighlights(dark), scale);
    if (qEnvironmentVariableIsSet("ZEIGEWERK_STORE_PICTURES"))
        QVERIFY(actual.save(path));
    const QImage stored(path);
    QVERIFY2(!stored.isNull(), qPrintable(path));
    QCOMPARE(firstDifference(actual, stored), QString());
}

void ToolbarPictureTest::aWrongColourIsDetected()
{
    const auto controller = withHighlights(true);
    const QImage expected = pictureOf(*controller, 1);
    // A slightly different hue, and the neutral tint with a different alpha.
    controller->app().toolbar()->btnSpot->setBackground(Color::hex(0xF28000));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), expected).isEmpty());
    controller->app().refreshToolbar();
    QCOMPARE(firstDifference(pictureOf(*controller, 1), expected), QString());
    controller->app().toolbar()->btnPin->setContentTint(kWhite.withAlpha(0.8));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), expected).isEmpty());
}

void ToolbarPictureTest::aMissingSymbolIsDetected()
{
    const auto controller = withHighlights(false);
    const QImage expected = pictureOf(*controller, 1);
    for (PalButton *button : controller->app().toolbar()->allButtons()) {
        if (!button->image())
            continue;
        const TemplateImage image = *button->image();
        button->setImage(TemplateImage(image.size(), [](QPainter &) {}));
        QVERIFY2(!firstDifference(pictureOf(*controller, 1), expected).isEmpty(),
                 qPrintable(button->accessibleName()));
        button->setImage(image);
    }
    QCOMPARE(firstDifference(pictureOf(*controller, 1), expected), QString());
}

void ToolbarPictureTest::aMovedButtonIsDetected()
{
    const auto controller = withHighlights(true);
    const QImage expected = pictureOf(*controller, 1);
    PalButton *button = controller->app().toolbar()->widthButtons.front();
    button->move(button->pos() + QPoint(2, 0));
    QVERIFY(!firstDifference(pictureOf(*controller, 1), expected).isEmpty());
}

REGISTER_TEST(ToolbarPictureTest)
#include "toolbar_picture_test.moc"
