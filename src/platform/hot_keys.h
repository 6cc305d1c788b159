#pragma once

#include "platform/events.h"

#include <QObject>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace zeigewerk::platform {

/// Identifies a hot key: a four-character code of the program, and a number.
struct HotKeyId
{
    std::uint32_t signature = 0;
    std::uint32_t number = 0;

    friend bool operator==(const HotKeyId &, const HotKeyId &) = default;
};

/// A key combination that the program wants system-wide.
struct HotKey
{
    HotKeyId id;
    PhysicalKey key;
    Modifiers modifiers;
    /// What it does, in German: some desktops list the shortcuts of programs. Has static storage.
    QStringView description;
};

/// Whether the desktop has granted a hot key.
enum class HotKeyState {
    Requested, ///< no answer yet
    Granted,
    Refused, ///< another program has the combination, or the user does not want ours
};

/// A hot key that was asked for. Destroying it gives the combination back to the other applications.
class HotKeyRegistration
{
public:
    virtual ~HotKeyRegistration() = default;
    virtual HotKeyState state() const = 0;
};

/// System-wide hot keys.
class HotKeys : public QObject
{
    Q_OBJECT

public:
    /// Asks the desktop for these combinations, whatever NumLock and CapsLock are. Returns one registration
    /// for each, in their order. The answer may come later and can change. The registrations must not outlive
    /// this object.
    virtual std::vector<std::unique_ptr<HotKeyRegistration>>
    registerHotKeys(std::span<const HotKey> hotKeys) = 0;

Q_SIGNALS:
    /// A registered combination was pressed. Emitted from the event loop, once per press however long the key
    /// is held.
    void pressed(zeigewerk::platform::HotKeyId id);
    /// The state of a registration changed after `registerHotKeys` returned.
    void stateChanged(zeigewerk::platform::HotKeyId id);
};

} // namespace zeigewerk::platform
