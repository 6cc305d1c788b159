#include "eventually.h"

#include "desktop_session.h"
#include "running_test.h"

#include <QDeadlineTimer>
#include <QDir>

namespace zeigewerk::rig {

namespace {

/// Short compared to the deadlines, long compared to a round trip to the server.
constexpr int kPollMilliseconds = 4;

} // namespace

bool eventually(const Condition &condition, std::chrono::milliseconds deadline)
{
    const QDeadlineTimer timer(deadline);
    while (!condition()) {
        if (timer.hasExpired())
            return false;
        QTest::qWait(kPollMilliseconds);
    }
    return true;
}

bool throughout(std::chrono::milliseconds duration, const Condition &condition)
{
    return !eventually([&] { return !condition(); }, duration);
}

QStringList saveFailurePictures()
{
    const QDir folder(qEnvironmentVariable("ZEIGEWERK_FAILURES_DIR", QStringLiteral(ZEIGEWERK_FAILURES_DIR)));
    QStringList saved;
    if (!folder.mkpath(QStringLiteral(".")))
        return saved;
    for (DesktopSession *session : DesktopSession::all()) {
        const QString suffix = saved.isEmpty() ? QString() : QStringLiteral("_%1").arg(saved.size() + 1);
        const QString path = folder.filePath(runningTestName() + suffix + QStringLiteral(".png"));
        if (!session->screenshot().save(path))
            continue;
        qInfo().noquote() << "Screenshot:" << path;
        saved.append(path);
    }
    return saved;
}

namespace detail {

namespace {

bool verify(bool holds, const char *text, const QString &problem, const char *file, int line)
{
    if (!holds)
        saveFailurePictures();
    return QTest::qVerify(holds, text, problem.toUtf8().constData(), file, line);
}

} // namespace

bool verifyEventually(const Condition &condition, std::chrono::milliseconds deadline, const char *text,
                      const char *file, int line)
{
    const QString problem = QStringLiteral("did not hold within %1 ms").arg(deadline.count());
    return verify(eventually(condition, deadline), text, problem, file, line);
}

bool verifyThroughout(std::chrono::milliseconds duration, const Condition &condition, const char *text,
                      const char *file, int line)
{
    const QString problem = QStringLiteral("did not hold for %1 ms").arg(duration.count());
    return verify(throughout(duration, condition), text, problem, file, line);
}

} // namespace detail

} // namespace zeigewerk::rig
