#include "commands/notifier_watch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <array>
#include <chrono>

namespace zeigewerk {

using namespace std::chrono_literals;

namespace {

// The watcher's interface has the same name as its service.
const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

/// A watcher may own its name on the bus a little before it answers.
constexpr std::array kAskAgainAfter = {500ms, 2000ms};

bool isServiceMissing(const QDBusError &error)
{
    // The bus returns the first error to calls that may start a service, and the second, for which Qt has no
    // type, to calls that may not.
    return error.type() == QDBusError::ServiceUnknown ||
           error.name() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

NotifierWatch::NotifierWatch()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        m_state = State::NoWatcher;
        return;
    }
    m_owner = std::make_unique<QDBusServiceWatcher>(kWatcher, bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_owner.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner, const QString &newOwner) {
                ownerChanged(oldOwner, newOwner);
            });
    bus.connect(kWatcher, kWatcherPath, kWatcher, QStringLiteral("StatusNotifierHostRegistered"), this,
                SLOT(askForHost()));
    m_askAgain.setSingleShot(true);
    m_askAgain.callOnTimeout(this, &NotifierWatch::askForHost);
    askForHost();
}

NotifierWatch::~NotifierWatch() = default;

void NotifierWatch::ownerChanged(const QString &oldOwner, const QString &newOwner)
{
    m_failures = 0;
    if (newOwner.isEmpty()) {
        m_question.reset();
        m_askAgain.stop();
        setState(State::NoWatcher);
        return;
    }
    if (!oldOwner.isEmpty())
        Q_EMIT watcherReplaced();
    askForHost();
}

void NotifierWatch::askForHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    // The desktop decides whether there is a tray; we do not start one.
    question.setAutoStartService(false);
    m_question = std::make_unique<QDBusPendingCallWatcher>(QDBusConnection::sessionBus().asyncCall(question));
    connect(m_question.get(), &QDBusPendingCallWatcher::finished, this, &NotifierWatch::takeAnswer);
}

void NotifierWatch::takeAnswer()
{
    const QDBusPendingReply<QDBusVariant> answer = *m_question;
    // This object is the caller, so it cannot be deleted at once.
    m_question.release()->deleteLater();
    if (answer.isValid())
        setState(answer.value().variant().toBool() ? State::HostRegistered : State::NoHost);
    else if (isServiceMissing(answer.error()))
        setState(State::NoWatcher);
    else
        askAgainLater();
}

void NotifierWatch::askAgainLater()
{
    if (m_failures < static_cast<int>(kAskAgainAfter.size()))
        m_askAgain.start(kAskAgainAfter.at(static_cast<std::size_t>(m_failures++)));
    setState(State::NoHost);
}

void NotifierWatch::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT stateChanged();
}

} // namespace zeigewerk
