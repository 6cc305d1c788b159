// What a desktop is furnished with, and what changes under a running program.
#pragma once

#include "chance.h"
#include "embedding_tray.h"
#include "tray_presentation.h"

namespace zeigewerk::rig {

/// Screens, the compositor, the trays, the keyboard's map. Each operation says what it did.
class Furniture
{
public:
    /// Starts a tray.
    explicit Furniture(DesktopSession &session);

    /// Around all screens; never empty.
    QRect desktop() const { return m_desktop; }

    /// Plugs one in or out, moves or resizes it.
    QString changeScreens(Chance &chance);
    QString toggleCompositor();
    QString restartWindowManager();
    QString toggleTray();
    QString toggleEmbeddingTray();
    QString switchKeyboardMap(Chance &chance);
    /// Clicks on the tray's item, or on an entry of its menu.
    QString useTray(Chance &chance);

    /// Puts everything back to how it was at first.
    void tidyUp();
    Tray &tray() { return m_tray; }

private:
    QString clickMenu(Chance &chance, const TrayItem &item);
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
