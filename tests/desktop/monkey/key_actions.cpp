// What the monkey does with the keyboard.

#include "actions.h"

#include <array>

namespace zeigewerk::rig {

namespace {

constexpr std::array kHotKeys = {Key::D, Key::S, Key::W, Key::K, Key::T, Key::P};
constexpr std::array kTyped = {Key::A,         Key::E,      Key::Q,           Key::M,     Key::Space,
                               Key::Digit7,    Key::Equal,  Key::BracketLeft, Key::Z,     Key::Grave,
                               Key::Backspace, Key::Delete, Key::Left,        Key::Right, Key::Home,
                               Key::End,       Key::Tab,    Key::Down};
constexpr std::array kEditing = {Key::A, Key::C, Key::V, Key::X, Key::Z};
constexpr std::array kHeld = {Key::Shift, Key::Ctrl, Key::Alt, Key::Super, Key::A, Key::D, Key::Escape};
constexpr std::array kLocks = {Key::CapsLock, Key::NumLock};

QString nameOf(Key key)
{
    return QStringLiteral("key %1").arg(static_cast<int>(key));
}

QString hotKey(Playground &on, RandomChoice &chance)
{
    const Key key = chance.of(kHotKeys);
    on.paw.chord({Key::Ctrl, Key::Alt}, key);
    return nameOf(key);
}

QString escape(Playground &on, RandomChoice &)
{
    on.paw.tap(Key::Escape);
    return {};
}

QString enter(Playground &on, RandomChoice &)
{
    on.paw.tap(Key::Return);
    return {};
}

QString takeBack(Playground &on, RandomChoice &chance)
{
    const int times = 1 + chance.below(3);
    for (int i = 0; i < times; ++i)
        on.paw.chord({chance.oneIn(2) ? Key::Ctrl : Key::Super}, Key::Z);
    return QStringLiteral("%1 times").arg(times);
}

QString type(Playground &on, RandomChoice &chance)
{
    const int length = 1 + chance.below(12);
    for (int i = 0; i < length; ++i)
        on.paw.chord(chance.oneIn(5) ? Modifiers{Key::Shift} : Modifiers{}, chance.of(kTyped));
    return QStringLiteral("%1 keys").arg(length);
}

QString edit(Playground &on, RandomChoice &chance)
{
    const Key key = chance.of(kEditing);
    on.paw.chord(chance.oneIn(3) ? Modifiers{Key::Ctrl, Key::Shift} : Modifiers{Key::Ctrl}, key);
    return nameOf(key);
}

QString hold(Playground &on, RandomChoice &chance)
{
    const Key key = chance.of(kHeld);
    on.paw.press(key);
    return nameOf(key);
}

QString releaseKeys(Playground &on, RandomChoice &)
{
    const QSet<Key> held = on.paw.heldKeys();
    for (const Key key : held)
        on.paw.release(key);
    return QStringLiteral("%1 keys").arg(held.size());
}

QString lock(Playground &on, RandomChoice &chance)
{
    const Key key = chance.of(kLocks);
    on.paw.tap(key);
    return nameOf(key);
}

} // namespace

std::vector<Action> keyActions()
{
    return {{"hot key", 120, hotKey}, {"Esc", 30, escape},
            {"Return", 20, enter},    {"take back", 30, takeBack},
            {"type", 50, type},       {"edit", 20, edit},
            {"hold a key", 15, hold}, {"release all keys", 40, releaseKeys},
            {"lock", 8, lock}};
}

} // namespace zeigewerk::rig
