// The results of checks for updates against a local server.

#include "registered_test.h"
#include "updater_fixture.h"

#include <QTimer>

using namespace zeigewerk;
using namespace zeigewerk::test;
using namespace std::chrono_literals;

class UpdaterControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRequestedCheckShowsItsResult_data();
    void aRequestedCheckShowsItsResult();
    void theAutomaticCheckReportsOnlyANewerVersion_data();
    void theAutomaticCheckReportsOnlyANewerVersion();
    void invalidAddressesAreReportedOnlyOnRequest_data();
    void invalidAddressesAreReportedOnlyOnRequest();
    void aServerThatExceedsTheTimeLimitIsTooSlow_data();
    void aServerThatExceedsTheTimeLimitIsTooSlow();
    void aMissingOrFailingFeedProgramIsReported_data();
    void aMissingOrFailingFeedProgramIsReported();
    void aRequestDuringACheckJoinsThatCheck();
    void aRequestBeforeTheAutomaticCheckReplacesIt();
    void aFinishedCheckLeavesNothingBehind();
    void destroyingTheControllerEndsTheCheck();
};

void UpdaterControllerTest::aRequestedCheckShowsItsResult_data()
{
    using Server = FeedServer &;
    using Prepare = std::function<void(Server)>;
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<UpdateNews>("expected");
    const auto row = [](const char *name, const Prepare &prepare, const UpdateNews &expected) {
        QTest::newRow(name) << prepare << expected;
    };
    const auto version = [](const char *text) { return [text](Server server) { offer(server, text); }; };
    const auto body = [](const QByteArray &text) {
        return [text](Server server) { server.serve(kFeed, text); };
    };
    const auto nothing = [](Server) {};
    const auto tooMuch = [](Server server) { server.serveManyBytes(kFeed, qint64{100} * 1024 * 1024); };
    const auto loop = [](Server server) { server.serveRedirect(kFeed, kFeed); };
    row("newer", version("1.2"), versionOf("1.2"));
    row("newer by one more digit", version("1.10"), versionOf("1.10"));
    row("the same", version("1.1"), kUpToDate);
    row("older", version("1.0"), kUpToDate);
    row("a beta of this version", version("1.1b3"), kUpToDate);
    row("no version", body(feedOf({})), kUpToDate);
    row("not a feed", body("Hello"), FeedFailure::NotReadable);
    row("nothing there", nothing, FeedFailure::NotFound);
    row("too much", tooMuch, FeedFailure::TooLarge);
    row("a redirect to itself", loop, FeedFailure::BadRedirect);
}

void UpdaterControllerTest::aRequestedCheckShowsItsResult()
{
    QFETCH(std::function<void(FeedServer &)>, prepare);
    QFETCH(UpdateNews, expected);
    FeedServer server;
    prepare(server);
    Updater updater(server.address(kFeed));
    updater.controller().checkForUpdates();
    QVERIFY(updater.isShown(Searching{}));
    QVERIFY(updater.controller().isChecking());
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(expected));
    QVERIFY(updater.opened.isEmpty());
}

void UpdaterControllerTest::theAutomaticCheckReportsOnlyANewerVersion_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("isReported");
    QTest::newRow("newer") << feedOf(itemOf("1.2")) << true;
    QTest::newRow("the same") << feedOf(itemOf("1.1")) << false;
    QTest::newRow("no version") << feedOf({}) << false;
    QTest::newRow("not a feed") << QByteArray("Hello") << false;
}

void UpdaterControllerTest::theAutomaticCheckReportsOnlyANewerVersion()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, isReported);
    FeedServer server;
    server.serve(kFeed, body);
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    QCOMPARE(updater.isShown(versionOf("1.2")), isReported);
    QCOMPARE(updater.controller().dialog() != nullptr, isReported);
}

void UpdaterControllerTest::invalidAddressesAreReportedOnlyOnRequest_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address : {"", "nonsense", "file:///etc/passwd", "http://192.0.2.1/feed", "--help"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

void UpdaterControllerTest::invalidAddressesAreReportedOnlyOnRequest()
{
    QFETCH(QString, address);
    Updater updater(address, 0ms);
    // This needs no feed process.
    updater.setup.feedProgram = QStringLiteral("/nowhere");
    QVERIFY(updater.waitForNews());
    QVERIFY(!updater.controller().dialog());
    updater.controller().checkForUpdates();
    QVERIFY(updater.isShown(FeedFailure::BadAddress));
}

void UpdaterControllerTest::aServerThatExceedsTheTimeLimitIsTooSlow_data()
{
    QTest::addColumn<bool>("doesAnswer");
    QTest::newRow("no answer") << false;
    QTest::newRow("an answer byte by byte") << true;
}

void UpdaterControllerTest::aServerThatExceedsTheTimeLimitIsTooSlow()
{
    QFETCH(bool, doesAnswer);
    FeedServer server;
    if (doesAnswer)
        server.serveSlowly(kFeed);
    else
        server.serveLater(kFeed);
    Updater updater(server.address(kFeed));
    updater.setup.timeLimit = 500ms;
    updater.controller().checkForUpdates();
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(FeedFailure::TooSlow));
    QTRY_COMPARE(server.openConnections(), 0);
}

void UpdaterControllerTest::aMissingOrFailingFeedProgramIsReported_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("missing") << QStringLiteral("/nowhere/zeigewerk-feed");
    QTest::newRow("not a program") << QStringLiteral("/etc/passwd");
    QTest::newRow("failing") << QStringLiteral("/bin/false");
    QTest::newRow("writing something else") << QStringLiteral("/bin/echo");
}

void UpdaterControllerTest::aMissingOrFailingFeedProgramIsReported()
{
    QFETCH(QString, program);
    Updater updater(QStringLiteral("https://zeigewerk.example/"));
    updater.setup.feedProgram = program;
    updater.controller().checkForUpdates();
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(FeedFailure::NoProcess));
}

void UpdaterControllerTest::aRequestDuringACheckJoinsThatCheck()
{
    FeedServer server;
    server.serveLater(kFeed);
    Updater updater(server.address(kFeed), 0ms);
    updater.controller();
    QTRY_COMPARE(server.requests().size(), 1);
    QVERIFY(!updater.controller().dialog());
    updater.controller().checkForUpdates();
    updater.controller().checkForUpdates();
    QVERIFY(updater.isShown(Searching{}));
    server.answerWaiting(feedOf({}));
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(kUpToDate));
    QVERIFY(!updater.controller().isChecking());
    QCOMPARE(server.requests().size(), 1);
}

void UpdaterControllerTest::aRequestBeforeTheAutomaticCheckReplacesIt()
{
    // The answer arrives at once, before the automatic check has had its turn.
    Updater updater(QStringLiteral("nonsense"), 0ms);
    updater.controller().checkForUpdates();
    QCOMPARE(updater.news.size(), 1);
    bool hadItsTurn = false;
    QTimer::singleShot(0, &updater.controller(), [&hadItsTurn] { hadItsTurn = true; });
    QTRY_VERIFY(hadItsTurn);
    QCOMPARE(updater.news.size(), 1);
}

void UpdaterControllerTest::aFinishedCheckLeavesNothingBehind()
{
    FeedServer server;
    server.serve(kFeed, feedOf({}));
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    QVERIFY(!updater.controller().isChecking());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(updater.controller().findChildren<QObject *>().isEmpty());
    QCOMPARE(updater.desktop.takeLog(), QStringList());
    QTRY_COMPARE(server.openConnections(), 0);
}

void UpdaterControllerTest::destroyingTheControllerEndsTheCheck()
{
    FeedServer server;
    server.serveLater(kFeed);
    {
        Updater updater(server.address(kFeed));
        updater.controller().checkForUpdates();
        QTRY_COMPARE(server.openConnections(), 1);
    }
    QTRY_COMPARE(server.openConnections(), 0);
}

REGISTER_TEST(UpdaterControllerTest)
#include "updater_controller_test.moc"
