#pragma once

#include "updater/feed_answer.h"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <chrono>

namespace zeigewerk {

/// Where the program is that reads feeds: beside this one, or where it is installed.
QString feedProgram();

/// Has a feed read, once, in a process of its own, which ends with this object at the latest.
class FeedProcess : public QObject
{
    Q_OBJECT

public:
    /// `program` reads feeds.
    FeedProcess(const QString &program, const QString &address);
    ~FeedProcess() override;

    /// Begins; whatever takes longer than `timeLimit` is ended.
    void start(std::chrono::milliseconds timeLimit);

Q_SIGNALS:
    /// Once; possibly from within `start`.
    void finished(const FeedAnswer &answer);

private:
    void finish(const FeedAnswer &answer);

    QProcess m_process;
    QTimer m_timeLimit;
};

} // namespace zeigewerk
