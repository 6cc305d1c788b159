#pragma once

#include <QMenu>

#include <vector>

class QLineEdit;

namespace zeigewerk {

/// The menu "Bearbeiten" of a text field: its editing commands and their keys.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    /// `field` must outlive the menu.
    explicit EditMenu(QLineEdit &field);

    /// Performs the command of a key that was pressed with Ctrl, or with Ctrl and Shift; false if there is
    /// none.
    bool perform(Qt::Key key, bool isShifted);
    /// Disables the commands that are not possible now. Runs whenever the menu opens.
    void refresh();

private:
    QLineEdit &m_field;
    /// One for each row, including the separator.
    std::vector<QAction *> m_actions;
};

} // namespace zeigewerk
