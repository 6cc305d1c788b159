#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class QDBusPendingCallWatcher;
class QDBusServiceWatcher;

namespace zeigewerk {

/// Watches the session bus for a tray that shows status notifiers: a watcher, with which items register, and
/// at least one host, which shows them. It never blocks to wait for an answer.
class NotifierWatch : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Unknown,   ///< the watcher has not answered yet
        NoWatcher, ///< also without a session bus
        NoHost,    ///< a watcher without a host, or one that gives no valid answer
        HostRegistered,
    };

    NotifierWatch();
    ~NotifierWatch() override;

    State state() const { return m_state; }

Q_SIGNALS:
    void stateChanged();
    /// Another watcher took over; it does not know our item.
    void watcherReplaced();

private Q_SLOTS:
    void askForHost();

private:
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    void takeAnswer();
    void askAgainLater();
    void setState(State state);

    State m_state = State::Unknown;
    /// Null without a session bus.
    std::unique_ptr<QDBusServiceWatcher> m_owner;
    /// The pending call, if any.
    std::unique_ptr<QDBusPendingCallWatcher> m_question;
    int m_failures = 0;
    QTimer m_askAgain;
};

} // namespace zeigewerk
