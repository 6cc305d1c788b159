#include "toolbar/bar.h"

#include "drawing/qt_color.h"

#include <QPainter>

namespace zeigewerk {

Bar::Bar(QWidget *parent, QSize size, double cornerRadius)
    : QWidget(parent)
    , m_cornerRadius(cornerRadius)
{
    setFixedSize(size);
}

void Bar::setColor(const Color &color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
}

void Bar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(m_color));
    painter.drawRoundedRect(rect(), m_cornerRadius, m_cornerRadius);
}

} // namespace zeigewerk
