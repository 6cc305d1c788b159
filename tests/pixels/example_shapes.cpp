#include "pixels/example_shapes.h"

#include "drawing/render_shape.h"

namespace zeigewerk::test {

Shape freehandShape(Tool tool, const Points &points, double width)
{
    return {
        .tool = tool, .points = points, .start = {}, .end = {}, .color = kOrange, .width = width, .text = {}};
}

Shape shapeBetween(Tool tool, QPointF start, QPointF end, double width)
{
    return {
        .tool = tool, .points = {}, .start = start, .end = end, .color = kOrange, .width = width, .text = {}};
}

Shape textShape(const QString &text, QPointF start, double width)
{
    return {.tool = Tool::text,
            .points = {},
            .start = start,
            .end = start,
            .color = kOrange,
            .width = width,
            .text = text};
}

Shape thickLine(QPointF from, QPointF to, const Color &color)
{
    Shape shape = shapeBetween(Tool::line, from, to, 9.0);
    shape.color = color;
    return shape;
}

Picture pictureOf(const std::vector<Shape> &shapes, double scale, double fade)
{
    Picture picture((QSizeF(160, 120) * scale).toSize(), scale);
    picture.repaintAll([&](platform::PaintTarget &target) {
        for (const Shape &shape : shapes)
            renderShape(target, shape, fade);
    });
    return picture;
}

} // namespace zeigewerk::test
