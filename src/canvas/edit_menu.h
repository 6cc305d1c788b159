#pragma once

#include <QMenu>

#include <vector>

class QLineEdit;

namespace zeigewerk {

/// The menu "Bearbeiten" of a text field: what can be done to its text, each with the key that does it, too.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    /// `field` must outlive the menu.
    explicit EditMenu(QLineEdit &field);

    /// Does what a key stands for that is pressed with Ctrl, or with Ctrl and Shift; false if it stands for
    /// nothing.
    bool perform(Qt::Key key, bool isShifted);
    /// Greys out what cannot be done to the text as it is now; done whenever the menu opens.
    void refresh();

private:
    QLineEdit &m_field;
    /// One for each row, the separator included.
    std::vector<QAction *> m_actions;
};

} // namespace zeigewerk
