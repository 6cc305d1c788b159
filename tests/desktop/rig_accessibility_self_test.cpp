// Tests the rig's accessibility support with a program whose buttons are known.
#include "registered_test.h"
#include "rig.h"

#include <algorithm>

using namespace zeigewerk::rig;

namespace {

const QString kOpen = "Öffnen (⌃⌥Z)";
const QString kToggle = "Umschalten";

} // namespace

class RigAccessibilitySelfTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void buttonsAreFoundInOrder();
    void pressingNeedsNoPointer();
    void clicksWithinTheExtentsHitAtEveryScale_data();
    void clicksWithinTheExtentsHitAtEveryScale();
    void programsAreToldApart();
    void theAccessibilityBusRunsOnlyOnRequest();
    void noBusProcessIsLeftBehind();
};

void RigAccessibilitySelfTest::initTestCase()
{
    qputenv("ZEIGEWERK_BINARY", RIG_ACCESSIBLE_STAND_IN);
}

void RigAccessibilitySelfTest::buttonsAreFoundInOrder()
{
    DesktopSession session({.accessibility = true});
    Program program(session);
    Accessibility reader(session, program);
    EVENTUALLY(reader.buttons().size() == 5);
    const QList<AccessibleButton> buttons = reader.buttons();
    QStringList names;
    for (const AccessibleButton &button : buttons) {
        names.append(button.name);
        QCOMPARE(button.description, "describes " + button.name);
        QVERIFY(button.is(AccessibleState::Showing));
        QCOMPARE(button.extents.size(), QSize(60, 40));
        QCOMPARE(button.isToggle(), button.name == kToggle);
        QCOMPARE(button.is(AccessibleState::Enabled), button.name != "Gesperrt");
        QVERIFY(!button.isChecked());
    }
    QCOMPARE(names, QStringList({kOpen, kToggle, "Farbe", "Farbe", "Gesperrt"}));
    QVERIFY(buttons.at(3).extents.left() > buttons.at(2).extents.right());

    QCOMPARE(reader.find("Farbe", 1)->extents, buttons.at(3).extents);
    QVERIFY(!reader.find("Farbe", 2));
    QVERIFY(!reader.find("Nirgends"));
}

void RigAccessibilitySelfTest::pressingNeedsNoPointer()
{
    DesktopSession session({.accessibility = true});
    Program program(session);
    Accessibility reader(session, program);
    EVENTUALLY(reader.find(kToggle));
    QVERIFY(reader.press(*reader.find(kToggle)));
    EVENTUALLY(reader.find(kToggle)->isChecked());
    QVERIFY(reader.press(*reader.find(kOpen)));
    EVENTUALLY(program.output() == "Umschalten used at 1\nÖffnen (⌃⌥Z) used at 0\n");
    QVERIFY(reader.press(*reader.find(kToggle)));
    EVENTUALLY(!reader.find(kToggle)->isChecked());

    // After the program has ended, its buttons can neither be pressed nor listed.
    const AccessibleButton button = *reader.find(kOpen);
    QCOMPARE(program.terminate(), std::optional(0));
    QVERIFY(!reader.press(button));
    QVERIFY(reader.buttons().isEmpty());
}

void RigAccessibilitySelfTest::clicksWithinTheExtentsHitAtEveryScale_data()
{
    QTest::addColumn<QString>("scales");
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<QSize>("size");
    QTest::newRow("1") << "1" << QRect(0, 0, 1920, 1080) << QSize(60, 40);
    QTest::newRow("1.25") << "1.25" << QRect(0, 0, 1920, 1080) << QSize(75, 50);
    QTest::newRow("2") << "2" << QRect(0, 0, 3840, 2160) << QSize(120, 80);
}

void RigAccessibilitySelfTest::clicksWithinTheExtentsHitAtEveryScale()
{
    QFETCH(QString, scales);
    QFETCH(QRect, screen);
    QFETCH(QSize, size);
    DesktopSession session({.screens = {screen}, .accessibility = true});
    Program program(session, {{"QT_SCALE_FACTOR", scales}});
    Accessibility reader(session, program);
    EVENTUALLY(reader.find("Farbe", 1));
    const QRect extents = reader.find("Farbe", 1)->extents;
    QVERIFY(std::abs(extents.width() - size.width()) <= 1 && std::abs(extents.height() - size.height()) <= 1);
    QByteArray expected;
    // The middle, and just inside two corners.
    for (const QPoint place :
         {extents.center(), extents.topLeft() + QPoint(3, 3), extents.bottomRight() - QPoint(3, 3)}) {
        QVERIFY(session.pointer().clickAt(place));
        expected += "Farbe used at 3\n";
        EVENTUALLY(program.output() == expected);
    }
    QVERIFY(session.pointer().clickAt(reader.find(kToggle)->extents.center()));
    EVENTUALLY(reader.find(kToggle)->isChecked());
}

void RigAccessibilitySelfTest::programsAreToldApart()
{
    DesktopSession session({.accessibility = true});
    Program one(session);
    Program other(session);
    Accessibility reader(session, other);
    EVENTUALLY(reader.find(kToggle));
    QVERIFY(reader.press(*reader.find(kToggle)));
    EVENTUALLY(other.output() == "Umschalten used at 1\n");
    QVERIFY(one.output().isEmpty());
}

void RigAccessibilitySelfTest::theAccessibilityBusRunsOnlyOnRequest()
{
    DesktopSession session;
    const QProcessEnvironment environment = session.environment();
    QVERIFY(!environment.contains("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"));
    const QByteArray mark = "HOME=" + environment.value("HOME").toUtf8();
    // Bus, window manager, compositor.
    QCOMPARE(processesWithEnvironment(mark).size(), 3);
}

void RigAccessibilitySelfTest::noBusProcessIsLeftBehind()
{
    QByteArray mark;
    {
        DesktopSession session({.accessibility = true});
        mark = "HOME=" + session.environment().value("HOME").toUtf8();
        Program program(session);
        Accessibility reader(session, program);
        // Session bus, window manager, compositor, the stand-in, the accessibility bus with its launcher and
        // its registry.
        EVENTUALLY(processesWithEnvironment(mark).size() == 7);
    }
    QVERIFY(processesWithEnvironment(mark).isEmpty());
}

REGISTER_GUILESS_TEST(RigAccessibilitySelfTest)
#include "rig_accessibility_self_test.moc"
