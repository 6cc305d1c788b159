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

/// The answer of a download from that address; aborts the test if there is none.
FeedAnswer answerAt(const QString &address,
                    const QSslConfiguration &security = QSslConfiguration::defaultConfiguration())
{
    FeedDownload download(kUserAgent, security);
    std::optional<FeedAnswer> answer;
    QObject::connect(&download, &FeedDownload::finished, &download, [&answer](const FeedAnswer &result) {
        if (answer)
            qFatal("the download finished twice");
        answer = result;
    });
    download.start(address);
    if (!QTest::qWaitFor([&answer] { return answer.has_value(); }, 30'000))
        qFatal("the download did not finish");
    // A second answer would arrive here.
    QCoreApplication::processEvents();
    return *answer;
}

/// The newest version, "none", or the number of the failure.
QString describe(const FeedAnswer &answer)
{
    if (const auto *failure = std::get_if<FeedFailure>(&answer))
        return QStringLiteral("failure %1").arg(static_cast<int>(*failure));
    const auto &item = std::get<std::optional<FeedItem>>(answer);
    return item ? item->version : QStringLiteral("none");
}

QSslConfiguration trustingTheTestAuthority()
{
    QSslConfiguration security = QSslConfiguration::defaultConfiguration();
    security.addCaCertificate(testAuthority());
    return security;
}

/// Compressed like the answer of a server, which Qt decompresses by itself.
QByteArray compressed(const QByteArray &bytes)
{
    constexpr qsizetype kQtLengthField = 4;
    return qCompress(bytes).sliced(kQtLengthField);
}

/// A feed of exactly the maximum size.
QByteArray feedOfMaxSize()
{
    QByteArray feed = feedOf(itemOf("1.2"));
    return feed.append(FeedDownload::kLargestFeed - feed.size(), ' ');
}

FeedAnswer newestVersion()
{
    const QString version = QStringLiteral("1.2");
    return FeedItem{version, version, QStringLiteral("https://zeigewerk.example/get")};
}

constexpr char kDeflated[] = "Content-Encoding: deflate\r\n";
constexpr char kAskPassword[] = "WWW-Authenticate: Basic realm=\"r\"\r\n";
const QString kPath = QStringLiteral("/feed");

using PrepareServer = std::function<void(FeedServer &)>;

} // namespace

class FeedDownloadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachAnswerOfTheServerHasItsResult_data();
    void eachAnswerOfTheServerHasItsResult();
    void forbiddenAddressesAreRejected();
    void aMissingServerMeansNoConnection();
    void anOversizedAnswerIsCutOff();
    void onlyAllowedRedirectsAreFollowed_data();
    void onlyAllowedRedirectsAreFollowed();
    void redirectsAreFollowedUpToALimit();
    void requestsRevealOnlyTheUserAgent();
    void serversMustProveTheirIdentity_data();
    void serversMustProveTheirIdentity();
    void aSecureServerMayNotRedirectToAnInsecureOne();
};

void FeedDownloadTest::eachAnswerOfTheServerHasItsResult_data()
{
    QTest::addColumn<PrepareServer>("prepare");
    QTest::addColumn<FeedAnswer>("expected");
    const auto row = [](const char *name, const PrepareServer &prepare, const FeedAnswer &expected) {
        QTest::newRow(name) << prepare << expected;
    };
    const auto body = [](const QByteArray &bytes, const QByteArray &header = {}) {
        return [=](FeedServer &server) { server.serve(kPath, bytes, header); };
    };
    const auto status = [](const QByteArray &line, const QByteArray &header = {}) {
        return [=](FeedServer &server) { server.serveStatus(kPath, line, header); };
    };
    const auto disconnect = [](const QByteArray &begin) {
        return [=](FeedServer &server) { server.serveDisconnect(kPath, begin); };
    };
    const auto nothing = [](FeedServer &) {};
    const FeedAnswer newest = newestVersion();
    const QByteArray feed = feedOf(itemOf("1.1") + itemOf("1.2"));
    const QByteArray large = feedOfMaxSize();
    const QByteArray blanks(50 * kMegabyte, ' ');
    row("feed", body(feed), newest);
    row("feed without items", body(feedOf({})), std::optional<FeedItem>());
    row("empty answer", body({}), FeedFailure::NotReadable);
    row("not a feed", body("<html></html>"), FeedFailure::NotReadable);
    row("truncated feed", body(feed.chopped(1)), FeedFailure::NotReadable);
    row("maximum size", body(large), newest);
    row("one byte too large", body(large + ' '), FeedFailure::TooLarge);
    row("compressed", body(compressed(feed), kDeflated), newest);
    row("compressed, maximum size", body(compressed(large), kDeflated), newest);
    row("compressed, one byte too large", body(compressed(large + ' '), kDeflated), FeedFailure::TooLarge);
    row("compressed a thousandfold", body(compressed(blanks), kDeflated), FeedFailure::NotReadable);
    row("falsely said to be compressed", body(feed, "Content-Encoding: gzip\r\n"), FeedFailure::NotReadable);
    row("disconnects at once", disconnect({}), FeedFailure::NoConnection);
    row("disconnects before the end", disconnect(feed.chopped(1)), FeedFailure::NoConnection);
    row("nothing at this path", nothing, FeedFailure::NotFound);
    row("gone", status("410 Gone"), FeedFailure::NotFound);
    row("forbidden", status("403 Forbidden"), FeedFailure::ServerError);
    row("password required", status("401 Unauthorized", kAskPassword), FeedFailure::ServerError);
    row("other client error", status("418 Teapot"), FeedFailure::ServerError);
    row("server error", status("500 Broken"), FeedFailure::ServerError);
    row("server busy", status("503 Busy"), FeedFailure::ServerError);
    row("no content", status("204 No Content"), FeedFailure::NotReadable);
}

void FeedDownloadTest::eachAnswerOfTheServerHasItsResult()
{
    QFETCH(PrepareServer, prepare);
    QFETCH(FeedAnswer, expected);
    FeedServer server;
    prepare(server);
    const FeedAnswer answer = answerAt(server.address(kPath));
    QCOMPARE(describe(answer), describe(expected));
    QVERIFY(answer == expected);
}

void FeedDownloadTest::forbiddenAddressesAreRejected()
{
    for (const char *address : {"", "nonsense", "file:///etc/passwd", "http://192.0.2.1/feed"})
        QCOMPARE(describe(answerAt(QLatin1String(address))), describe(FeedFailure::BadAddress));
}

void FeedDownloadTest::aMissingServerMeansNoConnection()
{
    QString address;
    {
        const FeedServer server;
        address = server.address(kPath);
    }
    QCOMPARE(describe(answerAt(address)), describe(FeedFailure::NoConnection));
}

void FeedDownloadTest::anOversizedAnswerIsCutOff()
{
    FeedServer server;
    server.serveManyBytes(kPath, 100 * kMegabyte);
    QCOMPARE(describe(answerAt(server.address(kPath))), describe(FeedFailure::TooLarge));
    // The client has disconnected; most of what was sent is still in the system's buffers.
    QTRY_COMPARE(server.openConnections(), 0);
    QVERIFY2(server.bytesSent() < 30 * kMegabyte, qPrintable(QString::number(server.bytesSent())));
}

void FeedDownloadTest::onlyAllowedRedirectsAreFollowed_data()
{
    QTest::addColumn<QString>("to");
    QTest::addColumn<FeedAnswer>("expected");
    const auto row = [](const char *to, const FeedAnswer &expected) {
        QTest::newRow(to) << QString::fromLatin1(to) << expected;
    };
    row("/feed", newestVersion());
    row("/nothing", FeedFailure::NotFound);
    row("/moved", FeedFailure::BadRedirect);
    row("file:///etc/passwd", FeedFailure::BadRedirect);
    row("http://192.0.2.1/feed", FeedFailure::BadRedirect);
    row("ftp://127.0.0.1/feed", FeedFailure::BadRedirect);
    row("data:text/xml,<rss/>", FeedFailure::BadRedirect);
    row("javascript:1", FeedFailure::BadRedirect);
}

void FeedDownloadTest::onlyAllowedRedirectsAreFollowed()
{
    QFETCH(QString, to);
    QFETCH(FeedAnswer, expected);
    FeedServer server;
    server.serve(kPath, feedOf(itemOf("1.2")));
    server.serveRedirect(QStringLiteral("/moved"), to);
    QCOMPARE(describe(answerAt(server.address(QStringLiteral("/moved")))), describe(expected));
}

void FeedDownloadTest::redirectsAreFollowedUpToALimit()
{
    FeedServer server;
    for (int left = 1; left <= FeedDownload::kMaxRedirects + 1; ++left)
        server.serveRedirect(QStringLiteral("/%1").arg(left), QStringLiteral("/%1").arg(left - 1));
    server.serve(QStringLiteral("/0"), feedOf(itemOf("1.2")));
    const auto answerAfter = [&server](int redirects) {
        return describe(answerAt(server.address(QStringLiteral("/%1").arg(redirects))));
    };
    QCOMPARE(answerAfter(FeedDownload::kMaxRedirects), QStringLiteral("1.2"));
    QCOMPARE(answerAfter(FeedDownload::kMaxRedirects + 1), describe(FeedFailure::BadRedirect));
}

void FeedDownloadTest::requestsRevealOnlyTheUserAgent()
{
    FeedServer server;
    server.serve(kPath, feedOf({}));
    // The redirect also sets a cookie.
    server.serveRedirect(QStringLiteral("/moved"), kPath);
    QCOMPARE(describe(answerAt(server.address(QStringLiteral("/moved")))), QStringLiteral("none"));
    QCOMPARE(server.requests().size(), 2);
    for (const QByteArray &request : server.requests()) {
        QStringList header;
        for (const QByteArray &line : request.trimmed().split('\n').mid(1))
            header += QString::fromLatin1(line).trimmed();
        header.removeIf([](const QString &line) {
            return line.startsWith(QStringLiteral("Host: 127.0.0.1:")) ||
                   line.startsWith(QStringLiteral("Accept-Encoding: "));
        });
        header.sort();
        QCOMPARE(header.join(u'|'),
                 QStringLiteral("Accept-Language: *|Cache-Control: no-cache|Connection: Keep-Alive|"
                                "Pragma: no-cache|User-Agent: Zeigewerk/1.0"));
    }
}

void FeedDownloadTest::serversMustProveTheirIdentity_data()
{
    QTest::addColumn<Identity>("identity");
    QTest::addColumn<bool>("isAuthorityTrusted");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, Identity identity, bool isAuthorityTrusted,
                        const QString &expected) {
        QTest::newRow(name) << identity << isAuthorityTrusted << expected;
    };
    row("valid certificate", Identity::Loopback, true, QStringLiteral("1.2"));
    row("unknown authority", Identity::Loopback, false, describe(FeedFailure::NotSecure));
    row("certificate of another server", Identity::Elsewhere, true, describe(FeedFailure::NotSecure));
}

void FeedDownloadTest::serversMustProveTheirIdentity()
{
    QFETCH(Identity, identity);
    QFETCH(bool, isAuthorityTrusted);
    QFETCH(QString, expected);
    FeedServer server(identity);
    server.serve(kPath, feedOf(itemOf("1.2")));
    const QSslConfiguration security =
        isAuthorityTrusted ? trustingTheTestAuthority() : QSslConfiguration::defaultConfiguration();
    QCOMPARE(describe(answerAt(server.address(kPath), security)), expected);
    QCOMPARE(server.requests().isEmpty(), expected != QStringLiteral("1.2"));
}

void FeedDownloadTest::aSecureServerMayNotRedirectToAnInsecureOne()
{
    FeedServer server(Identity::Loopback);
    server.serveRedirect(kPath, QStringLiteral("http://192.0.2.1/feed"));
    QCOMPARE(describe(answerAt(server.address(kPath), trustingTheTestAuthority())),
             describe(FeedFailure::BadRedirect));
}

REGISTER_GUILESS_TEST(FeedDownloadTest)
#include "feed_download_test.moc"
