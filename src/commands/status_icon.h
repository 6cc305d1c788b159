#pragma once

#include <QIcon>

namespace zeigewerk {

class TemplateImage;

/// The icon for the tray. Where the desktop's icon theme has one of ours it is that, which the tray
/// recolours; else a painted one. Needs the application's theme, so call it once Qt runs.
QIcon statusIcon();

/// That shape in white with a dark contour, which is seen on light and on dark panels alike, in each of the
/// usual sizes of a tray.
QIcon contouredIcon(const TemplateImage &glyph);

} // namespace zeigewerk
