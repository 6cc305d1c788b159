#include "toolbar/panel.h"

#include <QPainter>

namespace zeigewerk {

void Panel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect().marginsRemoved(kShadow), QColor(40, 40, 40));
}

} // namespace zeigewerk
