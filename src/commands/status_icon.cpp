#include "commands/status_icon.h"

#include "drawing/color.h"
#include "drawing/qt_color.h"
#include "toolbar/symbols.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <utility>

namespace zeigewerk {

namespace {

/// The sizes that trays use, in pixels; trays scale to those in between.
constexpr std::array kSizes = {16, 22, 24, 32, 48, 64};
/// The ratio of the icon's size to its contour's width, which is one pixel at the smallest size.
constexpr int kSizeToContour = 16;

QPixmap contoured(const TemplateImage &glyph, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    // In whole pixels, or the contour would be blurred.
    const int contour = qRound(static_cast<double>(size) / kSizeToContour);
    const double side = std::max(glyph.size().width(), glyph.size().height());
    const double scale = (size - 2 * contour) / side;

    QPainter painter(&pixmap);
    painter.scale(scale, scale);
    // Centred, even if the shape is not square.
    const QPointF origin(contour / scale + (side - glyph.size().width()) / 2,
                         contour / scale + (side - glyph.size().height()) / 2);
    const auto paintShifted = [&](int dx, int dy, const Color &color) {
        glyph.paint(painter, origin + QPointF(dx, dy) * contour / scale, toQColor(color));
    };
    for (const int dx : {-1, 0, 1}) {
        for (const int dy : {-1, 0, 1})
            paintShifted(dx, dy, kNavy);
    }
    paintShifted(0, 0, kWhite);
    return pixmap;
}

/// Shown if the program's symbol is missing: a dot.
TemplateImage dot()
{
    return {QSizeF(20, 20), [](QPainter &painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(Qt::black);
                painter.drawEllipse(QRectF(3, 3, 14, 14));
            }};
}

/// An icon that looks like one icon and has the name of another.
class NamedIconEngine : public QIconEngine
{
public:
    NamedIconEngine(QString name, QIcon look)
        : m_name(std::move(name))
        , m_look(std::move(look))
    {
    }

    QString iconName() override { return m_name; }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        m_look.paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_look.pixmap(size, 1.0, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return m_look.availableSizes(mode, state);
    }
    QIconEngine *clone() const override { return new NamedIconEngine(m_name, m_look); }

private:
    QString m_name;
    QIcon m_look;
};

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
    const QIcon painted = contouredIcon(symbolImage(QStringLiteral("pencil.and.outline")).value_or(dot()));
    const QString themed = QStringLiteral("zeigewerk-symbolic");
    return QIcon::hasThemeIcon(themed) ? QIcon(new NamedIconEngine(themed, painted)) : painted;
}

} // namespace zeigewerk
