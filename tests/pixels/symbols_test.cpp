#include "pixels/picture.h"
#include "registered_test.h"
#include "toolbar/symbols.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zeigewerk::test {

namespace {

const char *const kNames[] = {
    "pencil.tip.crop.circle",
    "rectangle.inset.filled",
    "flashlight.on.fill",
    "cursorarrow.rays",
    "cursorarrow.click.2",
    "timer",
    "pin.fill",
    "pencil",
    "highlighter",
    "line.diagonal",
    "arrow.up.right",
    "rectangle",
    "circle",
    "textformat",
    "arrow.uturn.backward",
    "moon.fill",
    "sun.max.fill",
    "trash",
    "eye.slash",
    "power",
    "pencil.and.outline",
};

/// The grid on which the symbols are drawn, in points.
constexpr int kGrid = 20;
/// Pixels per point for measuring distances.
constexpr int kPixelsPerPoint = 8;
/// A pixel with less coverage is the antialiased trace of an edge beside it.
constexpr int kMinInk = 16;

/// The symbol painted in black, as large as its grid; null if there is no such symbol.
QImage symbol(const QString &name, int scale)
{
    const std::optional<TemplateImage> image = symbolImage(name);
    if (!image)
        return {};
    QImage pixels(kGrid * scale, kGrid * scale, QImage::Format_ARGB32_Premultiplied);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    painter.scale(scale, scale);
    image->paint(painter, {}, Qt::black);
    return pixels;
}

int coverage(const QImage &image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

/// The bounding rectangle of the ink, in points.
QRectF inkBounds(const QString &name)
{
    const QImage image = symbol(name, kPixelsPerPoint);
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (coverage(image, x, y) >= kMinInk)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return {QPointF(bounds.topLeft()) / kPixelsPerPoint, QSizeF(bounds.size()) / kPixelsPerPoint};
}

/// The area that only one of the two covers, in square points.
double difference(const QImage &one, const QImage &other)
{
    int sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(coverage(one, x, y) - coverage(other, x, y));
    }
    return sum / 255.0;
}

void addNames()
{
    QTest::addColumn<QString>("name");
    for (const char *name : kNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

} // namespace

class SymbolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSymbolIsTwentyPointsWideAndHigh_data() { addNames(); }
    void aSymbolIsTwentyPointsWideAndHigh();
    void aSymbolFillsItsGridUpToAMargin_data() { addNames(); }
    void aSymbolFillsItsGridUpToAMargin();
    void aSymbolIsCentredOnItsGrid_data() { addNames(); }
    void aSymbolIsCentredOnItsGrid();
    void aSymbolIsPaintedOnlyInTheTint_data() { addNames(); }
    void aSymbolIsPaintedOnlyInTheTint();
    void aSymbolBetweenPixelsIsPaintedOnWholePixels_data() { addNames(); }
    void aSymbolBetweenPixelsIsPaintedOnWholePixels();
    void noTwoSymbolsLookAlike();
    void theEdgesOfTheRectangleAreSharp_data();
    void theEdgesOfTheRectangleAreSharp();
    void theSlashedEyeHasAGapBesideItsSlash();
    void unknownNamesGiveNoSymbol_data();
    void unknownNamesGiveNoSymbol();
};

void SymbolsTest::aSymbolIsTwentyPointsWideAndHigh()
{
    QFETCH(const QString, name);
    const std::optional<TemplateImage> image = symbolImage(name);
    QVERIFY(image);
    QCOMPARE(image->size(), QSizeF(kGrid, kGrid));
    QVERIFY(!isBlank(symbol(name, 1)));
}

void SymbolsTest::aSymbolFillsItsGridUpToAMargin()
{
    QFETCH(const QString, name);
    const QRectF ink = inkBounds(name);
    QVERIFY(QRectF(1, 1, kGrid - 2, kGrid - 2).contains(ink));
    QVERIFY(std::max(ink.width(), ink.height()) >= 14);
    QVERIFY(std::min(ink.width(), ink.height()) >= 12);
}

void SymbolsTest::aSymbolIsCentredOnItsGrid()
{
    QFETCH(const QString, name);
    // Some symbols, like the bin, are half a point off so that all their straight edges lie on pixels.
    const QPointF offset = inkBounds(name).center() - QPointF(kGrid, kGrid) / 2;
    QVERIFY(std::abs(offset.x()) <= 0.5);
    QVERIFY(std::abs(offset.y()) <= 0.5);
}

void SymbolsTest::aSymbolIsPaintedOnlyInTheTint()
{
    QFETCH(const QString, name);
    const QColor tint(250, 120, 40);
    QImage image(kGrid, kGrid, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        symbolImage(name)->paint(painter, {}, tint);
    }
    const QImage black = symbol(name, 1);
    int opaque = 0;
    for (int y = 0; y < kGrid; ++y) {
        for (int x = 0; x < kGrid; ++x) {
            QCOMPARE(coverage(image, x, y), coverage(black, x, y));
            if (coverage(image, x, y) < 255)
                continue;
            ++opaque;
            QCOMPARE(image.pixelColor(x, y), tint);
        }
    }
    QVERIFY(opaque > 0);
}

void SymbolsTest::aSymbolBetweenPixelsIsPaintedOnWholePixels()
{
    QFETCH(const QString, name);
    const auto paintedAt = [&name](QPointF topLeft) {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        symbolImage(name)->paint(painter, topLeft, Qt::black);
        return image;
    };
    QCOMPARE(firstDifference(paintedAt({3.3, 4.7}), paintedAt({3, 5})), QString());
}

void SymbolsTest::noTwoSymbolsLookAlike()
{
    for (const char *const *one = std::begin(kNames); one != std::end(kNames); ++one) {
        const QImage image = symbol(QString::fromLatin1(*one), 1);
        for (const char *const *other = one + 1; other != std::end(kNames); ++other) {
            const double area = difference(image, symbol(QString::fromLatin1(*other), 1));
            QVERIFY2(area >= 25, QByteArray(*one) + ", " + *other + ": " + QByteArray::number(area));
        }
    }
}

void SymbolsTest::theEdgesOfTheRectangleAreSharp_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<QList<int>>("inwards");
    // The line is 1.75 points wide; its outer edge lies on the grid.
    QTest::newRow("scale 1") << 1 << QList<int>{0, 255, 191, 0};
    QTest::newRow("scale 2") << 2 << QList<int>{0, 255, 255, 255, 128, 0};
}

void SymbolsTest::theEdgesOfTheRectangleAreSharp()
{
    QFETCH(const int, scale);
    QFETCH(const QList<int>, inwards);
    const QImage image = symbol(QStringLiteral("rectangle"), scale);
    const int last = kGrid * scale - 1;
    const auto isNear = [](int actual, int expected) { return std::abs(actual - expected) <= 2; };
    // Between the rounded corners.
    for (int along = 6 * scale; along < 14 * scale; ++along) {
        for (int i = 0; i < inwards.size(); ++i) {
            const int column = 2 * scale - 1 + i;
            const int row = 3 * scale - 1 + i;
            QVERIFY(isNear(coverage(image, column, along), inwards[i]));
            QVERIFY(isNear(coverage(image, last - column, along), inwards[i]));
            QVERIFY(isNear(coverage(image, along, row), inwards[i]));
            QVERIFY(isNear(coverage(image, along, last - row), inwards[i]));
        }
    }
}

void SymbolsTest::theSlashedEyeHasAGapBesideItsSlash()
{
    const QImage image = symbol(QStringLiteral("eye.slash"), kPixelsPerPoint);
    // Follows the slash from the upper left to the lower right, and the gap to its upper right.
    for (int i = 4 * kPixelsPerPoint; i < 16 * kPixelsPerPoint; ++i) {
        QCOMPARE(coverage(image, i, i), 255);
        QCOMPARE(coverage(image, i + kPixelsPerPoint, i - kPixelsPerPoint), 0);
    }
}

void SymbolsTest::unknownNamesGiveNoSymbol_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("squiggle");
    QTest::newRow("with the suffix") << QStringLiteral("pencil.svg");
    QTest::newRow("a folder") << QStringLiteral("../symbols");
    QTest::newRow("through a folder") << QStringLiteral("../symbols/pencil");
    QTest::newRow("from the root") << QStringLiteral("/pencil");
}

void SymbolsTest::unknownNamesGiveNoSymbol()
{
    QFETCH(const QString, name);
    QVERIFY(!symbolImage(name));
}

REGISTER_TEST(SymbolsTest)

} // namespace zeigewerk::test

#include "symbols_test.moc"
