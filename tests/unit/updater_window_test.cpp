// The dialog of the update check: when it opens, where it is, and what its buttons do.

#include "registered_test.h"
#include "updater_fixture.h"

using namespace zeigewerk;
using namespace zeigewerk::test;
using namespace std::chrono_literals;

class UpdaterWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anOpenDialogIsRaisedWithTheLatestNews();
    void closingTheDialogEndsTheCheck();
    void openingThePageClosesTheDialog();
    void aPageThatDoesNotOpenIsReported();
    void theDialogIsCentredOnTheScreenWithThePointer();
};

void UpdaterWindowTest::anOpenDialogIsRaisedWithTheLatestNews()
{
    FeedServer server;
    offer(server, "1.2");
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    const UpdateDialog *dialog = updater.controller().dialog();
    QVERIFY(updater.isShown(versionOf("1.2")));
    offer(server, "1.3");
    updater.desktop.takeLog();
    updater.controller().checkForUpdates();
    QVERIFY(updater.isShown(Searching{}));
    QVERIFY(updater.waitForNews(2));
    QVERIFY(updater.isShown(versionOf("1.3")));
    QCOMPARE(updater.controller().dialog(), dialog);
    const QString front = QStringLiteral("dialog 0: order front");
    QCOMPARE(updater.desktop.takeLog(), QStringList({front, front}));
}

void UpdaterWindowTest::closingTheDialogEndsTheCheck()
{
    FeedServer server;
    server.serveLater(kFeed);
    Updater updater(server.address(kFeed));
    updater.controller().checkForUpdates();
    QTRY_COMPARE(server.openConnections(), 1);
    updater.click(QStringLiteral("Abbrechen"));
    QTRY_VERIFY(!updater.controller().dialog());
    QVERIFY(!updater.controller().isChecking());
    QTRY_COMPARE(server.openConnections(), 0);
    QVERIFY(updater.news.isEmpty());
    // Another check can begin.
    offer(server, "1.2");
    updater.controller().checkForUpdates();
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(versionOf("1.2")));
    updater.click(QStringLiteral("Später"));
    QTRY_VERIFY(!updater.controller().dialog());
    QVERIFY(updater.opened.isEmpty());
}

void UpdaterWindowTest::openingThePageClosesTheDialog()
{
    FeedServer server;
    offer(server, "1.2");
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    updater.click(QStringLiteral("Download-Seite öffnen"));
    QTRY_VERIFY(!updater.controller().dialog());
    QCOMPARE(updater.opened, QList<QUrl>{kNewPage});
}

void UpdaterWindowTest::aPageThatDoesNotOpenIsReported()
{
    FeedServer server;
    offer(server, "1.2");
    Updater updater(server.address(kFeed), 0ms);
    updater.canOpen = false;
    QVERIFY(updater.waitForNews());
    updater.click(QStringLiteral("Download-Seite öffnen"));
    QTRY_VERIFY(updater.isShown(PageNotOpened{kNewPage}));
    updater.click(QStringLiteral("Schließen"));
    QTRY_VERIFY(!updater.controller().dialog());
}

void UpdaterWindowTest::theDialogIsCentredOnTheScreenWithThePointer()
{
    using platform::Screen;
    Updater updater(QStringLiteral("nonsense"));
    updater.desktop.changeScreens(
        {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}},
         Screen{.name = QStringLiteral("B"), .nativeFrame = {1000, 0, 800, 600}, .scale = 1, .frame = {}}});
    updater.desktop.setMouseLocation({1200, 300});
    updater.controller().checkForUpdates();
    const UpdateDialog &dialog = *updater.controller().dialog();
    const auto middle = [&] { return updater.controller().window()->frame().center().toPoint(); };
    QVERIFY(dialog.isVisible());
    QVERIFY((middle() - QPoint(1400, 500)).manhattanLength() <= 2);
    // Its screen is removed.
    updater.desktop.changeScreens(
        {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}}});
    QVERIFY((middle() - QPoint(500, 400)).manhattanLength() <= 2);
    // All screens are removed, and one comes back.
    updater.desktop.changeScreens({});
    updater.desktop.changeScreens(
        {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 600, 400}, .scale = 1, .frame = {}}});
    QVERIFY((middle() - QPoint(300, 200)).manhattanLength() <= 2);
}

REGISTER_TEST(UpdaterWindowTest)
#include "updater_window_test.moc"
