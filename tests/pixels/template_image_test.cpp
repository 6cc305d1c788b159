#include "pixels/picture.h"
#include "registered_test.h"
#include "toolbar/template_image.h"

#include <QTest>
#include <QWidget>

namespace zeigewerk::test {

namespace {

const QColor kTint(200, 90, 30);

/// A square whose right half has half coverage.
TemplateImage halfCovered()
{
    return TemplateImage({8, 8}, [](QPainter &painter) {
        painter.fillRect(QRectF(0, 0, 4, 8), Qt::black);
        painter.fillRect(QRectF(4, 0, 4, 8), QColor(0, 0, 0, 128));
    });
}

/// A shape that looks different when it is moved by a fraction of a pixel.
TemplateImage ring()
{
    return TemplateImage({20, 20}, [](QPainter &painter) {
        painter.setPen(QPen(Qt::black, 2));
        painter.drawEllipse(QRectF(2, 2, 16, 16));
    });
}

QImage blankImage(QSize pixels)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage painted(const TemplateImage &image, double scale, QPointF topLeft, const QColor &tint = kTint)
{
    QImage canvas = blankImage({64, 64});
    QPainter painter(&canvas);
    painter.scale(scale, scale);
    image.paint(painter, topLeft, tint);
    return canvas;
}

/// Paints a ring whose corner lies between pixels.
class RingWidget : public QWidget
{
public:
    using QWidget::QWidget;

    static constexpr QPointF kTopLeft = {1.3, 2.6};

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        ring().paint(painter, kTopLeft, kTint);
    }
};

} // namespace

class TemplateImageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anOpaquePixelHasExactlyTheTint();
    void theAlphaOfTheTintScalesTheCoverage();
    void theShapeIsDrawnAtTheScaleOfThePainter_data();
    void theShapeIsDrawnAtTheScaleOfThePainter();
    void theCornerSnapsToTheNearestPixel_data();
    void theCornerSnapsToTheNearestPixel();
    void theDevicePixelRatioCountsAsAScale_data();
    void theDevicePixelRatioCountsAsAScale();
    void aChildWidgetIsPaintedOnWholePixels_data();
    void aChildWidgetIsPaintedOnWholePixels();
    void thePaintersStateIsRestored();
    void anImageWithoutSizePaintsNothing();
};

void TemplateImageTest::anOpaquePixelHasExactlyTheTint()
{
    const QImage image = painted(halfCovered(), 1, {10, 10});
    QCOMPARE(image.pixelColor(10, 10), kTint);
    QCOMPARE(image.pixelColor(13, 17), kTint);
    QCOMPARE(image.pixelColor(9, 10).alpha(), 0);
    QCOMPARE(image.pixelColor(13, 18).alpha(), 0);
}

void TemplateImageTest::theAlphaOfTheTintScalesTheCoverage()
{
    const QColor faint(0, 0, 0, 204);
    const QImage image = painted(halfCovered(), 1, {10, 10}, faint);
    QCOMPARE(image.pixelColor(11, 12), faint);
    const int half = image.pixelColor(15, 12).alpha();
    QVERIFY2(qAbs(half - 102) <= 1, QByteArray::number(half));
}

void TemplateImageTest::theShapeIsDrawnAtTheScaleOfThePainter_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : kScales)
        QTest::addRow("scale %g", scale) << scale;
}

void TemplateImageTest::theShapeIsDrawnAtTheScaleOfThePainter()
{
    QFETCH(const double, scale);
    QImage expected = blankImage({64, 64});
    {
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(5, 5);
        painter.scale(scale, scale);
        painter.setPen(QPen(kTint, 2));
        painter.drawEllipse(QRectF(2, 2, 16, 16));
    }
    const QImage actual = painted(ring(), scale, {5 / scale, 5 / scale});
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            // Tinting the shape afterwards may round partly covered pixels differently.
            QVERIFY2(qAbs(actual.pixelColor(x, y).alpha() - expected.pixelColor(x, y).alpha()) <= 1,
                     QByteArray::number(x) + ", " + QByteArray::number(y));
        }
    }
}

void TemplateImageTest::theCornerSnapsToTheNearestPixel_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPointF>("topLeft");
    QTest::addColumn<QPoint>("pixel");
    QTest::newRow("scale 1, between pixels") << 1.0 << QPointF(3.3, 4.7) << QPoint(3, 5);
    QTest::newRow("scale 1, on a pixel") << 1.0 << QPointF(3, 5) << QPoint(3, 5);
    QTest::newRow("scale 1.25, whole points") << 1.25 << QPointF(3, 5) << QPoint(4, 6);
    QTest::newRow("scale 1.5, between pixels") << 1.5 << QPointF(3.3, 4.7) << QPoint(5, 7);
    QTest::newRow("scale 2, half points") << 2.0 << QPointF(3.5, 4.5) << QPoint(7, 9);
    QTest::newRow("scale 2, between pixels") << 2.0 << QPointF(3.3, 4.7) << QPoint(7, 9);
}

void TemplateImageTest::theCornerSnapsToTheNearestPixel()
{
    QFETCH(const double, scale);
    QFETCH(const QPointF, topLeft);
    QFETCH(const QPoint, pixel);
    const QImage atOrigin = painted(ring(), scale, {0, 0});
    QImage expected = blankImage(atOrigin.size());
    QPainter(&expected).drawImage(pixel, atOrigin);
    QCOMPARE(firstDifference(painted(ring(), scale, topLeft), expected), QString());
}

void TemplateImageTest::theDevicePixelRatioCountsAsAScale_data()
{
    theShapeIsDrawnAtTheScaleOfThePainter_data();
}

void TemplateImageTest::theDevicePixelRatioCountsAsAScale()
{
    QFETCH(const double, scale);
    QImage actual = blankImage({64, 64});
    actual.setDevicePixelRatio(scale);
    {
        QPainter painter(&actual);
        ring().paint(painter, {3.3, 4.7}, kTint);
    }
    actual.setDevicePixelRatio(1);
    QCOMPARE(firstDifference(actual, painted(ring(), scale, {3.3, 4.7})), QString());
}

void TemplateImageTest::aChildWidgetIsPaintedOnWholePixels_data()
{
    theShapeIsDrawnAtTheScaleOfThePainter_data();
}

void TemplateImageTest::aChildWidgetIsPaintedOnWholePixels()
{
    QFETCH(const double, scale);
    QWidget parent;
    parent.resize(32, 32);
    RingWidget child(&parent);
    child.setGeometry(3, 5, 28, 26);
    QImage actual = blankImage({64, 64});
    actual.setDevicePixelRatio(scale);
    parent.render(&actual, {}, {}, QWidget::DrawChildren);
    actual.setDevicePixelRatio(1);
    const QPointF topLeft = RingWidget::kTopLeft + QPointF(child.pos());
    QCOMPARE(firstDifference(actual, painted(ring(), scale, topLeft)), QString());
}

void TemplateImageTest::thePaintersStateIsRestored()
{
    QImage image = blankImage({64, 64});
    QPainter painter(&image);
    painter.translate(3, 4);
    painter.scale(1.25, 1.25);
    const QTransform transform = painter.worldTransform();
    halfCovered().paint(painter, {1.1, 2.2}, kTint);
    QCOMPARE(painter.worldTransform(), transform);
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
}

void TemplateImageTest::anImageWithoutSizePaintsNothing()
{
    const TemplateImage empty({0, 0}, [](QPainter &painter) { painter.fillRect(0, 0, 9, 9, Qt::black); });
    QVERIFY(isBlank(painted(empty, 1, {3, 4})));
}

REGISTER_TEST(TemplateImageTest)

} // namespace zeigewerk::test

#include "template_image_test.moc"
