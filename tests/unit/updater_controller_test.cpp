// The controller with the process that reads feeds, and a server that has one.

#include "feed_server.h"
#include "platform/recording/recording_desktop.h"
#include "registered_test.h"
#include "updater/update_dialog.h"
#include "updater/updater_controller.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <optional>

using namespace zeigewerk;
using namespace zeigewerk::test;
using namespace std::chrono_literals;

namespace {

const QString kFeed = QStringLiteral("/feed");
const QUrl kPage(QStringLiteral("https://zeigewerk.example/get"));

/// Longer than any test; the first search then is the one that the test asks for.
constexpr auto kNever = 1h;

/// A controller of version 1.1, and what it does.
class Updater
{
public:
    explicit Updater(const QString &feedUrl, std::chrono::milliseconds firstCheckAfter = kNever)
        : setup{.feedUrl = feedUrl,
                .installed = QStringLiteral("1.1"),
                .feedProgram = QStringLiteral(ZEIGEWERK_FEED_PROGRAM),
                .timeLimit = 1min,
                .firstCheckAfter = firstCheckAfter,
                .open = [this](const QUrl &page) {
                    opened += page;
                    return canOpen;
                }}
    {
    }

    UpdaterController &controller()
    {
        if (!m_controller) {
            m_controller.emplace(desktop, setup);
            QObject::connect(&*m_controller, &UpdaterController::checked, &*m_controller,
                             [this](const UpdateNews &told) { news += told; });
        }
        return *m_controller;
    }

    bool waitForNews(qsizetype count = 1)
    {
        controller();
        return QTest::qWaitFor([&] { return news.size() >= count; }, 30'000);
    }
    bool isShown(const UpdateNews &told)
    {
        const UpdateDialog *dialog = controller().dialog();
        return dialog && dialog->isVisible() && dialog->news() == told;
    }
    void click(const QString &title)
    {
        const auto buttons = controller().dialog()->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->isVisible() && button->text() == title)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        qFatal("no button %s", qPrintable(title));
    }

    platform::RecordingDesktop desktop;
    QList<QUrl> opened;
    bool canOpen = true;
    UpdaterController::Setup setup;
    QList<UpdateNews> news;

private:
    std::optional<UpdaterController> m_controller;
};

NewVersion versionOf(const char *version)
{
    return {.version = QString::fromLatin1(version), .installed = QStringLiteral("1.1"), .page = kPage};
}

const UpdateNews kUpToDate = UpToDate{QStringLiteral("1.1")};

/// A server that has that version.
void offer(FeedServer &server, const QByteArray &version)
{
    server.serve(kFeed, feedOf(itemOf(version)));
}

} // namespace

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
    void anOpenDialogComesToTheFrontWithWhatIsNew();
    void whenItIsDoneNothingIsLeft();
    void closingTheDialogEndsTheSearch();
    void thePageOpensAndTheDialogCloses();
    void aPageThatDoesNotOpenIsTold();
    void theDialogIsInTheMiddleOfTheScreenWithThePointer();
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
        "too much", [](FeedServer &server) { server.serveMany(kFeed, 100 * 1024 * 1024); },
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
        server.serveNothing(kFeed);
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
    server.serveNothing(kFeed);
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

void UpdaterControllerTest::anOpenDialogComesToTheFrontWithWhatIsNew()
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

void UpdaterControllerTest::closingTheDialogEndsTheSearch()
{
    FeedServer server;
    server.serveNothing(kFeed);
    Updater updater(server.address(kFeed));
    updater.controller().checkForUpdates();
    QTRY_COMPARE(server.openConnections(), 1);
    updater.click(QStringLiteral("Abbrechen"));
    QTRY_VERIFY(!updater.controller().dialog());
    QVERIFY(!updater.controller().isChecking());
    QTRY_COMPARE(server.openConnections(), 0);
    QVERIFY(updater.news.isEmpty());
    // And another can begin.
    offer(server, "1.2");
    updater.controller().checkForUpdates();
    QVERIFY(updater.waitForNews());
    QVERIFY(updater.isShown(versionOf("1.2")));
    updater.click(QStringLiteral("Später"));
    QTRY_VERIFY(!updater.controller().dialog());
    QVERIFY(updater.opened.isEmpty());
}

void UpdaterControllerTest::thePageOpensAndTheDialogCloses()
{
    FeedServer server;
    offer(server, "1.2");
    Updater updater(server.address(kFeed), 0ms);
    QVERIFY(updater.waitForNews());
    updater.click(QStringLiteral("Download-Seite öffnen"));
    QTRY_VERIFY(!updater.controller().dialog());
    QCOMPARE(updater.opened, QList<QUrl>{kPage});
}

void UpdaterControllerTest::aPageThatDoesNotOpenIsTold()
{
    FeedServer server;
    offer(server, "1.2");
    Updater updater(server.address(kFeed), 0ms);
    updater.canOpen = false;
    QVERIFY(updater.waitForNews());
    updater.click(QStringLiteral("Download-Seite öffnen"));
    QTRY_VERIFY(updater.isShown(PageNotOpened{kPage}));
    updater.click(QStringLiteral("Schließen"));
    QTRY_VERIFY(!updater.controller().dialog());
}

void UpdaterControllerTest::theDialogIsInTheMiddleOfTheScreenWithThePointer()
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
    // Its screen goes.
    updater.desktop.changeScreens(
        {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}}});
    QVERIFY((middle() - QPoint(500, 400)).manhattanLength() <= 2);
    // All of them, and one comes back.
    updater.desktop.changeScreens({});
    updater.desktop.changeScreens(
        {Screen{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 600, 400}, .scale = 1, .frame = {}}});
    QVERIFY((middle() - QPoint(300, 200)).manhattanLength() <= 2);
}

void UpdaterControllerTest::endingTheControllerEndsTheSearch()
{
    FeedServer server;
    server.serveNothing(kFeed);
    {
        Updater updater(server.address(kFeed));
        updater.controller().checkForUpdates();
        QTRY_COMPARE(server.openConnections(), 1);
    }
    QTRY_COMPARE(server.openConnections(), 0);
}

REGISTER_TEST(UpdaterControllerTest)
#include "updater_controller_test.moc"
