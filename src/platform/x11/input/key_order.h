#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace zeigewerk::platform::x11 {

/// Decides for each key that is typed into a text field who handles it, the field or a canvas, and when.
/// docs/architecture.md explains the rules ("Keys and presses in order").
class KeyOrder
{
public:
    /// The server's id of a window.
    using Window = std::uint32_t;
    static constexpr Window kNoWindow = 0;
    /// The server's clock in milliseconds, which wraps around.
    using Time = std::uint32_t;

    /// What a key event and the announcement of that key have in common.
    struct Stamp
    {
        Time time = 0;
        std::uint8_t code = 0;

        friend bool operator==(const Stamp &, const Stamp &) = default;
    };
    /// A key that Qt has read.
    struct Key
    {
        Stamp stamp;
        std::uint16_t modifiers = 0;
    };
    /// A press of the left button on a canvas.
    struct Press
    {
        Time time = 0;
        Window canvas = kNoWindow;
    };

    /// What a KeyOrder asks its owner to do. Handling a press or a key, and resuming the connection, may call
    /// the KeyOrder again.
    class Actions
    {
    public:
        virtual ~Actions() = default;

        /// Makes the server announce each key on our connection.
        virtual void startAnnouncements() = 0;
        virtual void stopAnnouncements() = 0;
        /// Stops handling what arrives on our connection. Must call `giveUp` if it stays paused for too long.
        virtual void pauseConnection() = 0;
        /// Handles what has arrived on it meanwhile.
        virtual void resumeConnection() = 0;
        /// Sends the mark to the field, behind the keys that are on their way there. Returns false if the
        /// field's window no longer exists.
        virtual bool sendMark(Window field, std::uint32_t mark) = 0;
        /// Must call `release` with that mark once Qt has handled the keys that it has read.
        virtual void releaseLater(std::uint32_t mark) = 0;
        /// Handles the press that was held.
        virtual void handlePress() = 0;
        virtual void handleKey(Window canvas, const Key &key) = 0;
    };

    /// More keys than anybody types before Qt reads the first. Qt never reads some of them, such as hot keys.
    static constexpr std::size_t kMaxRemembered = 256;

    explicit KeyOrder(Actions &actions)
        : m_actions(actions)
    {
    }

    /// The field that has the keyboard, or had it and may still get keys.
    Window field() const { return m_field; }
    /// Whether the connection is paused until the mark comes back.
    bool isHolding() const { return m_isHolding; }

    /// The field is about to get the keyboard.
    void keyboardComes(Window field);
    /// The keyboard goes to another program.
    void keyboardGoes();
    /// Holds the press, and our connection, until Qt has handled the keys typed before it into the field. The
    /// field must have lost the keyboard to the canvas already.
    void holdPress(const Press &press, Window field);
    /// The field closes. If `keyboardOwner`, the window of ours that has the keyboard now, is a canvas, it
    /// gets the keys that still come to the field. If a press is held, the pressed canvas gets them. Returns
    /// whether a canvas gets them.
    bool closeField(Window field, Window keyboardOwner);
    /// The closed field has been deleted.
    void closedFieldDeleted() { m_isClosed = false; }

    /// Qt has read a key for that window. Returns whether Qt must not handle it.
    bool interceptKey(Window window, const Key &key);
    /// Qt hands the closed field a key that it had read before. Returns whether the field must not handle it.
    bool interceptKeyOfClosedField(const Key &key);
    /// Qt has read a release for that window.
    void keyReleased(Window window, std::uint8_t code);
    /// Our connection has announced a key, whichever window gets it.
    void keyAnnounced(const Stamp &key);
    /// Handles the waiting keys that were pressed before that time. Call it before handling any event of that
    /// time.
    void handleKeysBefore(Time time);
    /// The mark has come back, and Qt has handled what it read before. Does nothing for an older mark.
    void release(std::uint32_t mark);
    /// The mark has not come back in time.
    void giveUp() { release(m_mark); }

private:
    static void remember(std::deque<Stamp> &stamps, const Stamp &stamp);

    void setField(Window field);
    void hold();
    bool takeAnnouncement(const Stamp &key);
    void handleFirstWaiting();

    Actions &m_actions;
    Window m_field = kNoWindow;
    bool m_isClosed = false;
    /// The keys held down in the field: further presses of them are repeats.
    std::bitset<256> m_down;
    /// The last repeats that Qt has read. Qt's own flag would also count a quick second press.
    std::deque<Stamp> m_repeats;
    bool m_isHolding = false;
    /// Identifies the latest hold.
    std::uint32_t m_mark = 0;
    std::optional<Press> m_press;
    /// Announced, and not yet read by Qt.
    std::deque<Stamp> m_announced;
    /// Read by Qt, and not yet announced.
    std::deque<Key> m_waiting;
    /// Gets the keys that the field does not.
    Window m_canvas = kNoWindow;
};

} // namespace zeigewerk::platform::x11
