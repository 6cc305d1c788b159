#include "keyboard.h"

#include "client.h"
#include "eventually.h"
#include "rig_error.h"

#include <xcb/xtest.h>

#include <optional>

namespace zeigewerk::rig {

namespace {

/// The position of a character on a US keyboard, ignoring Shift.
std::optional<Key> keyOf(QChar character)
{
    struct Row
    {
        QLatin1String characters;
        Key first;
    };
    // The keys of a row have consecutive codes.
    static constexpr Row kRows[] = {
        {QLatin1String("1234567890"), Key::Digit1}, {QLatin1String("qwertyuiop"), Key::Q},
        {QLatin1String("asdfghjkl"), Key::A},       {QLatin1String("zxcvbnm,."), Key::Z},
        {QLatin1String(" "), Key::Space},
    };
    for (const Row &row : kRows)
        if (const qsizetype place = row.characters.indexOf(character.toLower()); place >= 0)
            return static_cast<Key>(static_cast<qsizetype>(row.first) + place);
    return std::nullopt;
}

} // namespace

std::uint16_t modifierMask(const Modifiers &modifiers)
{
    int mask = 0;
    for (const Key key : modifiers) {
        if (key == Key::Shift)
            mask |= XCB_MOD_MASK_SHIFT;
        else if (key == Key::Ctrl)
            mask |= XCB_MOD_MASK_CONTROL;
        else if (key == Key::Alt)
            mask |= XCB_MOD_MASK_1;
        else if (key == Key::Super)
            mask |= XCB_MOD_MASK_4;
        else if (key == Key::CapsLock)
            mask |= XCB_MOD_MASK_LOCK;
        else if (key == Key::NumLock)
            mask |= XCB_MOD_MASK_2;
    }
    return static_cast<std::uint16_t>(mask);
}

void Keyboard::fake(int type, Key key)
{
    xcb_test_fake_input(m_client.connection(), static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(key), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    m_client.roundTrip();
}

void Keyboard::press(Key key)
{
    fake(XCB_KEY_PRESS, key);
}

void Keyboard::release(Key key)
{
    fake(XCB_KEY_RELEASE, key);
}

void Keyboard::tap(Key key)
{
    press(key);
    release(key);
}

void Keyboard::chord(const Modifiers &modifiers, Key key)
{
    for (const Key modifier : modifiers)
        press(modifier);
    tap(key);
    for (auto modifier = modifiers.crbegin(); modifier != modifiers.crend(); ++modifier)
        release(*modifier);
}

void Keyboard::type(const QString &text)
{
    for (const QChar character : text) {
        const std::optional<Key> key = keyOf(character);
        if (!key)
            failRig(QStringLiteral("no key types %1").arg(character));
        chord(character.isUpper() ? Modifiers{Key::Shift} : Modifiers{}, *key);
    }
}

bool Keyboard::lock(Key key) const
{
    const int lockMask = modifierMask({key}) & (XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2);
    const auto cookie = xcb_query_pointer(m_client.connection(), m_client.root());
    const auto reply = owned(xcb_query_pointer_reply(m_client.connection(), cookie, nullptr));
    return reply && (reply->mask & lockMask) != 0;
}

bool Keyboard::setLock(Key key, bool on)
{
    if (lock(key) != on)
        tap(key);
    return eventually([&] { return lock(key) == on; });
}

} // namespace zeigewerk::rig
