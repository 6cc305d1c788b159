#pragma once

#include "commands/status_item.h"
#include "controller_fixture.h"

namespace zeigewerk::test {

// The titles of the status menu.
inline const QString kDraw = QStringLiteral("Zeichnen  ⌃⌥D");
inline const QString kSpot = QStringLiteral("Spotlight  ⌃⌥S");
inline const QString kBoard = QStringLiteral("Whiteboard  ⌃⌥W");
inline const QString kClicks = QStringLiteral("Klicks anzeigen  ⌃⌥K");
inline const QString kPin = QStringLiteral("Zeichnung anpinnen  ⌃⌥P");
inline const QString kRing = QStringLiteral("Cursor-Ring");
inline const QString kFade = QStringLiteral("Auto-Fade (4 s)");
inline const QString kDark = QStringLiteral("Werkzeugleiste dunkel");
inline const QString kClearAll = QStringLiteral("Alles löschen");
inline const QString kHide = QStringLiteral("Werkzeugleiste ausblenden  ⌃⌥T");
inline const QString kShow = QStringLiteral("Werkzeugleiste einblenden  ⌃⌥T");
inline const QStringList kHints = {QStringLiteral("Esc beendet Zeichnen/Spotlight"),
                                   QStringLiteral("⌥ + Scrollen: Spotlight-Größe"),
                                   QStringLiteral("⇧ beim Zeichnen: gerade Linie / Quadrat / Kreis")};
inline const QString kUpdates = QStringLiteral("Nach Updates suchen …");
inline const QString kQuit = QStringLiteral("Zeigewerk beenden");
inline const QString kLine; // a separator

inline StatusMenu &menuOf(Controller &controller)
{
    return controller.app().statusItem()->menu();
}

/// The item with that title; aborts the test if there is none.
inline QAction &item(Controller &controller, const QString &title)
{
    for (QAction *action : menuOf(controller).trayMenu().actions()) {
        if (action->text() == title)
            return *action;
    }
    qFatal("the menu has no item %s", qPrintable(title));
}

inline QStringList checkedTitles(const QMenu &menu)
{
    QStringList list;
    for (const QAction *action : menu.actions()) {
        if (action->isChecked())
            list += action->text();
    }
    return list;
}

/// The titles of the modes and settings that are on, which must have check marks.
inline QStringList flagsOn(const AppDelegate &app)
{
    QStringList list;
    for (const auto &[isOn, title] : {std::pair{app.drawOn(), kDraw},
                                      {app.spotlightOn(), kSpot},
                                      {app.whiteboardOn(), kBoard},
                                      {app.clicksOn(), kClicks},
                                      {app.pinnedOn(), kPin},
                                      {app.cursorRingOn(), kRing},
                                      {app.autoFadeOn(), kFade},
                                      {app.darkUI(), kDark}}) {
        if (isOn)
            list += title;
    }
    return list;
}

} // namespace zeigewerk::test
