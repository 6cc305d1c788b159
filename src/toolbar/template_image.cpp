#include "toolbar/template_image.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <utility>

namespace zeigewerk {

namespace {

QImage tinted(QSize pixels, const QTransform &scale, const TemplateImage::Draw &draw, const QColor &tint)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setTransform(scale);
    draw(painter);
    painter.restore();
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), tint);
    return image;
}

QSize wholePixels(QSizeF size)
{
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

} // namespace

TemplateImage::TemplateImage(QSizeF size, Draw draw)
    : m_size(size)
    , m_draw(std::move(draw))
{
}

void TemplateImage::paint(QPainter &painter, QPointF topLeft, const QColor &tint) const
{
    // Maps points to the device's pixels. It includes the device's pixel ratio and, on a widget, its place in
    // the window.
    const QTransform toPixels = painter.deviceTransform();
    const QSizeF pixels(m_size.width() * toPixels.m11(), m_size.height() * toPixels.m22());
    const QImage image =
        tinted(wholePixels(pixels), QTransform::fromScale(toPixels.m11(), toPixels.m22()), m_draw, tint);
    const QPoint pixel = toPixels.map(topLeft).toPoint();

    painter.save();
    // Leaves only a translation by whole pixels, so that the image is not resampled.
    const QTransform worldToPixels = painter.worldTransform().inverted() * toPixels;
    painter.setWorldTransform(QTransform::fromTranslate(pixel.x(), pixel.y()) * worldToPixels.inverted());
    painter.drawImage(QPoint(), image);
    painter.restore();
}

} // namespace zeigewerk
