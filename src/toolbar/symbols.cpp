#include "toolbar/symbols.h"

namespace zeigewerk {

std::optional<TemplateImage> symbolImage(const QString &)
{
    return std::nullopt;
}

} // namespace zeigewerk
