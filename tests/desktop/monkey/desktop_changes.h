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
    QRect desktop() const { return m_desktop; }

    /// Plugs one in or out, moves or resizes it.
    QString changeScreens(RandomChoice &chance);
    QString toggleCompositor();
    QString restartWindowManager();
    QString toggleTray();
    QString toggleEmbeddingTray();
    QString switchKeyboardMap(RandomChoice &chance);
    /// Clicks on the tray's item, or on an entry of its menu.
    QString useTray(RandomChoice &chance);

    /// Puts everything back to how it was at first.
    void tidyUp();
    Tray &tray() { return m_tray; }

private:
    QString clickMenu(RandomChoice &chance, const TrayItem &item);
    void bringCompositorBack();
    void measureDesktop();

    DesktopSession &m_session;
    QMap<int, QRect> m_firstScreens;
    bool m_hadCompositor;
    /// Picom keeps the size of the desktop for which it started if that changes before it listens.
    bool m_mayCompositorBeWrong = false;
    bool m_isTrayThere = true;
    bool m_isEmbeddingTrayThere = false;
    QRect m_desktop;
    Tray m_tray;
    EmbeddingTray m_embeddingTray;
};

} // namespace zeigewerk::rig
