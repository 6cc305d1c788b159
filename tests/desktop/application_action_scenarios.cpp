// Worked by other programs, over the session bus.
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

/// A presentation with somebody who works the program over the bus.
class Remote : public TrayPresentation
{
public:
    Remote()
        : m_bus(session)
    {
        // The name comes soon after the toolbar.
        if (!eventually([&] { return answers("Activate", {QVariantMap()}); }))
            throw RigError("the program is not on the bus");
    }

    bool answers(const QString &method, const QVariantList &arguments)
    {
        return m_bus.call(kId, kPath, kInterface, method, arguments).has_value();
    }
    QString errorOf(const QString &method, const QVariantList &arguments)
    {
        return m_bus.errorOf(kId, kPath, kInterface, method, arguments);
    }
    bool activate(const QString &action)
    {
        return answers("ActivateAction", {action, QVariantList(), QVariantMap()});
    }

private:
    Bus m_bus;
};

} // namespace

class ApplicationActionScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anActionIsAClickOnItsEntry();
    void aShortcutOfTheDesktopDrawsAndClears();
    void whatThereIsNotIsAnErrorAndNothingElse();
    void activatingARunningProgramChangesNothing();
    void quittingIsAnsweredAndEndsIt();
    void theBusStartsItForAnAction();
};

void ApplicationActionScenarios::anActionIsAClickOnItsEntry()
{
    using namespace label;
    const QList<std::pair<QString, QStringList>> marks = {
        {"draw", {kDraw, kDark}},     {"spotlight", {kSpot, kDark}},   {"whiteboard", {kBoard, kDark}},
        {"clicks", {kClicks, kDark}}, {"cursor-ring", {kRing, kDark}}, {"auto-fade", {kFade, kDark}},
        {"dark-toolbar", {}}};
    Remote on;
    for (const auto &mark : marks) {
        QVERIFY2(on.activate(mark.first), qPrintable(mark.first));
        EVENTUALLY(on.checked() == mark.second);
        QVERIFY2(on.activate(mark.first), qPrintable(mark.first));
        EVENTUALLY(on.checked() == QStringList{kDark});
    }
}

void ApplicationActionScenarios::aShortcutOfTheDesktopDrawsAndClears()
{
    Remote on;
    QVERIFY(on.activate("draw"));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QVERIFY(on.activate("clear"));
    EVENTUALLY(on.isUntouched({300, 200, 300, 200}));
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    // The bus may overtake the mouse.
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QVERIFY(on.activate("pin"));
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QVERIFY(on.activate("toolbar"));
    EVENTUALLY(!on.toolbar());
    QVERIFY(on.activate("toolbar"));
    EVENTUALLY(on.toolbar());
}

void ApplicationActionScenarios::whatThereIsNotIsAnErrorAndNothingElse()
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
        // Other types, and other numbers of arguments, are other methods.
        {"ActivateAction", {}, kUnknownMethod},
        {"ActivateAction", {"draw", none}, kUnknownMethod},
        {"ActivateAction", {1, none, data}, kUnknownMethod},
        {"ActivateAction", {"draw", "on", data}, kUnknownMethod},
        {"Open", {QStringList{"file:///tmp/a.svg"}, data}, kNotSupported},
        {"Draw", {}, kUnknownMethod},
    };
    Remote on;
    for (const Row &row : rows)
        QCOMPARE(on.errorOf(row.method, row.arguments), row.error);
    // Had one of them done anything, that would show before what is asked for next.
    QVERIFY(on.activate("clicks"));
    EVENTUALLY(on.checked() == QStringList({label::kClicks, label::kDark}));
    QVERIFY(on.beneath.hasFocus());
    QCOMPARE(on.program.output(), QByteArray());
}

void ApplicationActionScenarios::activatingARunningProgramChangesNothing()
{
    Remote on;
    QVERIFY(on.activate("draw"));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.answers("Activate", {QVariantMap()}));
    QVERIFY(on.activate("clicks"));
    EVENTUALLY(on.checked() == QStringList({label::kDraw, label::kClicks, label::kDark}));
    QVERIFY(on.hasKeyboard());
}

void ApplicationActionScenarios::quittingIsAnsweredAndEndsIt()
{
    Remote on;
    QVERIFY(on.activate("quit"));
    QCOMPARE(on.program.waitForExit(), std::optional(0));
}

void ApplicationActionScenarios::theBusStartsItForAnAction()
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

    // As it is installed.
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
