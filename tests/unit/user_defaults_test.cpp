#include "controller_fixture.h"
#include "registered_test.h"

#include <QFile>
#include <QTest>

#include <limits>

using namespace zeigewerk;

namespace {

/// A controller that starts with the given settings file.
class Started
{
public:
    explicit Started(const QByteArray &settings)
    {
        QFile file(m_home.filePath("settings.ini"));
        if (!file.open(QFile::WriteOnly) || file.write(settings) != settings.size())
            qFatal("cannot write the settings");
    }

    const AppDelegate &app()
    {
        if (!m_app) {
            m_defaults.emplace(m_home.filePath("settings.ini"));
            m_app.emplace(m_desktop, *m_defaults);
        }
        return *m_app;
    }

private:
    QTemporaryDir m_home;
    platform::RecordingDesktop m_desktop;
    std::optional<UserDefaults> m_defaults;
    std::optional<AppDelegate> m_app;
};

} // namespace

class UserDefaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsAreReadAtStartup_data();
    void settingsAreReadAtStartup();
    void writtenSettingsAreReadBack();
    void aChangeDoesNotWaitForTheDisk();
    void theLastChangeIsOnTheDiskAfterDestruction();
};

void UserDefaultsTest::settingsAreReadAtStartup_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<bool>("autoFadeOn");
    QTest::addColumn<bool>("darkUI");
    QTest::addColumn<double>("spotRadius");

    const double infinity = std::numeric_limits<double>::infinity();
    const auto row = [](const char *name, const QByteArray &settings, bool autoFadeOn, bool darkUI,
                        double spotRadius) {
        QTest::newRow(name) << settings << autoFadeOn << darkUI << spotRadius;
    };
    row("first launch", "", false, true, 90.0);
    row("auto-fade on", "ZeigewerkAutoFade=true\n", true, true, 90.0);
    row("auto-fade as a number", "ZeigewerkAutoFade=1\n", true, true, 90.0);
    row("auto-fade as text", "ZeigewerkAutoFade=perhaps\n", false, true, 90.0);
    row("light toolbar", "ZeigewerkDarkUI=false\n", false, false, 90.0);
    row("toolbar look as text", "ZeigewerkDarkUI=banana\n", false, true, 90.0);
    row("radius 120", "ZeigewerkSpotRadius=120\n", false, true, 120.0);
    row("radius 0", "ZeigewerkSpotRadius=0\n", false, true, 90.0);
    row("radius below 0", "ZeigewerkSpotRadius=-5\n", false, true, 90.0);
    row("radius not a number", "ZeigewerkSpotRadius=nan\n", false, true, 90.0);
    row("radius as text", "ZeigewerkSpotRadius=wide\n", false, true, 90.0);
    row("radius as a list", "ZeigewerkSpotRadius=1, 2\n", false, true, 90.0);
    row("radius huge", "ZeigewerkSpotRadius=1e9\n", false, true, 1e9);
    row("radius infinite", "ZeigewerkSpotRadius=inf\n", false, true, infinity);
    row("radius tiny", "ZeigewerkSpotRadius=1e-300\n", false, true, 1e-300);
    row("radius minus infinity", "ZeigewerkSpotRadius=-inf\n", false, true, 90.0);
    row("not a settings file", QByteArrayLiteral("\x01\xff[[[=\n\0"), false, true, 90.0);
}

void UserDefaultsTest::settingsAreReadAtStartup()
{
    QFETCH(QByteArray, settings);
    Started started(settings);
    QTEST(started.app().autoFadeOn(), "autoFadeOn");
    QTEST(started.app().darkUI(), "darkUI");
    QTEST(started.app().spotRadius(), "spotRadius");
}

void UserDefaultsTest::writtenSettingsAreReadBack()
{
    QTemporaryDir home;
    const QString file = home.filePath("settings.ini");
    UserDefaults written(file);
    written.setBool("a", true);
    written.setBool("b", false);
    written.setDouble("c", 123.5);
    QTRY_VERIFY(QFile::exists(file));
    const UserDefaults read(file);
    QCOMPARE(read.boolForKey("a"), std::optional(true));
    QCOMPARE(read.boolForKey("b"), std::optional(false));
    QCOMPARE(read.doubleForKey("c"), std::optional(123.5));
    QVERIFY(!read.boolForKey("d"));
    QVERIFY(!read.doubleForKey("d"));
}

void UserDefaultsTest::aChangeDoesNotWaitForTheDisk()
{
    QTemporaryDir home;
    const QString file = home.filePath("settings.ini");
    UserDefaults defaults(file);
    for (const double radius : {98.0, 106.0, 114.0}) {
        defaults.setDouble("c", radius);
        QCOMPARE(defaults.doubleForKey("c"), std::optional(radius));
        // Posted events do not write it either; timers do not fire here.
        QCoreApplication::sendPostedEvents();
        QVERIFY(!QFile::exists(file));
    }
    QTRY_VERIFY(QFile::exists(file));
    QCOMPARE(UserDefaults(file).doubleForKey("c"), std::optional(114.0));
}

void UserDefaultsTest::theLastChangeIsOnTheDiskAfterDestruction()
{
    QTemporaryDir home;
    const QString file = home.filePath("settings.ini");
    {
        UserDefaults defaults(file);
        defaults.setString("name", QStringLiteral("first"));
        defaults.setString("name", QStringLiteral("last"));
    }
    QCOMPARE(UserDefaults(file).stringForKey("name"), std::optional(QStringLiteral("last")));
}

REGISTER_TEST(UserDefaultsTest)
#include "user_defaults_test.moc"
