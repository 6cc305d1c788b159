#include "process_stats.h"

#include "eventually.h"
#include "rig_error.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <functional>

namespace zeigewerk::rig {

namespace {

QByteArray procFile(qint64 processId, const char *name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The sum of the lines "Name:  123 kB" with one of these names, in MiB.
double sumOf(const QByteArray &text, const QList<QByteArray> &names)
{
    constexpr double kKiBPerMiB = 1024.0;
    double sum = 0.0;
    for (const QByteArray &line : text.split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (names.contains(words.value(0)))
            sum += words.value(1).toDouble();
    }
    return sum / kKiBPerMiB;
}

} // namespace

std::chrono::nanoseconds cpuTime(qint64 processId)
{
    // The clock counts nanoseconds; /proc/PID/stat only hundredths of a second.
    clockid_t clock = 0;
    timespec spent = {};
    if (clock_getcpuclockid(static_cast<pid_t>(processId), &clock) != 0 || clock_gettime(clock, &spent) != 0)
        return std::chrono::nanoseconds::zero();
    return std::chrono::seconds(spent.tv_sec) + std::chrono::nanoseconds(spent.tv_nsec);
}

qint64 residentBytes(qint64 processId)
{
    // "size resident shared ...", in pages.
    const QList<QByteArray> fields = procFile(processId, "statm").split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

Memory memoryOf(qint64 processId)
{
    const QByteArray maps = procFile(processId, "smaps_rollup");
    if (maps.isEmpty())
        failRig(QStringLiteral("the process is gone"));
    return {.resident = sumOf(maps, {"Rss:"}),
            .proportional = sumOf(maps, {"Pss:"}),
            .proportionalWithoutFiles = sumOf(maps, {"Pss_Anon:", "Pss_Shmem:"}),
            .privateOnly = sumOf(maps, {"Private_Clean:", "Private_Dirty:"}),
            .shared = sumOf(procFile(processId, "status"), {"RssShmem:"})};
}

int wakeups(qint64 processId)
{
    int sum = 0;
    const QDir threads(QStringLiteral("/proc/%1/task").arg(processId));
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(threads.filePath(thread + QStringLiteral("/status")));
        if (!status.open(QFile::ReadOnly))
            continue;
        const QList<QByteArray> lines = status.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("voluntary_ctxt_switches:"))
                sum += line.mid(line.indexOf(':') + 1).trimmed().toInt();
        }
    }
    return sum;
}

bool sleepsFor(qint64 processId, std::chrono::milliseconds duration)
{
    const int before = wakeups(processId);
    return before > 0 && throughout(duration, [&] { return wakeups(processId) == before; });
}

QList<qint64> processesWithEnvironment(const QByteArray &entry)
{
    QList<qint64> found;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        bool isProcess = false;
        const qint64 processId = name.toLongLong(&isProcess);
        // A zombie has no environment, so only running processes are found.
        if (isProcess && procFile(processId, "environ").split('\0').contains(entry))
            found.append(processId);
    }
    std::sort(found.begin(), found.end(), std::greater<>());
    return found;
}

} // namespace zeigewerk::rig
