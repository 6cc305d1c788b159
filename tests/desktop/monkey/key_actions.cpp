// The monkey's actions on the keyboard.

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

QString hotKey(ActionContext &context, RandomChoice &random)
{
    const Key key = random.of(kHotKeys);
    context.input.chord({Key::Ctrl, Key::Alt}, key);
    return nameOf(key);
}

QString escape(ActionContext &context, RandomChoice &)
{
    context.input.tap(Key::Escape);
    return {};
}

QString enter(ActionContext &context, RandomChoice &)
{
    context.input.tap(Key::Return);
    return {};
}

QString undo(ActionContext &context, RandomChoice &random)
{
    const int times = 1 + random.below(3);
    for (int i = 0; i < times; ++i)
        context.input.chord({random.oneIn(2) ? Key::Ctrl : Key::Super}, Key::Z);
    return QStringLiteral("%1 times").arg(times);
}

QString type(ActionContext &context, RandomChoice &random)
{
    const int length = 1 + random.below(12);
    for (int i = 0; i < length; ++i)
        context.input.chord(random.oneIn(5) ? Modifiers{Key::Shift} : Modifiers{}, random.of(kTyped));
    return QStringLiteral("%1 keys").arg(length);
}

QString edit(ActionContext &context, RandomChoice &random)
{
    const Key key = random.of(kEditing);
    context.input.chord(random.oneIn(3) ? Modifiers{Key::Ctrl, Key::Shift} : Modifiers{Key::Ctrl}, key);
    return nameOf(key);
}

QString hold(ActionContext &context, RandomChoice &random)
{
    const Key key = random.of(kHeld);
    context.input.press(key);
    return nameOf(key);
}

QString releaseKeys(ActionContext &context, RandomChoice &)
{
    const QSet<Key> held = context.input.heldKeys();
    for (const Key key : held)
        context.input.release(key);
    return QStringLiteral("%1 keys").arg(held.size());
}

QString lock(ActionContext &context, RandomChoice &random)
{
    const Key key = random.of(kLocks);
    context.input.tap(key);
    return nameOf(key);
}

} // namespace

std::vector<Action> keyActions()
{
    // A table, one row per line:
    // clang-format off
    return {
        {"hot key",          120, hotKey},
        {"Esc",              30,  escape},
        {"Return",           20,  enter},
        {"undo",             30,  undo},
        {"type",             50,  type},
        {"edit",             20,  edit},
        {"hold a key",       15,  hold},
        {"release all keys", 40,  releaseKeys},
        {"toggle a lock",    8,   lock},
    };
    // clang-format on
}

} // namespace zeigewerk::rig
