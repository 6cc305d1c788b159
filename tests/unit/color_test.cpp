#include "drawing/color.h"
#include "drawing/qt_color.h"
#include "registered_test.h"

#include <QTest>

using zeigewerk::Color;

class ColorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hexColoursAreRedGreenBlueAndOpaque_data();
    void hexColoursAreRedGreenBlueAndOpaque();
    void bitsAboveTheLowest24AreIgnored();
    void thePaletteHasItsEightColoursInOrder();
    void withAlphaReplacesTheAlpha();
    void coloursCompareByExactValue();
    void convertingToQColorKeepsTheBytes();
};

void ColorTest::hexColoursAreRedGreenBlueAndOpaque_data()
{
    QTest::addColumn<quint32>("rgb");
    QTest::addColumn<double>("red");
    QTest::addColumn<double>("green");
    QTest::addColumn<double>("blue");
    QTest::newRow("black") << 0x000000U << 0.0 << 0.0 << 0.0;
    QTest::newRow("white") << 0xFFFFFFU << 1.0 << 1.0 << 1.0;
    QTest::newRow("orange") << 0xF29A00U << 0xF2 / 255.0 << 0x9A / 255.0 << 0.0;
    QTest::newRow("navy") << 0x182245U << 0x18 / 255.0 << 0x22 / 255.0 << 0x45 / 255.0;
}

void ColorTest::hexColoursAreRedGreenBlueAndOpaque()
{
    QFETCH(const quint32, rgb);
    QFETCH(const double, red);
    QFETCH(const double, green);
    QFETCH(const double, blue);
    QVERIFY(Color::hex(rgb) == (Color{red, green, blue, 1.0}));
}

void ColorTest::bitsAboveTheLowest24AreIgnored()
{
    QVERIFY(Color::hex(0xFF12'3456) == Color::hex(0x12'3456));
    QVERIFY(Color::hex(0x0112'3456) == Color::hex(0x12'3456));
}

void ColorTest::thePaletteHasItsEightColoursInOrder()
{
    const std::array expected = {0xF29A00U, 0x182245U, 0xFF3B30U, 0x34C759U,
                                 0xFFD60AU, 0x0A84FFU, 0xFFFFFFU, 0x000000U};
    QCOMPARE(zeigewerk::kPalette.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        QVERIFY(zeigewerk::kPalette.at(i) == Color::hex(expected.at(i)));
    QVERIFY(zeigewerk::kOrange == zeigewerk::kPalette[0]);
    QVERIFY(zeigewerk::kNavy == zeigewerk::kPalette[1]);
}

void ColorTest::withAlphaReplacesTheAlpha()
{
    const Color half = Color::hex(0x123456).withAlpha(0.5);
    QCOMPARE(half.alpha, 0.5);
    QCOMPARE(half.withAlpha(0.25).alpha, 0.25);
    QVERIFY(half.withAlpha(1.0) == Color::hex(0x123456));
}

void ColorTest::coloursCompareByExactValue()
{
    QVERIFY(zeigewerk::kWhite == Color::hex(0xFFFFFF));
    QVERIFY(zeigewerk::kWhite != Color::hex(0xFFFFFE));
    QVERIFY(zeigewerk::kWhite != zeigewerk::kWhite.withAlpha(0.999));
}

void ColorTest::convertingToQColorKeepsTheBytes()
{
    for (quint32 rgb = 0; rgb <= 0xFF; ++rgb) {
        const quint32 mixed = rgb << 16 | (0xFF - rgb) << 8 | (rgb * 7 & 0xFF);
        QCOMPARE(zeigewerk::toQColor(Color::hex(mixed)).rgba(), 0xFF00'0000 | mixed);
    }
}

REGISTER_APPLESS_TEST(ColorTest)
#include "color_test.moc"
