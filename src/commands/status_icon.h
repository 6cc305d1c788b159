#pragma once

#include <QIcon>

namespace zeigewerk {

class TemplateImage;

/// The icon for the tray, a painted one. Where the desktop's icon theme has one of ours it has that one's
/// name, by which those trays that find it there show it in the colour of their panel. Others are given
/// pixels, and the theme's, dark as they are, would not be seen on a dark panel. Needs the application's
/// theme, so call it once Qt runs.
QIcon statusIcon();

/// That shape in white with a dark contour, which is seen on light and on dark panels alike, in each of the
/// usual sizes of a tray.
QIcon contouredIcon(const TemplateImage &glyph);

} // namespace zeigewerk
