#include "canvas/text_field.h"
#include "commands/key_names.h"
#include "registered_test.h"
#include "status_menu_fixture.h"

#include <QKeySequence>
#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The key that stands behind an entry, as the user reads it.
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

    void keysReadAsOnAGermanKeyboard_data();
    void keysReadAsOnAGermanKeyboard();
    void theMenuOfEditingNamesItsKeys();
    void theStatusMenuNamesItsKey();
    void otherTextsStayAsTheyAre();

private:
    KeyNames m_names;
};

void KeyNamesTest::keysReadAsOnAGermanKeyboard_data()
{
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("forPrograms");
    QTest::newRow("Ctrl") << QKeySequence(Qt::CTRL | Qt::Key_Q) << "Strg+Q"
                          << "Ctrl+Q";
    QTest::newRow("Ctrl and Shift") << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z) << "Strg+Umschalt+Z"
                                    << "Ctrl+Shift+Z";
    QTest::newRow("Del") << QKeySequence(Qt::Key_Delete) << "Entf"
                         << "Del";
    QTest::newRow("the same in both") << QKeySequence(Qt::ALT | Qt::Key_Escape) << "Alt+Esc"
                                      << "Alt+Esc";
}

void KeyNamesTest::keysReadAsOnAGermanKeyboard()
{
    QFETCH(QKeySequence, key);
    QFETCH(QString, text);
    QFETCH(QString, forPrograms);
    QCOMPARE(key.toString(QKeySequence::NativeText), text);
    QCOMPARE(key.toString(QKeySequence::PortableText), forPrograms);
    QCOMPARE(QKeySequence::fromString(text, QKeySequence::NativeText), key);
}

void KeyNamesTest::theMenuOfEditingNamesItsKeys()
{
    TextField field(kOrange);
    QStringList keys;
    for (const QAction *action : field.menu().actions()) {
        if (!action->isSeparator())
            keys.append(keyOf(*action));
    }
    QCOMPARE(keys, QStringList({"Strg+Z", "Strg+Umschalt+Z", "Strg+X", "Strg+C", "Strg+V", "Strg+A"}));
}

void KeyNamesTest::theStatusMenuNamesItsKey()
{
    Controller controller;
    QCOMPARE(keyOf(item(controller, kQuit)), QStringLiteral("Strg+Q"));
}

void KeyNamesTest::otherTextsStayAsTheyAre()
{
    QCOMPARE(QCoreApplication::translate("QLineEdit", "Ctrl"), QStringLiteral("Ctrl"));
    QCOMPARE(QCoreApplication::translate("QShortcut", "Ctrl+Alt"), QStringLiteral("Ctrl+Alt"));
    QCOMPARE(QCoreApplication::translate("QShortcut", "+"), QStringLiteral("+"));
}

REGISTER_TEST(KeyNamesTest)
#include "key_names_test.moc"
