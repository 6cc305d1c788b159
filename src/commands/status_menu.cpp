#include "commands/status_menu.h"

#include "commands/status_item.h"
#include "core/app_delegate.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>

#include <array>
#include <functional>

namespace zeigewerk {

namespace {

struct StatusRow
{
    /// Empty for a separator.
    QStringView title;
    /// By which other programs call for the action.
    QStringView name = {};
    /// None for a line that only explains.
    void (AppDelegate::*operation)() = nullptr;
    /// Shown as a check mark, or in the wording where there is a second title.
    bool (AppDelegate::*flag)() const = nullptr;
    QStringView titleWhenOff = {};
    /// Whether the item is there at all, which does not change after launch; always where none.
    bool (AppDelegate::*isThere)() const = nullptr;
};

/// The modifiers are written as glyphs in the titles, since these combinations are hot keys: as shortcuts of
/// the actions Qt would act on them a second time. Quitting is the last row.
constexpr StatusRow kSeparator = {};
constexpr std::array kStatusRows = {
    StatusRow{u"Zeichnen  ⌃⌥D", u"draw", &AppDelegate::toggleDraw, &AppDelegate::drawOn},
    StatusRow{u"Spotlight  ⌃⌥S", u"spotlight", &AppDelegate::toggleSpot, &AppDelegate::spotlightOn},
    StatusRow{u"Whiteboard  ⌃⌥W", u"whiteboard", &AppDelegate::toggleBoard, &AppDelegate::whiteboardOn},
    StatusRow{u"Klicks anzeigen  ⌃⌥K", u"clicks", &AppDelegate::toggleClicks, &AppDelegate::clicksOn},
    StatusRow{u"Zeichnung anpinnen  ⌃⌥P", u"pin", &AppDelegate::togglePin, &AppDelegate::pinnedOn},
    StatusRow{u"Cursor-Ring", u"cursor-ring", &AppDelegate::toggleRing, &AppDelegate::cursorRingOn},
    StatusRow{u"Auto-Fade (4 s)", u"auto-fade", &AppDelegate::toggleFade, &AppDelegate::autoFadeOn},
    StatusRow{u"Werkzeugleiste dunkel", u"dark-toolbar", &AppDelegate::toggleDarkUI, &AppDelegate::darkUI},
    kSeparator,
    StatusRow{u"Alles löschen", u"clear", &AppDelegate::clearAll},
    StatusRow{u"Werkzeugleiste ausblenden  ⌃⌥T", u"toolbar", &AppDelegate::toggleToolbar,
              &AppDelegate::toolbarVisible, u"Werkzeugleiste einblenden  ⌃⌥T"},
    kSeparator,
    StatusRow{u"Esc beendet Zeichnen/Spotlight"},
    StatusRow{u"⌥ + Scrollen: Spotlight-Größe"},
    StatusRow{u"⇧ beim Zeichnen: gerade Linie / Quadrat / Kreis"},
    kSeparator,
    StatusRow{.title = u"Nach Updates suchen …",
              .name = u"check-for-updates",
              .operation = &AppDelegate::checkForUpdates,
              .isThere = &AppDelegate::hasUpdater},
    StatusRow{u"Zeigewerk beenden", u"quit", &AppDelegate::quit},
};

bool hasCheckMark(const StatusRow &row)
{
    return row.flag && row.titleWhenOff.isEmpty();
}

} // namespace

StatusMenu::StatusMenu(AppDelegate &app)
    : m_app(app)
{
    buildActions();
    buildMenu(m_trayMenu);
    buildMenu(m_popupMenu);
    rebuild();
}

void StatusMenu::buildActions()
{
    for (const StatusRow &row : kStatusRows) {
        if (row.isThere && !(m_app.*row.isThere)()) {
            m_actions.push_back(nullptr);
            continue;
        }
        auto *action = new QAction(row.title.toString(), this);
        action->setObjectName(row.name.toString());
        action->setSeparator(row.title.isEmpty());
        action->setCheckable(hasCheckMark(row));
        action->setEnabled(row.operation || action->isSeparator());
        if (row.operation) {
            connect(action, &QAction::triggered, this, [this, &row] {
                std::invoke(row.operation, m_app);
                // Clicking has flipped the check mark, whether the operation did anything or not.
                rebuild();
            });
        }
        m_actions.push_back(action);
    }
    m_quit = m_actions.back();
    // For show: Qt has no actions fire that are in nothing but a menu without a menu bar, and the narrowest
    // context keeps it so. What acts is the event filter.
    m_quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    m_quit->setShortcutContext(Qt::WidgetShortcut);
    m_quit->setShortcutVisibleInContextMenu(true);
}

void StatusMenu::buildMenu(QMenu &menu)
{
    menu.setTitle(QStringLiteral("Zeigewerk"));
    menu.setAccessibleName(menu.title());
    for (QAction *action : m_actions) {
        if (action)
            menu.addAction(action);
    }
    menu.installEventFilter(this);
}

void StatusMenu::rebuild()
{
    for (std::size_t i = 0; i < kStatusRows.size(); ++i) {
        const StatusRow &row = kStatusRows[i];
        if (!row.flag)
            continue;
        const bool isOn = (m_app.*row.flag)();
        if (hasCheckMark(row))
            m_actions[i]->setChecked(isOn);
        else
            m_actions[i]->setText((isOn ? row.title : row.titleWhenOff).toString());
    }
}

bool StatusMenu::trigger(const QString &name)
{
    // To Qt an empty name is any.
    auto *action = name.isEmpty() ? nullptr : findChild<QAction *>(name, Qt::FindDirectChildrenOnly);
    if (action)
        action->trigger();
    return action != nullptr;
}

void StatusMenu::popUp(const QPoint &place)
{
    // One that is open stays where it is when it is merely popped up again.
    m_popupMenu.close();
    m_popupMenu.popup(place);
}

bool StatusMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (m_quit->shortcut() == QKeySequence(key->keyCombination())) {
            static_cast<QMenu *>(watched)->close();
            m_quit->trigger();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void AppDelegate::rebuildMenu()
{
    if (m_statusItem)
        m_statusItem->menu().rebuild();
}

void AppDelegate::openStatusMenu()
{
    if (m_statusItem)
        m_statusItem->menu().popUp(QCursor::pos());
}

} // namespace zeigewerk
