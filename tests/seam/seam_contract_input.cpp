#include "seam/seam_contract.h"

#include <QTest>

namespace zeigewerk::test {

using platform::Modifier;
using platform::PhysicalKey;

void SeamContract::clicksPassThroughASurfaceUntilItTakesTheMouse()
{
    showCanvas();
    QTRY_COMPARE(m_world->pixel(kInCanvas), kRed);
    m_world->movePointer(kInCanvas);
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 1);
    awaitEvents();
    QCOMPARE(tell("events canvas"), QString());

    forget();
    tell("mouse canvas take");
    m_world->click();
    QTRY_COMPARE(tell("events canvas"), QString("down 100.5,150.5 200.5,250.5;up 100.5,150.5 200.5,250.5"));
    QCOMPARE(m_world->otherClicks(), 0);

    forget();
    tell("mouse canvas ignore");
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 1);
    awaitEvents();
    QCOMPARE(tell("events canvas"), QString());
}

void SeamContract::pointerEventsCarryTheirPlaces()
{
    showCanvas();
    tell("mouse canvas take");
    m_world->movePointer(kInCanvas);
    m_world->pressButton();
    m_world->movePointer({210.5, 240.5});
    m_world->releaseButton();
    QTRY_COMPARE(tell("events canvas"), QString("down 100.5,150.5 200.5,250.5;"
                                                "drag 110.5,140.5 210.5,240.5;"
                                                "up 110.5,140.5 210.5,240.5"));
}

void SeamContract::aDragContinuesOutsideTheSurface()
{
    showCanvas();
    tell("mouse canvas take");
    m_world->movePointer(kInCanvas);
    m_world->pressButton();
    m_world->movePointer(kBeside);
    m_world->releaseButton();
    QTRY_COMPARE(tell("events canvas"), QString("down 100.5,150.5 200.5,250.5;"
                                                "drag 600.5,500.5 700.5,600.5;"
                                                "up 600.5,500.5 700.5,600.5"));
    QCOMPARE(m_world->otherClicks(), 0);
}

void SeamContract::scrollEventsCarryTheirPlace()
{
    showCanvas();
    tell("mouse canvas take");
    m_world->movePointer(kInCanvas);
    m_world->turnWheel(1);
    m_world->turnWheel(-1);
    QTRY_COMPARE(tell("events canvas"), QString("scroll 1 200.5,250.5;scroll -1 200.5,250.5"));
}

void SeamContract::aHiddenSurfaceGetsNoKeyboard()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("surface canvas overlay 100 100 400 300 red");
    tell("interact begin");
    tell("key canvas");
    m_world->tap(PhysicalKey::D);
    QTRY_COMPARE(m_world->otherKeys(), 1);
    QVERIFY(m_world->otherHasKeyboard());
}

void SeamContract::theKeyboardGoesToASurfaceAndBack()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    showCanvas();
    tell("interact begin");
    tell("key canvas");
    QTRY_VERIFY(!m_world->otherHasKeyboard());
    m_world->tap(PhysicalKey::D);
    m_world->tap(PhysicalKey::Escape);
    QTRY_COMPARE(tell("events canvas"), QString("key d;escape"));
    QCOMPARE(m_world->otherKeys(), 0);

    tell("interact end");
    QTRY_VERIFY(m_world->otherHasKeyboard());
    forget();
    m_world->tap(PhysicalKey::D);
    QTRY_COMPARE(m_world->otherKeys(), 1);
    awaitEvents();
    QCOMPARE(tell("events canvas"), QString());
}

void SeamContract::aToolbarNeverTakesTheKeyboard()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("window bar toolbar 200 200 lime");
    tell("origin bar 150 150");
    tell("order bar front");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
    tell("key bar");
    m_world->movePointer(kInCanvas);
    m_world->click();
    QCOMPARE(tell("state bar"), QString("visible"));
    m_world->tap(PhysicalKey::D);
    QTRY_COMPARE(m_world->otherKeys(), 1);
    QVERIFY(m_world->otherHasKeyboard());
    QCOMPARE(m_world->otherClicks(), 0);
}

void SeamContract::aTextFieldTakesTheKeyboard()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("window note field 340 32 white");
    tell("origin note 150 230");
    tell("interact begin");
    tell("order note front");
    QCOMPARE(tell("state note"), QString("visible"));
    tell("key note");
    QCOMPARE(tell("state note"), QString("visible key"));
    QTRY_VERIFY(!m_world->otherHasKeyboard());
    m_world->tap(PhysicalKey::K);
    QTRY_COMPARE(tell("typed note"), QString("k"));
    tell("interact end");
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("order note out");
    QCOMPARE(tell("state note"), QString("hidden"));
}

void SeamContract::clicksPassThroughAWindowThatIgnoresTheMouse()
{
    tell("window bar toolbar 200 200 lime");
    tell("origin bar 150 150");
    tell("order bar front");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
    m_world->movePointer(kInCanvas);
    tell("mouse bar ignore");
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 1);
    tell("mouse bar take");
    m_world->click();
    // The click beside shows that there was time for the one before.
    m_world->movePointer(kBeside);
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 2);
}

void SeamContract::aWindowMovesToWholePoints()
{
    tell("window bar toolbar 200 200 lime");
    tell("origin bar 150.4 149.6");
    QCOMPARE(tell("frame bar"), QString("150 150 200 200"));
    tell("order bar front");
    QTRY_COMPARE(m_world->pixel({150.5, 150.5}), kLime);
    QCOMPARE(m_world->pixel({349.5, 349.5}), kLime);
    QCOMPARE(m_world->pixel({149.5, 200.5}), kBeneath);
    QCOMPARE(m_world->pixel({350.5, 200.5}), kBeneath);
}

void SeamContract::aWindowIsDraggedByItsGrip()
{
    tell("window bar toolbar 200 200 lime");
    tell("origin bar 150 150");
    tell("order bar front");
    QTRY_COMPARE(m_world->pixel(kInCanvas), kLime);
    m_world->movePointer({200.5, 250.5});
    // The pointer has moved by (40, -30) since the grip was pressed.
    m_world->movePointer({240.5, 220.5});
    tell("drag bar 50.5 100.5 90.5 70.5");
    QCOMPARE(tell("frame bar"), QString("190 120 200 200"));
    QTRY_COMPARE(m_world->pixel({195.5, 125.5}), kLime);
    QTRY_COMPARE(m_world->pixel({155.5, 340.5}), kBeneath);
}

} // namespace zeigewerk::test
