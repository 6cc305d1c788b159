#include "core/app_delegate.h"

namespace zeigewerk {

void AppDelegate::toggleFade() {}
void AppDelegate::updateFadeTimer() {}
void AppDelegate::tickFade() {}

} // namespace zeigewerk
