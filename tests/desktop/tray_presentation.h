#pragma once

#include "presentation.h"
#include "rig/tray_host.h"
#include "rig/tray_watcher.h"

#include <optional>

namespace zeigewerk::rig {

/// Both parts of a tray: the watcher and a host.
struct Tray
{
    explicit Tray(const DesktopSession &session)
        : watcher(session)
        , host(session)
    {
    }

    void start()
    {
        watcher.start();
        host.start();
    }
    void stop()
    {
        host.stop();
        watcher.stop();
    }

    TrayWatcher watcher;
    TrayHost host;
};

/// A presentation on a desktop whose tray shows the program's item.
class TrayPresentation : public Presentation
{
public:
    explicit TrayPresentation(const DesktopSetup &setup = {})
        : Presentation(setup)
        , tray(session)
    {
        tray.start();
        QList<TrayItem> items;
        if (!eventually([&] { return (items = tray.host.items()).size() == 1; }))
            throw RigError("the program is not in the tray");
        item = items.first();
    }

    QList<TrayMenuItem> menu() { return tray.host.menu(item); }
    /// The menu entry with that label, if there is one.
    std::optional<TrayMenuItem> entry(const QString &label)
    {
        for (const TrayMenuItem &found : menu()) {
            if (found.label == label)
                return found;
        }
        return std::nullopt;
    }
    bool isChecked(const QString &label)
    {
        const auto found = entry(label);
        return found && found->isChecked();
    }
    /// The labels of the entries whose check mark is on.
    QStringList checked()
    {
        QStringList labels;
        for (const TrayMenuItem &found : menu()) {
            if (found.isChecked())
                labels += found.label;
        }
        return labels;
    }
    /// False if there is no such entry, or the item does not accept the click.
    bool click(const QString &label)
    {
        const auto found = entry(label);
        return found && tray.host.click(item, found->id);
    }

    Tray tray;
    TrayItem item;
};

namespace label {

inline const QString kDraw = "Zeichnen  ⌃⌥D";
inline const QString kSpot = "Spotlight  ⌃⌥S";
inline const QString kBoard = "Whiteboard  ⌃⌥W";
inline const QString kClicks = "Klicks anzeigen  ⌃⌥K";
inline const QString kPin = "Zeichnung anpinnen  ⌃⌥P";
inline const QString kRing = "Cursor-Ring";
inline const QString kFade = "Auto-Fade (4 s)";
inline const QString kDark = "Werkzeugleiste dunkel";
inline const QString kClear = "Alles löschen";
inline const QString kHide = "Werkzeugleiste ausblenden  ⌃⌥T";
inline const QString kShow = "Werkzeugleiste einblenden  ⌃⌥T";
inline const QStringList kHints = {"Esc beendet Zeichnen/Spotlight", "⌥ + Scrollen: Spotlight-Größe",
                                   "⇧ beim Zeichnen: gerade Linie / Quadrat / Kreis"};
inline const QString kQuit = "Zeigewerk beenden";

} // namespace label

} // namespace zeigewerk::rig
