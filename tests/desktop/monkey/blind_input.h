// Input without any feedback.
#pragma once

#include "client.h"
#include "key.h"

#include <QPoint>
#include <QSet>

namespace zeigewerk::rig {

/// Sends real events through XTest and waits for nothing. The rig's pointer and keyboard wait for the effect,
/// which never comes under a grab or beyond the edge of a screen.
class BlindInput
{
public:
    explicit BlindInput(Client &client)
        : m_client(client)
    {
    }

    void moveTo(QPoint place);
    void press(int button);
    void release(int button);
    void click(int button);
    void press(Key key);
    void release(Key key);
    void tap(Key key);
    /// Taps the key with these held.
    void chord(const Modifiers &modifiers, Key key);

    /// What is pressed and not yet released.
    const QSet<int> &heldButtons() const { return m_buttons; }
    const QSet<Key> &heldKeys() const { return m_keys; }
    /// Releases all of that; returns once the server has processed it.
    void releaseAll();

private:
    void fake(int type, int detail, QPoint place = {});

    Client &m_client;
    QSet<int> m_buttons;
    QSet<Key> m_keys;
};

inline size_t qHash(Key key, size_t seed = 0)
{
    return ::qHash(static_cast<int>(key), seed);
}

} // namespace zeigewerk::rig
