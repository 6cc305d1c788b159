#include "recording/recording_hot_keys.h"

#include "recording/recording_desktop.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::platform {

class RecordingHotKeys::Registration : public HotKeyRegistration
{
public:
    Registration(RecordingHotKeys &owner, const HotKey &wanted, HotKeyState first)
        : hotKey(wanted)
        , current(first)
        , m_owner(owner)
    {
        m_owner.m_registrations.push_back(this);
        note(first == HotKeyState::Refused ? "refused" : "registered");
    }
    ~Registration() override
    {
        if (current != HotKeyState::Refused)
            note("released");
        std::erase(m_owner.m_registrations, this);
    }

    HotKeyState state() const override { return current; }

    const HotKey hotKey;
    HotKeyState current;

private:
    void note(const char *what)
    {
        m_owner.m_desktop.note(
            QStringLiteral("hot key %1: %2").arg(hotKey.id.number).arg(QString::fromLatin1(what)));
    }

    RecordingHotKeys &m_owner;
};

std::vector<std::unique_ptr<HotKeyRegistration>>
RecordingHotKeys::registerHotKeys(std::span<const HotKey> hotKeys)
{
    std::vector<std::unique_ptr<HotKeyRegistration>> registrations;
    for (const HotKey &hotKey : hotKeys) {
        const bool isRefused = std::count(m_refused.begin(), m_refused.end(), hotKey.id) > 0;
        const HotKeyState first = isRefused ? HotKeyState::Refused : m_firstState;
        registrations.push_back(std::make_unique<Registration>(*this, hotKey, first));
    }
    return registrations;
}

void RecordingHotKeys::setState(HotKeyId id, HotKeyState state)
{
    for (Registration *registration : m_registrations) {
        if (registration->hotKey.id == id && std::exchange(registration->current, state) != state)
            Q_EMIT stateChanged(id);
    }
}

void RecordingHotKeys::press(HotKeyId id)
{
    if (isGranted(id))
        deliver(id);
}

bool RecordingHotKeys::isGranted(HotKeyId id) const
{
    return std::any_of(m_registrations.begin(), m_registrations.end(), [&](const Registration *registration) {
        return registration->hotKey.id == id && registration->current == HotKeyState::Granted;
    });
}

int RecordingHotKeys::timesRegistered(HotKeyId id) const
{
    return static_cast<int>(
        std::count_if(m_registrations.begin(), m_registrations.end(), [&](const Registration *registration) {
            return registration->hotKey.id == id && registration->current != HotKeyState::Refused;
        }));
}

std::vector<HotKey> RecordingHotKeys::registered() const
{
    std::vector<HotKey> hotKeys;
    for (const Registration *registration : m_registrations)
        hotKeys.push_back(registration->hotKey);
    return hotKeys;
}

} // namespace zeigewerk::platform
