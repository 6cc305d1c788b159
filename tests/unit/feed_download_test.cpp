#include "feed_server.h"
#include "registered_test.h"
#include "updater/feed_download.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

constexpr char kUserAgent[] = "Zeigewerk/1.0";
constexpr qint64 kMegabyte = qint64{1024} * 1024;

/// How a download ends; the test ends when it does not.
FeedAnswer answerAt(const QString &address,
                    const QSslConfiguration &security = QSslConfiguration::defaultConfiguration())
{
    FeedDownload download(kUserAgent, security);
    std::optional<FeedAnswer> answer;
    QObject::connect(&download, &FeedDownload::finished, &download, [&answer](const FeedAnswer &given) {
        if (answer)
            qFatal("it finished twice");
        answer = given;
    });
    download.start(address);
    if (!QTest::qWaitFor([&answer] { return answer.has_value(); }, 30'000))
        qFatal("no end of the download");
    // Whatever it would have to say yet.
    QCoreApplication::processEvents();
    return *answer;
}

/// The version that is the newest, "none", or the failure's number.
QString told(const FeedAnswer &answer)
{
    if (const auto *failure = std::get_if<FeedFailure>(&answer))
        return QStringLiteral("failure %1").arg(static_cast<int>(*failure));
    const auto &item = std::get<std::optional<FeedItem>>(answer);
    return item ? item->version : QStringLiteral("none");
}

QSslConfiguration believingTheTests()
{
    QSslConfiguration security = QSslConfiguration::defaultConfiguration();
    security.addCaCertificate(testAuthority());
    return security;
}

/// As a server packs what it sends, which Qt unpacks by itself.
QByteArray deflated(const QByteArray &bytes)
{
    constexpr qsizetype kLengthOfQt = 4;
    return qCompress(bytes).sliced(kLengthOfQt);
}

/// As long as the longest that is read, to the byte.
QByteArray longestFeed()
{
    QByteArray feed = feedOf(itemOf("1.2"));
    return feed.append(FeedDownload::kLargestFeed - feed.size(), ' ');
}

constexpr char kDeflated[] = "Content-Encoding: deflate\r\n";

} // namespace

class FeedDownloadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersAreRead_data();
    void answersAreRead();
    void addressesThatAreNotAllowedAreNotAsked();
    void aServerThatIsNotThereIsNoConnection();
    void muchTooLongAnAnswerIsCutOff();
    void redirectsAreFollowedWhereTheyMayLead_data();
    void redirectsAreFollowedWhereTheyMayLead();
    void redirectsAreFollowedAFewTimes();
    void onlyTheUserAgentIsTold();
    void serversMustProveWhoTheyAre_data();
    void serversMustProveWhoTheyAre();
    void aSecureServerDoesNotLeadToAnInsecureOne();
};

void FeedDownloadTest::answersAreRead_data()
{
    QTest::addColumn<std::function<void(FeedServer &, const QString &)>>("prepare");
    QTest::addColumn<FeedAnswer>("expected");
    const auto row = [](const char *name, auto prepare, const FeedAnswer &expected) {
        QTest::newRow(name) << std::function<void(FeedServer &, const QString &)>(prepare) << expected;
    };
    const auto body = [](const QByteArray &bytes, const QByteArray &header = {}) {
        return [=](FeedServer &server, const QString &path) { server.serve(path, bytes, header); };
    };
    const auto status = [](const QByteArray &line, const QByteArray &header = {}) {
        return [=](FeedServer &server, const QString &path) { server.serveStatus(path, line, header); };
    };
    const FeedAnswer newest = FeedItem{QStringLiteral("1.2"), QStringLiteral("1.2"),
                                       QStringLiteral("https://zeigewerk.example/get")};
    const QByteArray feed = feedOf(itemOf("1.1") + itemOf("1.2"));
    row("a feed", body(feed), newest);
    row("a feed without items", body(feedOf({})), std::optional<FeedItem>());
    row("nothing", body({}), FeedFailure::NotReadable);
    row("no feed", body("<html></html>"), FeedFailure::NotReadable);
    row("a feed that is cut off", body(feed.chopped(1)), FeedFailure::NotReadable);
    row("the longest", body(longestFeed()), newest);
    row("a byte too long", body(longestFeed() + ' '), FeedFailure::TooLarge);
    row("packed", body(deflated(feed), kDeflated), newest);
    row("the longest, packed", body(deflated(longestFeed()), kDeflated), newest);
    row("packed, a byte too long", body(deflated(longestFeed() + ' '), kDeflated), FeedFailure::TooLarge);
    row("a thousand times as long as it was packed",
        body(deflated(QByteArray(50 * kMegabyte, ' ')), kDeflated), FeedFailure::NotReadable);
    row("said to be packed", body(feed, "Content-Encoding: gzip\r\n"), FeedFailure::NotReadable);
    row(
        "hanging up at once",
        [](FeedServer &server, const QString &path) { server.serveHangingUp(path, {}); },
        FeedFailure::NoConnection);
    row(
        "hanging up when all but the end is there",
        [feed](FeedServer &server, const QString &path) { server.serveHangingUp(path, feed.chopped(1)); },
        FeedFailure::NoConnection);
    row(
        "not there", [](FeedServer &, const QString &) {}, FeedFailure::NotFound);
    row("gone", status("410 Gone"), FeedFailure::NotFound);
    row("forbidden", status("403 Forbidden"), FeedFailure::ServerError);
    row("a password wanted", status("401 Unauthorized", "WWW-Authenticate: Basic realm=\"r\"\r\n"),
        FeedFailure::ServerError);
    row("teapot", status("418 Teapot"), FeedFailure::ServerError);
    row("broken", status("500 Broken"), FeedFailure::ServerError);
    row("busy", status("503 Busy"), FeedFailure::ServerError);
    row("nothing to say", status("204 No Content"), FeedFailure::NotReadable);
}

void FeedDownloadTest::answersAreRead()
{
    using Prepare = std::function<void(FeedServer &, const QString &)>;
    QFETCH(Prepare, prepare);
    QFETCH(FeedAnswer, expected);
    FeedServer server;
    prepare(server, QStringLiteral("/feed"));
    const FeedAnswer answer = answerAt(server.address(QStringLiteral("/feed")));
    QCOMPARE(told(answer), told(expected));
    QVERIFY(answer == expected);
}

void FeedDownloadTest::addressesThatAreNotAllowedAreNotAsked()
{
    for (const char *address : {"", "nonsense", "file:///etc/passwd", "http://192.0.2.1/feed"})
        QCOMPARE(told(answerAt(QLatin1String(address))), told(FeedFailure::BadAddress));
}

void FeedDownloadTest::aServerThatIsNotThereIsNoConnection()
{
    QString address;
    {
        const FeedServer server;
        address = server.address(QStringLiteral("/feed"));
    }
    QCOMPARE(told(answerAt(address)), told(FeedFailure::NoConnection));
}

void FeedDownloadTest::muchTooLongAnAnswerIsCutOff()
{
    FeedServer server;
    server.serveMany(QStringLiteral("/feed"), 100 * kMegabyte);
    QCOMPARE(told(answerAt(server.address(QStringLiteral("/feed")))), told(FeedFailure::TooLarge));
    // It has hung up; what was sent by then lies in the system's buffers for the most part.
    QTRY_COMPARE(server.openConnections(), 0);
    QVERIFY2(server.bytesSent() < 30 * kMegabyte, qPrintable(QString::number(server.bytesSent())));
}

void FeedDownloadTest::redirectsAreFollowedWhereTheyMayLead_data()
{
    QTest::addColumn<QString>("to");
    QTest::addColumn<FeedAnswer>("expected");
    const FeedAnswer newest = FeedItem{QStringLiteral("1.2"), QStringLiteral("1.2"),
                                       QStringLiteral("https://zeigewerk.example/get")};
    const auto row = [](const char *to, const FeedAnswer &expected) {
        QTest::newRow(to) << QString::fromLatin1(to) << expected;
    };
    row("/feed", newest);
    row("/nothing", FeedFailure::NotFound);
    row("/moved", FeedFailure::BadRedirect);
    row("file:///etc/passwd", FeedFailure::BadRedirect);
    row("http://192.0.2.1/feed", FeedFailure::BadRedirect);
    row("ftp://127.0.0.1/feed", FeedFailure::BadRedirect);
    row("data:text/xml,<rss/>", FeedFailure::BadRedirect);
    row("javascript:1", FeedFailure::BadRedirect);
}

void FeedDownloadTest::redirectsAreFollowedWhereTheyMayLead()
{
    QFETCH(QString, to);
    QFETCH(FeedAnswer, expected);
    FeedServer server;
    server.serve(QStringLiteral("/feed"), feedOf(itemOf("1.2")));
    server.serveRedirect(QStringLiteral("/moved"), to);
    QCOMPARE(told(answerAt(server.address(QStringLiteral("/moved")))), told(expected));
}

void FeedDownloadTest::redirectsAreFollowedAFewTimes()
{
    FeedServer server;
    for (int left = 1; left <= FeedDownload::kMaxRedirects + 1; ++left)
        server.serveRedirect(QStringLiteral("/%1").arg(left), QStringLiteral("/%1").arg(left - 1));
    server.serve(QStringLiteral("/0"), feedOf(itemOf("1.2")));
    const auto answerAfter = [&server](int redirects) {
        return told(answerAt(server.address(QStringLiteral("/%1").arg(redirects))));
    };
    QCOMPARE(answerAfter(FeedDownload::kMaxRedirects), QStringLiteral("1.2"));
    QCOMPARE(answerAfter(FeedDownload::kMaxRedirects + 1), told(FeedFailure::BadRedirect));
}

void FeedDownloadTest::onlyTheUserAgentIsTold()
{
    FeedServer server;
    server.serve(QStringLiteral("/feed"), feedOf({}));
    // It sets a cookie, too.
    server.serveRedirect(QStringLiteral("/moved"), QStringLiteral("/feed"));
    QCOMPARE(told(answerAt(server.address(QStringLiteral("/moved")))), QStringLiteral("none"));
    QCOMPARE(server.requests().size(), 2);
    for (const QByteArray &request : server.requests()) {
        QStringList said;
        for (const QByteArray &line : request.trimmed().split('\n').mid(1))
            said += QString::fromLatin1(line).trimmed();
        said.removeIf([](const QString &line) {
            return line.startsWith(QStringLiteral("Host: 127.0.0.1:")) ||
                   line.startsWith(QStringLiteral("Accept-Encoding: "));
        });
        said.sort();
        QCOMPARE(said.join(u'|'),
                 QStringLiteral("Accept-Language: *|Cache-Control: no-cache|Connection: Keep-Alive|"
                                "Pragma: no-cache|User-Agent: Zeigewerk/1.0"));
    }
}

void FeedDownloadTest::serversMustProveWhoTheyAre_data()
{
    QTest::addColumn<Identity>("identity");
    QTest::addColumn<bool>("isAuthorityBelieved");
    QTest::addColumn<QString>("expected");
    QTest::newRow("it does") << Identity::Loopback << true << QStringLiteral("1.2");
    QTest::newRow("nobody believed says so") << Identity::Loopback << false << told(FeedFailure::NotSecure);
    QTest::newRow("it is another") << Identity::Elsewhere << true << told(FeedFailure::NotSecure);
}

void FeedDownloadTest::serversMustProveWhoTheyAre()
{
    QFETCH(Identity, identity);
    QFETCH(bool, isAuthorityBelieved);
    QFETCH(QString, expected);
    FeedServer server(identity);
    server.serve(QStringLiteral("/feed"), feedOf(itemOf("1.2")));
    const QSslConfiguration security =
        isAuthorityBelieved ? believingTheTests() : QSslConfiguration::defaultConfiguration();
    QCOMPARE(told(answerAt(server.address(QStringLiteral("/feed")), security)), expected);
    QCOMPARE(server.requests().isEmpty(), expected != QStringLiteral("1.2"));
}

void FeedDownloadTest::aSecureServerDoesNotLeadToAnInsecureOne()
{
    FeedServer server(Identity::Loopback);
    server.serveRedirect(QStringLiteral("/feed"), QStringLiteral("http://192.0.2.1/feed"));
    QCOMPARE(told(answerAt(server.address(QStringLiteral("/feed")), believingTheTests())),
             told(FeedFailure::BadRedirect));
}

REGISTER_GUILESS_TEST(FeedDownloadTest)
#include "feed_download_test.moc"
