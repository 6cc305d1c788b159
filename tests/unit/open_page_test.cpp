#include "base/termination_signals.h"
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

const QString kHost = QStringLiteral("https://zeigewerk.example");
constexpr char kSetLater[] = "ZEIGEWERK_TEST_SET_LATER";

/// A script that opens nothing, but writes a report of its arguments and the state of its process.
class Opener
{
public:
    Opener()
    {
        QFile script(path());
        if (!script.open(QFile::WriteOnly))
            qFatal("cannot write the opener");
        // Not just any shell: some unblock all signals when they start.
        script.write(R"(#!/usr/bin/env bash
{
    printf '%s\n' "$#" "$1"
    grep -E 'SigBlk|SigIgn' /proc/self/status
    grep PPid /proc/$$/status
    env
} >"$0.part"
mv "$0.part" "$0.report"
)");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString path() const { return m_folder.filePath(QStringLiteral("open")); }
    QStringList waitForReport() const
    {
        QFile report(path() + QStringLiteral(".report"));
        if (!QTest::qWaitFor([&] { return report.exists(); }, 30'000) || !report.open(QFile::ReadOnly))
            return {};
        return QString::fromUtf8(report.readAll()).split(u'\n');
    }

private:
    QTemporaryDir m_folder;
};

/// The signals on that line of the process status, one bit each.
quint64 signalsOf(const QString &name, const QStringList &report)
{
    for (const QString &line : report) {
        if (line.startsWith(name))
            return line.sliced(name.size()).trimmed().toULongLong(nullptr, 16);
    }
    qFatal("no signals in the report");
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
    void thePageIsPassedToTheOpener_data();
    void thePageIsPassedToTheOpener();
    void theOpenerStartsWithTheOriginalEnvironmentAndSignals();
    void theOpenerIsDetached();
    void aMissingOpenerIsReported();
};

void OpenPageTest::thePageIsPassedToTheOpener_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("argument");
    const auto row = [](const char *name, const char *page, const char *argument) {
        QTest::newRow(name) << kHost + QString(page) << kHost + QString(argument);
    };
    row("plain", "/get", "/get");
    row("spaces and quotes", "/a b'\";$(x)", "/a%20b'%22;$(x)");
    row("umlauts", "/größe", "/gr%C3%B6%C3%9Fe");
}

void OpenPageTest::thePageIsPassedToTheOpener()
{
    QFETCH(QString, page);
    const Opener opener;
    QVERIFY(openPage(QUrl(page), opener.path()));
    const QStringList report = opener.waitForReport();
    QCOMPARE(report.value(0), QStringLiteral("1"));
    QTEST(report.value(1), "argument");
}

void OpenPageTest::theOpenerStartsWithTheOriginalEnvironmentAndSignals()
{
    // Holds the signals again, because Qt Test handles some by now, and changes the environment after the
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

void OpenPageTest::theOpenerIsDetached()
{
    const Opener opener;
    QVERIFY(openPage(QUrl(QStringLiteral("https://zeigewerk.example/")), opener.path()));
    const QStringList parent = opener.waitForReport().filter(QStringLiteral("PPid:"));
    QCOMPARE(parent.size(), 1);
    QVERIFY(parent.front().section(u'\t', 1).toLongLong() != QCoreApplication::applicationPid());
    // It leaves no zombie process behind.
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void OpenPageTest::aMissingOpenerIsReported()
{
    QVERIFY(!openPage(QUrl(QStringLiteral("https://zeigewerk.example/")), QStringLiteral("/nowhere/opener")));
}

REGISTER_GUILESS_TEST(OpenPageTest)
#include "open_page_test.moc"
