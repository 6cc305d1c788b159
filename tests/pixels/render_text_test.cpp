#include "drawing/text_line.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QFontMetricsF>
#include <QTest>

#include <cmath>

namespace zeigewerk::test {

namespace {

/// The bounding rectangle of everything painted, in view coordinates.
QRectF inkBox(const Picture &picture)
{
    QRegion ink;
    const QImage &image = picture.image();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 127)
                ink += QRect(x, y, 1, 1);
        }
    }
    return picture.geometry().toView(ink.boundingRect());
}

} // namespace

class RenderTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextPaintsNothing();
    void theTextSizeDoesNotDependOnTheLineWidth();
    void textIsUprightInItsLineBox_data();
    void textIsUprightInItsLineBox();
};

void RenderTextTest::emptyTextPaintsNothing()
{
    QVERIFY(isBlank(pictureOf({textShape({}, {40, 40})}).image()));
}

void RenderTextTest::theTextSizeDoesNotDependOnTheLineWidth()
{
    const QString text = QStringLiteral("Größe");
    QCOMPARE(pictureOf({textShape(text, {20, 40}, 3)}).image(),
             pictureOf({textShape(text, {20, 40}, 9)}).image());
}

void RenderTextTest::textIsUprightInItsLineBox_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : kScales)
        QTest::addRow("scale %g", scale) << scale;
}

void RenderTextTest::textIsUprightInItsLineBox()
{
    QFETCH(const double, scale);
    const QFontMetricsF metrics(canvasFont());
    const QPointF start(40, 50);
    const Picture picture = pictureOf({textShape(QStringLiteral("L"), start)}, scale);
    const QRectF ink = inkBox(picture);
    const double baseline = start.y() + metrics.descent();
    QVERIFY2(std::abs(ink.top() - baseline) <= 1.0, QByteArray::number(ink.top()));
    QVERIFY2(std::abs(ink.bottom() - (baseline + metrics.capHeight())) <= 1.5,
             QByteArray::number(ink.bottom()));
    QVERIFY(ink.left() >= start.x());
    QVERIFY(ink.right() <= start.x() + metrics.horizontalAdvance(QLatin1Char('L')) + 1.0);
    // The stem of an L is at its left, the foot at its bottom.
    QCOMPARE(picture.at(QPointF(ink.left() + 2, ink.bottom() - 2)), kInk);
    QCOMPARE(picture.at(QPointF(ink.right() - 2, ink.top() + 1.5)), kInk);
    QCOMPARE(picture.at(QPointF(ink.right() - 2, ink.bottom() - 2)), kTransparent);
}

REGISTER_TEST(RenderTextTest)

} // namespace zeigewerk::test

#include "render_text_test.moc"
