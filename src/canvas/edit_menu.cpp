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

template <auto kMethod>
void call(QLineEdit &field)
{
    (field.*kMethod)();
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
    EditRow{u"Widerrufen", Qt::CTRL | Qt::Key_Z, &call<&QLineEdit::undo>, &canUndo},
    EditRow{u"Wiederholen", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &call<&QLineEdit::redo>, &canRedo},
    EditRow{},
    EditRow{u"Ausschneiden", Qt::CTRL | Qt::Key_X, &call<&QLineEdit::cut>, &hasSelection},
    EditRow{u"Kopieren", Qt::CTRL | Qt::Key_C, &call<&QLineEdit::copy>, &hasSelection},
    EditRow{u"Einfügen", Qt::CTRL | Qt::Key_V, &call<&QLineEdit::paste>, &canPaste},
    EditRow{u"Alles auswählen", Qt::CTRL | Qt::Key_A, &call<&QLineEdit::selectAll>, &canSelectMore},
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
        // Only shown: `perform` handles the keys.
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
