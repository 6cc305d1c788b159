#include "seam/seam_contract.h"

#include <QTest>

namespace zeigewerk::test {

using platform::Modifier;
using platform::PhysicalKey;

void SeamContract::aHotKeyIsDeliveredForEachPress()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("hotkeys D W");
    QTRY_COMPARE(tell("states"), QString("D=granted W=granted"));
    m_world->holdModifiers(kCtrlAlt);
    m_world->tap(PhysicalKey::D);
    m_world->tap(PhysicalKey::W);
    m_world->tap(PhysicalKey::D);
    QTRY_COMPARE(tell("heard"), QString("hotkey D;hotkey W;hotkey D"));
    m_world->releaseModifiers();
    QCOMPARE(m_world->otherKeys(), 0);

    // Without the modifiers it is an ordinary key.
    forget();
    m_world->tap(PhysicalKey::D);
    QTRY_COMPARE(m_world->otherKeys(), 1);
    awaitEvents();
    QCOMPARE(tell("heard"), QString());
}

void SeamContract::aHotKeyOfAnotherProgramIsRefused()
{
    m_world->otherGrabsHotKey();
    tell("hotkeys D W");
    QTRY_COMPARE(tell("states"), QString("D=refused W=granted"));
    m_world->holdModifiers(kCtrlAlt);
    m_world->tap(PhysicalKey::D);
    m_world->tap(PhysicalKey::W);
    m_world->releaseModifiers();
    QTRY_COMPARE(tell("heard"), QString("hotkey W"));
}

void SeamContract::aHotKeyCanBeGivenBackWhileTheProgramRuns()
{
    QTRY_VERIFY(m_world->otherHasKeyboard());
    tell("hotkeys Esc");
    QTRY_COMPARE(tell("states"), QString("Esc=granted"));
    m_world->tap(PhysicalKey::Escape);
    QTRY_COMPARE(tell("heard"), QString("hotkey Esc"));
    QCOMPARE(m_world->otherKeys(), 0);

    forget();
    tell("giveback Esc");
    QCOMPARE(tell("states"), QString());
    m_world->tap(PhysicalKey::Escape);
    QTRY_COMPARE(m_world->otherKeys(), 1);
    awaitEvents();
    QCOMPARE(tell("heard"), QString());

    tell("hotkeys Esc");
    QTRY_COMPARE(tell("states"), QString("Esc=granted"));
    m_world->tap(PhysicalKey::Escape);
    QTRY_COMPARE(tell("heard"), QString("hotkey Esc"));
    QCOMPARE(m_world->otherKeys(), 1);
}

void SeamContract::theMonitorReportsOnlyWhatItIsAskedFor()
{
    if (!offers("clicks"))
        QSKIP("this desktop does not offer it");
    m_world->movePointer(kBeside);
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 1);
    tell("listen clicks");
    m_world->click();
    QTRY_COMPARE(tell("heard"), QString("press 700.5,600.5"));
    tell("listen");
    m_world->click();
    QTRY_COMPARE(m_world->otherClicks(), 3);
    awaitEvents();
    QCOMPARE(tell("heard"), QString("press 700.5,600.5"));
}

void SeamContract::theMonitorReportsClicksEverywhere()
{
    if (!offers("clicks"))
        QSKIP("this desktop does not offer it");
    showCanvas();
    tell("mouse canvas take");
    tell("listen clicks");
    m_world->movePointer(kInCanvas);
    m_world->click();
    QTRY_COMPARE(tell("heard"), QString("press 200.5,250.5"));
    // The monitor does not consume the click.
    QTRY_VERIFY(tell("events canvas").startsWith("down"));
    m_world->movePointer(kBeside);
    m_world->click();
    QTRY_COMPARE(tell("heard"), QString("press 200.5,250.5;press 700.5,600.5"));
    QTRY_COMPARE(m_world->otherClicks(), 1);
}

void SeamContract::theMonitorReportsTheWheelWithAlt()
{
    if (!offers("wheel"))
        QSKIP("this desktop does not offer it");
    showCanvas();
    tell("mouse canvas take");
    tell("listen wheel");
    m_world->movePointer(kBeside);
    m_world->holdModifiers(Modifier::Alt);
    m_world->turnWheel(1);
    QTRY_COMPARE(tell("heard"), QString("scroll 1 700.5,600.5 elsewhere"));
    m_world->movePointer(kInCanvas);
    m_world->turnWheel(-1);
    QTRY_COMPARE(tell("heard"), QString("scroll 1 700.5,600.5 elsewhere;scroll -1 200.5,250.5 ours"));
    m_world->releaseModifiers();
    // It does not report clicks that the program did not ask for.
    m_world->click();
    QTRY_VERIFY(tell("events canvas").contains("down"));
    awaitEvents();
    QCOMPARE(tell("heard"), QString("scroll 1 700.5,600.5 elsewhere;scroll -1 200.5,250.5 ours"));
}

void SeamContract::thePrimaryScreenBeginsAtTheOrigin()
{
    QVERIFY(tell("desktop screens").startsWith("0 0 "));
    QVERIFY(tell("desktop main") != "none");
}

void SeamContract::theVisibleFrameExcludesDocks()
{
    const QStringList screen = tell("desktop screens").split(' ');
    const int width = screen.at(2).toInt();
    const int height = screen.at(3).toInt();
    QTRY_COMPARE(tell("desktop visible"), QString("0 0 %1 %2").arg(width).arg(height));
    m_world->setDocks({0, 30, 0, 0});
    QTRY_COMPARE(tell("desktop visible"), QString("0 0 %1 %2").arg(width).arg(height - 30));
    m_world->setDocks({48, 0, 0, 20});
    QTRY_COMPARE(tell("desktop visible"), QString("48 20 %1 %2").arg(width - 48).arg(height - 20));
}

void SeamContract::ifDocksLeaveNothingTheVisibleFrameIsTheScreen()
{
    const QStringList screen = tell("desktop screens").split(' ');
    m_world->setDocks({0, 30, 0, 0});
    QTRY_VERIFY(tell("desktop visible") != screen.join(' '));
    const int moreThanHalf = screen.at(3).toInt() / 2 + 50;
    m_world->setDocks({0, moreThanHalf, 0, moreThanHalf});
    QTRY_COMPARE(tell("desktop visible"), screen.join(' '));
}

void SeamContract::thePointersPlaceIsKnown()
{
    if (!offers("following"))
        QSKIP("this desktop does not offer it");
    tell("follow on");
    for (const QPointF place : {QPointF(200.5, 250.5), QPointF(0.5, 0.5), QPointF(700.5, 600.5)}) {
        m_world->movePointer(place);
        QTRY_COMPARE(tell("desktop pointer"), QString("%1,%2").arg(place.x()).arg(place.y()));
    }
}

} // namespace zeigewerk::test
