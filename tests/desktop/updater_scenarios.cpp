// The installed program with an update feed.

#include "registered_test.h"
#include "rig/web_server.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QString kUpdates = "Nach Updates suchen …";
const QString kClose = "Schließen";
const QString kPlatforms = "wayland;xcb";
const QString kOpenPage = "Download-Seite öffnen";

QByteArray feedWith(const QByteArray &version)
{
    return "<rss xmlns:s='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item><link>"
           "http://localhost/new?a=1</link><s:version>" +
           version + "</s:version></item></channel></rss>";
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
        failRig(QStringLiteral("cannot write %1").arg(path));
}

/// The program's files as in an installation, in a separate folder.
class Installation
{
public:
    explicit Installation(const QString &feedUrl)
    {
        const QDir prefix(m_prefix.path());
        for (const char *folder : {"bin", "libexec/zeigewerk", "share/zeigewerk", "user"})
            prefix.mkpath(folder);
        copy(ZEIGEWERK_BINARY, program());
        copy(ZEIGEWERK_FEED_PROGRAM, prefix.filePath("libexec/zeigewerk/zeigewerk-feed"));
        writeFile(prefix.filePath("share/zeigewerk/info.ini"), "SUFeedURL=\"" + feedUrl.toUtf8() + "\"\n");
        // The program with which the user opens pages. Bash, because some shells unblock all signals when
        // they start.
        const QString opener = prefix.filePath("user/xdg-open");
        writeFile(opener, "#!/usr/bin/env bash\n"
                          "{ echo \"$1\"; grep SigBlk /proc/self/status; env; } >\"$0.part\"\n"
                          "mv \"$0.part\" \"$0.report\"\n");
        QFile::setPermissions(opener, QFile::ReadOwner | QFile::ExeOwner);
        // From now on the rig runs this program.
        qputenv("ZEIGEWERK_BINARY", program().toLocal8Bit());
    }
    ~Installation() { qunsetenv("ZEIGEWERK_BINARY"); }

    /// A desktop whose user has that program in the search path.
    DesktopSetup setup() const
    {
        DesktopSetup setup = withAccessibility({});
        // As desktops set it; the program itself then overrides it.
        setup.environment.insert("QT_QPA_PLATFORM", kPlatforms);
        setup.environment.insert("PATH", m_prefix.filePath("user") + ':' + qEnvironmentVariable("PATH"));
        return setup;
    }
    QStringList openerReport() const
    {
        QFile report(m_prefix.filePath("user/xdg-open.report"));
        return report.open(QFile::ReadOnly) ? QString::fromUtf8(report.readAll()).split('\n') : QStringList();
    }

private:
    QString program() const { return m_prefix.filePath("bin/zeigewerk"); }
    static void copy(const QString &from, const QString &to)
    {
        if (!QFile::copy(from, to))
            failRig(QStringLiteral("cannot copy %1").arg(from));
    }

    QTemporaryDir m_prefix;
};

/// A presentation with that installation.
class UpdatingPresentation : public TrayPresentation
{
public:
    explicit UpdatingPresentation(const Installation &installation)
        : TrayPresentation(installation.setup())
        , reader(session, program)
    {
    }

    bool hasButton(const QString &name) { return reader.find(name).has_value(); }
    QPoint placeOf(const QString &name)
    {
        const auto button = reader.find(name);
        return button ? button->extents.center() : QPoint(-1, -1);
    }
    /// The program's window at that place that is smaller than the screen.
    std::optional<WindowInfo> smallWindowAt(QPoint place)
    {
        for (const WindowInfo &window : shownWindows()) {
            if (window.geometry.contains(place) && window.geometry.width() < kSmallestScreenWidth)
                return window;
        }
        return std::nullopt;
    }

    Accessibility reader;
};

} // namespace

class UpdaterScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMenuOffersToLookForUpdates();
    void theResultIsShownAboveTheCanvas();
    void aNewVersionIsAnnouncedAndItsPageOpens();
};

void UpdaterScenarios::theMenuOffersToLookForUpdates()
{
    WebServer server(feedWith("0.0.1"));
    const Installation installation(server.address());
    UpdatingPresentation show(installation);
    QStringList labels;
    for (const TrayMenuItem &entry : show.menu())
        labels += entry.label;
    QCOMPARE(labels.size(), 18);
    QCOMPARE(labels.mid(14), QStringList({label::kHints[2], "", kUpdates, label::kQuit}));
    // If there is nothing new, nothing is shown.
    EVENTUALLY_WITHIN(20s, server.requests() == 1);
    // Longer than from the request to the reply.
    THROUGHOUT(1s, show.isUntouched(QRect(0, 0, 1700, 1080)));
}

void UpdaterScenarios::theResultIsShownAboveTheCanvas()
{
    WebServer server(feedWith("0.0.1"));
    const Installation installation(server.address());
    UpdatingPresentation show(installation);
    show.hotKey(Key::W);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.click(kUpdates));
    EVENTUALLY(show.hasButton(kClose));
    const std::optional<WindowInfo> dialog = show.smallWindowAt(show.placeOf(kClose));
    QVERIFY(dialog);
    for (const WindowInfo &overlay : show.overlays())
        EVENTUALLY(show.session.client().isAbove(dialog->id, overlay.id));
    EVENTUALLY(!show.isFilled(Qt::white, dialog->geometry));

    // The keyboard has not moved, and drawing works.
    QVERIFY(show.hasKeyboard());
    QVERIFY(show.session.client().inputFocus() != dialog->id);
    QVERIFY(show.session.pointer().drag({{200, 200}, {300, 200}}));
    EVENTUALLY(show.pixel({250, 200}) == kInk);

    QVERIFY(show.session.pointer().clickAt(show.placeOf(kClose)));
    EVENTUALLY(show.isFilled(Qt::white, dialog->geometry));
    QCOMPARE(show.pixel({250, 200}), kInk);
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void UpdaterScenarios::aNewVersionIsAnnouncedAndItsPageOpens()
{
    WebServer server(feedWith("99.1"));
    const Installation installation(server.address());
    UpdatingPresentation show(installation);
    EVENTUALLY_WITHIN(20s, show.hasButton(kOpenPage));
    // The presentation is not interrupted.
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().clickAt(show.placeOf(kOpenPage)));
    EVENTUALLY(!installation.openerReport().isEmpty());
    const QStringList report = installation.openerReport();
    QCOMPARE(report.value(0), "http://localhost/new?a=1");
    QCOMPARE(report.filter("SigBlk:").value(0).section('\t', 1), "0000000000000000");
    QCOMPARE(report.filter("QT_QPA_PLATFORM="), QStringList{"QT_QPA_PLATFORM=" + kPlatforms});
    EVENTUALLY(show.isUntouched(QRect(0, 0, 1700, 1080)));
    QVERIFY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(UpdaterScenarios)
#include "updater_scenarios.moc"
