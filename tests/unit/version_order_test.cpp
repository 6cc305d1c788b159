#include "registered_test.h"
#include "updater/version_order.h"

#include <QTest>

using namespace zeigewerk;

namespace {

/// Each version is older than the next.
const QStringList kInOrder = {
    QStringLiteral("a"),
    QStringLiteral("b"),
    QStringLiteral(""),
    QStringLiteral("."),
    QStringLiteral("0.9"),
    QStringLiteral("0.9.1"),
    QStringLiteral("0.10"),
    QStringLiteral("1.0a1"),
    QStringLiteral("1.0b"),
    QStringLiteral("1.0b1"),
    QStringLiteral("1.0b2"),
    QStringLiteral("1.0b10"),
    QStringLiteral("1.0rc1 (1233)"),
    QStringLiteral("1.0rc1 (1234)"),
    QStringLiteral("1.0"),
    QStringLiteral("1.0 (1234)"),
    QStringLiteral("1.0 (1235)"),
    QStringLiteral("1.0.0"),
    QStringLiteral("1.0.1b5"),
    QStringLiteral("1.0.1"),
    QStringLiteral("1.1"),
    QStringLiteral("2.0.0.2429"),
    QStringLiteral("2.0.0.2430"),
    QStringLiteral("3.3 (5847)"),
    QStringLiteral("3.3.1b1 (5902)"),
    QStringLiteral("20240229"),
    QStringLiteral("18446744073709551615"),
    QStringLiteral("18446744073709551616"),
    QStringLiteral("18446744073709551616.1"),
    QString(200, u'9'),
    u'1' + QString(200, u'0'),
};

} // namespace

class VersionOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versionsAreInThisOrder();
    void differentlyWrittenVersionsCanBeEqual_data();
    void differentlyWrittenVersionsCanBeEqual();
};

void VersionOrderTest::versionsAreInThisOrder()
{
    for (qsizetype i = 0; i < kInOrder.size(); ++i) {
        for (qsizetype j = 0; j < kInOrder.size(); ++j) {
            const QString pair = QStringLiteral("\"%1\" and \"%2\"").arg(kInOrder[i], kInOrder[j]);
            QVERIFY2(compareVersions(kInOrder[i], kInOrder[j]) == (i <=> j), qPrintable(pair));
        }
    }
}

void VersionOrderTest::differentlyWrittenVersionsCanBeEqual_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    const auto row = [](const char *name, const QString &one, const QString &other) {
        QTest::newRow(name) << one << other;
    };
    row("leading zeros", "1.02", "01.2");
    row("many leading zeros", QString(300, u'0') + u'7', "7");
    row("only zeros", "000", "0");
    row("all separators are alike", "1.2-3_4", "1-2 3.4");
}

void VersionOrderTest::differentlyWrittenVersionsCanBeEqual()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QVERIFY(std::is_eq(compareVersions(one, other)));
    QVERIFY(std::is_eq(compareVersions(other, one)));
}

REGISTER_APPLESS_TEST(VersionOrderTest)
#include "version_order_test.moc"
