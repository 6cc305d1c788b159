// What a desktop is furnished with, and what changes under a running program.
#pragma once

#include "embedding_tray.h"
#include "random_choice.h"
#include "tray_presentation.h"

namespace zeigewerk::rig {

/// Screens, the compositor, the trays, the keyboard's map. Each operation says what it did.
class DesktopChanges
{
public:
    /// Starts a tray.
    explicit DesktopChanges(DesktopSession &session);

    /// Around all screens; never empty.
    QRect bounds() const { return m_bounds; }

    /// Plugs one in or out, moves or resizes it.
    QString changeScreens(RandomChoice &random);
    QString toggleCompositor();
    QString restartWindowManager();
    QString toggleTray();
    QString toggleEmbeddingTray();
    QString switchKeyboardMap(RandomChoice &random);
    /// Clicks on the tray's item, or on an entry of its menu.
    QString useTray(RandomChoice &random);

    /// Puts everything back to how it was at first.
    void restore();
    Tray &tray() { return m_tray; }

private:
    QString clickMenu(RandomChoice &random, const TrayItem &item);
    void restoreCompositor();
    void updateBounds();

    DesktopSession &m_session;
    QMap<int, QRect> m_initialScreens;
    bool m_hadCompositor;
    /// Picom keeps the size of the desktop for which it started if that changes before it listens.
    bool m_mayCompositorHaveWrongSize = false;
    bool m_hasTray = true;
    bool m_hasEmbeddingTray = false;
    QRect m_bounds;
    Tray m_tray;
    EmbeddingTray m_embeddingTray;
};

} // namespace zeigewerk::rig
