#include "commands/status_item.h"

namespace zeigewerk {

StatusItem::StatusItem(platform::Desktop &, AppDelegate &) {}

} // namespace zeigewerk
