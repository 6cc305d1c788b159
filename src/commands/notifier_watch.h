#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class QDBusPendingCallWatcher;
class QDBusServiceWatcher;

namespace zeigewerk {

/// Watches the session bus for a tray that shows status notifiers: a watcher, with which the items register,
/// and at least one host, which shows them. It only asks, and never waits for an answer.
class NotifierWatch : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Unknown,   ///< the watcher has not answered yet
        NoWatcher, ///< nor is there one where there is no session bus
        NoHost,    ///< a watcher alone, or one that does not answer as it should
        HostRegistered,
    };

    NotifierWatch();
    ~NotifierWatch() override;

    State state() const { return m_state; }

Q_SIGNALS:
    void stateChanged();
    /// One watcher handed over to another, which knows none of the items.
    void watcherReplaced();

private Q_SLOTS:
    void askForHost();

private:
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    void takeAnswer();
    void askAgainLater();
    void setState(State state);

    State m_state = State::Unknown;
    /// None without a session bus.
    std::unique_ptr<QDBusServiceWatcher> m_owner;
    /// The latest question, while it is open.
    std::unique_ptr<QDBusPendingCallWatcher> m_question;
    int m_failures = 0;
    QTimer m_askAgain;
};

} // namespace zeigewerk
