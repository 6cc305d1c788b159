#pragma once

#include <QIcon>

namespace zeigewerk {

class TemplateImage;

/// The icon for the tray. It is painted, but if the desktop's icon theme has our symbolic icon, it has that
/// one's name: trays that look the name up show the theme's icon in their panel's colour. Other trays get
/// pixels, and the theme's are dark, so invisible on a dark panel. Call this only once Qt runs, since it
/// needs the theme.
QIcon statusIcon();

/// The shape in white with a dark contour, visible on light and on dark panels, in the usual sizes of trays.
QIcon contouredIcon(const TemplateImage &glyph);

} // namespace zeigewerk
