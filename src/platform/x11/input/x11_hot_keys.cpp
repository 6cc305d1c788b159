#include "platform/x11/input/x11_hot_keys.h"

#include "platform/x11/input/modifiers.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zeigewerk::platform::x11 {

namespace {

/// An X key code is the evdev code plus this.
constexpr int kKeyCodeOffset = 8;

/// A grab matches exactly its modifiers, and the locks count as modifiers.
constexpr std::array<std::uint32_t, 4> kLocks = {0, XCB_MOD_MASK_LOCK, kNumLockMask,
                                                 XCB_MOD_MASK_LOCK | kNumLockMask};

constexpr std::uint16_t kChosenModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | kAltMask | kSuperMask;

} // namespace

class X11HotKeys::Registration : public HotKeyRegistration
{
public:
    /// `grab` is none if it was refused.
    Registration(X11HotKeys &owner, std::optional<std::list<Grab>::iterator> grab)
        : m_owner(owner)
        , m_grab(grab)
    {
    }

    ~Registration() override
    {
        if (!m_grab)
            return;
        m_owner.ungrab(**m_grab);
        m_owner.m_grabs.erase(*m_grab);
    }

    HotKeyState state() const override { return m_grab ? HotKeyState::Granted : HotKeyState::Refused; }

private:
    X11HotKeys &m_owner;
    std::optional<std::list<Grab>::iterator> m_grab;
};

std::vector<std::unique_ptr<HotKeyRegistration>> X11HotKeys::registerHotKeys(std::span<const HotKey> hotKeys)
{
    std::vector<std::unique_ptr<HotKeyRegistration>> registrations;
    for (const HotKey &hotKey : hotKeys)
        registrations.push_back(registerHotKey(hotKey));
    return registrations;
}

std::unique_ptr<HotKeyRegistration> X11HotKeys::registerHotKey(const HotKey &hotKey)
{
    const Grab wanted{.keyCode = static_cast<xcb_keycode_t>(static_cast<int>(hotKey.key) + kKeyCodeOffset),
                      .modifiers = stateOf(hotKey.modifiers),
                      .id = hotKey.id};
    if (!grab(wanted)) {
        qCDebug(logX11, "hot key %u is taken by another program", hotKey.id.number);
        return std::make_unique<Registration>(*this, std::nullopt);
    }
    return std::make_unique<Registration>(*this, m_grabs.insert(m_grabs.end(), wanted));
}

bool X11HotKeys::grab(const Grab &grab)
{
    std::array<xcb_void_cookie_t, kLocks.size()> cookies;
    std::transform(kLocks.begin(), kLocks.end(), cookies.begin(), [&](std::uint32_t locks) {
        return xcb_grab_key_checked(m_connection.xcb(), false, m_connection.root(),
                                    static_cast<std::uint16_t>(grab.modifiers | locks), grab.keyCode,
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    });
    bool isOurs = true;
    for (const xcb_void_cookie_t cookie : cookies)
        isOurs = !owned(xcb_request_check(m_connection.xcb(), cookie)) && isOurs;
    // A hot key that fails while NumLock is on is worse than none.
    if (!isOurs)
        ungrab(grab);
    return isOurs;
}

void X11HotKeys::ungrab(const Grab &grab)
{
    for (const std::uint32_t locks : kLocks)
        xcb_ungrab_key(m_connection.xcb(), grab.keyCode, m_connection.root(),
                       static_cast<std::uint16_t>(grab.modifiers | locks));
}

void X11HotKeys::keyPressed(const xcb_key_press_event_t &event)
{
    const auto grab = std::find_if(m_grabs.begin(), m_grabs.end(), [&](const Grab &candidate) {
        return candidate.keyCode == event.detail && candidate.modifiers == (event.state & kChosenModifiers);
    });
    if (grab == m_grabs.end() || grab->isHeld)
        return;
    grab->isHeld = true;
    QMetaObject::invokeMethod(
        this, [this, id = grab->id] { Q_EMIT pressed(id); }, Qt::QueuedConnection);
}

void X11HotKeys::keyReleased(const xcb_key_release_event_t &event)
{
    for (Grab &grab : m_grabs) {
        if (grab.keyCode == event.detail)
            grab.isHeld = false;
    }
}

bool X11HotKeys::isAnyHeld() const
{
    return std::any_of(m_grabs.begin(), m_grabs.end(), [](const Grab &grab) { return grab.isHeld; });
}

void X11HotKeys::forgetReleased()
{
    if (!isAnyHeld())
        return;
    const auto cookie = xcb_query_keymap(m_connection.xcb());
    const auto reply = owned(xcb_query_keymap_reply(m_connection.xcb(), cookie, nullptr));
    for (Grab &grab : m_grabs)
        grab.isHeld =
            grab.isHeld && reply && (reply->keys[grab.keyCode / 8] & (1U << (grab.keyCode % 8))) != 0;
}

} // namespace zeigewerk::platform::x11
