#pragma once

#include "toolbar/template_image.h"

namespace zeigewerk {

/// The image of a width button: a filled circle of that diameter, in points, centred in 20 x 20 points.
TemplateImage dotImage(double diameter);

} // namespace zeigewerk
