#include "toolbar/symbols.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <memory>

/// The linker omits the resources of a static library unless they are referenced. Registering them again does
/// nothing. Outside every namespace, because the macro declares a function in the enclosing one.
static void registerSymbols()
{
    Q_INIT_RESOURCE(symbols);
}

namespace zeigewerk {

namespace {

/// The grid on which the symbols are drawn.
constexpr QSizeF kGrid(20, 20);

} // namespace

std::optional<TemplateImage> symbolImage(const QString &name)
{
    if (name.contains(QLatin1Char('/')))
        return std::nullopt;
    registerSymbols();
    const QString file = QStringLiteral(":/symbols/%1.svg").arg(name);
    if (!QFile::exists(file))
        return std::nullopt;
    // Shared, because a std::function must be copyable.
    const auto renderer = std::make_shared<QSvgRenderer>(file);
    if (!renderer->isValid())
        return std::nullopt;
    return TemplateImage(kGrid,
                         [renderer](QPainter &painter) { renderer->render(&painter, QRectF({}, kGrid)); });
}

} // namespace zeigewerk
