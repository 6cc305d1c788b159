// What was typed must not jump when it becomes a drawing.

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

constexpr QSize kSpan(340, 32);

/// The field painted alone, at that scale.
QImage pictureOf(TextField &field, double scale)
{
    QImage image((QSizeF(kSpan) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    field.render(&image, {}, {}, QWidget::DrawChildren);
    image.setDevicePixelRatio(1.0);
    return image;
}

/// The same text as a shape, at the place where it is left, on the ground of the field.
QImage pictureOf(const QString &text, QPointF start, double scale)
{
    Picture picture((QSizeF(kSpan) * scale).toSize(), scale);
    const Shape shape = writing(text, start);
    picture.repaintAll([&](platform::PaintTarget &target) {
        target.fill(premultiplied(kWhite));
        renderShape(target, shape, 1.0);
    });
    return picture.image();
}

/// The pixels that are rather ink than ground.
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

/// Whether each pixel of ink in one picture has ink of the other beside it, at most a pixel away.
bool isCoveredBy(const QImage &image, const QImage &other)
{
    const auto isInk = [](const QImage &picture, QPoint place) {
        return picture.rect().contains(place) && QColor(picture.pixel(place)).blue() < 128;
    };
    const auto isNearInk = [&](QPoint place) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (isInk(other, place + QPoint(dx, dy)))
                    return true;
            }
        }
        return false;
    };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isInk(image, {x, y}) && !isNearInk({x, y}))
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
    void typedTextStandsWhereItWillBeDrawn_data();
    void typedTextStandsWhereItWillBeDrawn();
    void textThatIsTooLongForTheFieldStaysOnItsLine_data();
    void textThatIsTooLongForTheFieldStaysOnItsLine();
    void theFieldIsFilledToItsEdges();
    void controlCharactersAreDrawnAsBlanks();
    void anythingPastedCanBeDrawn_data();
    void anythingPastedCanBeDrawn();
};

void TextFieldPictureTest::typedTextStandsWhereItWillBeDrawn_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("text");
    for (const double scale : kScales) {
        for (const QString &typed :
             {QStringLiteral("Lg"), QStringLiteral("Ärger"), QStringLiteral("jÅ|"), QStringLiteral("  x"),
              QStringLiteral("שלום"), QStringLiteral("שלום, abc!"), QStringLiteral("abc, שלום!"),
              QStringLiteral("  שלום abc  "), QStringLiteral("12 שלום 34"), QStringLiteral("مرحبا abc"),
              QStringLiteral("東京 x"), QStringLiteral("ไทย"), QStringLiteral("😀 x"), QStringLiteral("a\tb"),
              QStringLiteral("\tWelt\t!"), QStringLiteral("a\x7F") + u'b', QStringLiteral("a\nb\x01") + u'c'})
            QTest::addRow("scale %g, %s", scale, qPrintable(typed)) << scale << typed;
    }
}

void TextFieldPictureTest::typedTextStandsWhereItWillBeDrawn()
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
    // And the same letters, in the same order.
    QVERIFY(isCoveredBy(typedPicture, drawnPicture));
    QVERIFY(isCoveredBy(drawnPicture, typedPicture));
    // All of which is repainted when the text is.
    const QRectF area = textLineArea(field.lineOrigin(), text);
    QVERIFY(area.left() * scale <= drawn.left() && drawn.right() < area.right() * scale);
}

void TextFieldPictureTest::textThatIsTooLongForTheFieldStaysOnItsLine_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : kScales)
        QTest::addRow("scale %g", scale) << scale;
}

void TextFieldPictureTest::textThatIsTooLongForTheFieldStaysOnItsLine()
{
    QFETCH(double, scale);
    // Letters without descenders, so that the ink ends on the base line wherever the field has scrolled to.
    const QString text = QString(60, u'H');
    TextField field(kOrange);
    field.setComposited(false);
    field.setText(text);
    const QRect typed = inkOf(pictureOf(field, scale));
    const QRect drawn = inkOf(pictureOf(text, field.lineOrigin(), scale));
    QVERIFY(std::abs(typed.bottom() - drawn.bottom()) <= 1);
    QVERIFY(std::abs(typed.top() - drawn.top()) <= 1);
}

void TextFieldPictureTest::theFieldIsFilledToItsEdges()
{
    TextField field(kOrange);
    field.setPlaceholderText({});
    field.setComposited(true);
    const QImage image = pictureOf(field, 1.0);
    const QColor ground(255, 255, 255, qRound(0.9 * 255));
    for (const QPoint &corner : {QPoint(0, 0), QPoint(339, 0), QPoint(0, 31), QPoint(339, 31)})
        QCOMPARE(image.pixelColor(corner).alpha(), ground.alpha());
}

void TextFieldPictureTest::controlCharactersAreDrawnAsBlanks()
{
    const QPointF start(2, 4);
    QCOMPARE(pictureOf(QStringLiteral("a\nb\x01"
                                      "c\u2028d"),
                       start, 1.0),
             pictureOf(QStringLiteral("a b c d"), start, 1.0));
}

void TextFieldPictureTest::anythingPastedCanBeDrawn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("10,000 characters") << QString(10'000, u'x');
    QTest::newRow("10,000 characters with blanks") << QStringLiteral("lorem ipsum ").repeated(834);
    QTest::newRow("emoji") << QStringLiteral("😀🏳️‍🌈").repeated(500);
    QTest::newRow("lone surrogates") << QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") +
                                            QChar(0xDE00) + QChar(0xD83D);
    QTest::newRow("from right to left") << QStringLiteral("שלום abc");
}

void TextFieldPictureTest::anythingPastedCanBeDrawn()
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
