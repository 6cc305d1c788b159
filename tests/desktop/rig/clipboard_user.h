// Another program that copies and pastes.
#pragma once

#include "client.h"

#include <QString>
#include <QTimer>

#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Owns the clipboard and asks its owner for text, on a connection of its own. It answers requests while the
/// test's event loop runs, which includes every wait of the test.
class ClipboardUser
{
public:
    explicit ClipboardUser(DesktopSession &session);

    /// Makes this the text that other programs paste. Throws RigError if the clipboard cannot be taken.
    void copy(const QString &text);
    /// The clipboard's text; nothing if it has no owner, or the owner has no text.
    std::optional<QString> paste();

private:
    void handleEvents();
    void answer(const xcb_selection_request_event_t &request);
    bool provide(const xcb_selection_request_event_t &request);

    Client m_client;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    QTimer m_timer;
    QByteArray m_text;
    /// The reply to our last request: the property with the text, or none.
    std::optional<xcb_atom_t> m_reply;
};

} // namespace zeigewerk::rig
