#pragma once

#include "platform/hot_keys.h"

namespace zeigewerk::platform {

class RecordingDesktop;

/// Hot keys that a test grants, refuses and presses. Unlike a real desktop, it delivers a press at once.
class RecordingHotKeys : public HotKeys
{
    Q_OBJECT

public:
    explicit RecordingHotKeys(RecordingDesktop &desktop)
        : m_desktop(desktop)
    {
    }

    std::vector<std::unique_ptr<HotKeyRegistration>>
    registerHotKeys(std::span<const HotKey> hotKeys) override;

    /// The state of a new registration from now on; `HotKeyState::Requested` means that the answer comes
    /// later.
    void setFirstState(HotKeyState state) { m_firstState = state; }
    /// Refuses that hot key whenever the program asks for it.
    void refuse(HotKeyId id) { m_refused.push_back(id); }
    void refuseNone() { m_refused.clear(); }
    /// Changes the state of a registered hot key, and emits the signal for that.
    void setState(HotKeyId id, HotKeyState state);
    /// A press of a granted hot key; others do nothing, as on a real desktop.
    void press(HotKeyId id);
    /// Delivers that id, registered or not.
    void deliver(HotKeyId id) { Q_EMIT pressed(id); }

    int timesRegistered(HotKeyId id) const;
    bool isGranted(HotKeyId id) const;
    /// The hot keys that are registered now, in the order in which they were asked for.
    std::vector<HotKey> registered() const;

private:
    class Registration;

    RecordingDesktop &m_desktop;
    HotKeyState m_firstState = HotKeyState::Granted;
    std::vector<HotKeyId> m_refused;
    std::vector<Registration *> m_registrations;
};

} // namespace zeigewerk::platform
