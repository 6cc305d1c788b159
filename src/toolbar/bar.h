#pragma once

#include "drawing/color.h"

#include <QWidget>

namespace zeigewerk {

/// A strip of one colour on the toolbar: its grip, or a line between two groups of buttons. It takes no
/// input: pressing it drags the panel, like any part of the background.
class Bar : public QWidget
{
    Q_OBJECT

public:
    Bar(QWidget *parent, QSize size, double cornerRadius);

    Color color() const { return m_color; }
    void setColor(const Color &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_cornerRadius;
    Color m_color = kClear;
};

} // namespace zeigewerk
