#include "commands/status_icon.h"

#include "drawing/color.h"
#include "drawing/qt_color.h"
#include "toolbar/symbols.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace zeigewerk {

namespace {

/// The trays' sizes in pixels; they scale what lies between.
constexpr std::array kSizes = {16, 22, 24, 32, 48, 64};
/// So many pixels of the icon for each of its contour: one at the smallest size.
constexpr int kSizeToContour = 16;

QPixmap contoured(const TemplateImage &glyph, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    // Whole pixels, or it would be blurred.
    const int contour = qRound(static_cast<double>(size) / kSizeToContour);
    const double side = std::max(glyph.size().width(), glyph.size().height());
    const double scale = (size - 2 * contour) / side;

    QPainter painter(&pixmap);
    painter.scale(scale, scale);
    // In the middle, also where the shape is not square.
    const QPointF place(contour / scale + (side - glyph.size().width()) / 2,
                        contour / scale + (side - glyph.size().height()) / 2);
    const auto paintMoved = [&](int right, int down, const Color &color) {
        glyph.paint(painter, place + QPointF(right, down) * contour / scale, toQColor(color));
    };
    for (const int right : {-1, 0, 1}) {
        for (const int down : {-1, 0, 1})
            paintMoved(right, down, kNavy);
    }
    paintMoved(0, 0, kWhite);
    return pixmap;
}

/// What the program is known by where its symbol is missing: a dot.
TemplateImage dot()
{
    return {QSizeF(20, 20), [](QPainter &painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(Qt::black);
                painter.drawEllipse(QRectF(3, 3, 14, 14));
            }};
}

} // namespace

QIcon contouredIcon(const TemplateImage &glyph)
{
    QIcon icon;
    for (const int size : kSizes)
        icon.addPixmap(contoured(glyph, size));
    return icon;
}

QIcon statusIcon()
{
    const QString themed = QStringLiteral("zeigewerk-symbolic");
    if (QIcon::hasThemeIcon(themed))
        return QIcon::fromTheme(themed);
    return contouredIcon(symbolImage(QStringLiteral("pencil.and.outline")).value_or(dot()));
}

} // namespace zeigewerk
