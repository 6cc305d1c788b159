#pragma once

#include "rig.h"

namespace zeigewerk::rig {

/// The accessible names of the toolbar's buttons.
namespace button {

inline const QString kDraw = "Zeichnen ein/aus (⌃⌥D)";
inline const QString kWhiteboard = "Whiteboard (⌃⌥W)";
inline const QString kSpotlight = "Spotlight (⌃⌥S) — Größe ändern: ⌥ + Scrollen";
inline const QString kRing = "Cursor-Ring: Mauszeiger dauerhaft hervorheben";
inline const QString kClicks = "Klicks anzeigen (⌃⌥K)";
inline const QString kFade = "Auto-Fade: Zeichnungen lösen sich nach 4 Sekunden auf";
inline const QString kPin = "Zeichnung anpinnen: bleibt stehen, Klicks gehen durch (⌃⌥P)";
inline const QString kPen = "Stift";
inline const QString kHighlighter = "Textmarker";
inline const QString kLine = "Linie";
inline const QString kArrow = "Pfeil";
inline const QString kRectangle = "Rechteck";
inline const QString kEllipse = "Ellipse";
inline const QString kText = "Text (klicken, tippen, Enter)";
inline const QString kUndo = "Rückgängig (⌘Z)";
inline const QString kColor = "Farbe";
inline const QString kWidth = "Strichstärke";
inline const QString kAppearance = "Werkzeugleiste hell/dunkel";
inline const QString kClear = "Alles löschen";
inline const QString kHide = "Leiste ausblenden — wieder einblenden mit ⌃⌥T oder übers Menüleisten-Symbol";
inline const QString kQuit = "Zeigewerk beenden";

} // namespace button

/// Uses the toolbar as a presenter does: finds a button by its name and clicks on it. The session's setup
/// must ask for accessibility.
class ToolbarUser
{
public:
    /// The size of the panel in points.
    static constexpr QSize kPanelSize = QSize(151, 477);

    /// Waits until the toolbar is on the screen; throws RigError if it does not appear.
    ToolbarUser(DesktopSession &session, const Program &program, double scale = 1.0);

    Accessibility &reader() { return m_reader; }
    QList<AccessibleButton> buttons() { return m_reader.buttons(); }
    /// Throws RigError if there is no such button.
    AccessibleButton button(const QString &name, int index = 0);
    /// Whether a mode is on, or whether a tool, colour or width is selected.
    bool isOn(const QString &name, int index = 0) { return button(name, index).isChecked(); }
    /// Clicks in the middle of the button; false if the pointer fails to do it.
    bool click(const QString &name, int index = 0);

    /// The panel without its shadow, computed from its buttons: native root pixels.
    QRect panel();
    /// On the background above the first row, where the panel can be dragged.
    QPoint grip();
    /// On the background, away from buttons and lines in every state.
    QPoint background();
    /// The toolbar's window; without an id if it is not on the screen.
    WindowInfo window();

private:
    DesktopSession &m_session;
    qint64 m_processId;
    double m_scale;
    Accessibility m_reader;
};

} // namespace zeigewerk::rig
