// The toolbar while screens of different scales are plugged in and unplugged.
#include "presentation.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr QRect kMain(0, 1080, 2560, 1440);
constexpr QRect kMainAlone(0, 0, 2560, 1440);
constexpr QRect kMainBeside(1920, 0, 2560, 1440);
constexpr QRect kProjector(0, 0, 1920, 1080);

/// Converts to points relative to the screen's right edge and vertical centre.
QRectF fromRightMiddle(const QRect &rect, const QRect &screen, double scale)
{
    return {(rect.left() - screen.left() - screen.width()) / scale,
            (rect.top() - screen.top() - screen.height() / 2.0) / scale, rect.width() / scale,
            rect.height() / scale};
}

bool isNearly(const QRectF &a, const QRectF &b)
{
    constexpr double kPoints = 1.5;
    return std::abs(a.left() - b.left()) <= kPoints && std::abs(a.top() - b.top()) <= kPoints &&
           std::abs(a.right() - b.right()) <= kPoints && std::abs(a.bottom() - b.bottom()) <= kPoints;
}

/// The places of the toolbar's window and of the swatch with the pen's colour.
struct Look
{
    QRectF toolbar;
    QRectF swatch;

    bool isLike(const Look &other) const
    {
        return isNearly(toolbar, other.toolbar) && isNearly(swatch, other.swatch);
    }
};

Look lookOn(Presentation &show, const QRect &screen, double scale)
{
    const std::optional<WindowInfo> window = show.toolbar();
    const QRect toolbar = window ? window->geometry : QRect();
    return {.toolbar = fromRightMiddle(toolbar, screen, scale),
            .swatch = fromRightMiddle(show.session.screenshot().bounds(kInk, toolbar), screen, scale)};
}

} // namespace

class ToolbarScaleScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itLooksTheSameOnEveryScreen_data();
    void itLooksTheSameOnEveryScreen();
    void itLooksTheSameIfItWasHiddenMeanwhile();
};

void ToolbarScaleScenarios::itLooksTheSameOnEveryScreen_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("projectorScale");
    QTest::newRow("2, and a projector of 1") << 2.0 << 1.0;
    QTest::newRow("1.5, and a projector of 1") << 1.5 << 1.0;
    QTest::newRow("1, and a projector of 2") << 1.0 << 2.0;
}

void ToolbarScaleScenarios::itLooksTheSameOnEveryScreen()
{
    QFETCH(double, scale);
    QFETCH(double, projectorScale);
    const auto factors = QStringLiteral("DUMMY0=%1;DUMMY1=%2").arg(scale).arg(projectorScale);
    Presentation show({.screens = {kMain, kProjector}}, {{"QT_SCREEN_SCALE_FACTORS", factors}});
    EVENTUALLY(!lookOn(show, kMain, scale).swatch.isEmpty());
    const Look before = lookOn(show, kMain, scale);

    Outputs outputs(show.session.client());
    const QMap<int, QRect> both = {{0, kMain}, {1, kProjector}};
    const QList<QMap<int, QRect>> steps = {{{0, kMainAlone}},
                                           both,
                                           {{1, kProjector}},
                                           both,
                                           {},
                                           {{1, kProjector}},
                                           {{0, kMainBeside}, {1, kProjector}},
                                           {},
                                           {{0, kMainAlone}},
                                           both};
    for (const QMap<int, QRect> &screens : steps) {
        outputs.apply(screens);
        if (screens.isEmpty()) {
            THROUGHOUT(300ms, show.toolbar().has_value());
            continue;
        }
        // It stays on its own screen while that exists.
        const bool isAtHome = screens.contains(0);
        const QRect screen = screens.value(isAtHome ? 0 : 1);
        EVENTUALLY(lookOn(show, screen, isAtHome ? scale : projectorScale).isLike(before));
    }
}

void ToolbarScaleScenarios::itLooksTheSameIfItWasHiddenMeanwhile()
{
    Presentation show({.screens = {kMain, kProjector}}, {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=2;DUMMY1=1"}});
    EVENTUALLY(!lookOn(show, kMain, 2.0).swatch.isEmpty());
    const Look before = lookOn(show, kMain, 2.0);
    Outputs outputs(show.session.client());
    const auto changeBehindIt = [&](const QMap<int, QRect> &screens) {
        show.hotKey(Key::T);
        if (!eventually([&] { return !show.toolbar(); }))
            return false;
        outputs.apply(screens);
        show.hotKey(Key::T);
        return eventually([&] { return show.toolbar().has_value(); });
    };
    QVERIFY(changeBehindIt({{1, kProjector}}));
    EVENTUALLY(lookOn(show, kProjector, 1.0).isLike(before));
    QVERIFY(changeBehindIt({{0, kMain}, {1, kProjector}}));
    EVENTUALLY(lookOn(show, kMain, 2.0).isLike(before));
    QVERIFY(changeBehindIt({{0, kMainAlone}}));
    EVENTUALLY(lookOn(show, kMainAlone, 2.0).isLike(before));
}

REGISTER_GUILESS_TEST(ToolbarScaleScenarios)
#include "toolbar_scale_scenarios.moc"
