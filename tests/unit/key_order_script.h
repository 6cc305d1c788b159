// Scripts for a KeyOrder: inputs, and what it does in response to each.
#pragma once

#include "platform/x11/input/key_order.h"

#include <QStringList>
#include <QTest>

#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace zeigewerk::test {

using platform::x11::KeyOrder;

inline constexpr KeyOrder::Window kField = 1;
inline constexpr KeyOrder::Window kNextField = 2;
inline constexpr KeyOrder::Window kCanvas = 10;
inline constexpr KeyOrder::Window kOtherCanvas = 11;

/// A KeyOrder whose field has the keyboard. Logs what the KeyOrder asks for, and queues the events of our
/// connection while it is paused.
class KeyOrderRig : public KeyOrder::Actions
{
public:
    using Input = std::function<void(KeyOrderRig &)>;

    KeyOrderRig()
    {
        order.keyboardComes(kField);
        m_log.clear();
    }

    QString takeLog() { return std::exchange(m_log, {}).join(QStringLiteral(", ")); }
    void log(const QString &entry) { m_log.append(entry); }
    /// The KeyOrder has decided whether Qt may handle a key.
    void logAnswer(bool isIntercepted)
    {
        if (!isIntercepted)
            log("Qt");
        else if (m_log.isEmpty())
            log("withheld");
    }

    /// An event arrives on our connection.
    void receive(const Input &event)
    {
        if (order.isHolding())
            m_received.push_back(event);
        else
            event(*this);
    }

    void startAnnouncements() override { log("announce"); }
    void stopAnnouncements() override { log("stop announcing"); }
    void pauseConnection() override { log("pause"); }
    void resumeConnection() override
    {
        log("resume");
        while (!order.isHolding() && !m_received.empty()) {
            const Input event = m_received.front();
            m_received.pop_front();
            event(*this);
        }
    }
    bool sendMark(KeyOrder::Window field, std::uint32_t mark) override
    {
        log(QString(field == kField ? "mark %1" : "mark %1 for the next field").arg(mark));
        return hasWindow;
    }
    void releaseLater(std::uint32_t mark) override { log(QString("release %1 later").arg(mark)); }
    void handlePress() override
    {
        log("press");
        if (const KeyOrder::Window field = std::exchange(fieldOfPress, KeyOrder::kNoWindow))
            order.keyboardComes(field);
    }
    void handleKey(KeyOrder::Window canvas, const KeyOrder::Key &key) override
    {
        log(QString(canvas == kCanvas ? "canvas %1" : "other canvas %1").arg(QChar(key.stamp.code)));
        if (std::exchange(nextKeyCloses, false))
            order.closeField(order.field(), kCanvas);
    }

    KeyOrder order{*this};
    /// Whether the field's window still exists.
    bool hasWindow = true;
    /// The field that the next press opens, if any.
    KeyOrder::Window fieldOfPress = KeyOrder::kNoWindow;
    /// Whether the next key of a canvas closes the field.
    bool nextKeyCloses = false;

private:
    QStringList m_log;
    std::deque<Input> m_received;
};

using Input = KeyOrderRig::Input;

struct Line
{
    Input input;
    /// What the KeyOrder asks for; "Qt" for a key that Qt handles; "withheld" for a key that waits or is
    /// dropped.
    QString output;
};
using Script = std::vector<Line>;

/// Plays the script from the data column "script" to a KeyOrder whose field has the keyboard.
inline void playScript()
{
    QFETCH(Script, script);
    KeyOrderRig rig;
    QStringList actual;
    QStringList expected;
    for (const Line &line : script) {
        line.input(rig);
        actual.append(rig.takeLog());
        expected.append(line.output);
    }
    QCOMPARE(actual, expected);
}

inline KeyOrder::Key keyOf(char key, KeyOrder::Time time)
{
    return {.stamp = {.time = time, .code = static_cast<std::uint8_t>(key)}};
}

// Input on our connection.

inline Input announced(char key, KeyOrder::Time time, int count = 1)
{
    return [=](KeyOrderRig &rig) {
        for (int i = 0; i < count; ++i)
            rig.receive([=](KeyOrderRig &target) { target.order.keyAnnounced(keyOf(key, time).stamp); });
    };
}

/// A press while `field` has the keyboard; by default, the field that the KeyOrder knows.
inline Input press(KeyOrder::Time time, KeyOrder::Window canvas = kCanvas,
                   std::optional<KeyOrder::Window> field = std::nullopt)
{
    return [=](KeyOrderRig &rig) {
        rig.receive([=](KeyOrderRig &target) {
            target.order.handleKeysBefore(time);
            target.order.holdPress({.time = time, .canvas = canvas}, field.value_or(target.order.field()));
        });
    };
}

inline Input otherEvent(KeyOrder::Time time)
{
    return [=](KeyOrderRig &rig) {
        rig.receive([=](KeyOrderRig &target) {
            target.order.handleKeysBefore(time);
            target.log(QString("event of %1").arg(time));
        });
    };
}

// Input on Qt's connection.

inline Input read(char key, KeyOrder::Time time, KeyOrder::Window window = kField)
{
    return [=](KeyOrderRig &rig) { rig.logAnswer(rig.order.interceptKey(window, keyOf(key, time))); };
}

inline Input readTimes(int count, char key, KeyOrder::Time time)
{
    return [=](KeyOrderRig &rig) {
        for (int i = 0; i < count; ++i)
            rig.order.interceptKey(kField, keyOf(key, time));
    };
}

inline Input released(char key)
{
    return [=](KeyOrderRig &rig) { rig.order.keyReleased(kField, static_cast<std::uint8_t>(key)); };
}

inline Input mark(std::uint32_t number)
{
    return [=](KeyOrderRig &rig) { rig.order.release(number); };
}

// Other input.

inline Input handedToClosedField(char key, KeyOrder::Time time)
{
    return [=](KeyOrderRig &rig) { rig.logAnswer(rig.order.interceptKeyOfClosedField(keyOf(key, time))); };
}

inline Input fieldOpens(KeyOrder::Window field)
{
    return [=](KeyOrderRig &rig) { rig.order.keyboardComes(field); };
}

inline Input nextPressOpens(KeyOrder::Window field)
{
    return [=](KeyOrderRig &rig) { rig.fieldOfPress = field; };
}

inline Input nextKeyClosesField()
{
    return [](KeyOrderRig &rig) { rig.nextKeyCloses = true; };
}

inline Input fieldCloses(KeyOrder::Window canvas = kCanvas, KeyOrder::Window field = kField)
{
    return [=](KeyOrderRig &rig) { rig.order.closeField(field, canvas); };
}

inline Input fieldIsDeleted()
{
    return [](KeyOrderRig &rig) { rig.order.closedFieldDeleted(); };
}

inline Input windowVanishes()
{
    return [](KeyOrderRig &rig) { rig.hasWindow = false; };
}

inline Input keyboardGoes()
{
    return [](KeyOrderRig &rig) { rig.order.keyboardGoes(); };
}

inline Input markTimesOut()
{
    return [](KeyOrderRig &rig) { rig.order.giveUp(); };
}

} // namespace zeigewerk::test
