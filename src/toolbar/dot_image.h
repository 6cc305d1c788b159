#pragma once

#include "toolbar/template_image.h"

namespace zeigewerk {

/// A filled circle of that diameter in the middle of 20 x 20 points: what a width button shows.
TemplateImage dotImage(double diameter);

} // namespace zeigewerk
