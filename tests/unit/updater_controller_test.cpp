// What comes of a search, with a server that has a feed.

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
    void whoAsksIsTold_data();
    void whoAsksIsTold();
    void theFirstSearchTellsOnlyOfANewerVersion_data();
    void theFirstSearchTellsOnlyOfANewerVersion();
    void addressesThatAreNoneAreToldWhenAsked_data();
    void addressesThatAreNoneAreToldWhenAsked();
    void aServerThatTakesTooLongIsTooSlow_data();
    void aServerThatTakesTooLongIsTooSlow();
    void aProgramThatIsMissingOrFailsIsTold_data();
    void aProgramThatIsMissingOrFailsIsTold();
    void askingWhileItSearchesIsTheSameSearch();
    void whoAsksFirstHasTheOnlySearch();
    void whenItIsDoneNothingIsLeft();
    void endingTheControllerEndsTheSearch();
};

void UpdaterControllerTest::whoAsksIsTold_data()
{
    QTest::addColumn<std::function<void(FeedServer &)>>("prepare");
    QTest::addColumn<UpdateNews>("expected");
    const auto row = [](const char *name, auto prepare, const UpdateNews &expected) {
        QTest::newRow(name) << std::function<void(FeedServer &)>(prepare) << expected;
    };
    const auto version = [](const char *text) { return [text](FeedServer &server) { offer(server, text); }; };
    row("newer", version("1.2"), versionOf("1.2"));
    row("newer by a digit more", version("1.10"), versionOf("1.10"));
    row("the same", version("1.1"), kUpToDate);
    row("older", version("1.0"), kUpToDate);
    row("on its way to be this one", version("1.1b3"), kUpToDate);
    row(
        "none", [](FeedServer &server) { server.serve(kFeed, feedOf({})); }, kUpToDate);
    row(
        "no feed", [](FeedServer &server) { server.serve(kFeed, "Hello"); }, FeedFailure::NotReadable);
    row(
        "nothing there", [](FeedServer &) {}, FeedFailure::NotFound);
    row(
        "too much", [](FeedServer &server) { server.serveManyBytes(kFeed, qint64{100} * 1024 * 1024); },
        FeedFailure::TooLarge);
    row(
        "going round", [](FeedServer &server) { server.serveRedirect(kFeed, kFeed); },
        FeedFailure::BadRedirect);
}

void UpdaterControllerTest::whoAsksIsTold()
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

void UpdaterControllerTest::theFirstSearchTellsOnlyOfANewerVersion_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("newer") << feedOf(itemOf("1.2")) << true;
    QTest::newRow("the same") << feedOf(itemOf("1.1")) << false;
    QTest::newRow("none") << feedOf({}) << false;
    QTest::newRow("no feed") << QByteArray("Hello") << false;
}

void UpdaterControllerTest::theFirstSearchTellsOnlyOfANewerVersion()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, isTold);
    FeedServer server;
    server.serve(kFeed, body);
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    QCOMPARE(updater.isShown(versionOf("1.2")), isTold);
    QCOMPARE(updater.controller().dialog() != nullptr, isTold);
}

void UpdaterControllerTest::addressesThatAreNoneAreToldWhenAsked_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address : {"", "nonsense", "file:///etc/passwd", "http://192.0.2.1/feed", "--help"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

void UpdaterControllerTest::addressesThatAreNoneAreToldWhenAsked()
{
    QFETCH(QString, address);
    Updater updater(address, 0ms);
    // No process is needed to know that.
    updater.setup.feedProgram = QStringLiteral("/nowhere");
    QVERIFY(updater.waitForNews());
    QVERIFY(!updater.controller().dialog());
    updater.controller().checkForUpdates();
    QVERIFY(updater.isShown(FeedFailure::BadAddress));
}

void UpdaterControllerTest::aServerThatTakesTooLongIsTooSlow_data()
{
    QTest::addColumn<bool>("doesAnswer");
    QTest::newRow("no answer") << false;
    QTest::newRow("an answer in drops") << true;
}

void UpdaterControllerTest::aServerThatTakesTooLongIsTooSlow()
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

void UpdaterControllerTest::aProgramThatIsMissingOrFailsIsTold_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("missing") << QStringLiteral("/nowhere/zeigewerk-feed");
    QTest::newRow("no program") << QStringLiteral("/etc/passwd");
    QTest::newRow("failing") << QStringLiteral("/bin/false");
    QTest::newRow("writing something else") << QStringLiteral("/bin/echo");
}

void UpdaterControllerTest::aProgramThatIsMissingOrFailsIsTold()
{
    QFETCH(QString, program);
    Updater updater(QStringLiteral("https://zeigewerk.example/"));
    updater.setup.feedProgram = program;
    updater.controller().checkForUpdates();
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(FeedFailure::NoProcess));
}

void UpdaterControllerTest::askingWhileItSearchesIsTheSameSearch()
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

void UpdaterControllerTest::whoAsksFirstHasTheOnlySearch()
{
    // The answer is there at once, before the first search has had its turn.
    Updater updater(QStringLiteral("nonsense"), 0ms);
    updater.controller().checkForUpdates();
    QCOMPARE(updater.news.size(), 1);
    bool hadItsTurn = false;
    QTimer::singleShot(0, &updater.controller(), [&hadItsTurn] { hadItsTurn = true; });
    QTRY_VERIFY(hadItsTurn);
    QCOMPARE(updater.news.size(), 1);
}

void UpdaterControllerTest::whenItIsDoneNothingIsLeft()
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

void UpdaterControllerTest::endingTheControllerEndsTheSearch()
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
