// Compares the desktop entry with the program's menu.
#include "registered_test.h"
#include "status_menu_fixture.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The lines of the desktop entry by the names of their groups.
QMap<QString, QStringList> readGroups()
{
    QFile file(QStringLiteral(ZEIGEWERK_DESKTOP_ENTRY));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the desktop entry");
    QMap<QString, QStringList> groups;
    QString group;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.startsWith(u'['))
            group = line.mid(1, line.size() - 2);
        else if (!line.isEmpty() && !line.startsWith(u'#'))
            groups[group] += line;
    }
    return groups;
}

} // namespace

class DesktopEntryTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void itsActionsAreThoseOfTheMenuInTheSameOrder();
    void eachActionHasACommandThatActivatesIt();
};

void DesktopEntryTest::itsActionsAreThoseOfTheMenuInTheSameOrder()
{
    Controller controller;
    QString names;
    for (const QAction *action : menuOf(controller).trayMenu().actions()) {
        if (!action->objectName().isEmpty())
            names += action->objectName() + u';';
    }
    const QStringList entry = readGroups().value(QStringLiteral("Desktop Entry"));
    QCOMPARE(entry.filter(QRegularExpression(QStringLiteral("^Actions="))),
             QStringList(QStringLiteral("Actions=") + names));
}

void DesktopEntryTest::eachActionHasACommandThatActivatesIt()
{
    Controller controller;
    QMap<QString, QStringList> groups = readGroups();
    groups.remove(QStringLiteral("Desktop Entry"));
    for (const QAction *action : menuOf(controller).trayMenu().actions()) {
        const QString name = action->objectName();
        if (name.isEmpty())
            continue;
        const QStringList lines = groups.take(QStringLiteral("Desktop Action ") + name);
        const QString command =
            QStringLiteral("Exec=gdbus call --session --dest de.zeigewerk.Zeigewerk "
                           "--object-path /de/zeigewerk/Zeigewerk "
                           "--method org.freedesktop.Application.ActivateAction %1 \"[]\" \"{}\"");
        QVERIFY2(lines.contains(command.arg(name)), qPrintable(name));
        QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("^Name="))).isEmpty(), qPrintable(name));
    }
    QCOMPARE(groups.keys(), QStringList());
}

REGISTER_TEST(DesktopEntryTest)
#include "desktop_entry_test.moc"
