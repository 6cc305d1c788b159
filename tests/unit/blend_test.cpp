#include "drawing/blend.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace zeigewerk {

namespace {

int component(Premultiplied pixel, int shift)
{
    return static_cast<int>(pixel >> shift & 0xFF);
}

} // namespace

class BlendTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloursArePremultiplied();
    void anOpaqueColourReplacesThePixel();
    void withoutCoverageNothingChanges();
    void blendingRoundsToTheNearestValue();
    void fourPixelsBlendLikeSinglePixels();
    void aSpanBlendsLikeSinglePixels();
};

void BlendTest::coloursArePremultiplied()
{
    QCOMPARE(premultiplied(kOrange), 0xFFF29A00U);
    QCOMPARE(premultiplied(kBlack.withAlpha(0.55)), 0x8C000000U);
    QCOMPARE(premultiplied(kWhite.withAlpha(0.4)), 0x66666666U);
    QCOMPARE(premultiplied(kClear), 0U);
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    QCOMPARE(premultiplied({7.0, -1.0, notANumber, 2.0}), 0xFFFF0000U);
    QCOMPARE(premultiplied(kWhite.withAlpha(notANumber)), 0U);
}

void BlendTest::anOpaqueColourReplacesThePixel()
{
    for (const Premultiplied below : {0U, 0xFFFFFFFFU, 0x80402010U})
        QCOMPARE(blended(below, 0xFFF29A00U, 255), 0xFFF29A00U);
}

void BlendTest::withoutCoverageNothingChanges()
{
    for (const Premultiplied below : {0U, 0xFFFFFFFFU, 0x80402010U, 0x01010101U})
        QCOMPARE(blended(below, 0xFFF29A00U, 0), below);
}

void BlendTest::blendingRoundsToTheNearestValue()
{
    constexpr Premultiplied kColor = 0x66664020U;
    for (std::uint32_t coverage = 0; coverage <= 255; ++coverage) {
        for (std::uint32_t below = 0; below <= 255; below += 5) {
            const Premultiplied pixel = 0xFF000000U | below << 16 | below << 8 | below;
            const Premultiplied result = blended(pixel, kColor, coverage);
            const double alpha = 0x66 / 255.0 * coverage / 255.0;
            for (const int shift : {0, 8, 16}) {
                const double source = component(kColor, shift) * static_cast<double>(coverage) / 255.0;
                const double exact = source + component(pixel, shift) * (1.0 - alpha);
                // Source and background are rounded separately, the background with the source's rounded
                // alpha.
                QVERIFY(std::abs(component(result, shift) - exact) <= 1.5);
            }
            QCOMPARE(component(result, 24), 255);
        }
    }
}

void BlendTest::fourPixelsBlendLikeSinglePixels()
{
    const Four below = {0, 0xFF102030, 0x80402010, 0xFFFFFFFF};
    const Four colors = {0xFF123456, 0x66660000, 0x66660000, 0};
    const Four coverage = {0, 60, 255, 128};
    const Four result = blended(below, colors, coverage);
    for (int i = 0; i < kFour; ++i)
        QCOMPARE(result[i], blended(below[i], colors[i], coverage[i]));
}

void BlendTest::aSpanBlendsLikeSinglePixels()
{
    const std::vector<Premultiplied> below = {0, 0xFF102030, 0x80402010, 0xFFFFFFFF, 1U << 24, 5U << 24, 0};
    const std::vector<Premultiplied> above = {0xFFFFFFFF, 0x80402010, 0, 0xFF102030, 7, 0x01010101, 5U << 24};
    std::vector<Premultiplied> covered = below;
    blendSpan(covered.data(), 7, 0x66660000U);
    std::vector<Premultiplied> opaque = below;
    blendSpan(opaque.data(), 7, 0xFF123456U);
    std::vector<Premultiplied> over = below;
    blendSpan(over.data(), above.data(), 7);
    for (std::size_t i = 0; i < below.size(); ++i) {
        QCOMPARE(covered[i], blended(below[i], 0x66660000U, 255));
        QCOMPARE(opaque[i], 0xFF123456U);
        QCOMPARE(over[i], blended(below[i], above[i], 255));
    }
}

REGISTER_APPLESS_TEST(BlendTest)

} // namespace zeigewerk

#include "blend_test.moc"
