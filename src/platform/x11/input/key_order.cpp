#include "platform/x11/input/key_order.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

bool isLater(KeyOrder::Time one, KeyOrder::Time other)
{
    return static_cast<std::int32_t>(one - other) > 0;
}

} // namespace

void KeyOrder::keyboardComes(Window field)
{
    if (!m_isHolding)
        setField(field);
}

void KeyOrder::keyboardGoes()
{
    if (!m_isHolding)
        setField(kNoWindow);
}

void KeyOrder::holdPress(const Press &press, Window field)
{
    setField(field);
    m_press = press;
    m_canvas = press.canvas;
    hold();
}

bool KeyOrder::closeField(Window field, Window keyboardOwner)
{
    if (field != m_field)
        return false;
    if (!m_isHolding) {
        if (keyboardOwner == kNoWindow || keyboardOwner == field) {
            setField(kNoWindow);
            return false;
        }
        m_canvas = keyboardOwner;
        hold();
    }
    m_isClosed = true;
    return true;
}

void KeyOrder::setField(Window field)
{
    m_isClosed = false;
    if (field == m_field)
        return;
    const bool hadNone = std::exchange(m_field, field) == kNoWindow;
    m_down.reset();
    m_repeats.clear();
    if (!hadNone && field != kNoWindow)
        return;
    m_announced.clear();
    if (hadNone)
        m_actions.startAnnouncements();
    else
        m_actions.stopAnnouncements();
}

void KeyOrder::hold()
{
    m_isHolding = true;
    m_actions.pauseConnection();
    ++m_mark;
    // Without the window there are no keys to wait for.
    if (!m_actions.sendMark(m_field, m_mark))
        m_actions.releaseLater(m_mark);
}

bool KeyOrder::interceptKey(Window window, const Key &key)
{
    if (window != m_field)
        return false;
    const bool isRepeat = m_down.test(key.stamp.code);
    m_down.set(key.stamp.code);
    if (isRepeat)
        remember(m_repeats, key.stamp);
    // An announced key came before everything that our connection has not handled yet.
    const bool wasAnnounced = takeAnnouncement(key.stamp);
    if (!m_isHolding)
        return false;
    const bool isBeforePress = m_press && isLater(m_press->time, key.stamp.time);
    const bool waits = !wasAnnounced && !isBeforePress;
    if (!waits && !m_isClosed)
        return false;
    // The key was pressed for the field, so its repeats are not for the canvas.
    if (isRepeat)
        return true;
    if (waits)
        m_waiting.push_back(key);
    else
        m_actions.handleKey(m_canvas, key);
    return true;
}

bool KeyOrder::interceptKeyOfClosedField(const Key &key)
{
    if (!m_isClosed)
        return false;
    if (std::find(m_repeats.begin(), m_repeats.end(), key.stamp) == m_repeats.end())
        m_actions.handleKey(m_canvas, key);
    return true;
}

void KeyOrder::keyReleased(Window window, std::uint8_t code)
{
    if (window == m_field)
        m_down.reset(code);
}

void KeyOrder::keyAnnounced(const Stamp &key)
{
    handleKeysBefore(key.time);
    if (!m_waiting.empty() && m_waiting.front().stamp == key)
        handleFirstWaiting();
    else
        remember(m_announced, key);
}

bool KeyOrder::takeAnnouncement(const Stamp &key)
{
    const auto found = std::find(m_announced.begin(), m_announced.end(), key);
    if (found == m_announced.end())
        return false;
    // Qt reads keys in order: those announced before were not for the field.
    m_announced.erase(m_announced.begin(), found + 1);
    return true;
}

void KeyOrder::remember(std::deque<Stamp> &stamps, const Stamp &stamp)
{
    stamps.push_back(stamp);
    if (stamps.size() > kMaxRemembered)
        stamps.pop_front();
}

void KeyOrder::handleKeysBefore(Time time)
{
    while (!m_isHolding && !m_waiting.empty() && isLater(time, m_waiting.front().stamp.time))
        handleFirstWaiting();
}

void KeyOrder::handleFirstWaiting()
{
    const Key key = m_waiting.front();
    m_waiting.pop_front();
    m_actions.handleKey(m_canvas, key);
}

void KeyOrder::release(std::uint32_t mark)
{
    if (!m_isHolding || mark != m_mark)
        return;
    m_isHolding = false;
    setField(kNoWindow);
    if (std::exchange(m_press, std::nullopt))
        m_actions.handlePress();
    // The announcements of the waiting keys arrive now. A key that a program sent to the field by itself has
    // none.
    m_actions.resumeConnection();
    while (!m_isHolding && !m_waiting.empty())
        handleFirstWaiting();
}

} // namespace zeigewerk::platform::x11
