#include "toolbar/toolbar.h"

#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "toolbar/toolbar_placement.h"

namespace zeigewerk {

Toolbar::Toolbar() = default;
Toolbar::~Toolbar() = default;

std::vector<PalButton *> Toolbar::allButtons() const
{
    const QList<PalButton *> buttons = panel->findChildren<PalButton *>();
    return {buttons.begin(), buttons.end()};
}

} // namespace zeigewerk
