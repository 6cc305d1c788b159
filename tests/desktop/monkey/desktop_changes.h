// Changes of the desktop under the running program.
#pragma once

#include "embedding_tray.h"
#include "random_choice.h"
#include "tray_presentation.h"

namespace zeigewerk::rig {

/// Changes screens, compositor, trays and keyboard map. Each operation returns a description of what it did.
class DesktopChanges
{
public:
    /// Starts a tray.
    explicit DesktopChanges(DesktopSession &session);

    /// The bounding rectangle of all screens; never empty.
    QRect bounds() const { return m_bounds; }

    /// Plugs in, unplugs, moves or resizes one.
    QString changeScreens(RandomChoice &random);
    QString toggleCompositor();
    QString restartWindowManager();
    QString toggleTray();
    QString toggleEmbeddingTray();
    QString switchKeyboardMap(RandomChoice &random);
    /// Clicks on the tray's item or on an entry of its menu.
    QString useTray(RandomChoice &random);

    /// Restores the initial state.
    void restore();
    Tray &tray() { return m_tray; }

private:
    QString clickMenu(RandomChoice &random, const TrayItem &item);
    void restoreCompositor();
    void updateBounds();

    DesktopSession &m_session;
    QMap<int, QRect> m_initialScreens;
    bool m_hadCompositor;
    /// If the size of the desktop changes while Picom starts, it keeps the old size.
    bool m_mayCompositorHaveWrongSize = false;
    bool m_hasTray = true;
    bool m_hasEmbeddingTray = false;
    QRect m_bounds;
    Tray m_tray;
    EmbeddingTray m_embeddingTray;
};

} // namespace zeigewerk::rig
