#include "canvas/edit_menu.h"
#include "canvas/text_field.h"
#include "registered_test.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace zeigewerk;

namespace {

QAction *entry(TextField &field, const QString &title)
{
    for (QAction *action : field.menu().actions()) {
        if (action->text() == title)
            return action;
    }
    qFatal("no entry %s", qPrintable(title));
}

} // namespace

class EditMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMenuHasExactlyTheEditingEntries();
    void entriesThatWouldDoNothingAreDisabled();
    void entriesPerformTheirCommands();
    void ctrlShiftZRedoes();
};

void EditMenuTest::theMenuHasExactlyTheEditingEntries()
{
    TextField field(kOrange);
    QStringList entries;
    for (const QAction *action : field.menu().actions()) {
        entries.append(action->isSeparator()
                           ? QStringLiteral("-")
                           : action->text() + u' ' + action->shortcut().toString(QKeySequence::PortableText));
    }
    // A table, one row per line.
    // clang-format off
    const QStringList expected = {
        "Widerrufen Ctrl+Z",
        "Wiederholen Ctrl+Shift+Z",
        "-",
        "Ausschneiden Ctrl+X",
        "Kopieren Ctrl+C",
        "Einfügen Ctrl+V",
        "Alles auswählen Ctrl+A",
    };
    // clang-format on
    QCOMPARE(entries, expected);
    QCOMPARE(field.menu().title(), QStringLiteral("Bearbeiten"));
}

void EditMenuTest::entriesThatWouldDoNothingAreDisabled()
{
    QGuiApplication::clipboard()->clear();
    TextField field(kOrange);
    const auto enabled = [&field] {
        field.menu().refresh();
        QStringList titles;
        for (const QAction *action : field.menu().actions()) {
            if (action->isEnabled() && !action->isSeparator())
                titles.append(action->text());
        }
        return titles.join(u' ');
    };
    QCOMPARE(enabled(), QString());
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    QCOMPARE(enabled(), QStringLiteral("Einfügen"));
    QTest::keyClicks(&field, QStringLiteral("ab"));
    QCOMPARE(enabled(), QStringLiteral("Widerrufen Einfügen Alles auswählen"));
    field.setSelection(0, 1);
    QCOMPARE(enabled(), QStringLiteral("Widerrufen Ausschneiden Kopieren Einfügen Alles auswählen"));
    field.selectAll();
    QCOMPARE(enabled(), QStringLiteral("Widerrufen Ausschneiden Kopieren Einfügen"));
    field.undo();
    QCOMPARE(enabled(), QStringLiteral("Wiederholen Einfügen"));
}

void EditMenuTest::entriesPerformTheirCommands()
{
    TextField field(kOrange);
    QTest::keyClicks(&field, QStringLiteral("Welt"));
    entry(field, QStringLiteral("Alles auswählen"))->trigger();
    QCOMPARE(field.selectedText(), QStringLiteral("Welt"));
    entry(field, QStringLiteral("Kopieren"))->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Welt"));
    QCOMPARE(field.text(), QStringLiteral("Welt"));
    entry(field, QStringLiteral("Ausschneiden"))->trigger();
    QCOMPARE(field.text(), QString());
    entry(field, QStringLiteral("Einfügen"))->trigger();
    entry(field, QStringLiteral("Einfügen"))->trigger();
    QCOMPARE(field.text(), QStringLiteral("WeltWelt"));
    entry(field, QStringLiteral("Widerrufen"))->trigger();
    const QString undone = field.text();
    QVERIFY(undone != QStringLiteral("WeltWelt"));
    entry(field, QStringLiteral("Wiederholen"))->trigger();
    QCOMPARE(field.text(), QStringLiteral("WeltWelt"));
}

void EditMenuTest::ctrlShiftZRedoes()
{
    TextField field(kOrange);
    QTest::keyClicks(&field, QStringLiteral("ab"));
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field.text(), QStringLiteral("ab"));
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.text(), QString());
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field.text(), QStringLiteral("ab"));
}

REGISTER_TEST(EditMenuTest)
#include "edit_menu_test.moc"
