// What the kernel tells about processes other than our own.
#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>

namespace zeigewerk::rig {

/// Processor time of all threads since the process started, user and system together; zero if it is gone.
std::chrono::nanoseconds cpuTime(qint64 processId);

/// Resident memory in bytes, shared pages included; zero if the process is gone.
qint64 residentBytes(qint64 processId);

/// Memory of a process in MiB, as the kernel shares it out.
struct Memory
{
    double resident = 0.0;
    /// What it has in common with others counts in part, by their number.
    double proportional = 0.0;
    /// The same without the pages of files, which become more or less as other programs use the same
    /// libraries.
    double proportionalWithoutFiles = 0.0;
    double privateOnly = 0.0;
    /// Shared anonymous memory, as frame buffers shared with the server are.
    double shared = 0.0;

    double footprint() const { return privateOnly + shared; }
};

/// Throws RigError if the process is gone.
Memory memoryOf(qint64 processId);

/// How often any thread of the process has woken up from waiting; zero if it is gone.
int wakeups(qint64 processId);

/// Whether no thread of the process woke up from waiting for that long, which is worth waiting for because
/// nothing shorter than its slowest timer tells a sleeping program from one that ticks. False if it is gone.
bool sleepsFor(qint64 processId, std::chrono::milliseconds duration);

/// The living processes that were started with exactly this "NAME=value" in their environment, newest first.
/// It finds grandchildren too, whatever parent they have by now.
QList<qint64> processesWithEnvironment(const QByteArray &entry);

} // namespace zeigewerk::rig
