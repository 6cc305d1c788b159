#include "commands/status_menu.h"

#include "commands/status_item.h"
#include "core/app_delegate.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>

#include <array>
#include <functional>
#include <optional>

namespace zeigewerk {

using platform::Feature;

namespace {

struct StatusRow
{
    /// Empty for a separator.
    QStringView title;
    /// The action's name for other programs.
    QStringView name = {};
    /// Null for a line that only gives a hint.
    void (AppDelegate::*operation)() = nullptr;
    /// Shown as a check mark, or by the choice of title if there is a second one.
    bool (AppDelegate::*flag)() const = nullptr;
    QStringView titleWhenOff = {};
    /// The entry is disabled if the desktop does not offer it.
    std::optional<Feature> needs = {};
    /// Whether the entry exists at all, which does not change after launch; always if null.
    bool (AppDelegate::*exists)() const = nullptr;
};

/// The titles contain the hot keys, with glyphs for the modifiers. If they were shortcuts of the actions, Qt
/// would act on them a second time. Quitting is the last row.
constexpr StatusRow kSeparator = {};
// What belongs together is on one line.
// clang-format off
constexpr std::array kStatusRows = {
    StatusRow{.title = u"Zeichnen  ⌃⌥D", .name = u"draw",
              .operation = &AppDelegate::toggleDraw, .flag = &AppDelegate::drawOn},
    StatusRow{.title = u"Spotlight  ⌃⌥S", .name = u"spotlight",
              .operation = &AppDelegate::toggleSpot, .flag = &AppDelegate::spotlightOn,
              .needs = Feature::FollowingPointer},
    StatusRow{.title = u"Whiteboard  ⌃⌥W", .name = u"whiteboard",
              .operation = &AppDelegate::toggleBoard, .flag = &AppDelegate::whiteboardOn},
    StatusRow{.title = u"Klicks anzeigen  ⌃⌥K", .name = u"clicks",
              .operation = &AppDelegate::toggleClicks, .flag = &AppDelegate::clicksOn,
              .needs = Feature::ClicksElsewhere},
    StatusRow{.title = u"Zeichnung anpinnen  ⌃⌥P", .name = u"pin",
              .operation = &AppDelegate::togglePin, .flag = &AppDelegate::pinnedOn},
    StatusRow{.title = u"Cursor-Ring", .name = u"cursor-ring",
              .operation = &AppDelegate::toggleRing, .flag = &AppDelegate::cursorRingOn,
              .needs = Feature::FollowingPointer},
    StatusRow{.title = u"Auto-Fade (4 s)", .name = u"auto-fade",
              .operation = &AppDelegate::toggleFade, .flag = &AppDelegate::autoFadeOn},
    StatusRow{.title = u"Werkzeugleiste dunkel", .name = u"dark-toolbar",
              .operation = &AppDelegate::toggleDarkUI, .flag = &AppDelegate::darkUI},
    kSeparator,
    StatusRow{.title = u"Alles löschen", .name = u"clear", .operation = &AppDelegate::clearAll},
    StatusRow{.title = u"Werkzeugleiste ausblenden  ⌃⌥T", .name = u"toolbar",
              .operation = &AppDelegate::toggleToolbar, .flag = &AppDelegate::toolbarVisible,
              .titleWhenOff = u"Werkzeugleiste einblenden  ⌃⌥T"},
    kSeparator,
    StatusRow{.title = u"Esc beendet Zeichnen/Spotlight"},
    StatusRow{.title = u"⌥ + Scrollen: Spotlight-Größe"},
    StatusRow{.title = u"⇧ beim Zeichnen: gerade Linie / Quadrat / Kreis"},
    kSeparator,
    StatusRow{.title = u"Nach Updates suchen …", .name = u"check-for-updates",
              .operation = &AppDelegate::checkForUpdates, .exists = &AppDelegate::hasUpdater},
    StatusRow{.title = u"Zeigewerk beenden", .name = u"quit", .operation = &AppDelegate::quit},
};
// clang-format on

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
        if (row.exists && !(m_app.*row.exists)()) {
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
                // The click has flipped the check mark, even if the operation did nothing.
                rebuild();
            });
        }
        m_actions.push_back(action);
    }
    m_quit = m_actions.back();
    // Only displayed: Qt does not trigger shortcuts of actions in a menu without a menu bar, and the
    // narrowest context keeps it so. The event filter handles the key.
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
        if (row.needs)
            m_actions[i]->setEnabled(m_app.desktop().offers(*row.needs));
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
    // For findChild, an empty name matches any child.
    auto *action = name.isEmpty() ? nullptr : findChild<QAction *>(name, Qt::FindDirectChildrenOnly);
    if (action)
        action->trigger();
    return action != nullptr;
}

void StatusMenu::popUp(const QPoint &place)
{
    // popup() does not move a menu that is already open.
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
