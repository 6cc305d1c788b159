// Typed text must not move when it becomes a drawing.

#include "canvas/text_field.h"
#include "drawing/blend.h"
#include "drawing/render_shape.h"
#include "drawing/text_line.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <algorithm>
#include <cstdlib>

namespace zeigewerk::test {

namespace {

constexpr QSize kFieldSize(340, 32);

/// The field without its window, at that scale.
QImage pictureOf(TextField &field, double scale)
{
    QImage image((QSizeF(kFieldSize) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    field.render(&image, {}, {}, QWidget::DrawChildren);
    image.setDevicePixelRatio(1.0);
    return image;
}

/// The text drawn as a shape, on the field's background.
QImage pictureOf(const QString &text, QPointF start, double scale)
{
    Picture picture((QSizeF(kFieldSize) * scale).toSize(), scale);
    const Shape shape = textShape(text, start);
    picture.repaintAll([&](platform::PaintTarget &target) {
        target.fill(premultiplied(kWhite));
        renderShape(target, shape, 1.0);
    });
    return picture.image();
}

/// The bounding rectangle of the pixels that are closer to ink than to background.
QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (QColor(image.pixel(x, y)).blue() < 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Whether each ink pixel of `image` has an ink pixel of `other` at most one pixel away.
bool isCoveredBy(const QImage &image, const QImage &other)
{
    const auto isInk = [](const QImage &picture, QPoint pixel) {
        return picture.rect().contains(pixel) && QColor(picture.pixel(pixel)).blue() < 128;
    };
    const auto hasInkNearby = [&](QPoint pixel) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (isInk(other, pixel + QPoint(dx, dy)))
                    return true;
            }
        }
        return false;
    };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isInk(image, {x, y}) && !hasInkNearby({x, y}))
                return false;
        }
    }
    return true;
}

QByteArray text(const QRect &rect)
{
    return QStringLiteral("%1 %2 to %3 %4")
        .arg(rect.left())
        .arg(rect.top())
        .arg(rect.right())
        .arg(rect.bottom())
        .toLatin1();
}

} // namespace

class TextFieldPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedTextStaysInPlaceWhenItIsDrawn_data();
    void typedTextStaysInPlaceWhenItIsDrawn();
    void overlongTextStaysOnItsBaseline_data();
    void overlongTextStaysOnItsBaseline();
    void theBackgroundReachesTheEdges();
    void controlCharactersAreDrawnAsSpaces();
    void anyPastedTextCanBeDrawn_data();
    void anyPastedTextCanBeDrawn();
};

void TextFieldPictureTest::typedTextStaysInPlaceWhenItIsDrawn_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("text");
    const char *const texts[] = {
        "Lg",        "Ärger",  "jÅ|", "  x", "שלום", "שלום, abc!", "abc, שלום!", "  שלום abc  ", "12 שלום 34",
        "مرحبا abc", "東京 x", "ไทย", "😀 x", "a\tb", "\tWelt\t!",  "a\177b",     "a\nb\001c",
    };
    for (const double scale : kScales) {
        for (const char *text : texts)
            QTest::addRow("scale %g, %s", scale, text) << scale << QString::fromUtf8(text);
    }
}

void TextFieldPictureTest::typedTextStaysInPlaceWhenItIsDrawn()
{
    QFETCH(double, scale);
    QFETCH(QString, text);
    TextField field(kOrange);
    field.setComposited(false);
    field.setText(text);
    const QImage typedPicture = pictureOf(field, scale);
    const QImage drawnPicture = pictureOf(text, field.lineOrigin(), scale);
    const QRect typed = inkOf(typedPicture);
    const QRect drawn = inkOf(drawnPicture);
    QVERIFY(!typed.isEmpty());
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= 1; };
    QVERIFY2(isNear(typed.left(), drawn.left()) && isNear(typed.top(), drawn.top()) &&
                 isNear(typed.right(), drawn.right()) && isNear(typed.bottom(), drawn.bottom()),
             test::text(typed) + ", drawn " + test::text(drawn));
    // The letters are the same, in the same order.
    QVERIFY(isCoveredBy(typedPicture, drawnPicture));
    QVERIFY(isCoveredBy(drawnPicture, typedPicture));
    // A repaint of the text covers all of them.
    const QRectF area = textLineArea(field.lineOrigin(), text);
    QVERIFY(area.left() * scale <= drawn.left() && drawn.right() < area.right() * scale);
}

void TextFieldPictureTest::overlongTextStaysOnItsBaseline_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : kScales)
        QTest::addRow("scale %g", scale) << scale;
}

void TextFieldPictureTest::overlongTextStaysOnItsBaseline()
{
    QFETCH(double, scale);
    // Letters without descenders, so that the ink ends on the baseline wherever the field has scrolled to.
    const QString text = QString(60, u'H');
    TextField field(kOrange);
    field.setComposited(false);
    field.setText(text);
    const QRect typed = inkOf(pictureOf(field, scale));
    const QRect drawn = inkOf(pictureOf(text, field.lineOrigin(), scale));
    QVERIFY(std::abs(typed.bottom() - drawn.bottom()) <= 1);
    QVERIFY(std::abs(typed.top() - drawn.top()) <= 1);
}

void TextFieldPictureTest::theBackgroundReachesTheEdges()
{
    TextField field(kOrange);
    field.setPlaceholderText({});
    field.setComposited(true);
    const QImage image = pictureOf(field, 1.0);
    const QColor background(255, 255, 255, qRound(0.9 * 255));
    for (const QPoint &corner : {QPoint(0, 0), QPoint(339, 0), QPoint(0, 31), QPoint(339, 31)})
        QCOMPARE(image.pixelColor(corner).alpha(), background.alpha());
}

void TextFieldPictureTest::controlCharactersAreDrawnAsSpaces()
{
    const QPointF start(2, 4);
    const QString text = QStringLiteral("a\nb%1c\u2028d").arg(QChar(1));
    QCOMPARE(pictureOf(text, start, 1.0), pictureOf(QStringLiteral("a b c d"), start, 1.0));
}

void TextFieldPictureTest::anyPastedTextCanBeDrawn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("10,000 characters") << QString(10'000, u'x');
    QTest::newRow("10,000 characters with spaces") << QStringLiteral("lorem ipsum ").repeated(834);
    QTest::newRow("emoji") << QStringLiteral("😀🏳️‍🌈").repeated(500);
    const QString surrogates = QStringLiteral("a") + QChar(0xD83D) + u'b' + QChar(0xDE00) + QChar(0xD83D);
    QTest::newRow("lone surrogates") << surrogates;
    QTest::newRow("right to left") << QStringLiteral("שלום abc");
}

void TextFieldPictureTest::anyPastedTextCanBeDrawn()
{
    QFETCH(QString, text);
    const QPointF start(2, 4);
    const QRectF area = textLineArea(start, text);
    QVERIFY(area.isValid());
    QVERIFY(area.width() > 10.0);
    QVERIFY(!inkOf(pictureOf(text, start, 1.0)).isEmpty());
    TextField field(kOrange);
    field.setComposited(false);
    field.setText(text);
    QVERIFY(!inkOf(pictureOf(field, 1.0)).isEmpty());
}

REGISTER_TEST(TextFieldPictureTest)

} // namespace zeigewerk::test

#include "text_field_picture_test.moc"
