#include "core/termination_signals.h"
#include "registered_test.h"
#include "updater/child_setup.h"
#include "updater/open_page.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <signal.h>
#include <sys/wait.h>

#include <cerrno>

using namespace zeigewerk;

namespace {

constexpr char kSetLater[] = "ZEIGEWERK_TEST_SET_LATER";

/// Opens nothing, but writes down what it was called with and how it found itself.
class Opener
{
public:
    Opener()
    {
        QFile script(path());
        if (!script.open(QFile::WriteOnly))
            qFatal("no opener");
        // Not any shell: some let all signals in when they start.
        script.write(R"(#!/usr/bin/env bash
{
    printf '%s\n' "$#" "$1"
    grep -E 'SigBlk|SigIgn' /proc/self/status
    grep PPid /proc/$$/status
    env
} >"$0.part"
mv "$0.part" "$0.told"
)");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString path() const { return m_folder.filePath(QStringLiteral("open")); }
    QStringList waitForReport() const
    {
        QFile report(path() + QStringLiteral(".told"));
        if (!QTest::qWaitFor([&] { return report.exists(); }, 30'000) || !report.open(QFile::ReadOnly))
            return {};
        return QString::fromUtf8(report.readAll()).split(u'\n');
    }

private:
    QTemporaryDir m_folder;
};

/// The signals that the kernel shows on that line for whoever reports it, a bit each.
quint64 signalsOf(const QString &name, const QStringList &report)
{
    for (const QString &line : report) {
        if (line.startsWith(name))
            return line.sliced(name.size()).trimmed().toULongLong(nullptr, 16);
    }
    qFatal("no signals reported");
}

quint64 blockedSignals(const QStringList &report)
{
    return signalsOf(QStringLiteral("SigBlk:"), report);
}

bool ignoresBrokenPipes(const QStringList &report)
{
    return (signalsOf(QStringLiteral("SigIgn:"), report) >> (SIGPIPE - 1) & 1) != 0;
}

} // namespace

class OpenPageTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { TerminationSignals::hold(); }

private Q_SLOTS:
    void thePageIsHandedOver_data();
    void thePageIsHandedOver();
    void whatOpensItHasNothingOfOurs();
    void whatOpensItIsOnItsOwn();
    void nothingToOpenItWithIsTold();
};

void OpenPageTest::thePageIsHandedOver_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("argument");
    QTest::newRow("plain") << "https://zeigewerk.example/get"
                           << "https://zeigewerk.example/get";
    QTest::newRow("blanks and quotes") << "https://zeigewerk.example/a b'\";$(x)"
                                       << "https://zeigewerk.example/a%20b'%22;$(x)";
    QTest::newRow("umlauts") << "https://zeigewerk.example/größe"
                             << "https://zeigewerk.example/gr%C3%B6%C3%9Fe";
}

void OpenPageTest::thePageIsHandedOver()
{
    QFETCH(QString, page);
    const Opener opener;
    QVERIFY(openPage(QUrl(page), opener.path()));
    const QStringList report = opener.waitForReport();
    QCOMPARE(report.value(0), QStringLiteral("1"));
    QTEST(report.value(1), "argument");
}

void OpenPageTest::whatOpensItHasNothingOfOurs()
{
    // The test has them held itself, once more as QtTest handles some by now, and set something after its
    // start.
    TerminationSignals::hold();
    QFile status(QStringLiteral("/proc/self/status"));
    QVERIFY(status.open(QFile::ReadOnly));
    const QStringList ours = QString::fromLatin1(status.readAll()).split(u'\n');
    QVERIFY(blockedSignals(ours) != 0);
    QVERIFY(ignoresBrokenPipes(ours));
    qputenv(kSetLater, "1");
    qputenv("XCOMPOSEFILE", "/nowhere");
    const Opener opener;
    QVERIFY(openPage(QUrl(QStringLiteral("https://zeigewerk.example/")), opener.path()));
    const QStringList report = opener.waitForReport();
    QVERIFY(report.filter(QString::fromLatin1(kSetLater)).isEmpty());
    QVERIFY(report.filter(QStringLiteral("XCOMPOSEFILE=/nowhere")).isEmpty());
    QVERIFY(report.contains(QStringLiteral("PATH=") + qEnvironmentVariable("PATH")));
    QCOMPARE(blockedSignals(report), 0U);
    QVERIFY(!ignoresBrokenPipes(report));
    qunsetenv("XCOMPOSEFILE");
}

void OpenPageTest::whatOpensItIsOnItsOwn()
{
    const Opener opener;
    QVERIFY(openPage(QUrl(QStringLiteral("https://zeigewerk.example/")), opener.path()));
    const QStringList parent = opener.waitForReport().filter(QStringLiteral("PPid:"));
    QCOMPARE(parent.size(), 1);
    QVERIFY(parent.front().section(u'\t', 1).toLongLong() != QCoreApplication::applicationPid());
    // And leaves no dead process for us to bury.
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void OpenPageTest::nothingToOpenItWithIsTold()
{
    QVERIFY(!openPage(QUrl(QStringLiteral("https://zeigewerk.example/")), QStringLiteral("/nowhere/opener")));
}

REGISTER_GUILESS_TEST(OpenPageTest)
#include "open_page_test.moc"
