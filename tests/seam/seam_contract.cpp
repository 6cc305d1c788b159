#include "seam/seam_contract.h"

#include <QTest>

namespace zeigewerk::test {

void SeamContract::init()
{
    m_world = makeWorld();
    QTRY_COMPARE(m_world->pixel(kInCanvas), kBeneath);
}

void SeamContract::cleanup()
{
    m_world.reset();
}

void SeamContract::forget()
{
    tell("forget");
    m_world->forgetOtherInput();
}

void SeamContract::showCanvas(const QString &color)
{
    tell(QStringLiteral("surface canvas overlay 100 100 400 300 ") + color);
    tell(QStringLiteral("order canvas front"));
    tell(QStringLiteral("damage canvas"));
}

void SeamContract::aSurfaceIsHiddenUntilItIsOrderedFront()
{
    tell("surface canvas overlay 100 100 400 300 red");
    tell("damage canvas");
    QCOMPARE(tell("state canvas"), QString("hidden"));
    QCOMPARE(tell("frame canvas"), QString("100 100 400 300"));
    QCOMPARE(m_world->pixel(kInCanvas), kBeneath);

    tell("order canvas front");
    tell("damage canvas");
    QCOMPARE(tell("state canvas"), QString("visible"));
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
    // Exactly its frame.
    QCOMPARE(m_world->pixel({100.5, 100.5}), kRed);
    QCOMPARE(m_world->pixel({499.5, 399.5}), kRed);
    QCOMPARE(m_world->pixel({99.5, 250.5}), kBeneath);
    QCOMPARE(m_world->pixel({500.5, 250.5}), kBeneath);
    QCOMPARE(m_world->pixel({200.5, 99.5}), kBeneath);
    QCOMPARE(m_world->pixel({200.5, 400.5}), kBeneath);

    tell("order canvas out");
    QCOMPARE(tell("state canvas"), QString("hidden"));
    QTRY_COMPARE(m_world->pixel(kInCanvas), kBeneath);
}

void SeamContract::aSurfacePaintsOnlyWhatIsDamaged()
{
    showCanvas();
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
    tell("color canvas lime");
    // View coordinates: the right half.
    tell("damage canvas 200 0 200 300");
    QTRY_COMPARE(m_world->pixel({400.5, 250.5}), kLime);
    QCOMPARE(m_world->pixel(kInCanvas), kRed);
    tell("damage canvas");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
}

void SeamContract::aSurfaceComesBackTransparent()
{
    showCanvas();
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
    tell("order canvas out");
    // Ignored while hidden.
    tell("damage canvas");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kBeneath);
    tell("order canvas front");
    tell("surface other overlay 550 100 100 100 yellow");
    tell("order other front");
    tell("damage other");
    QTRY_COMPARE(m_world->pixel({600.5, 150.5}), kYellow);
    QCOMPARE(m_world->pixel(kInCanvas), kBeneath);
    tell("damage canvas");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
}

void SeamContract::aSurfaceMovesWithItsPicture()
{
    tell("surface ring effect 100 100 56 56 red");
    tell("order ring front");
    tell("damage ring");
    QTRY_COMPARE(m_world->pixel({120.5, 120.5}), kRed);
    tell("origin ring 600 500");
    QCOMPARE(tell("frame ring"), QString("600 500 56 56"));
    QTRY_COMPARE(m_world->pixel({620.5, 520.5}), kRed);
    QTRY_COMPARE(m_world->pixel({120.5, 120.5}), kBeneath);
}

void SeamContract::orderingFrontNeverChangesTheLevel()
{
    tell("surface ring effect 150 150 56 56 yellow");
    tell("order ring front");
    tell("damage ring");
    tell("window bar toolbar 200 200 lime");
    tell("origin bar 120 120");
    tell("order bar front");
    showCanvas();
    QTRY_COMPARE(m_world->pixel({110.5, 110.5}), kRed);
    QTRY_COMPARE(m_world->pixel({130.5, 130.5}), kLime);
    QTRY_COMPARE(m_world->pixel({160.5, 160.5}), kYellow);

    // The canvas comes to the front of its level, and not above the others.
    tell("surface other overlay 300 300 400 300 blue");
    tell("color other fuchsia");
    tell("order other front");
    tell("damage other");
    QTRY_COMPARE(m_world->pixel({350.5, 350.5}), QColor(QColorConstants::Svg::fuchsia));
    tell("order bar front");
    tell("order canvas front");
    QTRY_COMPARE(m_world->pixel({350.5, 350.5}), kRed);
    QCOMPARE(m_world->pixel({130.5, 130.5}), kLime);
    QCOMPARE(m_world->pixel({160.5, 160.5}), kYellow);
}

void SeamContract::withinALevelTheLastOneOrderedFrontIsInFront()
{
    showCanvas();
    tell("surface other overlay 150 150 400 300 lime");
    tell("order other front");
    tell("damage other");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
    tell("order canvas front");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
    tell("order other front");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
}

} // namespace zeigewerk::test
