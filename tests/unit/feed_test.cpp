#include "feed_text.h"
#include "registered_test.h"
#include "updater/feed.h"
#include "updater/feed_answer.h"

#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The versions, oldest or not, as they stand there; "none" for what is no feed.
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

} // namespace

class FeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void feedsAreReadOrNot_data();
    void feedsAreReadOrNot();
    void anItemHasItsFields_data();
    void anItemHasItsFields();
    void theNewestWinsWhereverItStands();
    void answersComeBackAsTheyWereWritten_data();
    void answersComeBackAsTheyWereWritten();
    void whateverElseIsWrittenIsNoAnswer_data();
    void whateverElseIsWrittenIsNoAnswer();
};

void FeedTest::feedsAreReadOrNot_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &bytes, const char *expected) {
        QTest::newRow(name) << bytes << QString::fromLatin1(expected);
    };
    const QByteArray one = itemOf("1.0");
    row("nothing", {}, "none");
    row("text", "Not found", "none");
    row("a page", "<html><body>1.0</body></html>", "none");
    row("another kind of feed", "<feed xmlns='http://www.w3.org/2005/Atom'/>", "none");
    row("no channel", "<rss/>", "");
    row("no items", feedOf({}), "");
    row("one", feedOf(one), "1.0");
    row("several, in their order", feedOf(one + itemOf("3") + itemOf("2")), "1.0 3 2");
    row("cut off", feedOf(one).chopped(1), "none");
    row("cut off after the item", feedOf(one).first(feedOf(one).indexOf("</item>") + 7), "none");
    row("not well-formed after the item", feedOf(one + "<p></q>"), "none");
    row("two documents", feedOf(one) + feedOf(one), "none");
    row("no namespace", feedOf("<item><version>1</version></item>"), "");
    row("another namespace", feedOf("<item><v:version xmlns:v='urn:v'>1</v:version></item>"), "");
    row("another prefix",
        feedOf("<item><s:version xmlns:s='http://www.andymatuschak.org/xml-namespaces/sparkle'>"
               "1</s:version></item>"),
        "1");
    row("an item outside of the channel", "<rss>" + one + "</rss>", "none");
    row("no version", feedOf("<item><title>2.0</title></item>"), "");
    row("an empty version", feedOf(itemOf(" ") + one), "1.0");
    row("too long a version", feedOf(itemOf(repeated("1", 101)) + one), "1.0");
    row("markup in a version", feedOf(itemOf("<b>1</b>")), "none");
    row("markup in a description", feedOf("<item><description><p>1 <b>2</b></p></description></item>" + one),
        "1.0");
    row("for this system", feedOf(itemOf("1.0", "<sparkle:os>Linux</sparkle:os>")), "1.0");
    row("for others",
        feedOf(itemOf("3", "<sparkle:os>macos</sparkle:os>") +
               itemOf("2", "<enclosure sparkle:os='windows'/>") + one),
        "1.0");
    row("in a channel", feedOf(itemOf("2", "<sparkle:channel>beta</sparkle:channel>") + one), "1.0");
    row("for a later system of another kind",
        feedOf(itemOf("1.0", "<sparkle:minimumSystemVersion>99.0</sparkle:minimumSystemVersion>")), "1.0");
    row("differences to older versions do not count",
        feedOf(itemOf("1.0", "<sparkle:deltas><enclosure sparkle:version='9' sparkle:os='windows'/>"
                             "</sparkle:deltas>")),
        "1.0");
    row("a document type", feedOf(one, "<!DOCTYPE rss>"), "none");
    row("an entity", feedOf(itemOf("&e;"), "<!DOCTYPE rss [<!ENTITY e '1.0'>]>"), "none");
    row("entities that grow",
        feedOf(itemOf("&d;"), "<!DOCTYPE rss [<!ENTITY a '" + repeated("1", 50) + "'><!ENTITY b '" +
                                  repeated("&a;", 50) + "'><!ENTITY c '" + repeated("&b;", 50) +
                                  "'><!ENTITY d '" + repeated("&c;", 50) + "'>]>"),
        "none");
    row("a file as an entity",
        feedOf(itemOf("&e;"), "<!DOCTYPE rss [<!ENTITY e SYSTEM 'file:///etc/hostname'>]>"), "none");
    row("an entity that nobody declared", feedOf(itemOf("&e;")), "none");
    row("the usual entities", feedOf(itemOf("1&#46;0&amp;2")), "1.0&2");
    row("very deep", feedOf(repeated("<a>", 300'000)), "none");
    row("too deep, and closed", feedOf(repeated("<a>", 100) + repeated("</a>", 100)), "none");
    row("very wide", feedOf(repeated("<a/>", 200'000) + one), "1.0");
    row("UTF-16", QByteArray("\xff\xfe<\0r\0s\0s\0/\0>\0", 14), "");
    row("bytes that are no text", feedOf(itemOf("\xff\xfe\xc3")), "none");
}

void FeedTest::feedsAreReadOrNot()
{
    QFETCH(QByteArray, bytes);
    QTEST(versionsIn(bytes), "expected");
}

void FeedTest::anItemHasItsFields_data()
{
    QTest::addColumn<QByteArray>("inItem");
    QTest::addColumn<FeedItem>("expected");
    const auto row = [](const char *name, const QByteArray &inItem, const char *version, const char *shown,
                        const QString &page) {
        QTest::newRow(name) << inItem
                            << FeedItem{QString::fromLatin1(version), QString::fromLatin1(shown), page};
    };
    const QString page = QStringLiteral("https://zeigewerk.example/1");
    const QByteArray link = "<link> https://zeigewerk.example/1 </link>";
    row("elements",
        "<sparkle:version>7</sparkle:version><sparkle:shortVersionString>1.0</sparkle:shortVersionString>" +
            link,
        "7", "1.0", page);
    row("attributes", link + "<enclosure sparkle:version='7' sparkle:shortVersionString='1.0' url='u'/>", "7",
        "1.0", page);
    row("elements count more",
        "<enclosure sparkle:version='8' sparkle:shortVersionString='2.0'/>"
        "<sparkle:version>7</sparkle:version>",
        "7", "2.0", {});
    row("only one of them", "<sparkle:version>7</sparkle:version>", "7", "7", {});
    row("blanks around and line breaks within",
        "<sparkle:version>\n 1.0\n(7) </sparkle:version>"
        "<link>https://zeigewerk.example/\n1</link>",
        "1.0 (7)", "1.0 (7)", QStringLiteral("https://zeigewerk.example/ 1"));
    row("a link of another namespace",
        "<sparkle:version>7</sparkle:version><l:link xmlns:l='urn:l'>x</l:link>", "7", "7", {});
    row("too long a link",
        "<sparkle:version>7</sparkle:version><link>https://" + repeated("a", 2000) + "</link>", "7", "7", {});
}

void FeedTest::anItemHasItsFields()
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

void FeedTest::theNewestWinsWhereverItStands()
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

void FeedTest::answersComeBackAsTheyWereWritten_data()
{
    QTest::addColumn<FeedAnswer>("answer");
    QTest::newRow("no version") << FeedAnswer(std::optional<FeedItem>());
    QTest::newRow("a version") << FeedAnswer(FeedItem{QStringLiteral("7"), QStringLiteral("1.0 „Jubiläum“"),
                                                      QStringLiteral("https://z.example/")});
    QTest::newRow("without a page") << FeedAnswer(FeedItem{QStringLiteral("7"), QStringLiteral("7"), {}});
    for (int i = 0; i <= static_cast<int>(FeedFailure::NoProcess); ++i)
        QTest::addRow("failure %d", i) << FeedAnswer(static_cast<FeedFailure>(i));
}

void FeedTest::answersComeBackAsTheyWereWritten()
{
    QFETCH(FeedAnswer, answer);
    const WrittenAnswer written = write(answer);
    QVERIFY(readAnswer(written) == answer);
    QVERIFY(written.exitCode >= 0 && written.exitCode < 126); // the shell's own begin there
}

void FeedTest::whateverElseIsWrittenIsNoAnswer_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("some other error") << QByteArray() << 1;
    QTest::newRow("not called as it should") << QByteArray() << 2;
    QTest::newRow("beyond the failures") << QByteArray() << 10 + static_cast<int>(FeedFailure::NoProcess) + 1;
    QTest::newRow("killed") << QByteArray() << -1;
    QTest::newRow("too few lines") << QByteArray("7\n1.0\n") << 0;
    QTest::newRow("too many lines") << QByteArray("7\n1.0\nhttps://\n\n") << 0;
    QTest::newRow("a line that does not end") << QByteArray("7\n1.0\nhttps://") << 0;
}

void FeedTest::whateverElseIsWrittenIsNoAnswer()
{
    QFETCH(QByteArray, output);
    QFETCH(int, exitCode);
    QVERIFY(readAnswer({.output = output, .exitCode = exitCode}) == FeedAnswer(FeedFailure::NoProcess));
}

REGISTER_APPLESS_TEST(FeedTest)
#include "feed_test.moc"
