#pragma once

#include "toolbar/template_image.h"

#include <QString>

#include <optional>

namespace zeigewerk {

/// The symbol of that name, 20 x 20 points; nothing if there is no such symbol.
std::optional<TemplateImage> symbolImage(const QString &name);

} // namespace zeigewerk
