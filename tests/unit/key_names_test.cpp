#include "canvas/text_field.h"
#include "commands/key_names.h"
#include "registered_test.h"
#include "status_menu_fixture.h"

#include <QKeySequence>
#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The shortcut of a menu entry, as the user reads it.
QString keyOf(const QAction &action)
{
    return action.shortcut().toString(QKeySequence::NativeText);
}

} // namespace

class KeyNamesTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void initTestCase() { QVERIFY(QCoreApplication::installTranslator(&m_names)); }

    void keysHaveTheNamesOnAGermanKeyboard_data();
    void keysHaveTheNamesOnAGermanKeyboard();
    void theEditMenuShowsGermanKeyNames();
    void theStatusMenuShowsGermanKeyNames();
    void otherTextsAreNotTranslated();

private:
    KeyNames m_names;
};

void KeyNamesTest::keysHaveTheNamesOnAGermanKeyboard_data()
{
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("portable");
    const auto row = [](const char *name, const QKeySequence &key, const char *shown, const char *portable) {
        QTest::newRow(name) << key << QString(shown) << QString(portable);
    };
    row("Ctrl", Qt::CTRL | Qt::Key_Q, "Strg+Q", "Ctrl+Q");
    row("Ctrl and Shift", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, "Strg+Umschalt+Z", "Ctrl+Shift+Z");
    row("Del", Qt::Key_Delete, "Entf", "Del");
    row("the same in both", Qt::ALT | Qt::Key_Escape, "Alt+Esc", "Alt+Esc");
}

void KeyNamesTest::keysHaveTheNamesOnAGermanKeyboard()
{
    QFETCH(QKeySequence, key);
    QFETCH(QString, shown);
    QFETCH(QString, portable);
    QCOMPARE(key.toString(QKeySequence::NativeText), shown);
    QCOMPARE(key.toString(QKeySequence::PortableText), portable);
    QCOMPARE(QKeySequence::fromString(shown, QKeySequence::NativeText), key);
}

void KeyNamesTest::theEditMenuShowsGermanKeyNames()
{
    TextField field(kOrange);
    QStringList keys;
    for (const QAction *action : field.menu().actions()) {
        if (!action->isSeparator())
            keys.append(keyOf(*action));
    }
    QCOMPARE(keys, QStringList({"Strg+Z", "Strg+Umschalt+Z", "Strg+X", "Strg+C", "Strg+V", "Strg+A"}));
}

void KeyNamesTest::theStatusMenuShowsGermanKeyNames()
{
    Controller controller;
    QCOMPARE(keyOf(item(controller, kQuit)), QStringLiteral("Strg+Q"));
}

void KeyNamesTest::otherTextsAreNotTranslated()
{
    QCOMPARE(QCoreApplication::translate("QLineEdit", "Ctrl"), QStringLiteral("Ctrl"));
    QCOMPARE(QCoreApplication::translate("QShortcut", "Ctrl+Alt"), QStringLiteral("Ctrl+Alt"));
    QCOMPARE(QCoreApplication::translate("QShortcut", "+"), QStringLiteral("+"));
}

REGISTER_TEST(KeyNamesTest)
#include "key_names_test.moc"
