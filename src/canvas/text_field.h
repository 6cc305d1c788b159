#pragma once

#include "canvas/edit_menu.h"
#include "drawing/color.h"
#include "platform/events.h"

#include <QLineEdit>

namespace zeigewerk {

/// The one-line field of the text tool. It shows text exactly as the canvas paints it, in a box. Its owner
/// places it.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    /// In points.
    static constexpr QSize kSize = QSize(340, 32);

    explicit TextField(const Color &textColor);

    /// The lower left corner of the text's line box: points from the lower left corner of the field, y up. It
    /// is as close to (2, 4) as whole pixels allow with the current font.
    QPointF lineOrigin() const;
    /// Without a compositor the field's background is opaque.
    void setComposited(bool isComposited);
    /// Commits the text that an input method is still composing.
    void commitComposition();
    /// Handles a key that was meant for the field but reached its canvas.
    void keyDown(const platform::KeyEvent &event);

    EditMenu &menu() { return m_menu; }

Q_SIGNALS:
    /// Return was pressed.
    void entered();
    /// Esc was pressed.
    void cancelled();
    /// A mouse button was pressed in the field.
    void pressed();
    void scrolled(const platform::ScrollEvent &event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void putTextInPlace();
    void setColors(const Color &text);

    EditMenu m_menu;
    /// The text that an input method shows but has not committed yet.
    QString m_composition;
    double m_baseLine = 0.0;
};

} // namespace zeigewerk
