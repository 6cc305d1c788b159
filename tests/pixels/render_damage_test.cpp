#include "drawing/render_shape.h"
#include "pixels/picture.h"
#include "pixels/random_shapes.h"
#include "registered_test.h"

#include <QTest>

namespace zeigewerk::test {

namespace {

using platform::Damage;

constexpr int kCases = 2000;
constexpr QSize kPixels(200, 150);

/// Describes a failing case.
QByteArray report(const RandomShapes &random, int index, const Shape &shape, const QString &difference)
{
    return QStringLiteral("seed %1, case %2, tool %3 of width %4 with %5 points: %6")
        .arg(random.seed())
        .arg(index)
        .arg(shape.tool.rawValue())
        .arg(shape.width)
        .arg(shape.points.size())
        .arg(difference)
        .toUtf8();
}

} // namespace

class RenderDamageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repaintingOnlyTheDamageGivesTheSamePixels_data();
    void repaintingOnlyTheDamageGivesTheSamePixels();
    void everyPaintedPixelIsInThePaintedArea_data();
    void everyPaintedPixelIsInThePaintedArea();
    void appendingAPointChangesOnlyThePaintedAreaOfItsSegments();
};

void RenderDamageTest::repaintingOnlyTheDamageGivesTheSamePixels_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<int>("cases");
    QTest::newRow("in one part") << kPixels << kCases;
    // The whole picture and the damage are split into parts at different places.
    QTest::newRow("in many parts") << kPixels * 5 << 150;
}

void RenderDamageTest::repaintingOnlyTheDamageGivesTheSamePixels()
{
    QFETCH(const QSize, pixels);
    QFETCH(const int, cases);
    RandomShapes random;
    for (int i = 0; i < cases; ++i) {
        const double scale = random.scale();
        Picture whole(pixels, scale);
        Picture part(pixels, scale);
        const QSizeF view = whole.geometry().points();
        const Shape shape = random.shape(view);
        const double fade = random.chance(0.5) ? 1.0 : random.real(0.0, 1.0);

        whole.repaintAll([&](platform::PaintTarget &target) { renderShape(target, shape, fade); });
        const QRegion painted = part.repaint(
            random.damage(view), [&](platform::PaintTarget &target) { renderShape(target, shape, fade); });

        const QString difference = firstDifference(part.image(), whole.image(), painted);
        QVERIFY2(difference.isEmpty(), report(random, i, shape, difference));
    }
}

void RenderDamageTest::everyPaintedPixelIsInThePaintedArea_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<int>("cases");
    QTest::newRow("small shapes") << kPixels << kCases;
    // Chords of large ellipses are several pixels off the arc, and strokes have many pieces.
    QTest::newRow("large shapes") << kPixels * 12 << 40;
}

void RenderDamageTest::everyPaintedPixelIsInThePaintedArea()
{
    QFETCH(const QSize, pixels);
    QFETCH(const int, cases);
    RandomShapes random;
    for (int i = 0; i < cases; ++i) {
        Picture picture(pixels, random.scale());
        const Picture blank = picture;
        const Shape shape = random.shape(picture.geometry().points());

        picture.repaintAll([&](platform::PaintTarget &target) { renderShape(target, shape, 1.0); });

        const QString difference =
            firstDifferenceOutside(blank.image(), picture.image(), picture.damagedPixels(paintedArea(shape)));
        QVERIFY2(difference.isEmpty(), report(random, i, shape, difference));
    }
}

void RenderDamageTest::appendingAPointChangesOnlyThePaintedAreaOfItsSegments()
{
    RandomShapes random;
    for (int i = 0; i < kCases; ++i) {
        Picture before(kPixels, random.scale());
        Picture after = before;
        const QSizeF view = before.geometry().points();
        Shape shape = random.shape(view);
        if (shape.points.empty())
            continue;

        before.repaintAll([&](platform::PaintTarget &target) { renderShape(target, shape, 1.0); });
        const std::size_t firstNew = shape.points.size();
        shape.points.push_back(random.chance(0.2) ? shape.points.front() : random.point(view));
        after.repaintAll([&](platform::PaintTarget &target) { renderShape(target, shape, 1.0); });

        const QRegion changed = after.damagedPixels(paintedArea(shape, firstNew));
        const QString difference = firstDifferenceOutside(before.image(), after.image(), changed);
        QVERIFY2(difference.isEmpty(), report(random, i, shape, difference));
    }
}

REGISTER_TEST(RenderDamageTest)

} // namespace zeigewerk::test

#include "render_damage_test.moc"
