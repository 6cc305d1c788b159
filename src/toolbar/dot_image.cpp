#include "toolbar/dot_image.h"

#include <QPainter>

namespace zeigewerk {

TemplateImage dotImage(double diameter)
{
    constexpr double kSide = 20.0;
    return TemplateImage({kSide, kSide}, [diameter](QPainter &painter) {
        const double margin = (kSide - diameter) / 2;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawEllipse(QRectF(margin, margin, diameter, diameter));
    });
}

} // namespace zeigewerk
