#include "canvas/edit_menu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace zeigewerk {

namespace {

bool canUndo(const QLineEdit &field)
{
    return field.isUndoAvailable();
}

bool canRedo(const QLineEdit &field)
{
    return field.isRedoAvailable();
}

bool hasSelection(const QLineEdit &field)
{
    return field.hasSelectedText();
}

bool canPaste(const QLineEdit &)
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

bool canSelectMore(const QLineEdit &field)
{
    return field.selectionLength() < field.text().length();
}

struct EditRow
{
    /// Empty for a separator.
    QStringView title;
    QKeyCombination key = Qt::Key_unknown;
    void (*perform)(QLineEdit &) = nullptr;
    bool (*isPossible)(const QLineEdit &) = nullptr;

    bool isSeparator() const { return title.isEmpty(); }
};

constexpr std::array kEditRows = {
    EditRow{u"Widerrufen", Qt::CTRL | Qt::Key_Z, [](QLineEdit &field) { field.undo(); }, &canUndo},
    EditRow{u"Wiederholen", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, [](QLineEdit &field) { field.redo(); },
            &canRedo},
    EditRow{},
    EditRow{u"Ausschneiden", Qt::CTRL | Qt::Key_X, [](QLineEdit &field) { field.cut(); }, &hasSelection},
    EditRow{u"Kopieren", Qt::CTRL | Qt::Key_C, [](QLineEdit &field) { field.copy(); }, &hasSelection},
    EditRow{u"Einfügen", Qt::CTRL | Qt::Key_V, [](QLineEdit &field) { field.paste(); }, &canPaste},
    EditRow{u"Alles auswählen", Qt::CTRL | Qt::Key_A, [](QLineEdit &field) { field.selectAll(); },
            &canSelectMore},
};

} // namespace

EditMenu::EditMenu(QLineEdit &field)
    : QMenu(QStringLiteral("Bearbeiten"))
    , m_field(field)
{
    setAccessibleName(title());
    for (const EditRow &row : kEditRows) {
        QAction *action = row.isSeparator() ? addSeparator() : addAction(row.title.toString());
        m_actions.push_back(action);
        if (row.isSeparator())
            continue;
        // For show: what acts is `perform`.
        action->setShortcut(QKeySequence(row.key));
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
        connect(action, &QAction::triggered, &field, [&field, &row] { row.perform(field); });
    }
    connect(this, &QMenu::aboutToShow, this, &EditMenu::refresh);
}

bool EditMenu::perform(Qt::Key key, bool isShifted)
{
    const QKeyCombination pressed(isShifted ? Qt::CTRL | Qt::SHIFT : Qt::CTRL, key);
    const auto row = std::find_if(kEditRows.begin(), kEditRows.end(), [pressed](const EditRow &each) {
        return !each.isSeparator() && each.key == pressed;
    });
    if (row == kEditRows.end())
        return false;
    row->perform(m_field);
    return true;
}

void EditMenu::refresh()
{
    for (std::size_t i = 0; i < kEditRows.size(); ++i) {
        if (!kEditRows.at(i).isSeparator())
            m_actions.at(i)->setEnabled(kEditRows.at(i).isPossible(m_field));
    }
}

} // namespace zeigewerk
