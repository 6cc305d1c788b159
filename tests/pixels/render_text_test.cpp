#include "drawing/text_line.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QFontMetricsF>
#include <QTest>

#include <cmath>

namespace zeigewerk::test {

namespace {

/// The smallest rectangle around everything painted, in view coordinates.
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
    void emptyTextDrawsNothing();
    void textIsOfOneSizeWhateverTheWidth();
    void textStandsUprightOnItsLineBox_data();
    void textStandsUprightOnItsLineBox();
};

void RenderTextTest::emptyTextDrawsNothing()
{
    QVERIFY(isBlank(pictureOf({writing({}, {40, 40})}).image()));
}

void RenderTextTest::textIsOfOneSizeWhateverTheWidth()
{
    const QString text = QStringLiteral("Größe");
    QCOMPARE(pictureOf({writing(text, {20, 40}, 3)}).image(),
             pictureOf({writing(text, {20, 40}, 9)}).image());
}

void RenderTextTest::textStandsUprightOnItsLineBox_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : kScales)
        QTest::addRow("scale %g", scale) << scale;
}

void RenderTextTest::textStandsUprightOnItsLineBox()
{
    QFETCH(const double, scale);
    const QFontMetricsF metrics(canvasFont());
    const QPointF start(40, 50);
    const Picture picture = pictureOf({writing(QStringLiteral("L"), start)}, scale);
    const QRectF ink = inkBox(picture);
    const double baseLine = start.y() + metrics.descent();
    QVERIFY2(std::abs(ink.top() - baseLine) <= 1.0, QByteArray::number(ink.top()));
    QVERIFY2(std::abs(ink.bottom() - (baseLine + metrics.capHeight())) <= 1.5,
             QByteArray::number(ink.bottom()));
    QVERIFY(ink.left() >= start.x());
    QVERIFY(ink.right() <= start.x() + metrics.horizontalAdvance(QLatin1Char('L')) + 1.0);
    // The stem of an L stands at its left, the foot lies at its bottom.
    QCOMPARE(picture.at(QPointF(ink.left() + 2, ink.bottom() - 2)), kInk);
    QCOMPARE(picture.at(QPointF(ink.right() - 2, ink.top() + 1.5)), kInk);
    QCOMPARE(picture.at(QPointF(ink.right() - 2, ink.bottom() - 2)), kNothing);
}

REGISTER_TEST(RenderTextTest)

} // namespace zeigewerk::test

#include "render_text_test.moc"
