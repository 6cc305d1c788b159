#include "feed_text.h"
#include "registered_test.h"
#include "updater/feed.h"
#include "updater/feed_answer.h"

#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The versions in the order of the feed; "none" if it is not a feed.
QString versionsIn(const QByteArray &bytes)
{
    const auto items = parseFeed(bytes);
    if (!items)
        return QStringLiteral("none");
    QStringList versions;
    for (const FeedItem &item : *items)
        versions += item.version;
    return versions.join(u' ');
}

QByteArray repeated(const QByteArray &text, int times)
{
    return text.repeated(times);
}

/// An item whose version has that prefix, which stands for that namespace.
QByteArray itemWithPrefix(const QByteArray &prefix, const QByteArray &space)
{
    const QByteArray name = prefix + ":version";
    return "<item><" + name + " xmlns:" + prefix + "='" + space + "'>1</" + name + "></item>";
}

const QByteArray kSparkle = "http://www.andymatuschak.org/xml-namespaces/sparkle";
const QByteArray kMarkup = "<item><description><p>1 <b>2</b></p></description></item>";
const QByteArray kForMac = itemOf("3", "<sparkle:os>macos</sparkle:os>");
const QByteArray kForWindows = itemOf("2", "<enclosure sparkle:os='windows'/>");
const QByteArray kMinimum = "<sparkle:minimumSystemVersion>99.0</sparkle:minimumSystemVersion>";
const QByteArray kDeltas =
    "<sparkle:deltas><enclosure sparkle:version='9' sparkle:os='windows'/></sparkle:deltas>";

} // namespace

class FeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void feedsAreReadAndOtherDataIsRejected_data();
    void feedsAreReadAndOtherDataIsRejected();
    void documentTypesAndTheirEntitiesAreRejected_data();
    void documentTypesAndTheirEntitiesAreRejected();
    void theFieldsOfAnItemAreRead_data();
    void theFieldsOfAnItemAreRead();
    void theNewestVersionWinsInAnyOrder();
    void answersReadBackAsTheyWereWritten_data();
    void answersReadBackAsTheyWereWritten();
    void anyOtherOutputIsAFailure_data();
    void anyOtherOutputIsAFailure();
};

void FeedTest::feedsAreReadAndOtherDataIsRejected_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &bytes, const char *expected) {
        QTest::newRow(name) << bytes << QString::fromLatin1(expected);
    };
    const QByteArray one = itemOf("1.0");
    row("empty", {}, "none");
    row("text", "Not found", "none");
    row("web page", "<html><body>1.0</body></html>", "none");
    row("another kind of feed", "<feed xmlns='http://www.w3.org/2005/Atom'/>", "none");
    row("no channel", "<rss/>", "");
    row("no items", feedOf({}), "");
    row("one item", feedOf(one), "1.0");
    row("several items keep their order", feedOf(one + itemOf("3") + itemOf("2")), "1.0 3 2");
    row("truncated", feedOf(one).chopped(1), "none");
    row("truncated after the item", feedOf(one).first(feedOf(one).indexOf("</item>") + 7), "none");
    row("not well-formed after the item", feedOf(one + "<p></q>"), "none");
    row("two documents", feedOf(one) + feedOf(one), "none");
    row("no namespace", feedOf("<item><version>1</version></item>"), "");
    row("another namespace", feedOf(itemWithPrefix("v", "urn:v")), "");
    row("another prefix", feedOf(itemWithPrefix("s", kSparkle)), "1");
    row("item outside the channel", "<rss>" + one + "</rss>", "none");
    row("no version", feedOf("<item><title>2.0</title></item>"), "");
    row("empty version", feedOf(itemOf(" ") + one), "1.0");
    row("version too long", feedOf(itemOf(repeated("1", 101)) + one), "1.0");
    row("markup in a version", feedOf(itemOf("<b>1</b>")), "none");
    row("markup in a description", feedOf(kMarkup + one), "1.0");
    row("for this system", feedOf(itemOf("1.0", "<sparkle:os>Linux</sparkle:os>")), "1.0");
    row("for other systems", feedOf(kForMac + kForWindows + one), "1.0");
    row("in a channel", feedOf(itemOf("2", "<sparkle:channel>beta</sparkle:channel>") + one), "1.0");
    row("minimum version of another system", feedOf(itemOf("1.0", kMinimum)), "1.0");
    row("deltas from older versions are ignored", feedOf(itemOf("1.0", kDeltas)), "1.0");
    row("predefined entities", feedOf(itemOf("1&#46;0&amp;2")), "1.0&2");
    row("very deep", feedOf(repeated("<a>", 300'000)), "none");
    row("too deep, with end tags", feedOf(repeated("<a>", 100) + repeated("</a>", 100)), "none");
    row("very wide", feedOf(repeated("<a/>", 200'000) + one), "1.0");
    row("UTF-16", QByteArray("\xff\xfe<\0r\0s\0s\0/\0>\0", 14), "");
    row("invalid UTF-8", feedOf(itemOf("\xff\xfe\xc3")), "none");
}

void FeedTest::feedsAreReadAndOtherDataIsRejected()
{
    QFETCH(QByteArray, bytes);
    QTEST(versionsIn(bytes), "expected");
}

void FeedTest::documentTypesAndTheirEntitiesAreRejected_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QByteArray>("documentType");
    const auto row = [](const char *name, const QByteArray &version, const QByteArray &documentType) {
        QTest::newRow(name) << version << documentType;
    };
    const QByteArray growing = "<!ENTITY a '" + repeated("1", 50) + "'><!ENTITY b '" + repeated("&a;", 50) +
                               "'><!ENTITY c '" + repeated("&b;", 50) + "'><!ENTITY d '" +
                               repeated("&c;", 50) + "'>";
    row("no entities", "1.0", "<!DOCTYPE rss>");
    row("entity", "&e;", "<!DOCTYPE rss [<!ENTITY e '1.0'>]>");
    row("entities that grow", "&d;", "<!DOCTYPE rss [" + growing + "]>");
    row("file as an entity", "&e;", "<!DOCTYPE rss [<!ENTITY e SYSTEM 'file:///etc/hostname'>]>");
    row("undeclared entity", "&e;", {});
}

void FeedTest::documentTypesAndTheirEntitiesAreRejected()
{
    QFETCH(QByteArray, version);
    QFETCH(QByteArray, documentType);
    QCOMPARE(versionsIn(feedOf(itemOf(version), documentType)), QStringLiteral("none"));
}

void FeedTest::theFieldsOfAnItemAreRead_data()
{
    QTest::addColumn<QByteArray>("inItem");
    QTest::addColumn<FeedItem>("expected");
    const auto row = [](const char *name, const QByteArray &inItem, const char *version, const char *shown,
                        const QString &page) {
        QTest::newRow(name) << inItem
                            << FeedItem{QString::fromLatin1(version), QString::fromLatin1(shown), page};
    };
    const QString page = QStringLiteral("https://zeigewerk.example/1");
    const QString twoWords = QStringLiteral("https://zeigewerk.example/ 1");
    const QByteArray link = "<link> https://zeigewerk.example/1 </link>";
    const QByteArray brokenLink = "<link>https://zeigewerk.example/\n1</link>";
    const QByteArray longLink = "<link>https://" + repeated("a", 2000) + "</link>";
    const QByteArray number = "<sparkle:version>7</sparkle:version>";
    const QByteArray brokenNumber = "<sparkle:version>\n 1.0\n(7) </sparkle:version>";
    const QByteArray shown = "<sparkle:shortVersionString>1.0</sparkle:shortVersionString>";
    const QByteArray attributes = "<enclosure sparkle:version='7' sparkle:shortVersionString='1.0' url='u'/>";
    const QByteArray others = "<enclosure sparkle:version='8' sparkle:shortVersionString='2.0'/>";
    row("elements", number + shown + link, "7", "1.0", page);
    row("attributes", link + attributes, "7", "1.0", page);
    row("elements before attributes", others + number, "7", "2.0", {});
    row("only one of them", number, "7", "7", {});
    row("spaces around and line breaks within", brokenNumber + brokenLink, "1.0 (7)", "1.0 (7)", twoWords);
    row("link in another namespace", number + "<l:link xmlns:l='urn:l'>x</l:link>", "7", "7", {});
    row("link too long", number + longLink, "7", "7", {});
}

void FeedTest::theFieldsOfAnItemAreRead()
{
    QFETCH(QByteArray, inItem);
    QFETCH(FeedItem, expected);
    const auto items = parseFeed(feedOf("<item>" + inItem + "</item>"));
    QVERIFY(items);
    QCOMPARE(items->size(), 1U);
    QCOMPARE(items->front().version, expected.version);
    QCOMPARE(items->front().shownVersion, expected.shownVersion);
    QCOMPARE(items->front().page, expected.page);
}

void FeedTest::theNewestVersionWinsInAnyOrder()
{
    QStringList versions = {QStringLiteral("1.10"), QStringLiteral("1.9"), QStringLiteral("1.10b1")};
    std::sort(versions.begin(), versions.end());
    do {
        QByteArray items;
        for (const QString &version : versions)
            items += itemOf(version.toUtf8());
        QCOMPARE(newestItem(*parseFeed(feedOf(items)))->version, QStringLiteral("1.10"));
    } while (std::next_permutation(versions.begin(), versions.end()));
    QVERIFY(!newestItem({}));
}

void FeedTest::answersReadBackAsTheyWereWritten_data()
{
    QTest::addColumn<FeedAnswer>("answer");
    const auto row = [](const char *name, const FeedAnswer &answer) { QTest::newRow(name) << answer; };
    const QString page = QStringLiteral("https://z.example/");
    row("no version", std::optional<FeedItem>());
    row("a version", FeedItem{QStringLiteral("7"), QStringLiteral("1.0 „Jubiläum“"), page});
    row("without a page", FeedItem{QStringLiteral("7"), QStringLiteral("7"), {}});
    for (int i = 0; i <= static_cast<int>(FeedFailure::NoProcess); ++i)
        QTest::addRow("failure %d", i) << FeedAnswer(static_cast<FeedFailure>(i));
}

void FeedTest::answersReadBackAsTheyWereWritten()
{
    QFETCH(FeedAnswer, answer);
    const WrittenAnswer written = write(answer);
    QVERIFY(readAnswer(written) == answer);
    QVERIFY(written.exitCode >= 0 && written.exitCode < 126); // shells use the codes from 126 on
}

void FeedTest::anyOtherOutputIsAFailure_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("another error") << QByteArray() << 1;
    QTest::newRow("usage error") << QByteArray() << 2;
    QTest::newRow("beyond the failures") << QByteArray() << 10 + static_cast<int>(FeedFailure::NoProcess) + 1;
    QTest::newRow("killed") << QByteArray() << -1;
    QTest::newRow("too few lines") << QByteArray("7\n1.0\n") << 0;
    QTest::newRow("too many lines") << QByteArray("7\n1.0\nhttps://\n\n") << 0;
    QTest::newRow("unfinished last line") << QByteArray("7\n1.0\nhttps://") << 0;
}

void FeedTest::anyOtherOutputIsAFailure()
{
    QFETCH(QByteArray, output);
    QFETCH(int, exitCode);
    QVERIFY(readAnswer({.output = output, .exitCode = exitCode}) == FeedAnswer(FeedFailure::NoProcess));
}

REGISTER_APPLESS_TEST(FeedTest)
#include "feed_test.moc"
