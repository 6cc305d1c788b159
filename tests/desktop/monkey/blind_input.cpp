#include "blind_input.h"

#include <xcb/xtest.h>

#include <utility>

namespace zeigewerk::rig {

void BlindInput::fake(int type, int detail, QPoint place)
{
    xcb_test_fake_input(m_client.connection(), static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME, m_client.root(),
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
    xcb_flush(m_client.connection());
}

void BlindInput::moveTo(QPoint place)
{
    constexpr int kAbsolute = 0;
    fake(XCB_MOTION_NOTIFY, kAbsolute, place);
}

void BlindInput::press(int button)
{
    m_buttons.insert(button);
    fake(XCB_BUTTON_PRESS, button);
}

void BlindInput::release(int button)
{
    m_buttons.remove(button);
    fake(XCB_BUTTON_RELEASE, button);
}

void BlindInput::click(int button)
{
    press(button);
    release(button);
}

void BlindInput::press(Key key)
{
    m_keys.insert(key);
    fake(XCB_KEY_PRESS, static_cast<int>(key));
}

void BlindInput::release(Key key)
{
    m_keys.remove(key);
    fake(XCB_KEY_RELEASE, static_cast<int>(key));
}

void BlindInput::tap(Key key)
{
    press(key);
    release(key);
}

void BlindInput::chord(const Modifiers &modifiers, Key key)
{
    for (const Key modifier : modifiers)
        press(modifier);
    tap(key);
    for (const Key modifier : modifiers)
        release(modifier);
}

void BlindInput::releaseAll()
{
    for (const int button : std::as_const(m_buttons))
        fake(XCB_BUTTON_RELEASE, button);
    for (const Key key : std::as_const(m_keys))
        fake(XCB_KEY_RELEASE, static_cast<int>(key));
    m_buttons.clear();
    m_keys.clear();
    m_client.roundTrip();
}

} // namespace zeigewerk::rig
