// Another program that copies and pastes.
#pragma once

#include "client.h"

#include <QString>
#include <QTimer>

#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Owns the clipboard, and asks whoever owns it, on a connection of its own. It answers others while the
/// test's event loop runs, as it does while the test waits for something.
class ClipboardUser
{
public:
    explicit ClipboardUser(DesktopSession &session);

    /// From now on that text is what others paste. Throws RigError if the clipboard cannot be had.
    void copy(const QString &text);
    /// What the clipboard's owner hands out as text; nothing if nobody owns it, or the owner has no text.
    std::optional<QString> paste();

private:
    void handleEvents();
    void answer(const xcb_selection_request_event_t &request);
    bool provide(const xcb_selection_request_event_t &request);

    Client m_client;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    QTimer m_timer;
    QByteArray m_text;
    /// How the last request of our own was answered: the property that holds the text, or none.
    std::optional<xcb_atom_t> m_reply;
};

} // namespace zeigewerk::rig
