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
    void aColourBecomesAPixel();
    void anOpaqueCoatReplaces();
    void noCoverageChangesNothing();
    void blendingIsRoundedToTheNearest();
    void fourPixelsAreBlendedEachByItself();
    void aSpanIsBlendedPixelByPixel();
};

void BlendTest::aColourBecomesAPixel()
{
    QCOMPARE(premultiplied(kOrange), 0xFFF29A00U);
    QCOMPARE(premultiplied(kBlack.withAlpha(0.55)), 0x8C000000U);
    QCOMPARE(premultiplied(kWhite.withAlpha(0.4)), 0x66666666U);
    QCOMPARE(premultiplied(kClear), 0U);
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    QCOMPARE(premultiplied({7.0, -1.0, notANumber, 2.0}), 0xFFFF0000U);
    QCOMPARE(premultiplied(kWhite.withAlpha(notANumber)), 0U);
}

void BlendTest::anOpaqueCoatReplaces()
{
    for (const Premultiplied below : {0U, 0xFFFFFFFFU, 0x80402010U})
        QCOMPARE(blended(below, 0xFFF29A00U, 255), 0xFFF29A00U);
}

void BlendTest::noCoverageChangesNothing()
{
    for (const Premultiplied below : {0U, 0xFFFFFFFFU, 0x80402010U, 0x01010101U})
        QCOMPARE(blended(below, 0xFFF29A00U, 0), below);
}

void BlendTest::blendingIsRoundedToTheNearest()
{
    constexpr Premultiplied kColor = 0x66664020U;
    for (std::uint32_t coverage = 0; coverage <= 255; ++coverage) {
        for (std::uint32_t below = 0; below <= 255; below += 5) {
            const Premultiplied pixel = 0xFF000000U | below << 16 | below << 8 | below;
            const Premultiplied result = blended(pixel, kColor, coverage);
            const double alpha = 0x66 / 255.0 * coverage / 255.0;
            for (const int shift : {0, 8, 16}) {
                const double coat = component(kColor, shift) * static_cast<double>(coverage) / 255.0;
                const double exact = coat + component(pixel, shift) * (1.0 - alpha);
                // Coat and ground are rounded each, and the ground's share follows the coat's rounded alpha.
                QVERIFY(std::abs(component(result, shift) - exact) <= 1.5);
            }
            QCOMPARE(component(result, 24), 255);
        }
    }
}

void BlendTest::fourPixelsAreBlendedEachByItself()
{
    const Four ground = {0, 0xFF102030, 0x80402010, 0xFFFFFFFF};
    const Four colors = {0xFF123456, 0x66660000, 0x66660000, 0};
    const Four coverage = {0, 60, 255, 128};
    const Four result = blended(ground, colors, coverage);
    for (int i = 0; i < kFour; ++i)
        QCOMPARE(result[i], blended(ground[i], colors[i], coverage[i]));
}

void BlendTest::aSpanIsBlendedPixelByPixel()
{
    const std::vector<Premultiplied> ground = {0, 0xFF102030, 0x80402010, 0xFFFFFFFF, 1U << 24, 5U << 24, 0};
    const std::vector<Premultiplied> above = {0xFFFFFFFF, 0x80402010, 0, 0xFF102030, 7, 0x01010101, 5U << 24};
    std::vector<Premultiplied> wholly = ground;
    blendSpan(wholly.data(), 7, 0x66660000U);
    std::vector<Premultiplied> opaque = ground;
    blendSpan(opaque.data(), 7, 0xFF123456U);
    std::vector<Premultiplied> over = ground;
    blendSpan(over.data(), above.data(), 7);
    for (std::size_t i = 0; i < ground.size(); ++i) {
        QCOMPARE(wholly[i], blended(ground[i], 0x66660000U, 255));
        QCOMPARE(opaque[i], 0xFF123456U);
        QCOMPARE(over[i], blended(ground[i], above[i], 255));
    }
}

REGISTER_APPLESS_TEST(BlendTest)

} // namespace zeigewerk

#include "blend_test.moc"
