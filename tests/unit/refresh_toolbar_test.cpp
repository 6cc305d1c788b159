// How the toolbar shows the program's state.

#include "registered_test.h"
#include "toolbar/bar.h"
#include "toolbar/symbols.h"
#include "toolbar/toolbar_look.h"
#include "toolbar_fixture.h"

#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

const Color kDarkContent = kWhite;
const Color kLightContent = kBlack.withAlpha(0.8);

bool isChosen(const PalButton &button, bool dark)
{
    return button.layer().background == (dark ? kWhite.withAlpha(0.25) : kBlack.withAlpha(0.12));
}

bool isClear(const Color &color)
{
    return color.alpha == 0.0;
}

/// A controller with the dark or the light toolbar.
std::unique_ptr<Controller> withLook(bool dark)
{
    auto controller = std::make_unique<Controller>();
    controller->defaults.setBool(kDarkUIKey, dark);
    return controller;
}

} // namespace

class RefreshToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modeButtonsShowWhetherTheirModeIsOn_data();
    void modeButtonsShowWhetherTheirModeIsOn();
    void theChosenToolIsHighlighted_data() { addLooks(); }
    void theChosenToolIsHighlighted();
    void theChosenSwatchHasAnOrangeBorder_data() { addLooks(); }
    void theChosenSwatchHasAnOrangeBorder();
    void theChosenWidthIsHighlighted_data() { addLooks(); }
    void theChosenWidthIsHighlighted();
    void allOtherControlsAreNeutral_data() { addLooks(); }
    void allOtherControlsAreNeutral();
    void theAppearanceButtonShowsTheOtherAppearance_data() { addLooks(); }
    void theAppearanceButtonShowsTheOtherAppearance();
    void switchingTheAppearanceTwiceRestoresEverything();
    void refreshingAgainChangesNothing();
    void aWidthOrColourWithoutAButtonHighlightsNone();

private:
    static void addLooks()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("dark") << true;
        QTest::newRow("light") << false;
    }
};

void RefreshToolbarTest::modeButtonsShowWhetherTheirModeIsOn_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QString>("operations");
    // One letter for each button: draw, board, spot, clicks, pin, ring, fade.
    QTest::addColumn<QString>("on");
    for (const bool dark : {true, false}) {
        const auto row = [dark](const char *operations, const char *on) {
            QTest::addRow("%s: %s", dark ? "dark" : "light", operations)
                << dark << QString::fromLatin1(operations) << QString::fromLatin1(on);
        };
        row("", ".......");
        row("d", "d......");
        row("w", ".w.....");
        row("s", "..s....");
        row("k", "...k...");
        row("dp", "....p..");
        row("r", ".....r.");
        row("f", "......f");
        row("dwskrf", "dwsk.rf");
        row("dwskrfe", "...k.rf");
    }
}

void RefreshToolbarTest::modeButtonsShowWhetherTheirModeIsOn()
{
    QFETCH(bool, dark);
    QFETCH(QString, operations);
    QFETCH(QString, on);
    const auto controller = withLook(dark);
    controller->perform(operations);
    const Toolbar &bar = *controller->app().toolbar();
    const std::array buttons = {bar.btnDraw, bar.btnBoard, bar.btnSpot, bar.btnClicks,
                                bar.btnPin,  bar.btnRing,  bar.btnFade};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const bool isOn = on[static_cast<int>(i)] != u'.';
        const PalButton &button = *buttons.at(i);
        if (isOn)
            QVERIFY(button.layer().background == kOrange);
        else
            QVERIFY(isClear(button.layer().background));
        QVERIFY(button.contentTint() == (isOn ? kNavy : dark ? kDarkContent : kLightContent));
        QCOMPARE(button.isShownOn(), isOn);
    }
}

void RefreshToolbarTest::theChosenToolIsHighlighted()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    for (const Tool chosen : Tool::allCases) {
        controller->app().setTool(chosen);
        for (const auto &[tool, button] : controller->app().toolbar()->toolButtons) {
            QCOMPARE(isChosen(*button, dark), tool == chosen);
            QCOMPARE(isClear(button->layer().background), tool != chosen);
            QCOMPARE(button->isShownOn(), tool == chosen);
            QVERIFY(button->contentTint() == (dark ? kDarkContent : kLightContent));
        }
    }
}

void RefreshToolbarTest::theChosenSwatchHasAnOrangeBorder()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    const auto &swatches =
        controller->app().toolbar() ? controller->app().toolbar()->colorButtons : std::vector<PalButton *>();
    QCOMPARE(swatches.size(), kPalette.size());
    for (std::size_t chosen = 0; chosen < kPalette.size(); ++chosen) {
        controller->app().setColor(kPalette.at(chosen));
        for (std::size_t i = 0; i < kPalette.size(); ++i) {
            const PalButton::Layer &layer = swatches.at(i)->layer();
            QVERIFY(layer.background == kPalette.at(i));
            QCOMPARE(layer.borderWidth, i == chosen ? 2.5 : 1.0);
            QVERIFY(layer.borderColor == (i == chosen ? kOrange
                                          : dark      ? kWhite.withAlpha(0.4)
                                                      : kBlack.withAlpha(0.25)));
            QCOMPARE(swatches.at(i)->isShownOn(), i == chosen);
        }
    }
}

void RefreshToolbarTest::theChosenWidthIsHighlighted()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    for (std::size_t chosen = 0; chosen < 3; ++chosen) {
        controller->app().setLineWidth(AppDelegate::widths.at(chosen));
        for (std::size_t i = 0; i < 3; ++i) {
            const PalButton &button = *controller->app().toolbar()->widthButtons.at(i);
            QCOMPARE(isChosen(button, dark), i == chosen);
            QVERIFY(button.contentTint() == (dark ? kDarkContent : kLightContent));
        }
    }
}

void RefreshToolbarTest::allOtherControlsAreNeutral()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    const Toolbar &bar = *(controller->app(), controller->app().toolbar());
    for (const PalButton *button : bar.miscButtons) {
        QVERIFY(button->contentTint() == (dark ? kDarkContent : kLightContent));
        QVERIFY(isClear(button->layer().background));
        QVERIFY(!button->isShownOn());
    }
    QVERIFY(bar.gripView->color() == (dark ? kWhite.withAlpha(0.35) : kBlack.withAlpha(0.3)));
}

void RefreshToolbarTest::theAppearanceButtonShowsTheOtherAppearance()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    const PalButton &button = *(controller->app(), controller->app().toolbar())->btnDark;
    QCOMPARE(button.toolTip(), dark ? QStringLiteral("Werkzeugleiste auf hell umschalten")
                                    : QStringLiteral("Werkzeugleiste auf dunkel umschalten"));
    QCOMPARE(
        painted(button.image().value()),
        painted(symbolImage(dark ? QStringLiteral("sun.max.fill") : QStringLiteral("moon.fill")).value()));
    QVERIFY(button.contentTint() == (dark ? kDarkContent : kLightContent));
    QCOMPARE(button.accessibleName(), QStringLiteral("Werkzeugleiste hell/dunkel"));
}

void RefreshToolbarTest::switchingTheAppearanceTwiceRestoresEverything()
{
    Controller controller;
    controller.perform(QStringLiteral("dsr"));
    const QStringList before = appearance(controller.app());
    controller.app().toggleDarkUI();
    QVERIFY(appearance(controller.app()) != before);
    QCOMPARE(controller.defaults.boolForKey(kDarkUIKey), std::optional(false));
    controller.app().toggleDarkUI();
    QCOMPARE(appearance(controller.app()), before);
    QCOMPARE(controller.defaults.boolForKey(kDarkUIKey), std::optional(true));
}

void RefreshToolbarTest::refreshingAgainChangesNothing()
{
    Controller controller;
    controller.perform(QStringLiteral("wk"));
    const QStringList before = appearance(controller.app());
    controller.app().refreshToolbar();
    QCOMPARE(appearance(controller.app()), before);
}

void RefreshToolbarTest::aWidthOrColourWithoutAButtonHighlightsNone()
{
    Controller controller;
    controller.app().setLineWidth(4.0);
    controller.app().setColor(Color::hex(0x123456));
    for (const PalButton *button : controller.app().toolbar()->widthButtons)
        QVERIFY(isClear(button->layer().background));
    for (const PalButton *swatch : controller.app().toolbar()->colorButtons)
        QCOMPARE(swatch->layer().borderWidth, 1.0);
}

REGISTER_TEST(RefreshToolbarTest)
#include "refresh_toolbar_test.moc"
