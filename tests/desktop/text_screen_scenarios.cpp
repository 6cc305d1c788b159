// A text field at the edge of its screen, next to a screen of another scale.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

constexpr QRect kScreen(0, 0, 1280, 1024);
constexpr QRect kScreenBeside(1280, 0, 1600, 900);
constexpr QRect kScreenBelow(0, 1024, 1600, 900);
/// With room below the toolbar at scale 2.
constexpr QRect kLargeScreen(0, 0, 2560, 1440);
constexpr QRect kScreenBesideLarge(2560, 0, 1600, 1440);

/// The rectangle of the focused window.
QRect keyboardWindow(TextPresentation &show)
{
    const auto window = show.session.client().window(show.session.client().inputFocus());
    return window ? window->geometry : QRect();
}

bool isNearPoint(QPoint a, QPoint b)
{
    return std::abs(a.x() - b.x()) <= 1 && std::abs(a.y() - b.y()) <= 1;
}

} // namespace

class TextScreenScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldHasTheScaleOfItsScreen_data();
    void theFieldHasTheScaleOfItsScreen();
    void aClippedFieldShowsTheTextWhereItStays();
};

void TextScreenScenarios::theFieldHasTheScaleOfItsScreen_data()
{
    struct Row
    {
        const char *name;
        QList<QRect> screens;
        double scale;
        double scaleOfSecond;
        QPoint press;
        double scaleThere;
        QSize size;
    };
    const QList<QRect> row = {kScreen, kScreenBeside};
    const QList<QRect> largeRow = {kLargeScreen, kScreenBesideLarge};
    const QList<QRect> column = {kScreen, kScreenBelow};
    // The field is clipped at the edge of its screen. In the row "slightly over the edge" it is not, because
    // its middle stays on its screen; nor is it beside a screen of the same scale.
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        // name, screens, scale, scale of second, press, scale there, size
        {"beside a denser screen",                  row,      1.0, 2.0, {1200, 100},  1.0, {79, 32}},
        {"beside the last line of a denser screen", row,      1.0, 2.0, {1200, 900},  1.0, {79, 32}},
        {"at the very edge",                        row,      1.0, 2.0, {1279, 100},  1.0, {1, 32}},
        {"beside a coarser screen",                 largeRow, 2.0, 1.0, {2380, 1350}, 2.0, {179, 64}},
        {"beside a screen with a fractional scale", row,      1.0, 1.5, {1200, 100},  1.0, {79, 32}},
        {"above a denser screen",                   column,   1.0, 2.0, {300, 1015},  1.0, {340, 12}},
        {"slightly over the edge",                  row,      1.0, 2.0, {1100, 100},  1.0, {340, 32}},
        {"beside a screen of the same scale",       row,      1.0, 1.0, {1200, 100},  1.0, {340, 32}},
        {"on the denser screen",                    row,      1.0, 2.0, {1400, 300},  2.0, {680, 64}},
        {"on the coarser screen",                   row,      2.0, 1.0, {1400, 300},  1.0, {340, 32}},
    };
    // clang-format on
    QTest::addColumn<QList<QRect>>("screens");
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("scaleOfSecond");
    QTest::addColumn<QPoint>("press");
    QTest::addColumn<double>("scaleThere");
    QTest::addColumn<QSize>("size");
    for (const Row &each : rows) {
        QTest::newRow(each.name) << each.screens << each.scale << each.scaleOfSecond << each.press
                                 << each.scaleThere << each.size;
    }
}

void TextScreenScenarios::theFieldHasTheScaleOfItsScreen()
{
    QFETCH(QList<QRect>, screens);
    QFETCH(double, scale);
    QFETCH(double, scaleOfSecond);
    QFETCH(QPoint, press);
    QFETCH(double, scaleThere);
    QFETCH(QSize, size);
    TextPresentation show({.screens = screens}, scale, scaleOfSecond);
    QVERIFY(show.session.pointer().clickAt(press));
    const QPoint corner = press - QPoint(0, qRound(4 * scaleThere));
    const auto isThere = [&] {
        const QRect field = keyboardWindow(show);
        return isNearPoint(field.topLeft(), corner) &&
               isNearPoint({field.width(), field.height()}, {size.width(), size.height()});
    };

    EVENTUALLY(isThere());
}

void TextScreenScenarios::aClippedFieldShowsTheTextWhereItStays()
{
    const QPoint press(1200, 900);
    TextPresentation show({.screens = {kScreen, kScreenBeside}}, 1.0, 2.0);
    QVERIFY(show.session.pointer().clickAt(press));
    EVENTUALLY(keyboardWindow(show).width() < kScreen.width());
    show.session.keyboard().type("m");
    // Without the caret.
    const QRect letter(press, QSize(20, 17));
    const auto ink = [&] { return show.session.screenshot().bounds(kInk, letter, 8); };
    EVENTUALLY(!ink().isEmpty());
    const QRect typed = ink();
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(keyboardWindow(show) == kScreen);
    EVENTUALLY(isNear(ink(), typed));
}

REGISTER_GUILESS_TEST(TextScreenScenarios)
#include "text_screen_scenarios.moc"
