#pragma once

#include "updater/feed_answer.h"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <chrono>

namespace zeigewerk {

/// The path of the program that reads feeds: beside this one, or where it is installed.
QString feedProgram();

/// Reads a feed once, in a separate process that ends with this object at the latest.
class FeedProcess : public QObject
{
    Q_OBJECT

public:
    /// `program` is the path of the program that reads feeds.
    FeedProcess(const QString &program, const QString &address);
    ~FeedProcess() override;

    /// Starts reading. After `timeLimit` the answer is `TooSlow`.
    void start(std::chrono::milliseconds timeLimit);

Q_SIGNALS:
    /// Emitted once, possibly from within `start`.
    void finished(const FeedAnswer &answer);

private:
    void finish(const FeedAnswer &answer);

    QProcess m_process;
    QTimer m_timeLimit;
};

} // namespace zeigewerk
