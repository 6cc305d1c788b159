#include "commands/status_item.h"
#include "controller_fixture.h"
#include "registered_test.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"

#include <QAccessible>
#include <QAction>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>

using namespace zeigewerk;
using platform::Feature;
using test::Controller;

namespace {

const QString kReason = QStringLiteral("Das bietet diese Sitzung nicht.");

/// A mode that needs a feature, and its controls: a button, a menu entry, and the operation of both.
struct ModeRow
{
    const char *name;
    Feature needs;
    PalButton *Toolbar::*button;
    const char *entry;
    void (AppDelegate::*toggle)();
    bool (AppDelegate::*isOn)() const;
};

// A table, one row per mode.
// clang-format off
constexpr std::array kModes = {
    ModeRow{"spotlight", Feature::FollowingPointer, &Toolbar::btnSpot, "spotlight",
            &AppDelegate::toggleSpot, &AppDelegate::spotlightOn},
    ModeRow{"ring", Feature::FollowingPointer, &Toolbar::btnRing, "cursor-ring",
            &AppDelegate::toggleRing, &AppDelegate::cursorRingOn},
    ModeRow{"clicks", Feature::ClicksElsewhere, &Toolbar::btnClicks, "clicks",
            &AppDelegate::toggleClicks, &AppDelegate::clicksOn},
};
// clang-format on

QAction &entry(Controller &controller, const char *name)
{
    return *controller.app().statusItem()->menu().findChild<QAction *>(QString::fromLatin1(name));
}

} // namespace

class FeaturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMissingFeatureDisablesItsControlsAndSaysWhy_data() { addModes(); }
    void aMissingFeatureDisablesItsControlsAndSaysWhy();
    void aModeWithoutItsFeatureCannotBeTurnedOn_data() { addModes(); }
    void aModeWithoutItsFeatureCannotBeTurnedOn();
    void aModeEndsWithItsFeatureAndDoesNotResumeByItself_data() { addModes(); }
    void aModeEndsWithItsFeatureAndDoesNotResumeByItself();
    void theOtherModesStayAvailable_data() { addModes(); }
    void theOtherModesStayAvailable();
    void withoutTheWheelElsewhereTheSpotlightWorksAndSaysWhy();
    void aPressOnADisabledButtonNeitherClicksNorDrags();
    void aDisabledButtonIsPaler();

private:
    static void addModes();
    static const ModeRow &mode();
};

void FeaturesTest::addModes()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(kModes.size()); ++i)
        QTest::newRow(kModes.at(static_cast<std::size_t>(i)).name) << i;
}

const ModeRow &FeaturesTest::mode()
{
    const auto index = *static_cast<int *>(QTest::qData("index", QMetaType::Int));
    return kModes.at(static_cast<std::size_t>(index));
}

void FeaturesTest::aMissingFeatureDisablesItsControlsAndSaysWhy()
{
    Controller controller;
    PalButton &button = *(controller.app().toolbar()->*mode().button);
    const QString tip = button.toolTip();
    QVERIFY(button.isEnabled());
    QVERIFY(entry(controller, mode().entry).isEnabled());

    controller.desktop.setLimitation(mode().needs, kReason);
    QVERIFY(!button.isEnabled());
    QVERIFY(!entry(controller, mode().entry).isEnabled());
    QCOMPARE(button.toolTip(), tip + "\n" + kReason);
    QCOMPARE(button.accessibleName(), tip);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(accessible->state().disabled);
    QCOMPARE(accessible->text(QAccessible::Description), kReason);

    controller.desktop.setLimitation(mode().needs, {});
    QVERIFY(button.isEnabled());
    QVERIFY(entry(controller, mode().entry).isEnabled());
    QCOMPARE(button.toolTip(), tip);
}

void FeaturesTest::aModeWithoutItsFeatureCannotBeTurnedOn()
{
    Controller controller;
    controller.desktop.setLimitation(mode().needs, kReason);
    const auto isOn = [&] { return (controller.app().*mode().isOn)(); };
    (controller.app().toolbar()->*mode().button)->click();
    QVERIFY(!isOn());
    controller.app().statusItem()->menu().trigger(QString::fromLatin1(mode().entry));
    QVERIFY(!isOn());
    // As a hot key does.
    (controller.app().*mode().toggle)();
    QVERIFY(!isOn());
}

void FeaturesTest::aModeEndsWithItsFeatureAndDoesNotResumeByItself()
{
    Controller controller;
    controller.app().statusItem()->menu().trigger(QString::fromLatin1(mode().entry));
    QVERIFY((controller.app().*mode().isOn)());
    controller.desktop.setLimitation(mode().needs, kReason);
    QVERIFY(!(controller.app().*mode().isOn)());
    QVERIFY(!(controller.app().toolbar()->*mode().button)->isShownOn());
    controller.desktop.setLimitation(mode().needs, {});
    QVERIFY(!(controller.app().*mode().isOn)());
    (controller.app().toolbar()->*mode().button)->click();
    QVERIFY((controller.app().*mode().isOn)());
}

void FeaturesTest::theOtherModesStayAvailable()
{
    Controller controller;
    controller.perform("dsrk");
    controller.desktop.setLimitation(mode().needs, kReason);
    QVERIFY(controller.app().drawOn());
    for (const ModeRow &other : kModes) {
        const bool isAffected = other.needs == mode().needs;
        QCOMPARE((controller.app().*other.isOn)(), !isAffected);
        QCOMPARE((controller.app().toolbar()->*other.button)->isEnabled(), !isAffected);
    }
}

void FeaturesTest::withoutTheWheelElsewhereTheSpotlightWorksAndSaysWhy()
{
    Controller controller;
    PalButton &spot = *controller.app().toolbar()->btnSpot;
    const QString tip = spot.toolTip();
    controller.perform("s");
    controller.desktop.setLimitation(Feature::WheelElsewhere, kReason);
    QVERIFY(controller.app().spotlightOn());
    QVERIFY(spot.isEnabled());
    QCOMPARE(spot.toolTip(), tip + "\n" + kReason);
}

void FeaturesTest::aPressOnADisabledButtonNeitherClicksNorDrags()
{
    Controller controller;
    controller.desktop.setLimitation(Feature::ClicksElsewhere, kReason);
    Panel &panel = *controller.app().toolbar()->panel;
    QSignalSpy drags(&panel, &Panel::dragBegan);
    QSignalSpy menus(&panel, &Panel::menuRequested);
    QTest::mouseClick(controller.app().toolbar()->btnClicks, Qt::LeftButton);
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(controller.app().toolbar()->btnClicks, &rightClick);
    QCOMPARE(drags.size(), 0);
    QCOMPARE(menus.size(), 0);
    QVERIFY(!controller.app().clicksOn());
}

void FeaturesTest::aDisabledButtonIsPaler()
{
    Controller controller;
    const PalButton &button = *controller.app().toolbar()->btnClicks;
    const auto strongest = [&] {
        QImage image(button.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        controller.app().toolbar()->btnClicks->render(&image, {}, {}, {});
        int alpha = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                alpha = std::max(alpha, qAlpha(image.pixel(x, y)));
        }
        return alpha;
    };
    const int offered = strongest();
    controller.desktop.setLimitation(Feature::ClicksElsewhere, kReason);
    QVERIFY(strongest() < offered / 2);
}

REGISTER_TEST(FeaturesTest)
#include "features_test.moc"
