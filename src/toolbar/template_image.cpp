#include "toolbar/template_image.h"

#include <QColor>
#include <QPainter>

#include <utility>

namespace zeigewerk {

TemplateImage::TemplateImage(QSizeF size, Draw draw)
    : m_size(size)
    , m_draw(std::move(draw))
{
}

void TemplateImage::paint(QPainter &, QPointF, const QColor &) const {}

} // namespace zeigewerk
