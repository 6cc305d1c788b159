// Screens that are rotated, moved, resized, and at all scales.
#include "presentation.h"
#include "registered_test.h"
#include "two_screens.h"

using namespace zeigewerk::rig;

namespace {

/// A presentation with a watch for new canvases.
class ScreenPresentation : public Presentation
{
public:
    explicit ScreenPresentation(const DesktopSetup &setup, const QMap<QString, QString> &environment = {})
        : Presentation(setup, environment)
        , m_watch(session)
    {
    }

    bool startDrawing()
    {
        hotKey(Key::D);
        return eventually([&] { return hasKeyboard(); });
    }
    /// Whether each screen is covered by exactly one canvas.
    bool overlaysMatch()
    {
        QList<QRect> shown;
        for (const WindowInfo &overlay : overlays())
            shown.append(overlay.geometry);
        const QList<QRect> screens = session.display().screens().values();
        return shown.size() == screens.size() &&
               std::is_permutation(shown.begin(), shown.end(), screens.begin());
    }
    /// How many canvases have been created since the last call.
    int newOverlays()
    {
        int total = 0;
        for (const WatchedWindow &window : m_watch.windows()) {
            const bool isLarge = window.geometry.width() >= kSmallestScreenWidth;
            total += isLarge && session.client().isOfProcess(window.id, program.processId());
        }
        return total - std::exchange(m_overlays, total);
    }
    /// Whether a stroke through that pixel is centred on it.
    bool inkIsUnder(QPoint place, int width)
    {
        if (!session.pointer().drag({place - QPoint(40, 0), place + QPoint(40, 0)}) ||
            !eventually([&] { return pixel(place) == kInk; }))
            return false;
        const QRect ink = session.screenshot().bounds(kInk, QRect(place - QPoint(1, 30), QSize(3, 61)));
        // At widths that are not odd integers, the rows at the edges are covered partly.
        return std::abs(2 * (place.y() - ink.top()) + 1 - ink.height()) <= 1 &&
               std::abs(ink.height() - width) <= 1;
    }

private:
    WindowWatch m_watch;
    int m_overlays = 0;
};

} // namespace

class ScreenChangeScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawingContinuesWhenAScreenChanges_data();
    void drawingContinuesWhenAScreenChanges();
    void inkIsUnderThePointerAtMixedScales_data();
    void inkIsUnderThePointerAtMixedScales();
    void canvasesReachTheScreenEdges();
    void aNewDockIsNotAScreenChange();
};

void ScreenChangeScenarios::drawingContinuesWhenAScreenChanges_data()
{
    QTest::addColumn<int>("output");
    QTest::addColumn<QRect>("screen");
    QTest::newRow("rotated by 90 degrees") << 1 << QRect(1280, 0, 900, 1600);
    QTest::newRow("larger") << 1 << QRect(1280, 0, 2560, 1440);
    QTest::newRow("smaller") << 0 << QRect(0, 0, 800, 600);
    QTest::newRow("lower") << 1 << QRect(1280, 400, 1600, 900);
    QTest::newRow("with a gap") << 1 << QRect(1500, 0, 1600, 900);
    QTest::newRow("a third screen below") << 2 << QRect(300, 1024, 1024, 768);
}

void ScreenChangeScenarios::drawingContinuesWhenAScreenChanges()
{
    QFETCH(int, output);
    QFETCH(QRect, screen);
    ScreenPresentation show({.screens = {kLeft, kRight}});
    QVERIFY(show.startDrawing());
    QVERIFY(show.overlaysMatch());
    show.newOverlays();

    show.session.display().plug(output, screen);
    EVENTUALLY(show.overlaysMatch());
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.inkIsUnder(screen.center(), 5));
    QVERIFY(show.inkIsUnder(show.session.display().screens().value(0).center(), 5));
    // One change recreates each canvas once.
    QCOMPARE(show.newOverlays(), static_cast<int>(show.session.display().screens().size()));
    // The toolbar is within reach.
    const std::optional<WindowInfo> bar = show.toolbar();
    QVERIFY(bar);
    const QMap<int, QRect> screens = show.session.display().screens();
    QVERIFY(std::any_of(screens.begin(), screens.end(),
                        [&](const QRect &one) { return one.contains(bar->geometry.center()); }));
}

void ScreenChangeScenarios::inkIsUnderThePointerAtMixedScales_data()
{
    QTest::addColumn<QString>("scales");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    // The pen is five points wide.
    QTest::newRow("1 and 2") << "DUMMY0=1;DUMMY1=2" << 5 << 9;
    QTest::newRow("2 and 1") << "DUMMY0=2;DUMMY1=1" << 9 << 5;
    QTest::newRow("1.25 and 1.5") << "DUMMY0=1.25;DUMMY1=1.5" << 5 << 7;
    QTest::newRow("1.5 and 1") << "DUMMY0=1.5;DUMMY1=1" << 7 << 5;
}

void ScreenChangeScenarios::inkIsUnderThePointerAtMixedScales()
{
    QFETCH(QString, scales);
    QFETCH(int, left);
    QFETCH(int, right);
    const QRect offset(1280, 300, 1600, 900);
    ScreenPresentation show({.screens = {kLeft, offset}}, {{"QT_SCREEN_SCALE_FACTORS", scales}});
    QVERIFY(show.startDrawing());
    QVERIFY(show.overlaysMatch());
    for (const QPoint place : {QPoint(300, 100), QPoint(641, 1000), QPoint(800, 513)})
        QVERIFY(show.inkIsUnder(place, left));
    for (const QPoint place : {QPoint(1400, 350), QPoint(2001, 777), QPoint(2800, 1150)})
        QVERIFY(show.inkIsUnder(place, right));
}

void ScreenChangeScenarios::canvasesReachTheScreenEdges()
{
    const QRect gap(1500, 100, 1600, 900);
    ScreenPresentation show({.screens = {kLeft, gap}},
                            {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=1.25;DUMMY1=1.5"}});
    show.hotKey(Key::W);
    for (const QRect &screen : {kLeft, gap}) {
        for (const QPoint corner :
             {screen.topLeft(), screen.topRight(), screen.bottomLeft(), screen.bottomRight()})
            EVENTUALLY(show.pixel(corner) == QColor(Qt::white));
    }
    QVERIFY(show.isFilled(Qt::white, QRect(kLeft.left(), kLeft.bottom(), kLeft.width(), 1)));
    QVERIFY(show.isFilled(Qt::white, QRect(gap.right(), gap.top(), 1, gap.height())));
}

void ScreenChangeScenarios::aNewDockIsNotAScreenChange()
{
    // Without a window manager nobody lists the dock or computes the remaining work area.
    ScreenPresentation show({.windowManager = WindowManager::Openbox});
    QVERIFY(show.startDrawing());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    show.newOverlays();
    const Dock dock(show.session, {0, 1040, 1920, 40}, "_NET_WM_STRUT_PARTIAL",
                    {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1919});
    QVERIFY(show.session.pointer().drag({{400, 500}, {500, 500}}));
    EVENTUALLY(show.pixel({450, 500}) == kInk);
    QCOMPARE(show.pixel({450, 300}), kInk);
    QCOMPARE(show.newOverlays(), 0);
    // The dock can be drawn on, too.
    QVERIFY(show.inkIsUnder({300, 1060}, 5));
}

REGISTER_GUILESS_TEST(ScreenChangeScenarios)
#include "screen_change_scenarios.moc"
