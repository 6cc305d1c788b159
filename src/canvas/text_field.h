#pragma once

#include "canvas/edit_menu.h"
#include "drawing/color.h"
#include "platform/events.h"

#include <QLineEdit>

namespace zeigewerk {

/// The one-line field of the text tool. It shows text exactly as the canvas paints it, in a box of its own;
/// placing it is left to whoever made it.
class TextField : public QLineEdit
{
    Q_OBJECT

public:
    /// In points.
    static constexpr QSize kSize = QSize(340, 32);

    explicit TextField(const Color &textColor);

    /// The lower left corner of the text's line box: points from the lower left corner of the field, y up.
    /// It is near (2, 4), as near as whole pixels allow with the font at hand.
    QPointF lineOrigin() const;
    /// Where nothing mixes the windows, the field is solid.
    void setComposited(bool isComposited);
    /// Takes over what an input method is still composing.
    void commitComposition();
    /// A key that was meant for the field and reached its canvas.
    void keyDown(const platform::KeyEvent &event);

    EditMenu &menu() { return m_menu; }

Q_SIGNALS:
    /// Return was pressed.
    void entered();
    /// Esc was pressed.
    void cancelled();
    /// A mouse button was pressed in it.
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
    /// What an input method shows and has not yet handed over.
    QString m_composition;
    double m_baseLine = 0.0;
};

} // namespace zeigewerk
