#include "registered_test.h"
#include "updater/bundle_info.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace zeigewerk;

class BundleInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFeedUrlIsReadFromTheFile_data();
    void theFeedUrlIsReadFromTheFile();
    void withoutAFileThereIsNoFeedUrl();
    void theBuildFolderHasNoFeedUrl();
};

void BundleInfoTest::theFeedUrlIsReadFromTheFile_data()
{
    QTest::addColumn<QByteArray>("content");
    // Null if there is no feed URL.
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &content, const QString &expected) {
        QTest::newRow(name) << content << expected;
    };
    const QString url = QStringLiteral("https://zeigewerk.example/appcast.xml?a=1,2;3");
    const QByteArray quoted = "SUFeedURL=\"" + url.toUtf8() + "\"\n";
    row("quoted", quoted, url);
    row("in its group", "[General]\n" + quoted, url);
    row("unquoted, with a comma", "SUFeedURL=https://z.example/1,2\n",
        QStringLiteral("https://z.example/1,2"));
    row("not a URL", "SUFeedURL=nonsense\n", QStringLiteral("nonsense"));
    row("empty value", "SUFeedURL=\n", QStringLiteral(""));
    row("in another group", "[Other]\nSUFeedURL=https://z.example/\n", {});
    row("another key", "feed=https://z.example/\n", {});
    row("key in lower case", "sufeedurl=https://z.example/\n", {});
    row("empty file", {}, {});
    row("key without a value", "SUFeedURL\n", {});
    row("binary data", QByteArray("\0\xff\x7f=ELF\0[[[", 10), {});
    row("file too large", "SUFeedURL=" + QByteArray(100'000, 'x'), {});
}

void BundleInfoTest::theFeedUrlIsReadFromTheFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("info.ini")));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(content);
    file.close();
    const BundleInfo info = BundleInfo::read(file.fileName());
    QCOMPARE(info.feedUrl.has_value(), !expected.isNull());
    QCOMPARE(info.feedUrl.value_or(QString()), expected);
}

void BundleInfoTest::withoutAFileThereIsNoFeedUrl()
{
    const QTemporaryDir folder;
    QVERIFY(!BundleInfo::read(folder.filePath(QStringLiteral("info.ini"))).feedUrl);
    QVERIFY(!BundleInfo::read(folder.path()).feedUrl);
}

void BundleInfoTest::theBuildFolderHasNoFeedUrl()
{
    QVERIFY(!BundleInfo::ofThisProgram().feedUrl);
}

REGISTER_GUILESS_TEST(BundleInfoTest)
#include "bundle_info_test.moc"
