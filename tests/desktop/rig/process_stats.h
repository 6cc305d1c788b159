// What the kernel reports about other processes.
#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>

namespace zeigewerk::rig {

/// Processor time of all threads since the process started, user and system; zero if it is gone.
std::chrono::nanoseconds cpuTime(qint64 processId);

/// Resident memory in bytes, shared pages included; zero if the process is gone.
qint64 residentBytes(qint64 processId);

/// Memory of a process in MiB, as the kernel accounts for it.
struct Memory
{
    double resident = 0.0;
    /// Shared pages count in proportion to the number of processes that share them.
    double proportional = 0.0;
    /// The same without file pages, which vary as other programs use the same libraries.
    double proportionalWithoutFiles = 0.0;
    double privateOnly = 0.0;
    /// Shared anonymous memory, such as frame buffers shared with the server.
    double shared = 0.0;

    double footprint() const { return privateOnly + shared; }
};

/// Throws RigError if the process is gone.
Memory memoryOf(qint64 processId);

/// How often the threads of the process have woken up from waiting; zero if it is gone.
int wakeups(qint64 processId);

/// Whether no thread of the process wakes up during that time. It has to be waited out: only a time longer
/// than the program's slowest timer distinguishes sleeping from ticking. False if the process is gone.
bool sleepsFor(qint64 processId, std::chrono::milliseconds duration);

/// The running processes started with exactly this "NAME=value" in their environment, newest first. This
/// finds grandchildren too, whatever their current parent is.
QList<qint64> processesWithEnvironment(const QByteArray &entry);

} // namespace zeigewerk::rig
