// Other programs control the program over the session bus.
#include "registered_test.h"
#include "rig/bus.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;

namespace {

const QString kId = "de.zeigewerk.Zeigewerk";
const QString kPath = "/de/zeigewerk/Zeigewerk";
const QString kInterface = "org.freedesktop.Application";
const QString kInvalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";
const QString kUnknownMethod = "org.freedesktop.DBus.Error.UnknownMethod";
const QString kNotSupported = "org.freedesktop.DBus.Error.NotSupported";

/// A presentation that can be controlled over the session bus.
class BusPresentation : public TrayPresentation
{
public:
    BusPresentation()
        : m_bus(session)
    {
        // The program takes its bus name shortly after showing the toolbar.
        if (!eventually([&] { return succeeds("Activate", {QVariantMap()}); }))
            throw RigError("the program is not on the bus");
    }

    bool succeeds(const QString &method, const QVariantList &arguments)
    {
        return m_bus.call(kId, kPath, kInterface, method, arguments).has_value();
    }
    QString errorOf(const QString &method, const QVariantList &arguments)
    {
        return m_bus.errorOf(kId, kPath, kInterface, method, arguments);
    }
    bool activate(const QString &action)
    {
        return succeeds("ActivateAction", {action, QVariantList(), QVariantMap()});
    }

private:
    Bus m_bus;
};

} // namespace

class ApplicationActionScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anActionDoesWhatItsMenuEntryDoes();
    void desktopShortcutsCanDrawAndClear();
    void invalidCallsFailAndChangeNothing();
    void activatingARunningProgramChangesNothing();
    void quitRepliesAndEndsTheProgram();
    void theBusStartsTheProgramForAnAction();
};

void ApplicationActionScenarios::anActionDoesWhatItsMenuEntryDoes()
{
    using namespace label;
    struct Row
    {
        QString action;
        QStringList checked;
    };
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        {.action = "draw",         .checked = {kDraw, kDark}},
        {.action = "spotlight",    .checked = {kSpot, kDark}},
        {.action = "whiteboard",   .checked = {kBoard, kDark}},
        {.action = "clicks",       .checked = {kClicks, kDark}},
        {.action = "cursor-ring",  .checked = {kRing, kDark}},
        {.action = "auto-fade",    .checked = {kFade, kDark}},
        {.action = "dark-toolbar", .checked = {}},
    };
    // clang-format on
    BusPresentation show;
    for (const Row &row : rows) {
        QVERIFY2(show.activate(row.action), qPrintable(row.action));
        EVENTUALLY(show.checked() == row.checked);
        QVERIFY2(show.activate(row.action), qPrintable(row.action));
        EVENTUALLY(show.checked() == QStringList{kDark});
    }
}

void ApplicationActionScenarios::desktopShortcutsCanDrawAndClear()
{
    BusPresentation show;
    QVERIFY(show.activate("draw"));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QVERIFY(show.activate("clear"));
    EVENTUALLY(show.isUntouched({300, 200, 300, 200}));
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    // The bus may be faster than the mouse.
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QVERIFY(show.activate("pin"));
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QVERIFY(show.activate("toolbar"));
    EVENTUALLY(!show.toolbar());
    QVERIFY(show.activate("toolbar"));
    EVENTUALLY(show.toolbar());
}

void ApplicationActionScenarios::invalidCallsFailAndChangeNothing()
{
    struct Row
    {
        QString method;
        QVariantList arguments;
        QString error;
    };
    const QVariantList none;
    const QVariantMap data;
    const QList<Row> rows = {
        {"ActivateAction", {"fly", none, data}, kInvalidArguments},
        {"ActivateAction", {"", none, data}, kInvalidArguments},
        {"ActivateAction", {label::kDraw, none, data}, kInvalidArguments},
        {"ActivateAction", {QString(100'000, u'd'), none, data}, kInvalidArguments},
        // No action takes a parameter.
        {"ActivateAction", {"draw", QVariantList{true}, data}, kInvalidArguments},
        // Calls with other types or numbers of arguments are unknown methods.
        {"ActivateAction", {}, kUnknownMethod},
        {"ActivateAction", {"draw", none}, kUnknownMethod},
        {"ActivateAction", {1, none, data}, kUnknownMethod},
        {"ActivateAction", {"draw", "on", data}, kUnknownMethod},
        {"Open", {QStringList{"file:///tmp/a.svg"}, data}, kNotSupported},
        {"Draw", {}, kUnknownMethod},
    };
    BusPresentation show;
    for (const Row &row : rows)
        QCOMPARE(show.errorOf(row.method, row.arguments), row.error);
    // Any effect of the calls above would be visible before the effect of this one.
    QVERIFY(show.activate("clicks"));
    EVENTUALLY(show.checked() == QStringList({label::kClicks, label::kDark}));
    QVERIFY(show.beneath.hasFocus());
    QCOMPARE(show.program.output(), QByteArray());
}

void ApplicationActionScenarios::activatingARunningProgramChangesNothing()
{
    BusPresentation show;
    QVERIFY(show.activate("draw"));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.succeeds("Activate", {QVariantMap()}));
    QVERIFY(show.activate("clicks"));
    EVENTUALLY(show.checked() == QStringList({label::kDraw, label::kClicks, label::kDark}));
    QVERIFY(show.hasKeyboard());
}

void ApplicationActionScenarios::quitRepliesAndEndsTheProgram()
{
    BusPresentation show;
    QVERIFY(show.activate("quit"));
    QCOMPARE(show.program.waitForExit(), std::optional(0));
}

void ApplicationActionScenarios::theBusStartsTheProgramForAnAction()
{
    DesktopSession session;
    const QColor color(0x20, 0x60, 0xA0);
    const WindowBeneath beneath(session, VirtualDisplay::kFullHd, color);
    Bus bus(session);
    const auto activate = [&](const QString &action) {
        return bus.call(kId, kPath, kInterface, "ActivateAction", {action, QVariantList(), QVariantMap()})
            .has_value();
    };
    QVERIFY(!activate("spotlight"));

    // The service file as it would be installed.
    const QDir services(session.home().filePath(".local/share/dbus-1/services"));
    QVERIFY(services.mkpath("."));
    QFile service(services.filePath(kId + ".service"));
    QVERIFY(service.open(QIODevice::WriteOnly));
    service.write("[D-BUS Service]\nName=" + kId.toUtf8() + "\nExec=" + Program::binary().toUtf8() + "\n");
    service.close();
    const QString daemon = "org.freedesktop.DBus";
    QVERIFY(bus.call(daemon, "/org/freedesktop/DBus", daemon, "ReloadConfig"));

    QVERIFY(activate("spotlight"));
    EVENTUALLY(session.screenshot().pixel({5, 5}).lightness() < color.lightness());
    QVERIFY(activate("quit"));
    EVENTUALLY(session.screenshot().isFilled(color, VirtualDisplay::kFullHd));
}

REGISTER_GUILESS_TEST(ApplicationActionScenarios)
#include "application_action_scenarios.moc"
