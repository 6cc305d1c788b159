// How the program's state shows on the toolbar, and the rules of picking and of the two toggles.

#include "controller_fixture.h"
#include "toolbar/bar.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "toolbar/symbols.h"
#include "toolbar/toolbar_look.h"

#include <QPainter>
#include <QTest>

using namespace zeigewerk;
using test::Controller;

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

/// A controller in the look that the current row of a test names.
std::unique_ptr<Controller> withLook(bool dark)
{
    auto controller = std::make_unique<Controller>();
    controller->defaults.setBool(kDarkUIKey, dark);
    return controller;
}

/// Every colour, symbol and tooltip of the toolbar.
QStringList appearance(const AppDelegate &app)
{
    const auto text = [](const Color &color) {
        return QStringLiteral("%1 %2 %3 %4").arg(color.red).arg(color.green).arg(color.blue).arg(color.alpha);
    };
    QStringList all;
    for (const PalButton *button : app.toolbar()->allButtons()) {
        const PalButton::Layer &layer = button->layer();
        all << button->toolTip() << text(layer.background) << text(layer.borderColor)
            << QString::number(layer.borderWidth) << text(button->contentTint());
    }
    return all << text(app.toolbar()->gripView->color()) << text(app.toolbar()->panel->look().backdrop);
}

QImage painted(const std::optional<TemplateImage> &image)
{
    QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    image.value().paint(painter, {0, 0}, Qt::black);
    return picture;
}

} // namespace

class RefreshToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modeButtonsShowTheirFlags_data();
    void modeButtonsShowTheirFlags();
    void theChosenToolIsHighlighted_data() { addLooks(); }
    void theChosenToolIsHighlighted();
    void theChosenSwatchHasAnOrangeBorder_data() { addLooks(); }
    void theChosenSwatchHasAnOrangeBorder();
    void theChosenWidthIsHighlighted_data() { addLooks(); }
    void theChosenWidthIsHighlighted();
    void everythingElseIsNeutral_data() { addLooks(); }
    void everythingElseIsNeutral();
    void theAppearanceButtonShowsWhereItLeads_data() { addLooks(); }
    void theAppearanceButtonShowsWhereItLeads();
    void switchingTheAppearanceTwiceRestoresEverything();
    void refreshingAgainChangesNothing();
    void aWidthOrColourThatIsNotOfferedHighlightsNone();
    void pickingAToolLeadsToDrawing_data();
    void pickingAToolLeadsToDrawing();
    void aTagThatIsNoToolDoesNothing();
    void pickingAColourChangesNothingElse();
    void pickingAWidthChangesNothingElse();
    void hidingKeepsThePlaceAndTheSelection();
    void theToolbarComesBackAboveTheOverlays();
    void aHiddenToolbarStaysHiddenWhenDrawingBegins();

private:
    static void addLooks()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("dark") << true;
        QTest::newRow("light") << false;
    }
};

void RefreshToolbarTest::modeButtonsShowTheirFlags_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QString>("operations");
    // One letter a button, in the order draw, board, spot, clicks, pin, ring, fade.
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

void RefreshToolbarTest::modeButtonsShowTheirFlags()
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

void RefreshToolbarTest::everythingElseIsNeutral()
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

void RefreshToolbarTest::theAppearanceButtonShowsWhereItLeads()
{
    QFETCH(bool, dark);
    const auto controller = withLook(dark);
    const PalButton &button = *(controller->app(), controller->app().toolbar())->btnDark;
    QCOMPARE(button.toolTip(), dark ? QStringLiteral("Werkzeugleiste auf hell umschalten")
                                    : QStringLiteral("Werkzeugleiste auf dunkel umschalten"));
    QCOMPARE(painted(button.image()),
             painted(symbolImage(dark ? QStringLiteral("sun.max.fill") : QStringLiteral("moon.fill"))));
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

void RefreshToolbarTest::aWidthOrColourThatIsNotOfferedHighlightsNone()
{
    Controller controller;
    controller.app().setLineWidth(4.0);
    controller.app().setColor(Color::hex(0x123456));
    for (const PalButton *button : controller.app().toolbar()->widthButtons)
        QVERIFY(isClear(button->layer().background));
    for (const PalButton *swatch : controller.app().toolbar()->colorButtons)
        QCOMPARE(swatch->layer().borderWidth, 1.0);
}

void RefreshToolbarTest::pickingAToolLeadsToDrawing_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<bool>("drawOn");
    QTest::addColumn<bool>("whiteboardOn");
    QTest::newRow("with nothing on it turns drawing on") << "" << true << false;
    QTest::newRow("with drawing on it only changes the tool") << "d" << true << false;
    QTest::newRow("on the whiteboard it does not turn drawing on") << "w" << false << true;
    QTest::newRow("with both on both stay") << "dw" << true << true;
    QTest::newRow("it ends a pin") << "dp" << true << false;
    QTest::newRow("it ends a pin beneath a whiteboard") << "dpw" << true << true;
    QTest::newRow("with the spotlight alone it turns drawing on") << "s" << true << false;
}

void RefreshToolbarTest::pickingAToolLeadsToDrawing()
{
    QFETCH(QString, operations);
    QFETCH(bool, drawOn);
    QFETCH(bool, whiteboardOn);
    Controller controller;
    controller.perform(operations);
    controller.desktop.takeLog();
    controller.app().pickTool(Tool::ellipse);
    QCOMPARE(controller.app().tool(), Tool(Tool::ellipse));
    QCOMPARE(controller.app().drawOn(), drawOn);
    QCOMPARE(controller.app().whiteboardOn(), whiteboardOn);
    QVERIFY(!controller.app().pinnedOn());
    // Everything was refreshed, not only the toolbar.
    QVERIFY(controller.desktop.takeLog().contains(QStringLiteral("overlay 0: take the mouse")));
}

void RefreshToolbarTest::aTagThatIsNoToolDoesNothing()
{
    Controller controller;
    controller.app().setTool(Tool::arrow);
    controller.desktop.takeLog();
    for (const int tag : {-1, 7, 100, -2147483647}) {
        controller.app().pickTool(tag);
        QCOMPARE(controller.app().tool(), Tool(Tool::arrow));
        QVERIFY(!controller.app().drawOn());
    }
    QVERIFY(controller.desktop.takeLog().isEmpty());
}

void RefreshToolbarTest::pickingAColourChangesNothingElse()
{
    Controller controller;
    controller.app().pickColor(3);
    QVERIFY(controller.app().color() == kPalette.at(3));
    QVERIFY(!controller.app().drawOn());

    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.app().pickColor(5);
    QVERIFY(controller.view().shapes().front().color == kPalette.at(3));
}

void RefreshToolbarTest::pickingAWidthChangesNothingElse()
{
    Controller controller;
    controller.app().pickWidth(2);
    QCOMPARE(controller.app().lineWidth(), 9.0);
    QVERIFY(!controller.app().drawOn());
}

void RefreshToolbarTest::hidingKeepsThePlaceAndTheSelection()
{
    Controller controller;
    controller.perform(QStringLiteral("ks"));
    controller.app().pickWidth(0);
    const QStringList before = appearance(controller.app());
    const QRectF frame = controller.app().toolbar()->window->frame();
    controller.app().toggleToolbar();
    QVERIFY(!controller.app().toolbar()->window->isVisible());
    controller.app().toggleToolbar();
    QVERIFY(controller.app().toolbar()->window->isVisible());
    QCOMPARE(controller.app().toolbar()->window->frame(), frame);
    QCOMPARE(appearance(controller.app()), before);
}

void RefreshToolbarTest::theToolbarComesBackAboveTheOverlays()
{
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.app().toggleDraw();
    const QStringList log = controller.desktop.takeLog();
    QVERIFY(log.indexOf(QStringLiteral("toolbar 0: order front")) >
            log.indexOf(QStringLiteral("overlay 0: make key")));
}

void RefreshToolbarTest::aHiddenToolbarStaysHiddenWhenDrawingBegins()
{
    Controller controller;
    controller.app().toggleToolbar();
    controller.app().toggleDraw();
    QVERIFY(!controller.app().toolbar()->window->isVisible());
}

QTEST_MAIN(RefreshToolbarTest)
#include "refresh_toolbar_test.moc"
