// The place of the toolbar, and what is kept from one run of the program to the next.
#include "registered_test.h"
#include "settings_file.h"
#include "toolbar_presentation.h"

#include <cstdlib>

using namespace zeigewerk::rig;

namespace {

const char kFolder[] = ".config/zeigewerk";
const char kFile[] = ".config/zeigewerk/zeigewerk.ini";

const Program &ready(Program &program)
{
    if (!program.waitUntilReady())
        failRig("the program does not start");
    return program;
}

/// A run of the program, from start to exit.
struct Run
{
    explicit Run(DesktopSession &session, double scale = 1.0)
        : program(session, {{"QT_SCALE_FACTOR", QString::number(scale)}})
        , presenter(session, ready(program), scale)
    {
    }

    Program program;
    ToolbarUser presenter;
};

const DesktopSetup kSetup = {.accessibility = true};

bool isAtDefaultPlace(const QRect &panel, const QRect &screen, int scale = 1)
{
    // The centre may be off by half a point.
    return panel.size() == ToolbarUser::kPanelSize * scale && panel.right() == screen.right() - 24 * scale &&
           std::abs(panel.center().y() - screen.center().y()) <= scale;
}

/// Permissions would not work: they do not stop the super user, as which tests run in many containers.
void blockSettings(const DesktopSession &session, const QString &obstacle)
{
    const QDir home = session.home();
    bool done = false;
    if (obstacle == "a file instead of the folder")
        done = home.mkpath(".config") && QFile(home.filePath(kFolder)).open(QFile::WriteOnly);
    else if (obstacle == "a folder instead of the file")
        done = home.mkpath(kFile);
    if (!done)
        failRig("cannot block the settings");
}

} // namespace

class ToolbarPlaceScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStartsAtTheRightEdgeOfTheScreen_data();
    void itStartsAtTheRightEdgeOfTheScreen();
    void itCanBeDraggedAndKeepsItsPlaceAfterARestart_data();
    void itCanBeDraggedAndKeepsItsPlaceAfterARestart();
    void draggingItWhileDrawingLeavesNoInk();
    void withoutADragItsPlaceIsNotSaved();
    void aClickOnItsBackgroundIsNotADrag();
    void anUnusableSavedPlaceIsCorrected_data();
    void anUnusableSavedPlaceIsCorrected();
    void itReturnsWhenItsScreenComesBack();
    void appearanceAndAutoFadeSurviveARestart();
    void unwritableSettingsBreakNothing_data();
    void unwritableSettingsBreakNothing();
};

void ToolbarPlaceScenarios::itStartsAtTheRightEdgeOfTheScreen_data()
{
    QTest::addColumn<int>("scale");
    QTest::newRow("scale 1") << 1;
    QTest::newRow("scale 2") << 2;
}

void ToolbarPlaceScenarios::itStartsAtTheRightEdgeOfTheScreen()
{
    QFETCH(int, scale);
    const QRect screen(QPoint(0, 0), VirtualDisplay::kFullHd.size() * scale);
    DesktopSession session({.screens = {screen}, .accessibility = true});
    Run run(session, scale);
    QVERIFY(isAtDefaultPlace(run.presenter.panel(), screen, scale));
}

void ToolbarPlaceScenarios::itCanBeDraggedAndKeepsItsPlaceAfterARestart_data()
{
    QTest::addColumn<bool>("byTheGrip");
    QTest::addColumn<int>("scale");
    QTest::newRow("grip") << true << 1;
    QTest::newRow("between the buttons") << false << 1;
    QTest::newRow("grip, scale 2") << true << 2;
}

void ToolbarPlaceScenarios::itCanBeDraggedAndKeepsItsPlaceAfterARestart()
{
    QFETCH(bool, byTheGrip);
    QFETCH(int, scale);
    DesktopSession session(
        {.screens = {QRect(QPoint(0, 0), VirtualDisplay::kFullHd.size() * scale)}, .accessibility = true});
    const QPoint offset(-600 * scale, -150 * scale);
    QRect moved;
    {
        Run run(session, scale);
        moved = run.presenter.panel().translated(offset);
        const QPoint from = byTheGrip ? run.presenter.grip() : run.presenter.background();
        QVERIFY(session.pointer().drag({from, from + offset / 2, from + offset}));
        EVENTUALLY(run.presenter.panel() == moved);
        EVENTUALLY(SettingsFile(session).has("ZeigewerkToolbar"));
        QCOMPARE(run.program.terminate(), std::optional(0));
    }
    Run restarted(session, scale);
    QCOMPARE(restarted.presenter.panel(), moved);
    // It really is there: clicks on it work.
    QVERIFY(restarted.presenter.click(button::kColor, 4));
    EVENTUALLY(restarted.presenter.isOn(button::kColor, 4));
}

void ToolbarPlaceScenarios::draggingItWhileDrawingLeavesNoInk()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    const QRect panel = show.presenter.panel();
    const QPoint grip = show.presenter.grip();
    QVERIFY(show.session.pointer().drag({grip, grip - QPoint(200, 0), grip - QPoint(500, 0)}));
    EVENTUALLY(show.presenter.panel() == panel.translated(-500, 0));
    QVERIFY(show.strokeFrom({400, 300}));
    EVENTUALLY(show.strokeColor({400, 300}) == kInk);
    EVENTUALLY(show.isUntouched({600, 0, 1320, 1080}));
}

void ToolbarPlaceScenarios::withoutADragItsPlaceIsNotSaved()
{
    DesktopSession session(kSetup);
    Run run(session);
    // That this is saved proves that the place could have been saved.
    QVERIFY(run.presenter.click(button::kAppearance));
    EVENTUALLY(SettingsFile(session).has("ZeigewerkDarkUI"));
    QVERIFY(run.presenter.click(button::kHide));
    EVENTUALLY(run.presenter.window().id == XCB_WINDOW_NONE);
    session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::T);
    EVENTUALLY(run.presenter.window().id != XCB_WINDOW_NONE);
    QCOMPARE(run.program.terminate(), std::optional(0));
    QVERIFY(!SettingsFile(session).has("ZeigewerkToolbar"));
}

void ToolbarPlaceScenarios::aClickOnItsBackgroundIsNotADrag()
{
    DesktopSession session(kSetup);
    Run run(session);
    QVERIFY(session.pointer().clickAt(run.presenter.grip()));
    QVERIFY(session.pointer().clickAt(run.presenter.background()));
    // This later change is saved.
    QVERIFY(run.presenter.click(button::kAppearance));
    EVENTUALLY(SettingsFile(session).has("ZeigewerkDarkUI"));
    QVERIFY(!SettingsFile(session).has("ZeigewerkToolbar"));
}

void ToolbarPlaceScenarios::anUnusableSavedPlaceIsCorrected_data()
{
    struct Row
    {
        const char *name;
        QByteArray saved;
        /// Null for the default place.
        QRect panel;
    };
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        // name, saved, panel
        {"text",                 "over there on the right",    {}},
        {"empty",                "",                           {}},
        {"comma-separated",      "200, 300, 151, 477, DUMMY0", {}},
        {"not numbers",          "nan nan nan nan DUMMY0",     {}},
        {"infinite",             "inf inf 151 477 DUMMY0",     {}},
        {"another size",         "200 300 999 10 DUMMY0",      {200, 303, 151, 477}},
        {"beyond the left edge", "-5000 300 151 477 DUMMY0",   {0, 303, 151, 477}},
        {"beyond the top edge",  "200 5000 151 477 DUMMY0",    {200, 0, 151, 477}},
        {"on no screen",         "9000 -9000 151 477 DUMMY9",  {1769, 603, 151, 477}},
        {"barely visible",       "1900 300 151 477 DUMMY0",    {1769, 303, 151, 477}},
    };
    // clang-format on
    QTest::addColumn<QByteArray>("saved");
    QTest::addColumn<QRect>("panel");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.saved << row.panel;
}

void ToolbarPlaceScenarios::anUnusableSavedPlaceIsCorrected()
{
    QFETCH(QByteArray, saved);
    QFETCH(QRect, panel);
    DesktopSession session(
        {.windowManager = WindowManager::None, .compositor = Compositor::None, .accessibility = true});
    QVERIFY(SettingsFile(session).write("ZeigewerkToolbar=" + saved + '\n'));
    Run run(session);
    if (panel.isNull())
        QVERIFY(isAtDefaultPlace(run.presenter.panel(), VirtualDisplay::kFullHd));
    else
        QCOMPARE(run.presenter.panel(), panel);
    QVERIFY(run.presenter.click(button::kColor, 4));
    EVENTUALLY(run.presenter.isOn(button::kColor, 4));
}

void ToolbarPlaceScenarios::itReturnsWhenItsScreenComesBack()
{
    const QRect second(1920, 0, 1280, 1024);
    DesktopSession session({.screens = {VirtualDisplay::kFullHd, second}, .accessibility = true});
    Run run(session);
    const QPoint offset(600, -100);
    const QRect moved = run.presenter.panel().translated(offset);
    const QPoint grip = run.presenter.grip();
    QVERIFY(session.pointer().drag({grip, grip + offset / 2, grip + offset}));
    EVENTUALLY(run.presenter.panel() == moved);
    session.display().unplug(1);
    EVENTUALLY(VirtualDisplay::kFullHd.contains(run.presenter.panel()));
    QVERIFY(run.presenter.click(button::kColor, 4));
    EVENTUALLY(run.presenter.isOn(button::kColor, 4));
    session.display().plug(1, second);
    EVENTUALLY(run.presenter.panel() == moved);
}

void ToolbarPlaceScenarios::appearanceAndAutoFadeSurviveARestart()
{
    DesktopSession session(kSetup);
    const auto isLight = [&](Run &run) {
        return session.screenshot().pixel(run.presenter.background()).lightness() > 0xC0;
    };
    bool fades = true;
    for (const bool light : {true, false}) {
        Run run(session);
        EVENTUALLY(isLight(run) != light);
        QVERIFY(run.presenter.isOn(button::kFade) != fades);
        QVERIFY(run.presenter.click(button::kAppearance));
        QVERIFY(run.presenter.click(button::kFade));
        EVENTUALLY(isLight(run) == light);
        EVENTUALLY(run.presenter.isOn(button::kFade) == fades);
        fades = !fades;
        QCOMPARE(run.program.terminate(), std::optional(0));
    }
}

void ToolbarPlaceScenarios::unwritableSettingsBreakNothing_data()
{
    QTest::addColumn<QString>("obstacle");
    for (const char *obstacle : {"a file instead of the folder", "a folder instead of the file"})
        QTest::newRow(obstacle) << QString(obstacle);
}

void ToolbarPlaceScenarios::unwritableSettingsBreakNothing()
{
    QFETCH(QString, obstacle);
    DesktopSession session(kSetup);
    blockSettings(session, obstacle);
    Run run(session);
    const QRect panel = run.presenter.panel();
    QVERIFY(isAtDefaultPlace(panel, VirtualDisplay::kFullHd));
    const QPoint grip = run.presenter.grip();
    QVERIFY(session.pointer().drag({grip, grip - QPoint(100, 0), grip - QPoint(300, 0)}));
    EVENTUALLY(run.presenter.panel() == panel.translated(-300, 0));
    QVERIFY(run.presenter.click(button::kAppearance));
    EVENTUALLY(session.screenshot().pixel(run.presenter.background()).lightness() > 0xC0);
    QVERIFY(run.presenter.click(button::kWhiteboard));
    EVENTUALLY(session.screenshot().isFilled(Qt::white, {0, 0, 1200, 1080}));
    QCOMPARE(run.program.terminate(), std::optional(0));
}

REGISTER_GUILESS_TEST(ToolbarPlaceScenarios)
#include "toolbar_place_scenarios.moc"
