#pragma once

#include <QIcon>

namespace zeigewerk {

class TemplateImage;

/// The icon for the tray. It is painted, but if the desktop's icon theme has our symbolic icon, it has that
/// one's name: trays that look the name up show the theme's icon in a colour that fits the tray. Other trays
/// get pixels, and the theme's icon is dark, so it would be invisible in a dark tray. Call this only once Qt
/// runs, since it needs the theme.
QIcon statusIcon();

/// The shape in white with a dark contour, visible in light and dark trays, in the usual sizes.
QIcon contouredIcon(const TemplateImage &glyph);

} // namespace zeigewerk
