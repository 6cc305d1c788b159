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
    void theFeedIsWhatTheFileSays_data();
    void theFeedIsWhatTheFileSays();
    void noFileSaysNothing();
    void theBuildFolderSaysNothing();
};

void BundleInfoTest::theFeedIsWhatTheFileSays_data()
{
    QTest::addColumn<QByteArray>("content");
    // Null where there is no such key.
    QTest::addColumn<QString>("expected");
    const QString url = QStringLiteral("https://zeigewerk.example/appcast.xml?a=1,2;3");
    QTest::newRow("quoted") << QByteArray("SUFeedURL=\"https://zeigewerk.example/appcast.xml?a=1,2;3\"\n")
                            << url;
    QTest::newRow("in its group") << QByteArray("[General]\nSUFeedURL=\"" + url.toUtf8() + "\"\n") << url;
    QTest::newRow("unquoted, with a comma")
        << QByteArray("SUFeedURL=https://z.example/1,2\n") << QStringLiteral("https://z.example/1,2");
    QTest::newRow("no address") << QByteArray("SUFeedURL=nonsense\n") << QStringLiteral("nonsense");
    QTest::newRow("no value") << QByteArray("SUFeedURL=\n") << QStringLiteral("");
    QTest::newRow("in another group") << QByteArray("[Other]\nSUFeedURL=https://z.example/\n") << QString();
    QTest::newRow("another key") << QByteArray("feed=https://z.example/\n") << QString();
    QTest::newRow("by another case") << QByteArray("sufeedurl=https://z.example/\n") << QString();
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("a name and no value") << QByteArray("SUFeedURL\n") << QString();
    QTest::newRow("bytes") << QByteArray("\0\xff\x7f=ELF\0[[[", 10) << QString();
    QTest::newRow("too large") << QByteArray("SUFeedURL=" + QByteArray(100'000, 'x')) << QString();
}

void BundleInfoTest::theFeedIsWhatTheFileSays()
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

void BundleInfoTest::noFileSaysNothing()
{
    const QTemporaryDir folder;
    QVERIFY(!BundleInfo::read(folder.filePath(QStringLiteral("info.ini"))).feedUrl);
    QVERIFY(!BundleInfo::read(folder.path()).feedUrl);
}

void BundleInfoTest::theBuildFolderSaysNothing()
{
    QVERIFY(!BundleInfo::ofThisProgram().feedUrl);
}

REGISTER_GUILESS_TEST(BundleInfoTest)
#include "bundle_info_test.moc"
