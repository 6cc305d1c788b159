#include "registered_test.h"
#include "updater/feed_address.h"

#include <QTest>

using namespace zeigewerk;

class FeedAddressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyHttpsAndLoopbackAddressesAreAllowed_data();
    void onlyHttpsAndLoopbackAddressesAreAllowed();
    void onlySafeRedirectsAreAllowed_data();
    void onlySafeRedirectsAreAllowed();
};

void FeedAddressTest::onlyHttpsAndLoopbackAddressesAreAllowed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAllowed");
    const auto row = [](const char *text, bool isAllowed) { QTest::newRow(text) << text << isAllowed; };
    row("https://zeigewerk.example/appcast.xml", true);
    row("  https://zeigewerk.example/appcast.xml\n", true);
    row("HTTPS://zeigewerk.example", true);
    row("https://zeigewerk.example:8443/?a=1,2&b", true);
    row("http://127.0.0.1:8080/feed", true);
    row("http://[::1]/feed", true);
    row("http://localhost/feed", true);
    row("http://LOCALHOST/feed", true);
    row("http://zeigewerk.example/appcast.xml", false);
    row("http://127.0.0.1.zeigewerk.example/", false);
    row("http://localhost.zeigewerk.example/", false);
    row("http://127.0.0.1@zeigewerk.example/", false);
    row("http://10.0.0.1/", false);
    row("file:///etc/passwd", false);
    row("file://localhost/etc/passwd", false);
    row("ftp://127.0.0.1/feed", false);
    row("data:text/xml,<rss/>", false);
    row("javascript:alert(1)", false);
    row("zeigewerk.example/appcast.xml", false);
    row("//zeigewerk.example/appcast.xml", false);
    row("https:", false);
    row("https:///appcast.xml", false);
    row("https://zeige werk.example/", false);
    row("https://zeigewerk.example:0x50/", false);
    row("--help", false);
    row("", false);
}

void FeedAddressTest::onlyHttpsAndLoopbackAddressesAreAllowed()
{
    QFETCH(QString, text);
    QTEST(allowedAddress(text).has_value(), "isAllowed");
}

void FeedAddressTest::onlySafeRedirectsAreAllowed_data()
{
    QTest::addColumn<QUrl>("from");
    QTest::addColumn<QUrl>("to");
    QTest::addColumn<bool>("isAllowed");
    const auto row = [](const char *name, const char *from, const char *to, bool isAllowed) {
        QTest::newRow(name) << QUrl(QLatin1String(from)) << QUrl(QLatin1String(to)) << isAllowed;
    };
    row("to another server", "https://one.example/", "https://other.example/", true);
    row("to an insecure server", "https://one.example/", "http://one.example/", false);
    row("to this machine", "https://one.example/", "http://127.0.0.1/", false);
    row("to this machine, securely", "https://one.example/", "https://localhost/", false);
    row("within this machine", "http://127.0.0.1/", "http://localhost/", true);
    row("away from this machine", "http://127.0.0.1/", "https://one.example/", true);
    row("away from this machine, insecurely", "http://127.0.0.1/", "http://one.example/", false);
    row("to a file", "https://one.example/", "file:///etc/passwd", false);
}

void FeedAddressTest::onlySafeRedirectsAreAllowed()
{
    QFETCH(QUrl, from);
    QFETCH(QUrl, to);
    QTEST(mayLeadTo(from, to), "isAllowed");
}

REGISTER_APPLESS_TEST(FeedAddressTest)
#include "feed_address_test.moc"
